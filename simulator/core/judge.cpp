#include "judge.h"

#include "catalogue.h"
#include "values.h"

#include <QHash>

#include <string_view>

namespace mcusim {

namespace {

constexpr std::size_t shownFaults = 20;
constexpr std::size_t keptOutputs = 1000;

/// Equal for events that are the same, and in practice for no others.
quint64 fingerprint(const Event &event)
{
    const QByteArray values = writtenValue(event.values);
    const std::string_view view(values.constData(), std::size_t(values.size()));
    return std::hash<std::string_view>()(view) ^ quint64(reinterpret_cast<quintptr>(event.what));
}

QString text(const Event &event) { return event.text() + " at " + seconds(event.time); }

} // namespace

void Judge::expect(const Event &event)
{
    if (!m_isRecording) {
        moveTo(event.time);
        m_expected.push_back(event);
        match();
    } else if (m_failed == 0) {
        std::optional<Event> came;
        if (!m_unrecorded.empty())
            came = m_unrecorded.front();
        if (!came || came->time != event.time || !came->sameAs(event))
            return addFault(event, came, 0);
        m_unrecorded.pop_front();
        addMet(event);
    }
}

void Judge::hear(const Event &event)
{
    if (event.isInput()) {
        // A recording has all earlier outputs before an input.
        if (!m_unrecorded.empty() && m_failed == 0)
            addFault({}, m_unrecorded.front(), m_lastMet);
        return;
    }
    if (!m_isRecording) {
        moveTo(event.time);
        m_came.push_back(fingerprint(event));
        match();
    } else if (m_failed == 0) {
        m_unrecorded.push_back(event);
    }
    for (Fault &fault : m_faults) {
        if (m_isRecording && !fault.received)
            fault.received = event;
    }
    remember(event);
}

void Judge::finish(qint64, bool mayBeCut)
{
    closeMoment();
    if (m_unrecorded.empty() || m_failed > 0)
        return;
    m_isSurplus = mayBeCut;
    if (!mayBeCut)
        addFault({}, m_unrecorded.front(), m_lastMet);
}

QStringList Judge::faults() const
{
    QStringList lines;
    for (const Fault &fault : m_faults) {
        const QString received = fault.received ? text(*fault.received) : "nothing";
        QString line = "after line " + QString::number(fault.after) + ": received " + received +
                       ", which is not recorded there";
        if (fault.expected.what) {
            line = "line " + QString::number(fault.expected.line) + ": expected " +
                   text(fault.expected) + ", received " + received;
        }
        if (fault.nearest && (fault.nearest->time == fault.expected.time ||
                              (fault.received && fault.received->sameAs(fault.expected))))
            line += "; it came, but not in this place";
        else if (fault.nearest)
            line += "; nearest at " + seconds(fault.nearest->time);
        lines.append(line);
    }
    if (m_failed > qint64(m_faults.size()))
        lines.append("and " + QString::number(m_failed - qint64(m_faults.size())) + " more");
    return lines;
}

void Judge::moveTo(qint64 moment)
{
    if (moment == m_moment)
        return;
    closeMoment();
    m_moment = moment;
}

/// Meets what is expected with what has come, as far as it has.
void Judge::match()
{
    while (!m_expected.empty()) {
        const quint64 wanted = fingerprint(m_expected.front());
        while (m_searched < m_came.size() && m_came[m_searched] != wanted)
            ++m_searched;
        if (m_searched == m_came.size())
            return; // it may still come
        m_used = ++m_searched;
        m_expected.pop_front();
        ++m_met;
    }
}

void Judge::closeMoment()
{
    // Counted once, so that the missing lines of a crowded moment do not each search it.
    QHash<quint64, int> left;
    for (std::size_t i = m_used; i < m_came.size() && !m_expected.empty(); ++i)
        ++left[m_came[i]];
    for (const Event &event : m_expected) {
        const quint64 wanted = fingerprint(event);
        if (left.value(wanted) == 0) {
            addFault(event, {}, 0);
            continue;
        }
        quint64 used = 0;
        do {
            used = m_came[m_used++];
            --left[used];
        } while (used != wanted);
        ++m_met;
    }
    m_expected.clear();
    m_came.clear();
    m_used = m_searched = 0;
}

void Judge::addMet(const Event &expected)
{
    m_lastMet = expected.line;
    ++m_met;
}

void Judge::addFault(const Event &expected, const std::optional<Event> &received, int after)
{
    ++m_failed;
    if (m_faults.size() == shownFaults)
        return;
    m_faults.push_back({expected, received, {}, after});
    for (const Event &output : m_recent)
        compare(m_faults.back(), output);
}

void Judge::remember(const Event &output)
{
    for (Fault &fault : m_faults)
        compare(fault, output);
    m_recent.push_back(output);
    if (m_recent.size() > keptOutputs)
        m_recent.pop_front();
}

/// Notes what comes closest to what was expected.
void Judge::compare(Fault &fault, const Event &output) const
{
    const Event &expected = fault.expected;
    if (!expected.what)
        return;
    const auto away = [&expected](const Event &event) { return qAbs(event.time - expected.time); };
    if (!output.sameAs(expected)) {
        if (!m_isRecording && !fault.received && away(output) == 0 &&
            output.what->name == expected.what->name)
            fault.received = output;
    } else if (!fault.nearest || away(output) < away(*fault.nearest)) {
        fault.nearest = output;
    }
}

} // namespace mcusim
