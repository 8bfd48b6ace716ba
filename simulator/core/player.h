// Plays the events of a scenario into a simulation at their moments.
#pragma once

#include "judge.h"
#include "simulation.h"

#include <QBasicTimer>
#include <QObject>

namespace mcusim {

/// Two ways to play: run() moves a virtual clock and returns when all is played; start() returns at
/// once and plays from the event loop of a live program.
class Player : public QObject {
public:
    /// The next line, or nothing at the end.
    using Source = std::function<std::optional<Event>()>;
    /// Called when a start() ends, with the reason if a line cannot be read.
    using Stopped = std::function<void(const QString &why)>;

    /// Plays an input. Returns one line with the reason if it cannot be played, else an empty text.
    using Input = std::function<QString(const Event &input)>;

    /// Without a judge, expected lines are not compared.
    Player(Source source, Simulation &simulation, Judge *judge);
    /// Plays into anything.
    Player(Source source, Input play, Clock &clock, Judge *judge = nullptr);

    /// Moves to the next line and plays it. False at the end, and when the clock was stopped.
    bool step();
    /// Plays all lines before a moment, and for run() those at the moment, too. False when the
    /// clock was stopped.
    bool seek(qint64 moment);
    bool run(qint64 until) { return seek(until + 1); }

    /// Goes on from here at a multiple of real time.
    void start(double speed, Stopped stopped);
    void pause() { m_timer.stop(); }
    bool isRunning() const { return m_timer.isActive(); }

    /// The line that comes next, or null.
    const Event *next();
    /// The moments of the last line and of the last one that was played in.
    qint64 position() const { return m_position; }
    qint64 lastInput() const { return m_lastInput; }

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    double untilDue(const Event &event) const;

    Source m_source;
    Input m_play;
    Clock &m_clock;
    Judge *m_judge;
    std::optional<Event> m_next;
    bool m_isAtEnd = false;
    qint64 m_position = 0;
    qint64 m_lastInput = 0;

    QBasicTimer m_timer;
    double m_speed = 0;
    qint64 m_from = 0;     ///< the position at start()
    QElapsedTimer m_since; ///< start()
    Stopped m_stopped;
};

} // namespace mcusim
