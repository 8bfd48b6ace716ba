// Scenarios: JSON Lines, one event a line, the first line its metadata. Read and written line by
// line, from and to anything.
#pragma once

#include "catalogue.h"
#include "jsonlines.h"

#include <optional>

namespace mcusim {

struct Metadata {
    QString description;
    /// All that came out is there: playing it must give exactly that again.
    bool recording = false;
    /// A recording that closes with an end mark, so that a cut one can be told.
    bool marksEnd = false;
};

/// An event of the object of a line; its time, as the file has it, counts from whatever it likes.
/// Throws a Refusal.
Event readEvent(const Catalogue &names, const QJsonObject &line);

/// Reads the lines of a scenario in order and holds them to the rules of the format.
class ScenarioReader {
public:
    explicit ScenarioReader(const Catalogue &names) : m_names(&names) {}

    /// The event of a line; none for metadata, an empty line and the end mark. Throws a Refusal.
    std::optional<Event> read(const QByteArray &line);

    bool hasMetadata() const { return m_hasMetadata; }
    const Metadata &metadata() const { return m_metadata; }
    qint64 events() const { return m_events; }
    bool hasEnded() const { return m_ended; }
    /// Of the last line.
    qint64 time() const { return m_time; }

private:
    qint64 counted(qint64 timestamp);

    const Catalogue *m_names;
    Metadata m_metadata;
    bool m_hasMetadata = false;
    bool m_ended = false;
    qint64 m_events = 0;
    qint64 m_origin = 0; ///< of timestamps that count from 1970
    qint64 m_first = 0;
    qint64 m_time = 0;
};

/// A scenario in a file, read as it is asked for.
class ScenarioFile {
public:
    /// Reads the metadata. Like next(), throws a Refusal that names file and line.
    ScenarioFile(const Catalogue &names, const QString &path, LineFile::GoOn goOn = {});

    /// The next event; nothing at the end, and when the waiting was ended.
    std::optional<Event> next();
    /// Begins again; only a regular file can.
    void rewind();

    const LineFile &file() const { return m_file; }
    const ScenarioReader &reader() const { return m_reader; }
    /// At the end: whether lines are missing there, and the warning for it.
    bool isCut() const;
    QString warning() const;

private:
    void readMetadata();
    std::optional<Event> read(const QByteArray &line);
    void checkEnd() const;

    const Catalogue &m_names;
    LineFile m_file;
    ScenarioReader m_reader;
    int m_tornLine = 0;
};

/// Lines of a scenario, without the line end.
QByteArray writtenMetadata(const Metadata &metadata);
QByteArray writtenEvent(const Event &event);
QByteArray writtenEnd(qint64 time);

} // namespace mcusim
