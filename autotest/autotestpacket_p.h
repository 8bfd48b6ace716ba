// The packet format of the factory station, without QObject: functions that build and verify
// packets, and a buffer that finds them in the received bytes.
//
//     0     1     2            3     4    5 ...          last
//     0xFF  0x55  length       type  DID  payload        checksum
//                 payload + 2                            sum of the bytes from the length on is 0
#pragma once

#include "logline_p.h"

#include <QByteArray>

#include <cstring>
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

constexpr char sync[]{'\xff', '\x55'};
constexpr int lengthOffset = 2;
/// Number of bytes that the length byte does not count: sync, length and checksum.
constexpr int uncounted = 4;
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
/// the chunks. What each chunk needs is inline.
class ReceiveBuffer {
public:
    ReceiveBuffer() = default;
    /// Not copyable: the pointers are into the block.
    Q_DISABLE_COPY(ReceiveBuffer)

    void clear();
    void append(const QByteArray &chunk)
    {
        const int more = chunk.size();
        if (more >= m_limit - m_end)
            makeRoom(std::size_t(more));
        std::memcpy(m_end, chunk.constData(), std::size_t(more));
        m_end += more;
    }
    bool isEmpty() const { return size() == 0; }
    qint64 size() const { return m_end - m_begin; }

    /// Drops the bytes before the first 0xFF 0x55 and returns true. Without the pair drops all but
    /// the last byte, which may be the first half of a pair, and returns false.
    bool searchSyncId()
    {
        const char *at = m_begin;
        while (m_end - at > 1 && std::memcmp(at, sync, sizeof sync) != 0)
            ++at;
        m_begin = at;
        return m_end - at > 1;
    }
    /// Moves the packet at the front, with the length that its length byte gives, to `packet`. If
    /// bytes are missing, logs this, changes nothing and returns false. For length bytes from 0xFC
    /// on, `packet` gets 0 to 3 bytes, which are never a valid packet.
    bool checkPackageIsEntire(QByteArray &packet)
    {
        if (size() <= 3 || packetSize() > size()) {
            if (isDebugLogged())
                logMissing(CALL_SITE);
            return false;
        }
        const char *const front = m_begin;
        const quint8 total = packetSize();
        // Consumed first: without memory for it the packet is lost, and the next one is found.
        m_begin += total;
        packet.resize(total); // reuses its memory
        std::memcpy(packet.data(), front, total);
        return true;
    }

private:
    /// The size of the packet at the front, from its length byte. Kept: in 8 bits, as the station
    /// counts, so length bytes from 0xFC on give 0 to 3.
    quint8 packetSize() const { return quint8(quint8(m_begin[lengthOffset]) + uncounted); }
    void logMissing(const CallSite &caller) const;
    /// Moves the waiting bytes to the front of the block, and enlarges it if they fill half of it.
    void makeRoom(std::size_t more);

    std::vector<char> m_block;
    const char *m_begin = nullptr; ///< the waiting bytes
    char *m_end = nullptr;
    char *m_limit = nullptr; ///< end of the block
};

} // namespace mcu::wire
