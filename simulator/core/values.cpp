// JSON has one type of number; the parameter decides what a number becomes.
#include "values.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace mcusim {

namespace {

constexpr int longestExcerpt = 60;

/// A JSON number as an int, or invalid.
QVariant asInt(const QJsonValue &value)
{
    const double number = value.toDouble(std::nan(""));
    const bool isInt = number >= std::numeric_limits<int>::min() &&
                       number <= std::numeric_limits<int>::max() && std::trunc(number) == number;
    return isInt ? QVariant(int(number)) : QVariant();
}

/// "0x0aff" as bytes, "0x" as none; or invalid.
QVariant asBytes(const QJsonValue &value)
{
    const QString text = value.toString();
    QByteArray bytes;
    const bool isBytes =
        text == "0x" || (text.startsWith("0x") && !text.contains(' ') && readHex(text, &bytes));
    return isBytes ? QVariant(bytes) : QVariant();
}

/// A list of ints, or invalid.
QVariant asInts(const QJsonValue &value, int length)
{
    QVariantList ints;
    const QJsonArray items = value.toArray();
    for (const auto &item : items)
        ints.append(asInt(item));
    const bool isInts =
        value.isArray() && !ints.contains(QVariant()) && (length == 0 || ints.size() == length);
    return isInts ? QVariant(ints) : QVariant();
}

/// A text that can be written and read back unchanged, or invalid.
QVariant asText(const QJsonValue &value)
{
    const QString text = value.toString();
    return value.isString() && text.isValidUtf16() ? QVariant(text) : QVariant();
}

QByteArray written(const QJsonValue &value)
{
    return QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1);
}

void append(QByteArray &line, const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::Int:
        line += QByteArray::number(value.toInt());
        break;
    case QMetaType::Bool:
        line += value.toBool() ? "true" : "false";
        break;
    case QMetaType::QByteArray:
        line += "\"0x" + value.toByteArray().toHex() + '"';
        break;
    default:
        line += written(QJsonValue::fromVariant(value));
    }
}

} // namespace

QVariant fitted(const QJsonValue &value, const Parameter &parameter)
{
    switch (parameter.type) {
    case QMetaType::Int:
        return asInt(value);
    case QMetaType::Bool:
        return value.isBool() ? QVariant(value.toBool()) : QVariant();
    case QMetaType::QString:
        return asText(value);
    case QMetaType::QByteArray:
        return asBytes(value);
    case QMetaType::QVariantList:
        return asInts(value, parameter.length);
    case QMetaType::QVariant: // any type: the one it is written in
        return value.isDouble() ? asInt(value) : value.isBool() ? value.toBool() : asText(value);
    default:
        return {};
    }
}

bool fits(const QVariant &value, const Parameter &parameter)
{
    return value.isValid() &&
           (parameter.type == QMetaType::QVariant || value.userType() == parameter.type) &&
           (parameter.length == 0 || value.toList().size() == parameter.length);
}

QString typeName(const Parameter &parameter)
{
    return parameter.type == QMetaType::QVariantList
               ? "int[]"
               : QString::fromLatin1(QMetaType::typeName(parameter.type));
}

QString described(const Parameter &parameter)
{
    return (typeName(parameter) + ' ' + parameter.name).trimmed();
}

QByteArray writtenValue(const QVariantList &arguments)
{
    QByteArray text;
    if (arguments.isEmpty())
        return text;
    // A single argument that is an array would be read as several arguments.
    const bool alone =
        arguments.size() == 1 && arguments.first().userType() != QMetaType::QVariantList;
    for (const QVariant &argument : arguments) {
        text += text.isEmpty() ? (alone ? "" : "[") : ",";
        append(text, argument);
    }
    return alone ? text : text + ']';
}

QString shown(const QVariant &value)
{
    if (value.userType() == QMetaType::QString)
        return quoted(value.toString());
    QByteArray text;
    append(text, value);
    text.replace('"', "");
    return QString(text);
}

QString printable(const QString &text)
{
    QString safe;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            safe += text.midRef(i++, 2);
        else if (c.isPrint())
            safe += c;
        else
            safe += QString("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
    return safe;
}

QString quoted(const QString &text)
{
    QString marked = text;
    marked.replace('\\', "\\\\").replace('"', "\\\"");
    return '"' + printable(marked) + '"';
}

QString excerpt(const QString &text)
{
    return text.size() <= longestExcerpt ? quoted(text) : quoted(text.left(longestExcerpt)) + "...";
}

QString excerpt(const QJsonValue &value)
{
    if (value.isString())
        return excerpt(value.toString());
    const QString text = QString::fromUtf8(written(value));
    return printable(text.left(longestExcerpt)) + (text.size() <= longestExcerpt ? "" : "...");
}

QString seconds(qint64 milliseconds)
{
    return QString::number(double(milliseconds) / 1000, 'f', 3);
}

bool readHex(const QString &text, QByteArray *bytes)
{
    bytes->clear();
    const QStringList words = text.split(' ', Qt::SkipEmptyParts);
    for (const QString &word : words) {
        const QByteArray digits = (word.startsWith("0x") ? word.mid(2) : word).toLatin1().toLower();
        const QByteArray part = QByteArray::fromHex(digits);
        if (digits.isEmpty() || part.toHex() != digits)
            return false;
        *bytes += part;
    }
    return true;
}

} // namespace mcusim
