// Reads values from JSON into the type of a parameter, writes them back and shows them to people.
#pragma once

#include "operations.h"

#include <QJsonValue>

namespace mcusim {

/// The value in the type of a parameter; invalid when it does not fit.
QVariant fitted(const QJsonValue &value, const Parameter &parameter);
/// Whether a value already has the type of a parameter.
bool fits(const QVariant &value, const Parameter &parameter);

/// "int", and "int level" as lists and messages show a parameter.
QString typeName(const Parameter &parameter);
QString described(const Parameter &parameter);

/// Arguments as the "value" of a line: none is empty, one stands alone, several are an array.
/// Bytes are "0x" text.
QByteArray writtenValue(const QVariantList &arguments);

/// One argument for people, without control characters.
QString shown(const QVariant &value);
/// A text with all that cannot be printed escaped, and the same in quotes.
QString printable(const QString &text);
QString quoted(const QString &text);
/// What a user wrote, quoted and shortened for a message.
QString excerpt(const QString &text);
QString excerpt(const QJsonValue &value);

/// Seconds with three digits.
QString seconds(qint64 milliseconds);

/// Bytes from hexadecimal text: words of digit pairs with blanks between them, each with or without
/// "0x". False for any other text.
bool readHex(const QString &text, QByteArray *bytes);

} // namespace mcusim
