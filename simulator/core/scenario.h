// Scenarios: JSON Lines, one event per line, the first line its metadata. Read and written line by
// line, from and to anything.
#pragma once

#include "catalogue.h"
#include "jsonlines.h"

#include <optional>

namespace mcusim {

/// The event of a line; its time is the timestamp of the line. Throws a Refusal.
Event readEvent(const Catalogue &names, const QJsonObject &line);

class ScenarioFile : public JsonLinesFile {
public:
    /// Like next(), throws a Refusal that names file and line.
    ScenarioFile(const Catalogue &names, const QString &path, GoOn goOn = {});

    /// The next event, its time counted from the start; nothing at the end.
    std::optional<Event> next();
    void rewind() override;
    /// Of the last line.
    qint64 time() const { return m_time; }

protected:
    bool take(const QJsonObject &line) override;

private:
    qint64 counted(qint64 timestamp);

    const Catalogue &m_names;
    Event m_event;
    qint64 m_origin = 0; ///< of timestamps that count from 1970
    qint64 m_first = 0;
    qint64 m_time = 0;
};

/// Lines of a scenario, without the line end.
QByteArray writtenMetadata(const JsonLinesFile::Metadata &metadata);
QByteArray writtenEvent(const Event &event);
QByteArray writtenEnd(qint64 time);

} // namespace mcusim
