// The small sinks: they count, record and filter events.
#pragma once

#include "scenario.h"

#include <QMap>
#include <QSet>

#include <cstdio>

namespace mcusim {

class Counters : public Sink {
public:
    void hear(const Event &event) override;

    qint64 count(Kind kind) const { return m_counts[int(kind)]; }
    /// Reports after which nothing left the library at once, by name.
    QMap<QString, qint64> unanswered() const;

private:
    qint64 m_counts[std::size(kinds)] = {};
    QMap<const Signature *, qint64> m_unanswered;
    const Signature *m_waiting = nullptr; ///< a report, and nothing has left the library since
    qint64 m_time = 0;                    ///< of the last event
};

/// Writes events as lines of a scenario.
class Recorder : public Sink {
public:
    Recorder(std::FILE *file, const JsonLinesFile::Metadata &metadata);

    void hear(const Event &event) override { write(writtenEvent(event)); }
    /// Ends the recording at this moment.
    void finish(qint64 time);

private:
    void write(const QByteArray &line);

    std::FILE *m_file;
    bool m_marksEnd;
};

/// Passes on the selected events: globs over names ("syncSpeed*", "McuService.sync*"), classes
/// ("McuManager") and kinds, by the key of a scenario line ("signal").
class Filter : public Sink {
public:
    /// Throws a Refusal for a glob that nothing matches.
    Filter(const Catalogue &names, const QStringList &only, const QStringList &except);

    /// Receives the selected events; null for none.
    void setSink(Sink *sink) { m_sink = sink; }
    void hear(const Event &event) override
    {
        if (m_sink && m_shown.contains(event.what))
            m_sink->hear(event);
    }

private:
    QSet<const Signature *> m_shown;
    Sink *m_sink = nullptr;
};

} // namespace mcusim
