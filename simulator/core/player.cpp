// Waiting is counted from the start, so that a slow moment does not shift all that follows.
#include "player.h"

#include <QThread>

#include <algorithm>

namespace mcusim {

namespace {

/// How long the library's timers go on after the last input.
constexpr qint64 afterLastInput = 1000;

} // namespace

Player::Player(substitute::VirtualClock *clock, Desk::Link link, Listener listener)
    : m_clock(clock), m_listener(std::move(listener)),
      m_desk(clock, link, [this](const Event &event) { hear(event); })
{
}

Outcome Player::play(const Scenario &scenario, double speed)
{
    m_speed = speed;
    m_started.start();
    m_desk.start();

    qint64 last = 0;
    for (const Event &input : scenario.inputs()) {
        runUntil(input.time);
        const int before = m_outcome.outputs.size();
        m_desk.play(input);
        if (input.kind == Kind::Report) {
            ++m_outcome.reports;
            if (m_outcome.outputs.size() == before)
                ++m_outcome.unanswered[input.name];
        } else if (input.kind == Kind::Call) {
            ++m_outcome.calls;
        }
        last = input.time;
    }
    last += afterLastInput;
    if (!scenario.events.isEmpty())
        last = std::max(last, scenario.events.last().time);
    runUntil(last);
    m_outcome.duration = m_clock->now();
    return m_outcome;
}

void Player::runUntil(qint64 moment)
{
    for (qint64 due = m_clock->nextDue(); due >= 0 && due < moment; due = m_clock->nextDue()) {
        keepPace(due);
        m_clock->advanceTo(due);
    }
    keepPace(moment);
    m_clock->advanceTo(moment);
}

void Player::keepPace(qint64 moment) const
{
    if (m_speed <= 0)
        return;
    const double wait = double(moment) / m_speed - double(m_started.elapsed());
    constexpr double longest = 24 * 3600 * 1000; // beyond it the wait is no longer a number of ms
    if (wait > 0)
        QThread::msleep(static_cast<unsigned long>(std::min(wait, longest)));
}

void Player::hear(const Event &event)
{
    if (!isInput(event.kind))
        m_outcome.outputs.append(event);
    m_listener(event);
}

} // namespace mcusim
