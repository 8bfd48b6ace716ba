// The event dispatcher with virtual time.
#include "virtualclock.h"

#include <QCoreApplication>
#include <QThread>
#include <QTimerEvent>

#include <algorithm>
#include <limits>
#include <tuple>
#include <utility>

namespace substitute {
namespace {

// Time ends where the longest interval can still be added.
constexpr qint64 lastMoment =
    std::numeric_limits<qint64>::max() - std::numeric_limits<int>::max() - 1;

} // namespace

VirtualClock *VirtualClock::install()
{
    auto *clock = new VirtualClock;
    QCoreApplication::setEventDispatcher(clock);
    return clock;
}

VirtualClock::VirtualClock() = default;
VirtualClock::~VirtualClock() = default;

void VirtualClock::settle()
{
    deliver();
    if (thread()->loopLevel() == 0)
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void VirtualClock::advance(qint64 ms)
{
    advanceTo(ms > lastMoment - m_now ? lastMoment : m_now + ms);
}

void VirtualClock::advanceTo(qint64 moment)
{
    const qint64 end = std::min(moment, lastMoment);
    do {
        settle();
    } while (fireNext(end));
    m_now = std::max(m_now, end);
}

qint64 VirtualClock::nextDue() const { return m_timers.empty() ? -1 : next()->due; }

bool VirtualClock::processEvents(QEventLoop::ProcessEventsFlags flags)
{
    {
        const std::lock_guard lock(m_mutex);
        m_interrupted = false;
    }
    const auto interrupted = [this] {
        const std::lock_guard lock(m_mutex);
        return m_interrupted;
    };

    Q_EMIT awake();
    bool active = deliver();
    while (!interrupted() && fireNext(m_now)) {
        deliver();
        active = true;
    }
    if (active || interrupted() || !(flags & QEventLoop::WaitForMoreEvents))
        return active;

    Q_EMIT aboutToBlock();
    if (!deliver() && !fireNext(lastMoment))
        waitForWakeUp();
    Q_EMIT awake();
    deliver();
    return true;
}

bool VirtualClock::hasPendingEvents()
{
    const std::lock_guard lock(m_mutex);
    return m_woken || (!m_timers.empty() && next()->due <= m_now);
}

void VirtualClock::registerSocketNotifier(QSocketNotifier *)
{
    qWarning("VirtualClock: socket notifiers are not supported");
}

void VirtualClock::unregisterSocketNotifier(QSocketNotifier *) {}

void VirtualClock::registerTimer(int timerId, int interval, Qt::TimerType type, QObject *object)
{
    Timer timer{timerId, interval, type, object, 0, 0};
    arm(timer, m_now);
    m_timers.push_back(timer);
}

bool VirtualClock::unregisterTimer(int timerId)
{
    return removeTimers([timerId](const Timer &timer) { return timer.id == timerId; });
}

bool VirtualClock::unregisterTimers(QObject *object)
{
    return removeTimers([object](const Timer &timer) { return timer.object == object; });
}

QList<VirtualClock::TimerInfo> VirtualClock::registeredTimers(QObject *object) const
{
    QList<TimerInfo> timers;
    for (const Timer &timer : m_timers) {
        if (timer.object == object)
            timers.append(TimerInfo(timer.id, timer.interval, timer.type));
    }
    return timers;
}

int VirtualClock::remainingTime(int timerId)
{
    for (const Timer &timer : m_timers) {
        if (timer.id == timerId)
            return static_cast<int>(std::max<qint64>(timer.due - m_now, 0));
    }
    return -1;
}

void VirtualClock::wakeUp()
{
    const std::lock_guard lock(m_mutex);
    m_woken = true;
    m_wake.notify_one();
}

void VirtualClock::interrupt()
{
    const std::lock_guard lock(m_mutex);
    m_interrupted = true;
    m_woken = true;
    m_wake.notify_one();
}

void VirtualClock::flush() {}

/// The timer that fires next, or end.
std::vector<VirtualClock::Timer>::const_iterator VirtualClock::next() const
{
    return std::min_element(m_timers.begin(), m_timers.end(), [](const Timer &a, const Timer &b) {
        return std::tie(a.due, a.order) < std::tie(b.due, b.order);
    });
}

template <typename Condition>
bool VirtualClock::removeTimers(Condition condition)
{
    const auto removed = std::remove_if(m_timers.begin(), m_timers.end(), condition);
    const bool any = removed != m_timers.end();
    m_timers.erase(removed, m_timers.end());
    return any;
}

void VirtualClock::arm(Timer &timer, qint64 from)
{
    timer.due = timer.interval > 0 ? from + timer.interval : std::max(m_now, m_idle);
    timer.order = ++m_armed;
}

/// Fires the next timer if it is due by the given moment, and moves time to it.
bool VirtualClock::fireNext(qint64 until)
{
    const auto found = next();
    if (found == m_timers.end() || found->due > until)
        return false;
    Timer &timer = m_timers[static_cast<std::size_t>(found - m_timers.begin())];
    m_now = timer.due;
    if (timer.interval == 0)
        m_idle = m_now + 1;
    arm(timer, timer.due);

    QObject *object = timer.object; // the slot may remove the timer
    QTimerEvent event(timer.id);
    QCoreApplication::sendEvent(object, &event);
    return true;
}

/// Delivers posted events; false when the dispatcher was not woken for any since the last time.
bool VirtualClock::deliver()
{
    bool woken = false;
    {
        const std::lock_guard lock(m_mutex);
        woken = std::exchange(m_woken, false);
    }
    QCoreApplication::sendPostedEvents();
    return woken;
}

void VirtualClock::waitForWakeUp()
{
    std::unique_lock lock(m_mutex);
    m_wake.wait(lock, [this] { return m_woken; });
}

} // namespace substitute
