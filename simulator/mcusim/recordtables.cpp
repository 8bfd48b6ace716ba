#include "recordtables.h"

#include "catalogue.h"
#include "recordcatalog_p.h"
#include "refusal.h"

#include <QJsonArray>

namespace mcusim {

namespace {

using mcu::Readiness;
using mcu::RecordDescription;

QString text(const char *latin1) { return QString(latin1); }

QString getterText(const RecordDescription &record)
{
    if (!record.getter)
        return "none for the record";
    return '`' + text(record.getter) + "()`; " + QString::number(record.size()) +
           " zero bytes before the first report";
}

QString readinessText(const Readiness &readiness)
{
    if (readiness.set == Readiness::Set::None)
        return "none, `CANDataReady()` does not wait for it";
    const auto hex = [&readiness](int digits) {
        return QString("0x%1").arg(readiness.bit, digits, 16, QLatin1Char('0'));
    };
    return readiness.set == Readiness::Set::Car
               ? "car set, bit " + hex(2) + " of `getCANDataSignal()`"
               : "truck set, bit " + hex(0);
}

QString limitText(const mcu::Hold &hold)
{
    if (hold.ticks == 0)
        return "none";
    return "yes, a hold of " + QString::number(hold.ticks) + " ticks that " +
           (hold.restarts ? "each report restarts" : "reports do not extend");
}

} // namespace

const RecordDescription *recordOf(const Signature &signature)
{
    for (const RecordDescription *record : mcu::recordCatalog) {
        if (signature.name == text(record->linkSignal) ||
            (signature.className() == "McuService" &&
             (signature.shortName() == QString(signalName(*record)) ||
              signature.shortName() == text(record->getter))))
            return record;
    }
    return nullptr;
}

QString recordSection(const RecordDescription &record)
{
    QString section = "### " + text(record.title) + "\n\n- Signal: `" +
                      QString(signalName(record)) + "(QByteArray)`, " +
                      QString::number(record.size()) + " bytes\n- Getter: " + getterText(record) +
                      "\n- Readiness: " + readinessText(record.readiness) +
                      "\n- Rate limit: " + limitText(record.hold) + "\n- In scenarios: `" +
                      text(record.linkSignal) + "`\n\n| Offset | Bits | Field |\n|---|---|---|\n";
    std::size_t offset = 0;
    for (const mcu::Field &field : record.fields) {
        const QString name = field.isGap() ? "gap, always 0" : '`' + text(field.name) + '`';
        if (field.width > 0)
            section += "| " + QString::number(offset) + " | " + QString::number(8 * field.width) +
                       " | " + name + " |\n";
        offset += field.width;
    }
    return section;
}

QJsonObject recordJson(const RecordDescription &record)
{
    QJsonArray fields;
    int offset = 0;
    for (const mcu::Field &field : record.fields) {
        if (!field.isGap())
            fields.append(QJsonObject{
                {"name", field.name}, {"offset", offset}, {"bits", int(8 * field.width)}});
        offset += int(field.width);
    }
    return {{"title", record.title},
            {"report", record.linkSignal},
            {"signal", QString(signalName(record))},
            {"getter", record.getter},
            {"bytes", offset},
            {"fields", fields}};
}

QByteArray updatedPage(const QByteArray &page)
{
    QByteArray updated = page;
    for (const RecordDescription *record : mcu::recordCatalog) {
        const QByteArray mark = "<!-- record " + QByteArray(signalName(*record)) + " -->\n";
        const int begin = updated.indexOf(mark) + mark.size();
        const int length = updated.indexOf("<!-- end -->\n", begin) - begin;
        if (updated.count(mark) != 1 || length < 0)
            throw Refusal("expected \"" + QString(mark.trimmed()) +
                          "\" once, and an end mark after it");
        updated.replace(begin, length, recordSection(*record).toUtf8());
    }
    return updated;
}

} // namespace mcusim
