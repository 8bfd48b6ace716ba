// Plays a scenario through the library on virtual time.
#pragma once

#include "desk.h"
#include "scenario.h"

#include <QElapsedTimer>
#include <QMap>

namespace mcusim {

/// What came of a play.
struct Outcome {
    QList<Event> outputs;
    int reports = 0;
    int calls = 0;
    /// Reports after which nothing at all left the library at once, by name.
    QMap<QString, int> unanswered;
    qint64 duration = 0; ///< virtual milliseconds
};

class Player {
public:
    using Listener = std::function<void(const Event &event)>;

    /// Told of every event, played or come out, in order.
    Player(substitute::VirtualClock *clock, Desk::Link link, Listener listener);

    /// Plays at a multiple of the speed of life; 0 does not wait at all. The moments of all events,
    /// the library's timers included, are the same at any speed.
    Outcome play(const Scenario &scenario, double speed);

private:
    void runUntil(qint64 moment);
    void keepPace(qint64 moment) const;
    void hear(const Event &event);

    substitute::VirtualClock *m_clock;
    Listener m_listener;
    Outcome m_outcome;
    double m_speed = 0;
    QElapsedTimer m_started;
    Desk m_desk;
};

} // namespace mcusim
