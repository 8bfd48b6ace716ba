// The packet format of the factory station, without QObject: functions that build and verify
// packets, and a buffer that finds them in the received bytes.
//
//     0     1     2            3     4    5 ...          last
//     0xFF  0x55  length       type  DID  payload        checksum
//                 payload + 2                            sum of the bytes from the length on is 0
#pragma once

#include <QByteArray>

#include <vector>

namespace mcu::wire {

/// Packet types. A response is its request plus 0x40; feedback is sent in both directions.
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
/// The longest payload whose length fits the length byte; longer ones are cut.
constexpr int maxPayload = 253;

/// A complete packet.
QByteArray build(quint8 type, quint8 did, const QByteArray &payload);

/// The byte at an offset of the whole packet, 0..255; 0 after its end. The byte after a short
/// payload is the checksum.
int byteAt(const QByteArray &packet, int offset);
/// The payload byte with this number, from 0; after the payload as byteAt().
inline int payloadByte(const QByteArray &packet, int number)
{
    return byteAt(packet, payloadOffset + number);
}
/// The payload byte with this number, at its offset modulo the length of the packet.
int wrappedPayloadByte(const QByteArray &packet, int number);

/// Whether the last byte is the checksum of the packet; if not, logs both values. Reads nothing
/// outside len bytes; false if len is 0 or less.
bool verifiPackageCheckSum(const char *data, int len);

/// The received bytes that are not yet consumed. Each byte is searched once and moved once on
/// average, so the cost per byte does not depend on the number of waiting bytes or on the size of
/// the chunks.
class ReceiveBuffer {
public:
    void append(const QByteArray &chunk);
    bool isEmpty() const { return size() == 0; }
    qint64 size() const { return qint64(m_bytes.size() - m_begin); }

    /// Drops the bytes before the first 0xFF 0x55 and returns their number. Without the pair
    /// returns -1 and keeps all bytes, because the pair may be split.
    qint64 searchSyncId();
    /// Moves the packet at the front, with the length that its length byte gives, to `packet`. If
    /// bytes are missing, logs this, changes nothing and returns false. For length bytes from 0xFC
    /// on, `packet` gets 0 to 3 bytes, which are never a valid packet.
    bool checkPackageIsEntire(QByteArray &packet);

private:
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;    ///< the bytes before it are consumed
    std::size_t m_searched = 0; ///< no pair begins between m_begin and it
};

} // namespace mcu::wire
