// Builds factory packets, verifies them and finds them in the received bytes.
#include "autotestpacket_p.h"

#include "debug.h"

#include <algorithm>
#include <iterator>

namespace mcu::wire {

namespace {

constexpr char sync[]{'\xff', '\x55'};
/// Number of bytes that the length byte does not count: sync, length and checksum.
constexpr int uncounted = 4;

/// The value that makes the 8-bit sum of the bytes and itself 0.
quint8 checksumOf(const char *from, const char *end)
{
    unsigned sum = 0;
    for (; from < end; ++from)
        sum += quint8(*from);
    return quint8(0x100 - (sum & 0xff));
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
    *end = char(checksumOf(packet.cbegin() + lengthOffset, end));
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
    const char *last = data + std::max(len - 1, 0);
    const quint8 received = len > 0 ? quint8(*last) : 0;
    const quint8 computed = checksumOf(data + std::clamp(len, 0, lengthOffset), last);
    if (len > 0 && received == computed)
        return true;
    MCU_CRITICAL << received << computed;
    return false;
}

void ReceiveBuffer::append(const QByteArray &chunk)
{
    // Consumed bytes are removed only when they are more than the waiting ones.
    if (m_begin > m_bytes.size() / 2) {
        m_bytes.erase(m_bytes.begin(), std::next(m_bytes.begin(), qptrdiff(m_begin)));
        m_searched -= m_begin;
        m_begin = 0;
    }
    m_bytes.insert(m_bytes.end(), chunk.begin(), chunk.end());
}

qint64 ReceiveBuffer::searchSyncId()
{
    const auto from = std::next(m_bytes.cbegin(), qptrdiff(m_searched));
    const auto pair = std::search(from, m_bytes.cend(), std::begin(sync), std::end(sync));
    if (pair == m_bytes.cend()) {
        if (!isEmpty())
            m_searched = m_bytes.size() - 1; // the last byte may be the first half of a pair
        return -1;
    }
    const std::size_t garbage = std::size_t(pair - m_bytes.cbegin()) - m_begin;
    m_begin += garbage;
    m_searched = m_begin;
    return qint64(garbage);
}

bool ReceiveBuffer::checkPackageIsEntire(QByteArray &packet)
{
    if (size() <= 3) {
        MCU_DEBUG << size();
        return false;
    }
    const char *front = m_bytes.data() + m_begin;
    const quint8 length = quint8(front[lengthOffset]);
    // Kept: in 8 bits, as the station counts, so length bytes from 0xfc on give 0 to 3.
    const quint8 total = quint8(length + uncounted);
    if (total > size()) {
        MCU_DEBUG << size() << total << length;
        return false;
    }
    packet.resize(total); // reuses its memory
    std::copy_n(front, total, packet.begin());
    m_begin += total;
    m_searched = m_begin;
    return true;
}

} // namespace mcu::wire
