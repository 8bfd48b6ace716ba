// The floor for received factory packets: the minimum of work, written by hand, that the codec is
// compared with. One block of bytes with pointers to the waiting ones, one comparison per byte in
// the search for the sync, and the checksum summed in 8 bits.
#pragma once

#include <QByteArray>

#include <cstring>
#include <vector>

class CodecFloor {
public:
    void append(const QByteArray &chunk)
    {
        const int more = chunk.size();
        if (m_limit - m_end < more)
            makeRoom(std::size_t(more));
        std::memcpy(m_end, chunk.constData(), std::size_t(more));
        m_end += more;
    }

    /// Copies the next packet to `packet` if it is complete. Returns whether its checksum is right.
    bool take(QByteArray &packet)
    {
        const char *at = m_begin;
        while (m_end - at > 3 && std::memcmp(at, "\xff\x55", 2) != 0)
            ++at;
        m_begin = at;
        if (m_end - at < 4)
            return false;
        const quint8 total = quint8(at[2] + 4);
        if (total > m_end - at)
            return false;
        packet.resize(total);
        std::memcpy(packet.data(), at, total);
        m_begin = at + total;
        quint8 sum = 0;
        for (int i = 2; i < total; ++i)
            sum = quint8(sum + quint8(at[i]));
        return sum == 0;
    }

private:
    void makeRoom(std::size_t more)
    {
        const auto waiting = std::size_t(m_end - m_begin);
        const auto consumed = std::size_t(m_begin - m_block.data());
        if (waiting + more > m_block.size() / 2)
            m_block.resize(m_block.size() + waiting + more);
        char *const front = m_block.data();
        std::memmove(front, front + consumed, waiting);
        m_begin = front;
        m_end = front + waiting;
        m_limit = front + m_block.size();
    }

    std::vector<char> m_block = std::vector<char>(1024);
    const char *m_begin = m_block.data(); ///< the waiting bytes
    char *m_end = m_block.data();
    char *m_limit = m_end + m_block.size();
};
