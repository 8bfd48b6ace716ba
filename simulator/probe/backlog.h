// What waits for a client that may be slow, or may never read.
#pragma once

#include <QByteArray>

namespace mcusim::probe {

/// Events wait up to a limit; those beyond it are counted, and the client is told the number in
/// their place. Answers always wait.
class Backlog {
public:
    void addEvent(const QByteArray &line);
    void addAnswer(const QByteArray &line);

    bool isEmpty() const { return size() == 0 && m_missed == 0; }
    /// Whether it is time to send without waiting for the event loop.
    bool isLong() const { return size() >= longest / 4; }
    /// Whether the client asks and asks and does not read the answers.
    bool isHopeless() const { return size() > 3 * longest; }

    /// Sends what the connection takes at once; false when it is broken. Whether something is left
    /// that it does not take now.
    bool send(int socket);
    bool isBlocked() const { return m_isBlocked; }
    void unblock() { m_isBlocked = false; }

private:
    static constexpr int longest = 1 << 20;

    int size() const { return m_bytes.size() - m_sent; }
    void append(const QByteArray &line);
    void tellMissed();

    QByteArray m_bytes;
    int m_sent = 0; ///< so many of them
    qint64 m_missed = 0;
    bool m_isBlocked = false;
};

} // namespace mcusim::probe
