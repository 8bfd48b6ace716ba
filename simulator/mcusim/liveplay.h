// Plays a scenario into a running application, at its pace, and judges what comes back.
#pragma once

#include "liveclient.h"
#include "verdicts.h"

#include "livejudge.h"
#include "scenario.h"
#include "sinks.h"

#include <QElapsedTimer>

namespace mcusim {

class CommandLine;
class Printer;

/// Tells its sinks what happens in the application, in the time of the scenario.
class LivePlay : public Sink {
public:
    /// Asked several times a second; false stops.
    using GoOn = std::function<bool()>;

    /// Reads the options "speed" and "tolerance", and a regular file to its end. Throws a Refusal
    /// for what it cannot use.
    LivePlay(const Catalogue &names, const CommandLine &line, const QString &path, GoOn goOn);

    const ScenarioFile &file() const { return m_file; }
    void addSink(Sink *sink) { m_sinks.push_back(sink); }

    /// Returns when all is played, or when it is stopped or the application has ended. Throws a
    /// Refusal that names the line for an input that is not done.
    void run(LiveClient &client);

    void hear(const Event &event) override;
    /// How far it has come.
    qint64 now() const;
    QStringList faults() const;
    /// How the play went, for people.
    void print(Printer &printer) const;

private:
    bool isGoing() const { return m_client && m_goOn(); }
    void receive(int milliseconds);
    void waitUntil(qint64 moment);

    double m_speed;
    GoOn m_goOn;
    LiveClient *m_client = nullptr; ///< until the application ends
    ScenarioFile m_file;
    LiveJudge m_judge;
    Counters m_counters;
    std::vector<Sink *> m_sinks;
    qint64 m_ended = 0;       ///< when it did
    bool m_wasCutOff = false; ///< by that
    qint64 m_missed = 0;
    QElapsedTimer m_since; ///< the start of the play
    std::optional<Event> m_first;
    std::optional<qint64> m_origin; ///< of the scenario, in the time of the application
};

/// `mcusim play --on`: returns the exit status.
int playLive(const CommandLine &line, const QString &path, JUnitFile &junit);

} // namespace mcusim
