// The interface that applications link against and connect to: methods, connections and their
// order, objects without a link, the page of the vehicle records. Also checks that the behaviour
// scripts are complete.
#include "autotesthandler.h"
#include "linksubstitute.h"
#include "platformsubstitute.h"
#include "recordcatalog_p.h"
#include "stage.h"

#include <QDir>
#include <QRegularExpression>

#include <climits>

using mcu::McuService;
using testkit::show;
using testkit::Stage;

namespace {

QString read(const QString &path)
{
    QFile file(QStringLiteral(TESTS "/") + path);
    if (!file.open(QFile::ReadOnly))
        qFatal("cannot read %s", qPrintable(path));
    return QString::fromUtf8(file.readAll());
}

/// The lines of a text file without comments and empty lines.
QStringList lines(const QString &path)
{
    return read(path).split('\n').filter(QRegularExpression("^[^#]"));
}

QString shortName(const QMetaObject &metaObject)
{
    return QString(metaObject.className()).section(':', -1);
}

QStringList connections; ///< those made since the last clear, as texts of connections.txt

} // namespace

// The linker redirects every connection in text form to the second of these functions, and the
// first to Qt (see the CMake file).
QMetaObject::Connection connectByQt(
    const QObject *, const char *, const QObject *, const char *,
    Qt::ConnectionType) asm("__real__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE");
QMetaObject::Connection connectNoted(
    const QObject *, const char *, const QObject *, const char *,
    Qt::ConnectionType) asm("__wrap__ZN7QObject7connectEPKS_PKcS1_S3_N2Qt14ConnectionTypeE");

QMetaObject::Connection connectNoted(const QObject *sender, const char *signal,
                                     const QObject *receiver, const char *member,
                                     Qt::ConnectionType type)
{
    const auto text = [](const char *method) {
        static const QRegularExpression ints("\\(int(,int){3,}\\)");
        const int count = QByteArray(method).count("int");
        return QString(method + 1).replace(ints, QString("(%1 ints)").arg(count));
    };
    connections.append(QString("%1.%2 -> %3 %4 %5%6")
                           .arg(shortName(*sender->metaObject()), text(signal),
                                shortName(*receiver->metaObject()),
                                *member == '2' ? "signal" : "slot", text(member),
                                type == Qt::AutoConnection ? "" : " not automatic"));
    return connectByQt(sender, signal, receiver, member, type);
}

namespace {

/// A vehicle record as docs/vehicle-records.md describes it.
struct PageRecord {
    QString report, signal, getter, readinessSet, readinessBit;
    int size;
    struct Field {
        int offset, bits;
        QString name; ///< empty for a gap
    };
    QVector<Field> fields;
};

QVector<PageRecord> pageRecords()
{
    const QRegularExpression head("- Signal: `(\\w+)\\(QByteArray\\)`, (\\d+) bytes\n"
                                  "- Getter: (none|`(\\w+)\\(\\)`; (\\d+) zero bytes).*\n"
                                  "- Readiness: (none|car|truck)( set, bit 0x(\\w+))?.*\n"
                                  "- Rate limit: .*\n"
                                  "- In scenarios: `(\\w+)`\n");
    const QRegularExpression row("\\| (\\d+) \\| (\\d+) \\| (gap|`(\\w+)`).* \\|\n");
    QVector<PageRecord> records;
    for (const QString &section : read("../docs/vehicle-records.md").split("<!-- record ").mid(1)) {
        const QRegularExpressionMatch match = head.match(section);
        PageRecord record{match.captured(9),
                          match.captured(1),
                          match.captured(4),
                          match.captured(6),
                          match.captured(8),
                          match.captured(2).toInt(),
                          {}};
        for (auto rows = row.globalMatch(section); rows.hasNext();) {
            const QRegularExpressionMatch found = rows.next();
            record.fields.append(
                {found.captured(1).toInt(), found.captured(2).toInt(), found.captured(4)});
        }
        records.append(record);
    }
    return records;
}

/// A report with the same value for all its fields.
QString reportOf(const PageRecord &record, int value = 1)
{
    QStringList values;
    for (const PageRecord::Field &field : record.fields) {
        if (!field.name.isEmpty())
            values.append(QString::number(value));
    }
    return record.report + '(' + values.join(',') + ')';
}

} // namespace

