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
        keys.append('"' + QString(kind.key) + '"');
    const QString last = keys.takeLast();
    return keys.join(", ") + " and " + last;
}

constexpr qint64 aDay = 86'400'000;

qint64 readTimestamp(const QJsonObject &line)
{
    // A date since 1970 in seconds is far below it, in milliseconds far above.
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
    QString name;
    for (auto member = line.begin(); member != line.end(); ++member) {
        const QString key = member.key();
        if (key == QLatin1String("timestamp") || key == QLatin1String("value"))
            continue;
        const auto *kind = std::find_if(std::begin(kinds), std::end(kinds), [&key](const auto &k) {
            return key == QLatin1String(k.key);
        });
        if (kind == std::end(kinds))
            throw Refusal("unexpected " + excerpt(key) +
                          R"(; expected "timestamp", "value" and one of )" + kindKeys());
        if (found)
            throw Refusal(QStringLiteral(R"(expected one of "%1" and "%2", not both)")
                              .arg(found->key, kind->key));
        found = kind;
        name = readText(line, kind->key);
    }
    if (!found)
        throw Refusal("expected one of " + kindKeys());
    Event event = names.read(Kind(found - kinds), name, line.value(QLatin1String("value")));
    event.time = readTimestamp(line);
    return event;
}

ScenarioFile::ScenarioFile(const Catalogue &names, const QString &path, GoOn goOn)
    : JsonLinesFile(path, std::move(goOn), {"description", "recording", "end"}), m_names(names)
{
}

std::optional<Event> ScenarioFile::next()
{
    return advance() ? std::optional(m_event) : std::nullopt;
}

void ScenarioFile::rewind()
{
    JsonLinesFile::rewind();
    m_time = 0;
}

bool ScenarioFile::take(const QJsonObject &line)
{
    if (line.contains(QLatin1String("end"))) {
        allowKeys(line, {"timestamp", "end"});
        if (!readFlag(line, "end"))
            refuseValue(line, "end", "true");
        m_time = counted(readTimestamp(line));
        return false;
    }
    m_event = readEvent(m_names, line);
    m_event.line = number();
    m_time = m_event.time = counted(m_event.time);
    return true;
}

/// Timestamps count from the start, or from the first one where that is a date since 1970.
qint64 ScenarioFile::counted(qint64 timestamp)
{
    if (count() == 0) {
        m_origin = timestamp > aDay ? timestamp : 0;
        m_first = timestamp - m_origin;
    }
    const qint64 time = timestamp - m_origin;
    if (time < m_time) {
        throw Refusal("time goes backwards, expected " + seconds(m_time + m_origin) +
                      " or later, got " + seconds(timestamp));
    }
    if (time - m_first > 7 * aDay)
        throw Refusal("expected a time within a week of the first, got " + seconds(timestamp));
    return time;
}

QByteArray writtenMetadata(const JsonLinesFile::Metadata &metadata)
{
    // Put together by hand for the order of the keys, which JSON objects do not keep.
    QByteArray line = R"({"metadata":{"version":1,)";
    if (metadata.recording)
        line += R"("recording":true,)";
    if (metadata.end)
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
