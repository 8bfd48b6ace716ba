// The substitute platform: injection and its refusals, settable answers, and the other platform
// services. How it writes down commands is seen with the facade's commands.
#include "linksubstitute.h"
#include "platformsubstitute.h"
#include "testkit.h"

#include "audioservice.h"
#include "datetimemanager.h"
#include "eventhandler.h"
#include "mcusrv.h"
#include "settingsexe.h"
#include "settingsfunc.h"
#include "settingsutil.h"
#include "srcdsplctrl.h"
#include "tunercontrol.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <limits>

using namespace substitute;
using mcu::McuSrv;
using testkit::show;

class SubstituteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        link::reset();
        platform::reset();
    }

    void everySignalCanBeInjected()
    {
        testkit::Emissions emissions(McuSrv::instance());
        for (const QMetaMethod &signal : link::signalMethods()) {
            const QVariantList arguments = testkit::countedArguments(signal);
            QVERIFY(link::inject(signal.name(), arguments));
            QCOMPARE(emissions.take(), QStringList{show(signal.name(), arguments)});
        }
        QCOMPARE(link::signalMethods().size(), 76);
        // Numbers as a scenario has them.
        QVERIFY(link::inject("keyEventSgl", {-2147483648.0, 2147483647LL}));
        QCOMPARE(emissions.take(), QStringList{"keyEventSgl(-2147483648,2147483647)"});
    }

    void refusals_data()
    {
        QTest::addColumn<QString>("signal");
        QTest::addColumn<QVariantList>("arguments");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char *signal, const QVariantList &arguments,
                            const char *expected) {
            QTest::newRow(expected) << signal << arguments << expected;
        };
        const char *key = "keyEventSgl";
        row(key, {1}, "keyEventSgl expects 2 arguments (int key, int state), got 1");
        row(key, {1, 2, 3}, "keyEventSgl expects 2 arguments (int key, int state), got 3");
        row(key, {1, "1"}, "keyEventSgl: argument 2 (int state) cannot be \"1\"");
        row(key, {true, 1}, "keyEventSgl: argument 1 (int key) cannot be true");
        row(key, {1, 1.5}, "keyEventSgl: argument 2 (int state) cannot be 1.5");
        row(key, {1, 2147483648LL}, "keyEventSgl: argument 2 (int state) cannot be 2147483648");
        row(key, {1, -2147483649.0}, "keyEventSgl: argument 2 (int state) cannot be -2147483649");
        row(key, {1, std::numeric_limits<double>::quiet_NaN()},
            "keyEventSgl: argument 2 (int state) cannot be null");
        row(key, {1, QVariant()}, "keyEventSgl: argument 2 (int state) cannot be null");
        row(key, {1, QVariantList{1, 2}}, "keyEventSgl: argument 2 (int state) cannot be [1,2]");
        row(key, {1, QByteArray("\x0a\xff")},
            "keyEventSgl: argument 2 (int state) cannot be 0x0aff");
        row("radioTextSgl", {5}, "radioTextSgl: argument 1 (QString text) cannot be 5");
        row("autoTestPkgChanged", {"0xff"},
            "autoTestPkgChanged: argument 1 (QByteArray pkg) cannot be \"0xff\"");
        // Commands and what every object has are no reports of the MCU.
        row("volumePlus", {},
            "unknown link signal \"volumePlus\"; known signals are: shallowSleepSgl,");
        row("destroyed", {},
            "unknown link signal \"destroyed\"; known signals are: shallowSleepSgl,");
    }

    void refusals()
    {
        QFETCH(QString, signal);
        QFETCH(QVariantList, arguments);
        QFETCH(QString, expected);
        testkit::Emissions emissions(McuSrv::instance());
        QString error;
        QVERIFY(!link::inject(signal, arguments, &error));
        if (expected.endsWith(',')) // a list
            QVERIFY2(error.startsWith(expected) && error.endsWith(", tunerASStationFoundSgl"),
                     qPrintable(error));
        else
            QCOMPARE(error, expected);
        QVERIFY(!link::inject(signal, arguments));
        QCOMPARE(emissions.take(), QStringList());
    }

    void answers()
    {
        McuSrv *mcu = McuSrv::instance();
        QVERIFY(link::setAnswer("getEcuEdititon", 5));
        QString error;
        QVERIFY(!link::setAnswer("getEcuEdititon", "3", &error));
        QCOMPARE(error, QString("getEcuEdititon answers int, which cannot be \"3\""));
        QVERIFY(!link::setAnswer("getVersion3", "3", &error));
        QVERIFY(
            error.startsWith("unknown query \"getVersion3\"; known queries are: getVersion1, "));
        QCOMPARE(mcu->getEcuEdititon(), 5);
        link::reset();
        QCOMPARE(mcu->getEcuEdititon(), 0);
        QVERIFY(link::log().calls().isEmpty());
    }

    void services()
    {
        auto *audio = hxaudio::AudioService::instance();
        auto *util = mem::SettingsUtil::instance();
        testkit::Trace trace;
        trace.listen(audio);
        trace.listen(EventHandler::instance());
        trace.listen(platform::log());
        const auto state = [&] {
            return show("",
                        {audio->eventStates().size(), audio->isMainAudioMute(audio->muteState()),
                         audio->getAttState(), SrcDsplCtrl::currentDspl(), util->IsForceTime(),
                         mem::SettingsFunc::instance()->getValue("mcu_upgrade_status", false)});
        };
        platform::setAudioEvents({23, 6});
        platform::setAudioEvents({23, 6});
        platform::setMainAudioMuted(true);
        platform::setCurrentDisplay(30);
        platform::setForceTime(true);
        platform::setSetting("mcu_upgrade_status", true);
        QCOMPARE(state(), QString("(2,true,0,30,true,true)"));
        audio->setMainAudioMute(false);
        audio->Att20DB(true);
        QCOMPARE(state(), QString("(2,false,1,30,true,true)"));
        QVERIFY(!platform::isMainAudioMuted() && platform::isAttenuated());
        platform::pressPanelKey(14, 1, 2);
        hxdatetime::DateTimeManager::instance()->setDateTime(2024, 2, 29, 23, 58, 59, false);
        EventHandler::instance()->onEvent(52);
        tuner::TunerControl::instance()->HDR_DabRequestScan();
        tuner::TunerControl::instance()->HDR_DabTunerFM(9);
        util->SubwooferOnOff(1);
        util->CrossoverType(2);
        util->HpfLpfOnOff(3, 4);
        util->DemoOnOff(true);
        platform::reset();
        QCOMPARE(state(), QString("(0,false,0,0,false,false)"));
        QCOMPARE(trace.take().join(' '),
                 QString("eventStateChanged() AudioService.setMainAudioMute(false) "
                         "AudioService.Att20DB(true) keyEventForAutotest(14,1,2) "
                         "DateTimeManager.setDateTime(2024,2,29,23,58,59,false) "
                         "EventHandler.onEvent(52) TunerControl.HDR_DabRequestScan() "
                         "TunerControl.HDR_DabTunerFM(9) SettingsUtil.SubwooferOnOff(1) "
                         "SettingsUtil.CrossoverType(2) SettingsUtil.HpfLpfOnOff(3,4) "
                         "SettingsUtil.DemoOnOff(true)"));
    }

    void settingsAreFilesUnderTheRoot()
    {
        const QString path = "/media/flash/nvm/factory/settings.ini";
        mem::SettingsExe *store = mem::SettingsUtil::instance()->getSaver();
        QVERIFY(QFileInfo(platform::settingsRoot()).isDir()); // the private one, before any call
        QTemporaryDir folder;
        platform::setSettingsRoot(folder.path());
        store->setOtherPathValue("SpeakerLevelValue_0-4", path, -6, -6, true);
        const Call call = platform::log().take().value(0);
        QCOMPARE(show(call.name, call.arguments),
                 "SettingsExe.setOtherPathValue(\"SpeakerLevelValue_0-4\",\"" + path +
                     "\",-6,-6,true)");
        QFile file(folder.path() + path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QVERIFY(file.readAll().contains("\nSpeakerLevelValue_0-4=-6\n"));
        file.close();
        // What another process writes is seen; what is no number is as good as missing.
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("[General]\nzero=0\nword=two\nempty=\nhuge=99999999999\n");
        file.close();
        QCOMPARE(store->getValue("zero", path, 1), 0);
        for (const char *key : {"SpeakerLevelValue_0-4", "word", "empty", "huge"})
            QCOMPARE(store->getValue(key, path, 7), 7);
        QCOMPARE(store->getValue("zero", path, true), false);
        QCOMPARE(store->getValue("missing", path, true), true);
    }
};

int main(int argc, char **argv) { return testkit::run<SubstituteTest>(argc, argv); }
#include "tst_substitute.moc"