class tst_Interface : public QObject {
    Q_OBJECT

public:
    explicit tst_Interface(substitute::VirtualClock *clock) : m_clock(clock) {}

private Q_SLOTS:
    void hasItsMethods()
    {
        QStringList found;
        for (const QMetaObject *object :
             {&McuService::staticMetaObject, &mcu::McuRadioInterface::staticMetaObject,
              &mcu::AutoTestHandler::staticMetaObject, &McuManager::staticMetaObject,
              &McuVechicleBridge::staticMetaObject}) {
            found.append("== " + shortName(*object));
            for (int i = object->methodOffset(); i < object->methodCount(); ++i) {
                const QMetaMethod method = object->method(i);
                const QString result = qstrcmp(method.typeName(), "void") == 0
                                           ? QString()
                                           : QString(method.typeName()) + ' ';
                found.append(
                    (method.access() == QMetaMethod::Private ? "private " : "") +
                    QString(method.methodType() == QMetaMethod::Signal ? "signal " : "slot ") +
                    result + substitute::describe(method));
            }
        }
        QCOMPARE(found, lines("metaobjects.txt"));
    }

    void belongsToItsParent()
    {
        QObject parent;
        const QObject *children[]{new McuService(&parent), new mcu::AutoTestHandler(&parent)};
        for (const QObject *child : children)
            QCOMPARE(child->parent(), &parent);
    }

    void connectsInOrder()
    {
        const QStringList wanted = lines("connections.txt");
        connections.clear();
        substitute::link::log().setListener([](const substitute::Call &call) {
            connections.append("link." + show(call.name, call.arguments));
        });
        McuService service;
        QVERIFY(service.init());
        substitute::link::log().setListener(nullptr);
        McuManager manager(&service);
        manager.setWatchDogEnable(true);
        substitute::platform::setAudioEvents({6});
        manager.checkEventOffRestoreMute();
        service.notifyAutoTestStatus(1);
        service.notifyAutoTestStatus(0);
        QCOMPARE(connections, wanted);
    }

    void isSilentWithoutLink()
    {
        // These three have no null check of the link.
        const QStringList excluded{"McuService.setSerialNumer", "McuService.setSleepMode",
                                   "McuService.setMixChannel", "McuService.init"};
        const QHash<int, QString> texts{{QMetaType::Int, "3"},
                                        {QMetaType::Bool, "true"},
                                        {QMetaType::QString, "\"ä\""},
                                        {QMetaType::QByteArray, "0x010203"},
                                        {QMetaType::QVariantList, "[1,2,3,4,5]"}};
        Stage stage(m_clock, Stage::Inputs::MainThread);
        QStringList told;
        for (const mcusim::Operation &operation : testkit::scriptOperations()) {
            QStringList arguments;
            for (const mcusim::Parameter &parameter : operation.parameters)
                arguments.append(texts[parameter.type]);
            if (!excluded.contains(operation.name) && !operation.name.startsWith("AutoTest") &&
                !operation.name.startsWith("McuVech"))
                told += stage.play("unlinked " + operation.name + '(' + arguments.join(',') + ')');
        }
        McuService linked;
        linked.init();
        linked.setAudioTimerDelay(1, nullptr);
        QCOMPARE(
            told.filter(QRegularExpression("^(link|[A-Z]).*\\(")),
            QStringList({"TunerControl.HDR_DabRequestScan()", "TunerControl.HDR_DabTunerFM(3)"}));
    }

    void recordsAreAsThePageSays()
    {
        const QVector<PageRecord> records = pageRecords();
        QCOMPARE(records.size(), 28);
        for (const PageRecord &record : records) {
            for (const quint32 start : {0x80000000u, 0xffffff80u, 0x11223344u, 0x7fffff7fu})
                verify(record, start);
        }
    }

    /// CAN data is ready when the last report of a set arrives, whichever it is and however often
    /// the others have arrived. CANDataReady() is not emitted again.
    void lastOfASetMakesCanDataReady()
    {
        for (const QString name : {"car", "truck"}) {
            QStringList set, others;
            for (const PageRecord &record : pageRecords())
                (record.readinessSet == name ? set : others).append(reportOf(record));
            QCOMPARE(set.size(), name == "car" ? 7 : 13);
            for (const QString &last : qAsConst(set)) {
                Stage stage(m_clock, Stage::Inputs::MainThread);
                const auto isReadyBy = [&stage](const QString &report) {
                    return stage.play(report).contains("CANDataReady()");
                };
                for (const QString &report : set + set)
                    QVERIFY(report == last || !isReadyBy(report));
                QVERIFY2(isReadyBy(last), qPrintable(last));
                for (const QString &report : set + others)
                    QVERIFY(!isReadyBy(report));
            }
        }
    }

