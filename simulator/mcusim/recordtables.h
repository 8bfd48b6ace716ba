// The vehicle records as text for people and as JSON for programs.
#pragma once

#include <QJsonObject>
#include <QString>

namespace mcu {
struct RecordDescription;
}

namespace mcusim {

struct Signature;

/// The record of a name: of its report, its signal or its getter. Null for none.
const mcu::RecordDescription *recordOf(const Signature &signature);

/// A section of the records page: names, readiness, rate limit and a table of the fields.
QString recordSection(const mcu::RecordDescription &record);

QJsonObject recordJson(const mcu::RecordDescription &record);

/// The page with the sections between its marks written anew. Throws a Refusal when a mark is
/// missing.
QByteArray updatedPage(const QByteArray &page);

} // namespace mcusim
