// The wire format of the factory station, apart from everything that listens to it: packets are
// built, found in the received bytes, cut and verified.
//
//     0     1     2            3     4    5 ...          last
//     0xFF  0x55  length       type  DID  payload        checksum
//                 payload + 2                            bytes from the length on add up to 0
#pragma once

#include <QByteArray>

#include <vector>

namespace mcu::wire {

/// Packet types. A response is its request plus 0x40; feedback runs both ways.
enum Type : quint8 {
    Feedback = 0x21,
    ReadRequest = 0x22,
    WriteRequest = 0x2e,
    ReadResponse = 0x62,
    WriteResponse = 0x6e,
};

constexpr int lengthOffset = 2;
constexpr int typeOffset = 3;
constexpr int didOffset = 4;
constexpr int payloadOffset = 5;
/// The longest payload whose length still fits its byte; what is longer is cut off.
constexpr int maxPayload = 253;

/// A complete packet.
QByteArray build(quint8 type, quint8 did, const QByteArray &payload);

/// The byte at an offset of the whole packet, 0..255; 0 past its end. Behind a short payload that
/// is the checksum.
int byteAt(const QByteArray &packet, int offset);
/// The payload byte with this number, from 0; past the payload as byteAt().
inline int payloadByte(const QByteArray &packet, int number)
{
    return byteAt(packet, payloadOffset + number);
}
/// The same at its offset modulo the packet's length.
int wrappedPayloadByte(const QByteArray &packet, int number);

/// Whether the last byte is the checksum of the packet; logs both values when not. Nothing is read
/// outside len bytes; without any byte there is no checksum that could be right.
bool verifiPackageCheckSum(const char *data, int len);

/// The bytes received and not yet consumed. Costs per byte are constant on average however many
/// wait and however they were split: bytes are searched once and moved once at most.
class ReceiveBuffer {
public:
    void append(const QByteArray &chunk);
    bool isEmpty() const { return size() == 0; }
    qint64 size() const { return qint64(m_bytes.size() - m_begin); }

    /// Drops what stands before the first 0xFF 0x55 and gives how much that was. Without the pair
    /// gives -1 and keeps everything: the pair may be half here.
    qint64 searchSyncId();
    /// Moves the packet at the front, as long as its length byte says, into `packet`; logs and
    /// leaves both alone while bytes are missing. Length bytes from 0xFC on cut 0 to 3 bytes,
    /// which cannot verify.
    bool checkPackageIsEntire(QByteArray &packet);

private:
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;    ///< what is before it is consumed
    std::size_t m_searched = 0; ///< no pair begins between m_begin and it
};

} // namespace mcu::wire
