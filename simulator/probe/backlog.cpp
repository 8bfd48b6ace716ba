#include "backlog.h"

#include <cerrno>

#include <sys/socket.h>

namespace mcusim::probe {

void Backlog::addEvent(const QByteArray &line)
{
    if (size() + line.size() > longest) {
        ++m_missed;
        return;
    }
    tellMissed();
    append(line);
}

void Backlog::addAnswer(const QByteArray &line)
{
    tellMissed();
    append(line);
}

bool Backlog::send(int socket)
{
    while (!isEmpty() && !m_isBlocked) {
        if (size() == 0)
            tellMissed();
        const ssize_t sent = ::send(socket, m_bytes.constData() + m_sent, std::size_t(size()),
                                    MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent >= 0)
            m_sent += int(sent);
        else if (errno == EAGAIN)
            m_isBlocked = true;
        else if (errno != EINTR)
            return false;
    }
    return true;
}

void Backlog::append(const QByteArray &line)
{
    // Moved to the front once in a while, so that a byte is moved less than once on average.
    if (m_sent > m_bytes.size() / 2) {
        m_bytes.remove(0, m_sent);
        m_sent = 0;
    }
    m_bytes += line;
}

void Backlog::tellMissed()
{
    if (m_missed > 0)
        append("{\"missed\":" + QByteArray::number(m_missed) + "}\n");
    m_missed = 0;
}

} // namespace mcusim::probe