    /// Each report, operation, command and signal has a row, except those of the factory test and
    /// the update search, and those that never change or are never emitted.
    void scriptsLeaveNothingOut()
    {
        QString scripts;
        for (const QString &name : QDir(TESTS "/scripts").entryList(QDir::Files))
            scripts += '\n' + read("scripts/" + name);
        QStringList wanted;
        for (const QMetaMethod &report : substitute::link::signalMethods())
            wanted.append('\n' + report.name() + '(');
        for (const QMetaMethod &command : substitute::link::commandMethods())
            wanted.append(" link." + command.name() + '(');
        for (const mcusim::Operation &operation : mcusim::operations()) {
            const bool isRead =
                operation.result != QMetaType::Void && operation.parameters.isEmpty();
            const QString name = operation.name.section('.', 1);
            const QString prefix = operation.name.startsWith("McuManager") ? "manager." : " ";
            if (!operation.name.startsWith("AutoTestHandler") && name != "findUpdateFile" &&
                name != "snIdChecksum")
                wanted.append(isRead ? prefix + name + '=' : operation.name + '(');
        }
        const QStringList neverEmitted{
            "attStateChanged",    "avmReverrseChanged",  "sxmDeviceChanged", "systemSnidChanged",
            "discTrayOutRequest", "discTrayInReady",     "discTrayOutReady", "muteState",
            "syncAVMError",       "dabAntStatusChanged", "dabSelectFreq",    "dabSelectService",
            "dabRequestAction"};
        for (const auto &[prefix, object] :
             {std::pair(" ", &McuService::staticMetaObject),
              std::pair("radio.", &mcu::McuRadioInterface::staticMetaObject),
              std::pair("manager.", &McuManager::staticMetaObject),
              std::pair("bridge.", &McuVechicleBridge::staticMetaObject)}) {
            for (const QMetaMethod &signal : substitute::declaredSignals(*object)) {
                if (!neverEmitted.contains(signal.name()))
                    wanted.append(prefix + signal.name() + '(');
            }
        }
        QStringList missing;
        for (const QString &name : qAsConst(wanted)) {
            if (!scripts.contains(name))
                missing.append(name);
        }
        QCOMPARE(missing.join(" "), QString());
    }

private:
    /// Reports values that differ in every byte and verifies image, names and readiness.
    void verify(const PageRecord &record, quint32 start)
    {
        Stage stage(m_clock, Stage::Inputs::MainThread);
        QByteArray image;
        QStringList values, names, kept;
        for (const PageRecord::Field &field : record.fields) {
            QCOMPARE(field.offset, image.size());
            const bool isGap = field.name.isEmpty();
            const quint32 value = isGap ? 0 : quint32(start + quint64(values.size()) * 0x05030201u);
            const quint32 bits = field.bits == 32 ? value : value & ((1u << field.bits) - 1);
            for (int shift = 0; shift < field.bits; shift += 8)
                image.append(char(bits >> shift));
            if (isGap)
                continue;
            values.append(QString::number(int(value)));
            names.append(field.name);
            kept.append(field.name + '=' + QString::number(int(bits)));
        }
        QCOMPARE(image.size(), record.size);

        const QString report = record.report + '(' + values.join(',') + ')';
        const QString effects = stage.play(report).join(' ') + ' ';
        QVERIFY2(effects.contains(record.signal + '(' + show(image) + ')'), qPrintable(effects));
        if (!record.getter.isEmpty())
            QVERIFY(effects.contains(' ' + record.getter + '=' + show(image) + ' '));
        const int bit = record.readinessBit.toInt(nullptr, 16);
        QCOMPARE(effects.contains(QString(" getCANDataSignal=%1 ").arg(bit)),
                 record.readinessSet == "car");

        const mcu::RecordDescription *description =
            mcu::describeRecord(qUtf8Printable(record.signal));
        QVERIFY(description);
        QStringList shown;
        for (const mcu::FieldValue &field : mcu::fieldValues(*description, image))
            shown.append(QString("%1=%2").arg(field.name).arg(field.value));
        QCOMPARE(shown, kept);
        QVERIFY(mcu::fieldValues(*description, image + '\0').empty());
        for (const QMetaMethod &method : substitute::link::signalMethods()) {
            if (method.name() == record.report)
                QCOMPARE(method.parameterNames().join(' '), names.join(' ').toLatin1());
        }
    }

    substitute::VirtualClock *m_clock;
};

int main(int argc, char **argv) { return testkit::run<tst_Interface>(argc, argv); }
#include "tst_interface.moc"
