// Values in one place: read from JSON into the type of a parameter, written back, shown to people.
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

/// One argument as a person reads it. Nothing in it can steer a terminal.
QString shown(const QVariant &value);
/// A text with all that cannot be printed escaped, and the same in quotes.
QString printable(const QString &text);
QString quoted(const QString &text);
/// What a user wrote, quoted and not longer than a message should be.
QString excerpt(const QString &text);
QString excerpt(const QJsonValue &value);

/// Seconds with three digits.
QString seconds(qint64 milliseconds);

/// Bytes from hexadecimal text: words of digit pairs with blanks between them, each with or without
/// "0x". False when it is none.
bool readHex(const QString &text, QByteArray *bytes);

} // namespace mcusim
