#include "player.h"

#include "refusal.h"

#include <cmath>
#include <limits>

namespace mcusim {

Player::Player(Source source, Simulation &simulation, Judge *judge)
    : Player(
          std::move(source), [&simulation](const Event &input) { return simulation.play(input); },
          simulation.clock(), judge)
{
}

Player::Player(Source source, Input play, Clock &clock, Judge *judge)
    : m_source(std::move(source)), m_play(std::move(play)), m_clock(clock), m_judge(judge)
{
}

const Event *Player::next()
{
    if (!m_next && !m_isAtEnd) {
        m_next = m_source();
        m_isAtEnd = !m_next;
    }
    return m_next ? &*m_next : nullptr;
}

bool Player::step()
{
    if (!next() || !m_clock.advanceTo(m_next->time))
        return false;
    const Event event = *m_next;
    m_next.reset();
    m_position = event.time;
    if (event.isInput()) {
        m_lastInput = event.time;
        const QString why = m_play(event);
        if (!why.isEmpty())
            throw Refusal(why);
    } else if (m_judge) {
        m_judge->expect(event);
    }
    return true;
}

bool Player::seek(qint64 moment)
{
    while (next() && m_next->time < moment) {
        if (!step())
            return false;
    }
    return true;
}

void Player::start(double speed, Stopped stopped)
{
    m_speed = speed;
    m_from = m_position;
    m_stopped = std::move(stopped);
    m_since.start();
    m_timer.start(0, Qt::PreciseTimer, this);
}

void Player::timerEvent(QTimerEvent *)
{
    QString why;
    try {
        // What else the program does has its turn, too, when more is due than can be played.
        constexpr qint64 longestTurn = 10;
        QElapsedTimer turn;
        turn.start();
        while (isRunning() && next() && untilDue(*m_next) <= 0 && turn.elapsed() < longestTurn)
            step();
        if (isRunning() && m_next) {
            constexpr double longest = std::numeric_limits<int>::max();
            m_timer.start(int(std::clamp(std::ceil(untilDue(*m_next)), 0.0, longest)),
                          Qt::PreciseTimer, this);
        }
    } catch (const Refusal &refusal) {
        why = refusal.text();
    }
    if (isRunning() && (!m_next || !why.isEmpty())) {
        pause();
        m_stopped(why);
    }
}

/// Milliseconds of real time.
double Player::untilDue(const Event &event) const
{
    return double(event.time - m_from) / m_speed - double(m_since.nsecsElapsed()) / 1e6;
}

} // namespace mcusim
