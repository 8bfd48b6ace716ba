// The clock of a simulation: virtual for files and tests, real for live programs with an event
// loop.
#pragma once

#include "virtualclock.h"

#include <QElapsedTimer>

#include <functional>

namespace mcusim {

class Clock {
public:
    virtual ~Clock() = default;
    /// Milliseconds since the start.
    virtual qint64 now() const = 0;
    /// Moves to a moment and fires what is due until then. False when it was stopped on the way.
    virtual bool advanceTo(qint64 moment) = 0;
    /// The same, but no further than to the next timer.
    virtual bool advanceOnce(qint64 moment) = 0;
    /// Delivers what is posted at the present moment.
    virtual void settle() = 0;
};

/// Moves at a multiple of real time or without waiting; at any speed, every timer fires at exactly
/// its due time.
class VirtualTime : public Clock {
public:
    /// Called before each move and several times per second while waiting; false stops.
    using GoOn = std::function<bool(qint64 now)>;

    VirtualTime(substitute::VirtualClock *clock, GoOn goOn);

    /// From the present moment on; 0 does not wait.
    void setSpeed(double speed);

    qint64 now() const override { return m_clock->now(); }
    bool advanceTo(qint64 moment) override;
    bool advanceOnce(qint64 moment) override;
    void settle() override { m_clock->settle(); }

private:
    bool waitFor(qint64 moment) const;

    substitute::VirtualClock *m_clock;
    GoOn m_goOn;
    double m_speed = 0;
    qint64 m_from = 0;     ///< the moment at which this speed began
    qint64 m_fromReal = 0; ///< the same in nanoseconds of the machine
};

/// The time of the machine, which the application's own event loop waits for; it cannot be moved.
class RealTime : public Clock {
public:
    RealTime() { m_started.start(); }

    qint64 now() const override { return m_started.elapsed(); }
    bool advanceTo(qint64) override { return true; }
    bool advanceOnce(qint64) override { return true; }
    void settle() override {}

private:
    QElapsedTimer m_started;
};

} // namespace mcusim
