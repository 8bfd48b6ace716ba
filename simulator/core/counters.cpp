#include "counters.h"

#include "catalogue.h"

namespace mcusim {

void Counters::hear(const Event &event)
{
    ++m_counts[int(event.what->kind)];
    const bool atOnce = event.time == m_time;
    m_time = event.time;
    if (event.isInput() || !atOnce) {
        if (m_waiting)
            ++m_unanswered[m_waiting];
        m_waiting = event.what->kind == Kind::Report ? event.what : nullptr;
    } else {
        m_waiting = nullptr;
    }
}

QMap<QString, qint64> Counters::unanswered() const
{
    QMap<QString, qint64> byName;
    for (auto report = m_unanswered.begin(); report != m_unanswered.end(); ++report)
        byName[report.key()->name] = report.value();
    if (m_waiting)
        ++byName[m_waiting->name];
    return byName;
}

} // namespace mcusim
