// The record tables of docs/vehicle-records.md are those of the layouts. After a change of a layout
// run this program with MCUSERVICE_UPDATE_DOCS=1 to write them anew; the text around them stays.
#include "recordcatalog_p.h"
#include "testkit.h"

#include <QFile>

using mcu::Readiness;
using mcu::RecordDescription;

namespace {

QString getterText(const RecordDescription &record)
{
    if (!record.getter)
        return QString("none for the record");
    return QString("`%1()`; %2 zero bytes before the first report")
        .arg(record.getter)
        .arg(record.size());
}

QString readinessText(const Readiness &readiness)
{
    if (readiness.set == Readiness::Set::None)
        return "none, `CANDataReady()` does not wait for it";
    return readiness.set == Readiness::Set::Car
               ? QString("car set, bit 0x%1 of `getCANDataSignal()`")
                     .arg(readiness.bit, 2, 16, QChar('0'))
               : QString("truck set, bit 0x%1").arg(readiness.bit, 0, 16);
}

QString limitText(const mcu::Hold &hold)
{
    if (hold.command == 0)
        return "none";
    return QString(hold.restarts ? "yes, a hold of %1 ticks that each report restarts"
                                 : "yes, a hold of %1 ticks that reports do not extend")
        .arg(hold.ticks);
}

QString section(const RecordDescription &record)
{
    QString text = QString("### %1\n\n"
                           "- Signal: `%2(QByteArray)`, %3 bytes\n"
                           "- Getter: %4\n- Readiness: %5\n- Rate limit: %6\n"
                           "- In scenarios: `%7`\n\n"
                           "| Offset | Bits | Field |\n|---|---|---|\n")
                       .arg(record.title, mcu::signalName(record), QString::number(record.size()),
                            getterText(record), readinessText(record.readiness),
                            limitText(record.hold), record.linkSignal);
    std::size_t offset = 0;
    for (const mcu::Field &field : record.fields) {
        if (field.width > 0) {
            const QString name =
                field.isGap() ? QString("gap, always 0") : QString("`%1`").arg(field.name);
            text += QString("| %1 | %2 | %3 |\n").arg(offset).arg(8 * field.width).arg(name);
        }
        offset += field.width;
    }
    return text;
}

} // namespace

class tst_RecordDocs : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tablesAreThoseOfTheLayouts()
    {
        const bool update = qEnvironmentVariableIsSet("MCUSERVICE_UPDATE_DOCS");
        QFile file(RECORD_DOCS);
        QVERIFY(file.open(update ? QFile::ReadWrite : QFile::ReadOnly));
        QString text = QString::fromUtf8(file.readAll());
        for (const RecordDescription *record : mcu::recordCatalog) {
            const QString mark =
                QString("<!-- record %1 -->\n").arg(QString(mcu::signalName(*record)));
            QVERIFY2(text.count(mark) == 1, qPrintable(mark));
            const int begin = text.indexOf(mark) + mark.size();
            const int length = text.indexOf(QString("<!-- end -->\n"), begin) - begin;
            QVERIFY2(length >= 0, qPrintable(mark));
            if (update)
                text.replace(begin, length, section(*record));
            else
                QCOMPARE(text.mid(begin, length), section(*record));
        }
        if (update)
            QVERIFY(file.resize(0) && file.seek(0) && file.write(text.toUtf8()) > 0);
    }
};

int main(int argc, char **argv) { return testkit::run<tst_RecordDocs>(argc, argv); }

#include "tst_recorddocs.moc"
