// Due times count from the moment at which the speed was set, so that one delay does not shift all
// that follows.
#include "clock.h"

#include <algorithm>
#include <ctime>

namespace mcusim {

namespace {

constexpr qint64 second = 1'000'000'000;

qint64 realNow()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * second + now.tv_nsec;
}

} // namespace

VirtualTime::VirtualTime(substitute::VirtualClock *clock, GoOn goOn)
    : m_clock(clock), m_goOn(std::move(goOn))
{
}

void VirtualTime::setSpeed(double speed)
{
    m_speed = speed;
    m_from = now();
    m_fromReal = realNow();
}

bool VirtualTime::advanceTo(qint64 moment)
{
    bool isGoing = advanceOnce(moment);
    while (isGoing && now() < moment)
        isGoing = advanceOnce(moment);
    return isGoing;
}

bool VirtualTime::advanceOnce(qint64 moment)
{
    const qint64 due = m_clock->nextDue();
    const qint64 next = due >= 0 ? std::min(due, moment) : moment;
    if (!waitFor(next))
        return false;
    m_clock->advanceTo(next);
    return true;
}

bool VirtualTime::waitFor(qint64 moment) const
{
    constexpr double nanoseconds = 1e6; // of a millisecond
    constexpr double longest = double(second) / 5;
    while (m_speed > 0) {
        const double due = double(m_fromReal) + double(moment - m_from) * nanoseconds / m_speed;
        const double real = double(realNow());
        if (real >= due)
            break;
        const double passed = (real - double(m_fromReal)) * m_speed / nanoseconds;
        if (!m_goOn(m_from + qint64(std::min(passed, double(moment - m_from)))))
            return false;
        const auto until = qint64(std::min(due, real + longest));
        const timespec wakeUp{until / second, until % second};
        clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &wakeUp, nullptr);
    }
    return m_goOn(moment);
}

} // namespace mcusim
