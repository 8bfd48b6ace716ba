// Virtual time: an event dispatcher whose clock moves only when asked to. Timers fire
// in exact order of their due times without waiting, the same on every run.
#pragma once

#include <QAbstractEventDispatcher>

#include <condition_variable>
#include <mutex>
#include <vector>

namespace substitute {

/// Make one before the application object; the application then owns it:
///
///     auto *clock = VirtualClock::install();
///     QCoreApplication app(argc, argv);
///     clock->advance(3000);
///
/// Posted events (queued signals, also from other threads) are delivered at the present virtual
/// time. Time moves only in advance(), advanceTo() and in an event loop that has nothing else to do
/// (exec() hurries from timer to timer). Socket notifiers are not supported.
///
/// A timer without interval fires without time moving, but only once at each moment: after one has
/// fired, such timers wait for the next millisecond. So none can hold the clock.
class VirtualClock : public QAbstractEventDispatcher {
    Q_OBJECT

public:
    /// Creates the clock and makes it the main thread's dispatcher. Call before the application
    /// object exists.
    static VirtualClock *install();

    VirtualClock();
    ~VirtualClock() override;

    /// Virtual milliseconds since the clock was made.
    qint64 now() const { return m_now; }
    /// Delivers posted events at the present time without moving it. Outside an event loop that
    /// includes deleteLater().
    void settle();
    /// Moves time by ms and fires, in order, every timer that falls due on the way, the timers due
    /// exactly at the end included. Events that a timer posts are delivered before the next timer.
    void advance(qint64 ms);
    /// Moves time to an absolute moment; one that is past changes nothing.
    void advanceTo(qint64 moment);
    /// Due time of the next timer, or -1 when none runs.
    qint64 nextDue() const;

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    bool hasPendingEvents() override;
    void registerSocketNotifier(QSocketNotifier *notifier) override;
    void unregisterSocketNotifier(QSocketNotifier *notifier) override;
    void registerTimer(int timerId, int interval, Qt::TimerType type, QObject *object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject *object) override;
    QList<TimerInfo> registeredTimers(QObject *object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override;
    void interrupt() override;
    void flush() override;

private:
    struct Timer {
        int id;
        int interval;
        Qt::TimerType type;
        QObject *object;
        qint64 due;
        quint64 order; ///< timers due together fire in the order in which they were armed
    };

    std::vector<Timer>::const_iterator next() const;
    template <typename Condition>
    bool removeTimers(Condition condition);
    void arm(Timer &timer, qint64 from);
    bool fireNext(qint64 until);
    bool deliver();
    void waitForWakeUp();

    std::vector<Timer> m_timers;
    qint64 m_now = 0;
    qint64 m_idle = 0; ///< no timer without interval is due before this moment
    quint64 m_armed = 0;

    std::mutex m_mutex; ///< guards what follows
    std::condition_variable m_wake;
    bool m_interrupted = false;
    bool m_woken = false;
};

} // namespace substitute
