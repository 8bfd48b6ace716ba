// A running application with the probe in it, as a client of its socket: inputs go in as scenario
// lines, what the library does there comes back as events.
#pragma once

#include "catalogue.h"
#include "jsonlines.h"

#include <vector>

namespace mcusim {

/// An application that serves a socket, known by the name of the file: NAME.PID.
struct LiveProcess {
    QString name;
    int pid = 0;
    QString path;

    QString text() const { return name + '.' + QString::number(pid); }
};

enum class Leftovers { Keep, Remove };

/// All that run, by name and number. Throws a Refusal when the folder of the sockets is not this
/// user's alone.
QVector<LiveProcess> liveProcesses(Leftovers leftovers = Leftovers::Keep);
/// Those that NAME, NAME.PID or PID means; all for an empty name.
QVector<LiveProcess> processesNamed(const QString &name);
/// The one of them. Throws a Refusal that lists them when there is none or more than one.
LiveProcess findProcess(const QString &name);

/// Waits in poll() only, so it works beside an event loop and without one.
class LiveClient {
public:
    /// Waits for the event loop of the application, so many milliseconds at most. Throws a Refusal
    /// when it does not answer, or has another protocol.
    LiveClient(const Catalogue &names, const LiveProcess &process, int patience = 5000);
    ~LiveClient();
    LiveClient(const LiveClient &) = delete;
    LiveClient &operator=(const LiveClient &) = delete;

    const LiveProcess &process() const { return m_process; }
    /// What it says of itself: "program", "pid", "link", "library".
    const QJsonObject &metadata() const { return m_metadata; }

    /// Sinks hear every event, its time counted in the application, in the order in which they were
    /// added, and must stay. An event that the catalogue does not have is heard, too.
    void addSink(Sink *sink) { m_sinks.push_back(sink); }
    /// Called for each line sent: why it was not done, or empty.
    std::function<void(int number, const QString &why)> onAnswer;
    /// Called in the place of events that this client was too slow for.
    std::function<void(qint64 count)> onMissed;

    /// Sends a line and returns its number, from 1. Nothing is sent once the application has ended.
    int send(const QByteArray &line);
    /// Sends a line and waits until it is done; why it was not, or empty. Throws a Refusal when the
    /// application ends before.
    QString ask(const QByteArray &line);
    /// From now on only these are heard: globs as of `play`. Throws a Refusal for a glob that
    /// nothing matches.
    void limitTo(const QStringList &only, const QStringList &except);

    /// To wait for together with others: it is readable when receive() has something.
    int descriptor() const { return m_descriptor; }
    /// Waits for something to come, at most so many milliseconds (-1: for ever) and not past a
    /// signal, and tells it. False when the application has ended and all that came is told.
    bool receive(int milliseconds = 0);

private:
    void connectTo(const QString &path);
    bool waitFor(short events, int milliseconds) const;
    bool fill();
    void take(const QByteArray &line);
    Event readUnlisted(const QJsonObject &line);

    const Catalogue &m_names;
    LiveProcess m_process;
    int m_descriptor = -1;
    QJsonObject m_metadata;
    LineReader m_lines;
    QByteArray m_unsent;
    bool m_hasEnded = false;
    bool m_isMuted = false; ///< until a filter holds
    int m_sent = 0;
    int m_answered = 0; ///< number of the last answer
    QString m_why;      ///< the same answer
    std::vector<Sink *> m_sinks;
    std::deque<Signature> m_unlisted; ///< what the catalogue does not have
};

} // namespace mcusim
