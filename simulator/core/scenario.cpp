// Reading refuses a file at its first fault; names and values are checked against the interface.
#include "scenario.h"

#include "values.h"

#include <cmath>

namespace mcusim {

namespace {

QString kindKeys()
{
    QStringList keys;
    for (const KindInfo &kind : kinds)
        keys.append('"' + QString::fromLatin1(kind.key) + '"');
    const QString last = keys.takeLast();
    return keys.join(QStringLiteral(", ")) + " and " + last;
}

constexpr qint64 aDay = 24 * 3600 * 1000;

qint64 readTimestamp(const QJsonObject &line)
{
    // A date since 1970 is far below it, in milliseconds far above.
    constexpr double latest = 1e10;
    const double timestamp = line.value(QLatin1String("timestamp")).toDouble(-1);
    if (timestamp > latest)
        refuseValue(line, "timestamp", "seconds, not milliseconds");
    if (!(timestamp >= 0))
        refuseValue(line, "timestamp", "seconds from 0");
    return std::llround(timestamp * 1000);
}

} // namespace

Event readEvent(const Catalogue &names, const QJsonObject &line)
{
    const KindInfo *found = nullptr;
    for (auto member = line.begin(); member != line.end(); ++member) {
        const QString key = member.key();
        const auto *kind = std::find_if(std::begin(kinds), std::end(kinds), [&key](const auto &k) {
            return key == QLatin1String(k.key);
        });
        if (kind == std::end(kinds)) {
            if (key != QLatin1String("timestamp") && key != QLatin1String("value"))
                throw Refusal("unexpected " + excerpt(key) +
                              R"(; expected "timestamp", "value" and one of )" + kindKeys());
            continue;
        }
        if (found)
            throw Refusal(QStringLiteral("expected one of \"") + found->key + "\" and \"" +
                          kind->key + "\", not both");
        found = kind;
    }
    if (!found)
        throw Refusal("expected one of " + kindKeys());
    if (!line.value(QLatin1String(found->key)).isString())
        refuseValue(line, found->key, "a name");
    Event event = names.read(Kind(found - kinds), line.value(QLatin1String(found->key)).toString(),
                             line.value(QLatin1String("value")));
    event.time = readTimestamp(line);
    return event;
}

std::optional<Event> ScenarioReader::read(const QByteArray &line)
{
    if (line.trimmed().isEmpty())
        return {};
    const QJsonObject object = readObject(line);
    if (!m_hasMetadata) {
        const QJsonObject metadata =
            readMetadata(object, {QStringLiteral("description"), QStringLiteral("recording"),
                                  QStringLiteral("end")});
        m_metadata = {readText(metadata, "description"), readFlag(metadata, "recording"),
                      readFlag(metadata, "end")};
        m_hasMetadata = true;
        return {};
    }
    if (m_ended)
        throw Refusal(QStringLiteral("expected nothing after the end mark"));
    if (object.contains(QLatin1String("end"))) {
        allowKeys(object, {QStringLiteral("timestamp"), QStringLiteral("end")});
        m_ended = readFlag(object, "end");
        if (!m_ended)
            refuseValue(object, "end", "true");
        m_time = counted(readTimestamp(object));
        return {};
    }
    Event event = readEvent(*m_names, object);
    m_time = event.time = counted(event.time);
    ++m_events;
    return event;
}

/// The time of a line counted from the start: as it stands there, or from the first event where it
/// counts from 1970.
qint64 ScenarioReader::counted(qint64 timestamp)
{
    if (m_events == 0) {
        m_origin = timestamp > aDay ? timestamp : 0;
        m_first = m_time = timestamp - m_origin;
    }
    const qint64 time = timestamp - m_origin;
    if (time < m_time)
        throw Refusal("time goes backwards, expected " + seconds(m_time + m_origin) +
                      " or later, got " + seconds(timestamp));
    if (time - m_first > 7 * aDay)
        throw Refusal("expected a time within a week of the first event, got " +
                      seconds(timestamp));
    return time;
}

ScenarioFile::ScenarioFile(const Catalogue &names, const QString &path, LineFile::GoOn goOn)
    : m_names(names), m_file(path, std::move(goOn)), m_reader(names)
{
    readMetadata();
}

void ScenarioFile::rewind()
{
    m_file.rewind();
    m_reader = ScenarioReader(m_names);
    readMetadata();
}

void ScenarioFile::readMetadata()
{
    QByteArray line;
    while (!m_reader.hasMetadata() && m_tornLine == 0 && m_file.next(&line))
        read(line);
}

std::optional<Event> ScenarioFile::next()
{
    QByteArray line;
    std::optional<Event> event;
    while (!event && m_tornLine == 0 && m_file.next(&line))
        event = read(line);
    if (!event && !m_file.wasInterrupted())
        checkEnd();
    return event;
}

std::optional<Event> ScenarioFile::read(const QByteArray &line)
{
    const QByteArray opening = R"({"metadata":)";
    if (m_file.isTail() && isTorn(line) &&
        (m_reader.hasMetadata() || opening.startsWith(line.left(opening.size())))) {
        m_tornLine = m_file.number();
        return {};
    }
    try {
        std::optional<Event> event = m_reader.read(line);
        if (event)
            event->line = m_file.number();
        return event;
    } catch (const Refusal &refusal) {
        throw m_file.located(refusal);
    }
}

void ScenarioFile::checkEnd() const
{
    if (!m_reader.hasMetadata() && m_tornLine == 0)
        throw Refusal(m_file.name() + ": line 1: " + expectedMetadata());
    if (m_reader.events() == 0 && m_reader.hasMetadata() && !m_reader.metadata().recording)
        throw Refusal(m_file.name() + ": expected at least one event");
}

bool ScenarioFile::isCut() const
{
    return m_tornLine > 0 || (m_reader.metadata().marksEnd && !m_reader.hasEnded());
}

QString ScenarioFile::warning() const
{
    QString text = m_file.name() + ": ";
    if (m_tornLine > 0)
        text += "line " + QString::number(m_tornLine) + " is torn and left out";
    else
        text += "the end is missing";
    if (m_reader.metadata().recording)
        text += QLatin1String("; what is there of the recording is compared");
    return text;
}

QByteArray writtenMetadata(const Metadata &metadata)
{
    // Put together by hand for the order of the keys, which JSON objects do not keep.
    QByteArray line = R"({"metadata":{"version":1,)";
    if (metadata.recording)
        line += R"("recording":true,)";
    if (metadata.marksEnd)
        line += R"("end":true,)";
    return line + R"("description":)" + writtenValue({metadata.description}) + "}}";
}

QByteArray writtenEvent(const Event &event)
{
    QByteArray line = R"({"timestamp":)" + seconds(event.time).toLatin1() + ",\"" +
                      info(event.what->kind).key + "\":\"" + event.what->name.toLatin1() + '"';
    if (!event.values.isEmpty())
        line += ",\"value\":" + writtenValue(event.values);
    return line + '}';
}

QByteArray writtenEnd(qint64 time)
{
    return R"({"timestamp":)" + seconds(time).toLatin1() + R"(,"end":true})";
}

} // namespace mcusim
