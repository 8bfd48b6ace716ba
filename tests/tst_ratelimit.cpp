// The rate limits of HU and vehicle fault reports, to the tick of the CAN check timer.
#include "connectedfacade.h"
#include "mcuservice_p.h"

#include <climits>

using testkit::ConnectedFacade;
using testkit::words;

class tst_RateLimit : public QObject {
    Q_OBJECT

public:
    explicit tst_RateLimit(substitute::VirtualClock *clock) : m_clock(clock) {}

private:
    substitute::VirtualClock *m_clock;

private Q_SLOTS:
    void decides()
    {
        using Counters = QVector<int>; // AC, vehicle fault, HU
        struct Case {
            int command;
            Counters before;
            bool held;
            Counters after;
        };
        const QVector<Case> cases{
            {1, {0, 0, 0}, false, {0, 6, 0}},   {1, {3, 6, 3}, true, {3, 6, 3}},
            {1, {3, 1, 3}, true, {3, 6, 3}},    {1, {3, -1, 3}, false, {3, 6, 3}},
            {2, {0, 0, 0}, false, {0, 0, 4}},   {2, {3, 3, 4}, true, {3, 3, 4}},
            {2, {3, 3, 1}, true, {3, 3, 1}},    {2, {3, 3, -1}, false, {3, 3, 4}},
            {0, {2, 2, 2}, false, {2, 2, 2}},   {3, {2, 2, 2}, false, {2, 2, 2}},
            {-1, {2, 2, 2}, false, {2, 2, 2}},  {257, {2, 2, 2}, false, {2, 2, 2}},
            {258, {2, 2, 2}, false, {2, 2, 2}}, {INT_MIN, {2, 2, 2}, false, {2, 2, 2}},
        };
        for (const Case &c : cases) {
            mcu::McuServicePrivate data;
            data.acDelay = qint8(c.before[0]);
            data.vehicleFaultDelay = qint8(c.before[1]);
            data.huDelay = qint8(c.before[2]);
            testkit::LogCapture log;
            QCOMPARE(data.checkCmdUpdateToApp(c.command), int(c.held));
            QCOMPARE(log.takeTexts().value(0), c.held ? QString::number(c.command) : QString());
            QCOMPARE((Counters{data.acDelay, data.vehicleFaultDelay, data.huDelay}), c.after);
        }
    }

    void holdsBack_data()
    {
        // Reports and emissions as TIME=VALUE, milliseconds since init(), so ticks come at
        // multiples of 50. A report comes after the tick of its time, one with a "<" comes before
        // it.
        QTest::addColumn<bool>("hu");
        QTest::addColumn<QStringList>("reports");
        QTest::addColumn<QStringList>("emissions");
        const auto row = [](const char *name, bool hu, const char *reports, const char *emissions) {
            QTest::newRow(name) << hu << words(reports) << words(emissions);
        };
        const bool hu = true;
        const bool fault = false;
        row("HU, one between ticks", hu, "49=1", "49=1 200=1");
        row("HU, folded", hu, "0=1 20=2 120=3", "0=1 200=3");
        row("HU, steady", hu, "0=1 100=2 200=3 300=4 400=5", "0=1 200=2 200=3 400=4 400=5 600=5");
        row("HU, before the last tick", hu, "0=1 200<=2 250=3", "0=1 200=2 250=3 450=3");
        row("HU, after the last tick", hu, "0=1 200=2 250=3", "0=1 200=1 200=2 400=3");
        row("fault, one between ticks", fault, "49=1", "49=1 300=1");
        row("fault, restarted", fault, "0=1 20=2 299=3", "0=1 550=3");
        row("fault, every 100 ms", fault,
            "0=1 100=2 200=3 300=4 400=5 500=6 600=7 700=8 800=9 900=10 1000=11", "0=1 1300=11");
        row("fault, before the last tick", fault, "0=1 300<=2 400=3", "0=1 700=3");
        row("fault, after the last tick", fault, "0=1 300=2 400=3", "0=1 300=1 300=2 700=3");
    }

    void holdsBack()
    {
        QFETCH(bool, hu);
        QFETCH(QStringList, reports);
        const int width = hu ? 12 : 8;
        ConnectedFacade facade;
        mcu::McuService &service = facade.service;
        const qint64 start = m_clock->now();
        QStringList emissions;
        const auto note = [&](const QByteArray &image) {
            QCOMPARE(image, QByteArray(width, image[0]));
            emissions.append(QString("%1=%2").arg(m_clock->now() - start).arg(int(image[0])));
        };
        connect(&service, &mcu::McuService::syncHuInforUpdate, this, note);
        connect(&service, &mcu::McuService::syncVehicleFaultInforUpdate, this, note);
        for (const QString &report : reports) {
            const bool beforeTick = report.contains('<');
            const qint64 time = start + report.section('=', 0, 0).remove('<').toInt();
            const int value = report.section('=', 1).toInt();
            const auto inject = [&] {
                facade.report(hu ? "reportHuChangedSgl" : "reportVehicleFaultChangedSgl",
                              QVector<QVariant>(width, value).toList());
            };
            // A timer armed now is due before a tick that is armed later for the same time.
            if (beforeTick)
                QTimer::singleShot(int(time - m_clock->now()), this, inject);
            m_clock->advanceTo(time);
            if (!beforeTick)
                inject();
            QCOMPARE(service.getCANDataSignal(), hu ? 2 : 32);
            const QByteArray stored =
                hu ? service.getReportHuDate() : service.getReportVehicleFaultData();
            QCOMPARE(stored, QByteArray(width, char(value)));
        }
        m_clock->advance(2000);
        QTEST(emissions, "emissions");
    }

    void logsHolding()
    {
        ConnectedFacade facade;
        testkit::LogCapture log;
        for (int i = 0; i < 2; ++i) {
            facade.report("reportHuChangedSgl(1,2,3,4,5,6,7,8,9,10,11,-1)");
            facade.report("reportVehicleFaultChangedSgl(1,2,3,4,5,6,7,-1)");
        }
        m_clock->advance(300);
        QCOMPARE(facade.trace.take(), words("syncHuInforUpdate(0x0102030405060708090a0bff)"
                                            " syncVehicleFaultInforUpdate(0x01020304050607ff)"));
        QString lines;
        for (const testkit::LogLine &line : log.take())
            lines += line.function.section('(', 0, 0).section(':', -1) + ": " +
                     line.text.section(" -- ", 1) + '\n';
        QCOMPARE(lines, QString(R"(onReportHuChanged: !qrk#---hu_infor--- "0102030405060708090a0bff"
onReportVehicleFaultChanged: !qrk#---vehicle_fault_infor--- "01020304050607ff"
checkCmdUpdateToApp: 2
checkCmdUpdateToApp: 1
onCheckCanbusTmrDelay: !qrk#---hu_infor--- "0102030405060708090a0bff"
onCheckCanbusTmrDelay: syncVehicleFaultInforUpdate
)"));
    }
};

int main(int argc, char **argv) { return testkit::run<tst_RateLimit>(argc, argv); }
#include "tst_ratelimit.moc"
