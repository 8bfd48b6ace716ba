// The floor for received factory packets: the minimum of work, written by hand, that the codec is
// compared with. One block of bytes, the offset of the consumed ones, and memchr for the sync.
#pragma once

#include <QByteArray>

#include <cstring>
#include <vector>

class CodecFloor {
public:
    void append(const QByteArray &chunk)
    {
        const auto more = std::size_t(chunk.size());
        if (m_end + more > m_bytes.size()) {
            const std::size_t waiting = m_end - m_begin;
            if (waiting + more > m_bytes.size() / 2)
                m_bytes.resize(2 * (waiting + more));
            std::memmove(m_bytes.data(), m_bytes.data() + m_begin, waiting);
            m_searched -= m_begin;
            m_begin = 0;
            m_end = waiting;
        }
        std::memcpy(m_bytes.data() + m_end, chunk.constData(), more);
        m_end += more;
    }

    /// Copies the next packet to `packet` if it is complete. Returns whether its checksum is right.
    bool take(QByteArray &packet)
    {
        const char *const end = m_bytes.data() + m_end;
        const char *at = m_bytes.data() + m_searched;
        for (;; ++at) {
            at = static_cast<const char *>(std::memchr(at, 0xff, std::size_t(end - at)));
            if (!at || at + 1 == end) {
                m_searched = m_end - (at ? 1 : 0);
                return false;
            }
            if (at[1] == 0x55)
                break;
        }
        m_begin = m_searched = std::size_t(at - m_bytes.data());
        if (m_end - m_begin < 4)
            return false;
        const int total = quint8(at[2]) + 4;
        if (std::size_t(total) > m_end - m_begin)
            return false;
        packet.resize(total);
        std::memcpy(packet.data(), at, std::size_t(total));
        m_begin += std::size_t(total);
        m_searched = m_begin;
        unsigned sum = 0;
        for (int i = 2; i < total; ++i)
            sum += quint8(packet.constData()[i]);
        return quint8(sum) == 0;
    }

private:
    std::vector<char> m_bytes;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::size_t m_searched = 0;
};
