// Every line is checked before the first test runs.
#include "stationsequence.h"

#include "catalogue.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <stdexcept>

namespace mcusim {

namespace {

/// What is wrong with a line; caught where its number is known.
struct Refusal : std::runtime_error {
    explicit Refusal(const QString &why) : std::runtime_error(why.toStdString()) {}
};

/// One thing or an array of them.
QJsonArray list(const QJsonValue &value)
{
    if (value.isUndefined())
        return {};
    return value.isArray() ? value.toArray() : QJsonArray{value};
}

StationPacket packet(const QString &text)
{
    StationPacket packet;
    QString error;
    if (!readPacket(text, &packet, &error))
        throw Refusal(error);
    return packet;
}

Fault fault(const QJsonValue &value)
{
    const QString name = value.toString();
    if (value.isUndefined())
        return Fault::None;
    if (name == QLatin1String("sync"))
        return Fault::Sync;
    if (name == QLatin1String("length"))
        return Fault::Length;
    if (name == QLatin1String("checksum"))
        return Fault::Checksum;
    throw Refusal(QStringLiteral("\"broken\" expects sync, length or checksum"));
}

/// A chunk: raw bytes after "bytes", or packets glued with "+", the first one broken if asked for.
QByteArray chunk(const QString &text, Fault fault)
{
    const QString bytesWord = QStringLiteral("bytes ");
    QByteArray bytes;
    if (text.startsWith(bytesWord)) {
        if (!readHex(text.mid(bytesWord.size()), &bytes))
            throw Refusal(QStringLiteral("\"%1\": expected bytes in hexadecimal").arg(text));
        return bytes;
    }
    for (const QString &part : text.split(QLatin1Char('+'))) {
        bytes += packet(part).bytes(fault);
        fault = Fault::None;
    }
    return bytes;
}

int integer(const QJsonObject &line, const char *key, int from, int to, int otherwise)
{
    const QJsonValue value = line.value(QLatin1String(key));
    if (value.isUndefined())
        return otherwise;
    const double number = value.toDouble(std::nan(""));
    if (!(number >= from && number <= to) || std::trunc(number) != number) {
        throw Refusal(QStringLiteral("\"%1\" expects a number from %2 to %3")
                          .arg(QLatin1String(key))
                          .arg(from)
                          .arg(to));
    }
    return int(number);
}

QVector<QVariantList> keys(const QJsonObject &line, const char *key)
{
    QVector<QVariantList> events;
    for (const QJsonValue item : list(line.value(QLatin1String(key)))) {
        QVariantList values;
        QString error;
        if (!readArguments(Kind::Report, QStringLiteral("keyEventSgl"), item, &values, &error))
            throw Refusal(
                QStringLiteral("\"%1\" expects [[key, state], ...]").arg(QLatin1String(key)));
        events.append(values);
    }
    return events;
}

StationTest test(const QJsonObject &line)
{
    static const QStringList known{
        QStringLiteral("test"),      QStringLiteral("status"), QStringLiteral("send"),
        QStringLiteral("split"),     QStringLiteral("broken"), QStringLiteral("keys"),
        QStringLiteral("panelKeys"), QStringLiteral("reply"),  QStringLiteral("signal"),
        QStringLiteral("value"),     QStringLiteral("answer"), QStringLiteral("within")};
    for (const QString &key : line.keys()) {
        if (!known.contains(key))
            throw Refusal(QStringLiteral("unexpected \"%1\"").arg(key));
    }
    StationTest test;
    test.name = line.value(QLatin1String("test")).toString();
    if (test.name.isEmpty())
        throw Refusal(QStringLiteral("expected \"test\" with a name"));
    test.status = integer(line, "status", 0, 255, -1);
    test.within = integer(line, "within", 0, 3'600'000, test.within);

    Fault first = fault(line.value(QLatin1String("broken")));
    for (const QJsonValue item : list(line.value(QLatin1String("send")))) {
        test.chunks.append(chunk(item.toString(), first));
        first = Fault::None;
    }
    const int split = integer(line, "split", 0, 10'000, 0);
    if (split > 0 && !test.chunks.isEmpty()) {
        const QByteArray whole = test.chunks.takeFirst();
        test.chunks.prepend(whole.mid(split));
        test.chunks.prepend(whole.left(split));
    }
    test.keys = keys(line, "keys");
    test.panelKeys = keys(line, "panelKeys");
    if (line.contains(QLatin1String("reply"))) {
        test.replies = true;
        test.reply = packet(line.value(QLatin1String("reply")).toString());
    }
    for (const QJsonValue item : list(line.value(QLatin1String("answer"))))
        test.answers.append(packet(item.toString()));
    test.signal = line.value(QLatin1String("signal")).toString();
    QString error;
    if (!test.signal.isEmpty() &&
        !readArguments(Kind::Signal, QStringLiteral("AutoTestHandler.") + test.signal,
                       line.value(QLatin1String("value")), &test.values, &error))
        throw Refusal(error);
    return test;
}

} // namespace

bool readSequence(const QByteArray &text, StationSequence *sequence, QString *error)
{
    const QList<QByteArray> lines = text.split('\n');
    bool first = true;
    for (int i = 0; i < lines.size(); ++i) {
        if (lines[i].trimmed().isEmpty())
            continue;
        try {
            QJsonParseError parsed{};
            const QJsonObject line = QJsonDocument::fromJson(lines[i], &parsed).object();
            if (parsed.error != QJsonParseError::NoError)
                throw Refusal(
                    QStringLiteral("expected a JSON object (%1)").arg(parsed.errorString()));
            if (first) {
                const QJsonObject metadata = line.value(QLatin1String("metadata")).toObject();
                if (metadata.value(QLatin1String("version")).toInt() != 1)
                    throw Refusal(
                        QStringLiteral(R"(expected {"metadata":{"version":1,...}} first)"));
                sequence->description = metadata.value(QLatin1String("description")).toString();
                first = false;
                continue;
            }
            sequence->tests.append(test(line));
            sequence->tests.last().line = i + 1;
        } catch (const Refusal &refusal) {
            *error =
                QStringLiteral("line %1: %2").arg(i + 1).arg(QString::fromUtf8(refusal.what()));
            return false;
        }
    }
    if (sequence->tests.isEmpty()) {
        *error = QStringLiteral("expected at least one test");
        return false;
    }
    return true;
}

} // namespace mcusim
