// Reading refuses a file at its first fault; names and values are checked against the interface.
#include "scenario.h"

#include "catalogue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace mcusim {

namespace {

struct KindKey {
    const char *key;
    Kind kind;
};

constexpr KindKey kindKeys[]{{"name", Kind::Report},      {"call", Kind::Call},
                             {"set", Kind::Setting},      {"signal", Kind::Signal},
                             {"answer", Kind::Answer},    {"command", Kind::Command},
                             {"platform", Kind::Platform}};

// Timestamps are seconds with milliseconds behind the point; a day of them or a date since 1970.
constexpr double latestTimestamp = 1e10;

QString readMetadata(const QJsonObject &line, Scenario *scenario)
{
    const QJsonObject metadata = line.value(QLatin1String("metadata")).toObject();
    if (metadata.value(QLatin1String("version")).toInt() != 1)
        return QStringLiteral(R"(expected {"metadata":{"version":1,...}} first)");
    scenario->description = metadata.value(QLatin1String("description")).toString();
    scenario->recording = metadata.value(QLatin1String("recording")).toBool();
    return {};
}

QString readEvent(const QJsonObject &line, Event *event)
{
    const QJsonValue timestamp = line.value(QLatin1String("timestamp"));
    const double seconds = timestamp.toDouble(-1);
    if (!timestamp.isDouble() || !(seconds >= 0) || seconds > latestTimestamp)
        return QStringLiteral("expected \"timestamp\" in seconds from 0");
    event->time = std::llround(seconds * 1000);

    const KindKey *found = nullptr;
    for (const KindKey &candidate : kindKeys) {
        if (!line.contains(QLatin1String(candidate.key)))
            continue;
        if (found) {
            return QStringLiteral("expected one of \"%1\" and \"%2\", not both")
                .arg(QLatin1String(found->key), QLatin1String(candidate.key));
        }
        found = &candidate;
    }
    if (!found || !line.value(QLatin1String(found->key)).isString()) {
        return QStringLiteral(
            R"(expected one of "name", "call", "set", "signal", "answer", "command" and "platform" with a text)");
    }
    for (const QString &key : line.keys()) {
        if (key != QLatin1String("timestamp") && key != QLatin1String("value") &&
            key != QLatin1String(found->key))
            return QStringLiteral("unexpected \"%1\"").arg(key);
    }
    event->kind = found->kind;
    event->name = line.value(QLatin1String(found->key)).toString();
    QString error;
    readArguments(event->kind, event->name, line.value(QLatin1String("value")), &event->arguments,
                  &error);
    return error;
}

QList<Event> filtered(const QList<Event> &events, bool inputs)
{
    QList<Event> found;
    std::copy_if(events.begin(), events.end(), std::back_inserter(found),
                 [inputs](const Event &event) { return isInput(event.kind) == inputs; });
    return found;
}

} // namespace

QList<Event> Scenario::inputs() const { return filtered(events, true); }

QList<Event> Scenario::expectations() const { return filtered(events, false); }

bool readScenario(const QByteArray &text, Scenario *scenario, QString *error)
{
    QList<QByteArray> lines = text.split('\n');
    const bool torn = !lines.last().isEmpty(); // unless it is whole all the same
    if (!torn)
        lines.removeLast();

    bool first = true;
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].trimmed().isEmpty())
            continue;
        const auto refuse = [&](const QString &why) {
            *error = QStringLiteral("line %1: %2").arg(i + 1).arg(why);
            return false;
        };
        QJsonParseError parsed{};
        const QJsonDocument document = QJsonDocument::fromJson(lines[i], &parsed);
        if (!document.isObject()) {
            if (torn && i == lines.size() - 1 && !first) {
                scenario->warning = QStringLiteral("line %1 is torn and left out").arg(i + 1);
                break;
            }
            return refuse(QStringLiteral("expected a JSON object (%1)").arg(parsed.errorString()));
        }
        if (first) {
            const QString fault = readMetadata(document.object(), scenario);
            if (!fault.isEmpty())
                return refuse(fault);
            first = false;
            continue;
        }
        Event event;
        event.line = i + 1;
        const QString fault = readEvent(document.object(), &event);
        if (!fault.isEmpty())
            return refuse(fault);
        if (!scenario->events.isEmpty() && event.time < scenario->events.last().time) {
            return refuse(QStringLiteral("time goes backwards, expected %1 or later")
                              .arg(double(scenario->events.last().time) / 1000, 0, 'f', 3));
        }
        constexpr qint64 aWeek = qint64(7) * 24 * 3600 * 1000;
        if (!scenario->events.isEmpty() && event.time - scenario->events.first().time > aWeek)
            return refuse(QStringLiteral("expected a time within a week of the first event"));
        scenario->events.append(event);
    }
    if (first) {
        *error = QStringLiteral(R"(line 1: expected {"metadata":{"version":1,...}})");
        return false;
    }

    // Timestamps since 1970 count from the first event.
    constexpr qint64 aDay = 86'400'000;
    if (!scenario->events.isEmpty() && scenario->events.first().time > aDay) {
        const qint64 start = scenario->events.first().time;
        for (Event &event : scenario->events)
            event.time -= start;
    }
    return true;
}

QByteArray writtenEvent(const Event &event)
{
    const auto key =
        std::find_if(std::begin(kindKeys), std::end(kindKeys),
                     [&event](const KindKey &candidate) { return candidate.kind == event.kind; });
    // Put together by hand for the order of the keys, which JSON objects do not keep.
    const auto json = [](const QJsonValue &value) {
        return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
    };
    QByteArray line = R"({"timestamp":)" + QByteArray::number(double(event.time) / 1000, 'f', 3) +
                      ",\"" + key->key + "\":" + json(event.name);
    if (!event.arguments.isEmpty())
        line += ",\"value\":" + json(writtenArguments(event.arguments));
    return line + '}';
}

QByteArray writtenMetadata(const QString &description)
{
    const QJsonObject metadata{{QStringLiteral("version"), 1},
                               {QStringLiteral("description"), description},
                               {QStringLiteral("recording"), true}};
    return QJsonDocument(QJsonObject{{QStringLiteral("metadata"), metadata}})
        .toJson(QJsonDocument::Compact);
}

} // namespace mcusim
