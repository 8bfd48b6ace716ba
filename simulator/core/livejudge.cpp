#include "livejudge.h"

#include "catalogue.h"
#include "recordcatalog_p.h"
#include "values.h"

namespace mcusim {

namespace {

/// The longest time that a record is held back after its last report, in milliseconds.
constexpr qint64 longestHold = 300;

bool isHeldBack(const Signature *what) { return what->record && what->record->hold.command != 0; }

/// Which of the library's objects a signal comes from; null for all else.
const QMetaObject *objectOf(const Event &event)
{
    return event.what->kind == Kind::Signal ? event.what->method.enclosingMetaObject() : nullptr;
}

} // namespace

void LiveJudge::expect(const Event &event)
{
    closeUntil(event.time);
    m_read = event.line;
    m_objects.insert(objectOf(event));
    if (m_inputTime < 0 && !m_rules.hasApplication) {
        m_fromStart = m_fromStart ||
                      (event.what->kind == Kind::Command && event.what->name == QString("init"));
        return;
    }
    if (!isJudged(event))
        return;
    if (isHeldBack(event.what)) {
        heldOf(event).recorded = {event};
        return;
    }
    const auto came = std::find_if(m_received.begin(), m_received.end(),
                                   [&](const Open &open) { return meets(event, open); });
    if (came == m_received.end()) {
        m_recorded.push_back({event});
    } else {
        meet(event, *came);
        m_received.erase(came);
    }
}

void LiveJudge::hear(const Event &event)
{
    closeUntil(event.time);
    if (event.isInput()) {
        m_inputTime = event.time;
        for (auto held = m_held.begin(); held != m_held.end(); ++held) {
            if (event.what->name == QString(held.key()->record->linkSignal))
                held->latest = event.time;
        }
        return;
    }
    if ((m_inputTime < 0 && !m_rules.hasApplication) || !isJudged(event))
        return;
    remember(event);
    const Open open{event, m_inputTime == event.time ? ++m_order : 0, m_read, hasObject(event)};
    if (isHeldBack(event.what)) {
        heldOf(event).received = open;
        return;
    }
    const auto recorded = std::find_if(m_recorded.begin(), m_recorded.end(),
                                       [&](const Open &line) { return meets(line.event, open); });
    if (recorded == m_recorded.end()) {
        m_received.push_back(open);
    } else {
        meet(recorded->event, open);
        m_recorded.erase(recorded);
    }
}

void LiveJudge::finish(qint64 until, bool)
{
    closeUntil(until);
    while (!m_recorded.empty() && m_recorded.front().event.time <= until)
        closeRecorded(takeFirst(m_recorded));
}

QStringList LiveJudge::notes() const
{
    QStringList lines;
    if (m_ownCommands > 0) {
        lines.append("Commands of the application itself, not compared: " +
                     QString::number(m_ownCommands));
    }
    QStringList names;
    for (auto excused = m_excused.begin(); excused != m_excused.end(); ++excused)
        names.append(excused.key()->name + " (" + QString::number(excused.value()) + ')');
    names.sort();
    if (!names.isEmpty())
        lines.append("From before the recording, not compared: " + names.join(", "));
    return lines;
}

bool LiveJudge::isJudged(const Event &event) const
{
    // Calls of other platform classes are not seen in an application.
    return event.what->kind != Kind::Platform &&
           (m_rules.hasApplication || event.what->kind != Kind::Answer);
}

bool LiveJudge::hasObject(const Event &event) const
{
    const QMetaObject *object = objectOf(event);
    return !object || object == &mcu::McuService::staticMetaObject || m_objects.contains(object);
}

/// Of a rate-limited record of which something is recorded or has come now.
LiveJudge::Held &LiveJudge::heldOf(const Event &event)
{
    Held &held = m_held[event.what];
    held.latest = event.time;
    return held;
}

bool LiveJudge::isNear(const Event &a, const Event &b) const
{
    return a.what == b.what && qAbs(a.time - b.time) <= m_rules.tolerance;
}

bool LiveJudge::meets(const Event &recorded, const Open &received) const
{
    return isNear(recorded, received.event) && recorded.sameAs(received.event) &&
           (received.order == 0 || (recorded.line > m_metLine && received.order > m_metOrder));
}

void LiveJudge::meet(const Event &recorded, const Open &received)
{
    if (received.order > 0) {
        m_metLine = recorded.line;
        m_metOrder = received.order;
    }
    if (!m_known.contains(recorded.what))
        m_known.insert(recorded.what, std::min(recorded.time, received.event.time));
    addMet(recorded);
}

/// Closes what has had its time.
void LiveJudge::closeUntil(qint64 time)
{
    const qint64 latest = time - m_rules.tolerance;
    while (!m_recorded.empty() && m_recorded.front().event.time < latest)
        closeRecorded(takeFirst(m_recorded));
    while (!m_received.empty() && m_received.front().event.time < latest)
        closeReceived(takeFirst(m_received));
    for (Held &held : m_held) {
        if (held.latest + longestHold < latest)
            settle(held);
    }
}

void LiveJudge::settle(Held &held)
{
    const Open recorded = std::exchange(held.recorded, {});
    const Open received = std::exchange(held.received, {});
    if (recorded.event.what && received.event.what) {
        if (recorded.event.sameAs(received.event))
            meet(recorded.event, {received.event});
        else
            addFault(recorded.event, received.event, 0);
    } else if (recorded.event.what) {
        closeRecorded(recorded);
    } else if (received.event.what) {
        closeReceived(received);
    }
}

LiveJudge::Open LiveJudge::takeFirst(Opens &opens)
{
    Open first = opens.front();
    opens.pop_front();
    return first;
}

void LiveJudge::closeRecorded(const Open &open)
{
    const Event &event = open.event;
    const auto other = std::find_if(m_received.begin(), m_received.end(),
                                    [&](const Open &came) { return isNear(event, came.event); });
    if (other != m_received.end()) {
        addFault(event, other->event, 0);
        m_received.erase(other);
    } else if (event.what->kind == Kind::Command && !m_rules.hasApplication) {
        ++m_ownCommands;
    } else if (!isExcused(event)) {
        addFault(event, {}, 0);
    }
}

void LiveJudge::closeReceived(const Open &open)
{
    if (!m_rules.isWhole)
        return;
    const auto other = std::find_if(m_recorded.begin(), m_recorded.end(), [&](const Open &line) {
        return isNear(line.event, open.event);
    });
    if (other != m_recorded.end()) {
        addFault(other->event, open.event, 0);
        m_recorded.erase(other);
    } else if (open.isSure && !isExcused(open.event)) {
        addFault({}, open.event, open.after);
    }
}

bool LiveJudge::isExcused(const Event &event)
{
    if (m_fromStart || m_rules.hasApplication || event.what->record ||
        event.time > m_known.value(event.what, event.time))
        return false;
    ++m_excused[event.what];
    return true;
}

} // namespace mcusim
