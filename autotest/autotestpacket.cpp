// Builds factory packets, verifies them and finds them in the received bytes.
#include "autotestpacket_p.h"

#include "logline_p.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace mcu::wire {

namespace {

/// The sum of the bytes in 8 bits.
quint8 sumOf(const char *from, const char *end)
{
    quint8 sum = 0;
    for (; from < end; ++from)
        sum = quint8(sum + quint8(*from));
    return sum;
}

/// Logs both values and returns false. A function of its own, so that its caller needs no stack
/// frame while the checksum is right.
Q_NEVER_INLINE bool mismatch(const CallSite &caller, quint8 received, quint8 computed)
{
    if (isCriticalLogged())
        LogLine(QtCriticalMsg, caller) << received << computed;
    return false;
}

} // namespace

QByteArray build(quint8 type, quint8 did, const QByteArray &payload)
{
    const QByteArray content = payload.left(maxPayload);
    const int length = content.size() + 2;
    const char header[]{sync[0], sync[1], char(length), char(type), char(did)};
    QByteArray packet(length + uncounted, Qt::Uninitialized);
    char *end = std::copy(std::begin(header), std::end(header), packet.begin());
    end = std::copy(content.cbegin(), content.cend(), end);
    *end = char(-sumOf(packet.cbegin() + lengthOffset, end));
    return packet;
}

int byteAt(const QByteArray &packet, int offset)
{
    return offset < packet.size() ? quint8(packet.at(offset)) : 0;
}

int wrappedPayloadByte(const QByteArray &packet, int number)
{
    return packet.isEmpty() ? 0 : byteAt(packet, (payloadOffset + number) % packet.size());
}

bool verifiPackageCheckSum(const char *data, int len)
{
    static constexpr CallSite here = CALL_SITE;
    if (len <= 0)
        return mismatch(here, 0, 0);
    const char *const end = data + len;
    const quint8 sum = sumOf(data + std::min(len - 1, lengthOffset), end);
    const quint8 received = quint8(end[-1]);
    return sum == 0 || mismatch(here, received, quint8(received - sum));
}

void ReceiveBuffer::clear()
{
    m_block = std::vector<char>();
    m_begin = m_end = m_limit = nullptr;
}

void ReceiveBuffer::makeRoom(std::size_t more)
{
    constexpr std::size_t spare = 1024;
    const auto waiting = std::size_t(size());
    const auto consumed = std::size_t(m_begin - m_block.data());
    if (waiting + more >= m_block.size() / 2) {
        try {
            m_block.insert(m_block.end(), waiting + more + spare, '\0');
        } catch (...) {
            clear(); // without this chunk its packet is lost, but the next one is found
            throw;
        }
    }
    char *const front = m_block.data();
    std::memmove(front, front + consumed, waiting);
    m_begin = front;
    m_end = front + waiting;
    m_limit = front + m_block.size();
}

void ReceiveBuffer::logMissing(const CallSite &caller) const
{
    LogLine line(QtDebugMsg, caller);
    line << size();
    if (size() > 3)
        line << packetSize() << quint8(m_begin[lengthOffset]);
}

} // namespace mcu::wire
