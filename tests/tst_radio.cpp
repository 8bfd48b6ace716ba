// The radio interface: inert without a link, and what comes of each notification. What its commands
// send is tested with the facade's.
#include "linksubstitute.h"
#include "mcuradiointerface.h"
#include "mcusrv.h"
#include "testkit.h"

using mcu::McuRadioInterface;

namespace {

/// What was logged, each line as its tag and its text.
QString logged(testkit::LogCapture &log)
{
    QStringList texts;
    for (const testkit::LogLine &line : log.take())
        texts.append(line.text.section(' ', 0, 0) + line.text.section(" --", 1));
    return texts.join(' ');
}

} // namespace

class tst_Radio : public QObject {
    Q_OBJECT

public:
    explicit tst_Radio(substitute::VirtualClock *) {}

private Q_SLOTS:
    void hasItsSignalsInOrder();
    void commandsLog();
    void notificationsPass();
};

void tst_Radio::hasItsSignalsInOrder()
{
    QStringList texts;
    for (const auto &signal : substitute::declaredSignals(McuRadioInterface::staticMetaObject))
        texts.append(substitute::describe(signal));
    QCOMPARE(texts.join(' '),
             QString("stationChanged(int freq) stereoChanged(bool) tpStateChanged(bool) "
                     "psNameChanged(QString text) tunerStateChanged(int) ptyTypeChanged(int type) "
                     "ptySearchResult(int) radioTextUpdate(QString text) "
                     "asStationFound(int smeter, int freq) alarmStatusChanged(int state) "
                     "simulateNewsStatusChanged(bool state)"));
}

void tst_Radio::commandsLog()
{
    testkit::LogCapture log;
    for (bool hasLink : {false, true}) {
        McuRadioInterface radio;
        if (hasLink)
            radio.setMcuSrv(mcu::McuSrv::instance());
        const QString missing = hasLink ? "" : "[ERR] mcu_radio_tune: no radio interface.";
        radio.tune(87500);
        QCOMPARE(logged(log), missing);
        radio.mute(true);
        QCOMPARE(logged(log), missing);
        radio.setRdsOnOff(false);
        QCOMPARE(logged(log), QString("[DBG] =============="));
        radio.seekForward();
        QCOMPARE(logged(log), QString());
    }
}

void tst_Radio::notificationsPass()
{
    McuRadioInterface radio;
    testkit::Emissions emissions(&radio);
    testkit::LogCapture log;
    radio.onTunerStereoNotify(0);
    radio.onTunerTPStateNotify(0);
    radio.onTunerStateChanged(4); // these two come from others than the link
    radio.onSimulateNewsState(true);
    QCOMPARE(emissions.take().join(' '),
             QString("stereoChanged(false) tpStateChanged(false) "
                     "tunerStateChanged(4) simulateNewsStatusChanged(true)"));
    QCOMPARE(logged(log), QString("[DBG] 0 [DBG] 0 [DBG] 1111111111111111111111111111111 4 "
                                  "[DBG] true"));

    radio.setMcuSrv(mcu::McuSrv::instance());
    struct Row {
        const char *signal;
        QVariantList arguments;
        QString emission;
        QString log;
    };
    for (const Row &row : {
             Row{"psNameNotifySgl", {"Ö 1"}, "psNameChanged(\"Ö 1\")", "[DBG] \"Ö 1\""},
             {"tunerStationNotifySgl", {101100}, "", "[DBG] 101100"},
             {"tunerPtyTypeNotifySgl", {31}, "ptyTypeChanged(31)", "[DBG] 31"},
             {"rdsAlarmStateSgl", {3}, "alarmStatusChanged(3)", "[DBG] 3"},
             {"tunerPtySearchResultSgl", {-1}, "ptySearchResult(-1)", "[DBG] -1"},
             {"radioTextSgl", {"Now:"}, "radioTextUpdate(\"Now:\")", "[DBG] \"Now:\""},
             {"tunerStereoSgl", {2}, "stereoChanged(true)", "[DBG] 2"},
             {"tunerTPStateSgl", {-1}, "tpStateChanged(true)", "[DBG] -1"},
             {"tunerAsStationChangedSgl", {101100}, "stationChanged(101100)", ""},
             {"tunerASStationFoundSgl", {98100, 40}, "asStationFound(98100,40)", "[DBG] 98100 40"},
         }) {
        QVERIFY2(substitute::link::inject(row.signal, row.arguments), row.signal);
        QCOMPARE(emissions.take().join(' '), row.emission);
        QCOMPARE(logged(log), row.log);
    }
}

int main(int argc, char **argv) { return testkit::run<tst_Radio>(argc, argv); }
#include "tst_radio.moc"
