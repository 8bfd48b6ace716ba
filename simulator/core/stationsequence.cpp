#include "stationsequence.h"

#include "jsonlines.h"
#include "values.h"

#include <QJsonArray>

#include <cmath>

namespace mcusim {

namespace {

/// One text or an array of them.
QStringList texts(const QJsonObject &line, const char *key)
{
    const QJsonValue value = line.value(QLatin1String(key));
    QStringList found;
    if (value.isUndefined())
        return found;
    const QJsonArray items = value.isArray() ? value.toArray() : QJsonArray{value};
    for (const QJsonValue &item : items) {
        if (!item.isString())
            refuseValue(line, key, "a text or an array of texts");
        found.append(item.toString());
    }
    return found;
}

Fault fault(const QJsonObject &line)
{
    if (!line.contains("broken"))
        return Fault::None;
    const QStringList names{{}, "sync", "length", "checksum"}; // in the order of Fault
    const int found = names.indexOf(readText(line, "broken"));
    if (found <= 0)
        refuseValue(line, "broken", "sync, length or checksum");
    return Fault(found);
}

/// A chunk: raw bytes after "bytes", or packets joined with "+", the first one broken on request.
QByteArray chunk(const QString &text, Fault fault)
{
    const QString bytesWord = "bytes ";
    QByteArray bytes;
    if (text.startsWith(bytesWord)) {
        if (!readHex(text.mid(bytesWord.size()), &bytes))
            throw Refusal(excerpt(text) + ": expected bytes in hexadecimal");
        if (fault != Fault::None)
            throw Refusal("\"broken\" breaks packets, not \"bytes\"");
        return bytes;
    }
    const QStringList parts = text.split('+');
    for (const QString &part : parts) {
        bytes += readPacket(part).bytes(fault);
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
        const QByteArray range =
            "a number from " + QByteArray::number(from) + " to " + QByteArray::number(to);
        refuseValue(line, key, range.constData());
    }
    return int(number);
}

QVector<QVariantList> keys(const Catalogue &names, const QJsonObject &line, const char *key)
{
    QVector<QVariantList> events;
    const QJsonValue value = line.value(QLatin1String(key));
    const QJsonArray items = value.toArray();
    try {
        for (const QJsonValue &item : items)
            events.append(names.read(Kind::Report, "keyEventSgl", item).values);
    } catch (const Refusal &) {
        events.clear();
    }
    if (events.isEmpty() && !value.isUndefined())
        refuseValue(line, key, "[[key, state], ...]");
    return events;
}

void addChunks(const QJsonObject &line, StationTest &test)
{
    Fault first = fault(line);
    const QStringList sent = texts(line, "send");
    for (const QString &text : sent) {
        test.chunks.append(chunk(text, first));
        first = Fault::None;
    }
    for (const char *key : {"broken", "split"}) {
        if (line.contains(QLatin1String(key)) && test.chunks.isEmpty())
            refuseValue(line, key, "a packet in \"send\"");
    }
    if (line.contains("split")) {
        const QByteArray whole = test.chunks.takeFirst();
        const int split = integer(line, "split", 1, whole.size() - 1, 0);
        test.chunks.prepend(whole.mid(split));
        test.chunks.prepend(whole.left(split));
    }
}

StationTest readTest(const Catalogue &names, const QJsonObject &line)
{
    allowKeys(line, {"test", "status", "send", "split", "broken", "keys", "panelKeys", "reply",
                     "signal", "value", "answer", "within"});
    StationTest test;
    test.name = readText(line, "test");
    if (test.name.isEmpty())
        throw Refusal("expected \"test\" with a name");
    test.status = integer(line, "status", 0, 255, -1);
    test.within = integer(line, "within", 0, 3'600'000, test.within);
    addChunks(line, test);
    test.keys = keys(names, line, "keys");
    test.panelKeys = keys(names, line, "panelKeys");
    const QStringList answers = texts(line, "answer");
    for (const QString &text : answers)
        test.answers.append(readPacket(text));
    if (line.contains("reply")) {
        test.reply = readPacket(readText(line, "reply"));
        // Applications answer read requests; the handler acknowledges write requests itself.
        if (test.reply->type != readAnswer)
            refuseValue(line, "reply", "a read-answer");
    }
    const QJsonValue value = line.value("value");
    if (line.contains("signal"))
        test.signal =
            names.read(Kind::Signal, "AutoTestHandler." + readText(line, "signal"), value);
    else if (!value.isUndefined())
        refuseValue(line, "value", "a \"signal\" that carries it");
    return test;
}

} // namespace

SequenceFile::SequenceFile(const Catalogue &names, const QString &path, GoOn goOn)
    : JsonLinesFile(path, std::move(goOn), {"description"}), m_names(names)
{
}

std::optional<StationTest> SequenceFile::next()
{
    return advance() ? std::optional(m_test) : std::nullopt;
}

bool SequenceFile::take(const QJsonObject &line)
{
    m_test = readTest(m_names, line);
    m_test.line = number();
    return true;
}

} // namespace mcusim
