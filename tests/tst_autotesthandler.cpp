// The factory test: its packets, its interface, what each DID does, the key test, the test mode.
#include "autotestpacket.h"
#include "factorystation.h"

#include <QRegularExpression>
#include <QTemporaryFile>

#include <memory>
#include <unistd.h>

using testkit::bytes;
using testkit::FactoryStation;

namespace {

const char methods[] =
    "readSoundInfo(int type) readMediaSource() readScreenInfo(int type) readDataTime(int type) "
    "readLaguage() readRadioArea() readPwrStatus() readCurrentUI() readStatelliteNum(int type) "
    "readBTAddr() readBTName() readPanelKeyStatus() readRadioFreqInfo(int type) "
    "readRadioRDSInfo(int type) readDABInfo(int type) readSXMInfo(int type) readCANInfo(int type) "
    "readSoftVersion(int type) readHardVersion(int type) readTestModel() readSN() readUUID() "
    "readVehName() readVehVIN() readDestCode() readGpsInfo() readWheelKey() readSpeed() "
    "setSoundInfo(int type, int value) setMedisSource(int type, int value1, int value2) "
    "setScreenInfo(int type, int value) setTimeDataInfo(int type, QByteArray data) "
    "setLanguage(int type) setFactoryReset() setRadioArea(int) setRadioRds(int, int) "
    "setUI(int type) setTunerSeek(int type) setScreenColor(int type) setSearCh(int type) "
    "setConnect(int type) setDownloadPhonebook() setPlayBTMusic() setCallPhone(QByteArray data) "
    "setEnterMicTest(int type) setOpenBT(int type) setEnterBTTestMode(int type) detectBTAddr() "
    "btMatchPhone() phoneConnected(int type) setReverse(int type) setSWCKey(int key) "
    "setBuzzerSound() setBootWarnScreen(int type) setDestCode(int code) setDestCodeOK() "
    "setDestCodeUi() enterWheelStudyUi() exitWheelStudyUi() setSWCAdapter(int adapter) "
    "setCamera(int camara) setSN(QByteArray SN) onKeyHandle(int key, int state) "
    "onHuKeyHandle(int key, int state, int kind) isInKeyTest() "
    "onAutoTestPkgChanged(QByteArray data) onTimerOut()";

// What each known DID does with the payload 11 12 13; "-" is nothing. Types are in front.
const char dids[] =
    "22 01 readSoundInfo(17) 02 readMediaSource() 03 readScreenInfo(17) 04 readDataTime(17) "
    "05 readLaguage() 07 readRadioArea() 08 readPwrStatus() 09 readCurrentUI() 20 - 21 - 22 - "
    "23 readStatelliteNum(17) 24 - 25 - 26 - 30 readBTAddr() 31 readBTName() "
    "41 readPanelKeyStatus() 42 readRadioFreqInfo(17) 43 - 44 readRadioRDSInfo(17) "
    "45 readDABInfo(17) 46 readSXMInfo(17) 51 readCANInfo(17) 81 readSoftVersion(17) "
    "82 readHardVersion(17) 83 readTestModel() 84 - 85 readUUID() a0 readVehName() "
    "a1 readVehVIN() a2 - a4 - a5 - a6 - a8 - a9 - b0 - c0 - d0 readDestCode() d1 readGpsInfo() "
    "d2 readWheelKey() d3 readSpeed() d4 readSN()\n"
    "2e 01 setSoundInfo(17,18) 02 setMedisSource(17,18,19) 03 setScreenInfo(17,18) "
    "04 setTimeDataInfo(17,0x1213) 05 setLanguage(17) 06 setFactoryReset() 07 setRadioArea(17) "
    "08 - 09 setUI(17) 0a - 0b setTunerSeek(17) 0c - 0d setScreenColor(17) 10 setRadioRds(17,18) "
    "21 - 23 - 30 setSearCh(17) 31 setConnect(17) 32 setDownloadPhonebook() 33 setPlayBTMusic() "
    "34 setCallPhone(0x1213) 35 setEnterMicTest(17) 37 setOpenBT(17) 38 setEnterBTTestMode(17) "
    "39 detectBTAddr() 3a btMatchPhone() 3b - 3c exitWheelStudyUi() 3d phoneConnected(17) "
    "3e setReverse(17) 46 setSWCKey(17) 50 setBuzzerSound() 84 - 85 - 90 - a0 - a1 - b0 - b1 - "
    "e0 setBootWarnScreen(17) f0 setDestCodeUi() f1 setDestCode(17) f2 setDestCodeOK() f3 - "
    "f4 setSWCAdapter(17) f5 setCamera(17) f6 - f7 -\n"
    "21 01 - 25 - 30 - 31 - 32 - 33 - 34 -\n00\n23\n62\n6e";

} // namespace

class tst_AutoTestHandler : public QObject {
    Q_OBJECT

public:
    explicit tst_AutoTestHandler(substitute::VirtualClock *) {}

private Q_SLOTS:
    void declaresItsInterface();
    void verifiesWholePacketsAlone();
    void cutsWhatTheLengthByteSays();
    void brokenPacketsDoNothing();
    void plays_data();
    void plays();
    void logs_data();
    void logs();
    void sends();
    void listenerMayLetTheNextPacketIn();
    void mcuSwitchesTheMode();
};

void tst_AutoTestHandler::declaresItsInterface()
{
    const QMetaObject &handler = mcu::AutoTestHandler::staticMetaObject;
    QStringList declared;
    for (int i = handler.methodOffset(); i < handler.methodCount(); ++i) {
        const int place = declared.size();
        QCOMPARE(handler.method(i).methodType() == QMetaMethod::Signal, place < 62);
        QCOMPARE(handler.method(i).access() == QMetaMethod::Private, place > 64);
        QCOMPARE(handler.method(i).typeName(), place == 64 ? "bool" : "void");
        declared.append(substitute::describe(handler.method(i)));
    }
    QCOMPARE(declared.join(' '), QString(methods));
}

void tst_AutoTestHandler::verifiesWholePacketsAlone()
{
    const testkit::LogCapture log; // a critical line for each
    // On the heap at its exact size, which the address sanitizer guards.
    const auto verifies = [](const QByteArray &data) {
        const auto copy = std::make_unique<char[]>(std::size_t(data.size()));
        std::copy(data.begin(), data.end(), copy.get());
        return mcu::wire::verifiPackageCheckSum(copy.get(), data.size());
    };
    const QByteArray good = bytes("ff5504620102 0a8d");
    for (int length = 0; length <= good.size(); ++length)
        QCOMPARE(verifies(good.left(length)), length == good.size());
}

void tst_AutoTestHandler::cutsWhatTheLengthByteSays()
{
    for (int length = 0; length < 256; ++length) {
        const int total = (length + 4) % 256;
        const QByteArray stream = bytes("ff55") + char(length) + QByteArray(300, '\x01');
        for (int arrived = 0; arrived <= stream.size(); ++arrived) {
            mcu::wire::ReceiveBuffer buffer;
            buffer.append(stream.left(arrived));
            QByteArray packet("before");
            const bool entire = arrived > 3 && arrived >= total;
            QCOMPARE(buffer.checkPackageIsEntire(packet), entire);
            QCOMPARE(packet, entire ? stream.left(total) : QByteArray("before"));
            QCOMPARE(buffer.size(), entire ? arrived - total : arrived);
        }
    }
}

void tst_AutoTestHandler::brokenPacketsDoNothing()
{
    FactoryStation station;
    const testkit::LogCapture log;
    const QByteArray good = bytes("ff55032e0502c8");
    for (int at = 0; at < good.size(); ++at) {
        QCOMPARE(station.send(good.left(at)), QString());
        QCOMPARE(station.send(good.mid(at)), QString("setLanguage(2) 6e:05:02"));
        for (int change = 1; change < 256; ++change) {
            QByteArray bad = good;
            bad[at] = char(bad[at] + change);
            QCOMPARE(station.send(bad), QString());
            station.play("stop start");
        }
    }
}

void tst_AutoTestHandler::plays_data()
{
    QTest::addColumn<QString>("effects");
    const auto row = [](const char *steps, const char *effects) {
        QTest::newRow(steps) << effects;
    };
    for (const QString &table : QString(dids).split('\n')) {
        const QString type = table.left(2);
        for (int did = 0; did < 256; ++did) {
            const QString name = QString("%1").arg(did, 2, 16, QLatin1Char('0'));
            const QString action = table.mid(2).section(' ' + name + ' ', 1).section(' ', 0, 0);
            QStringList effects{action};
            if (!action.isEmpty() && type == "2e" && name != "f6")
                effects.append("6e:" + name + (name == "f7" ? ":0001" : ":111213"));
            QTest::newRow(qPrintable(type + ':' + name + ":111213"))
                << effects.join(' ').remove('-').trimmed();
        }
    }
    // Chunks: split, with garbage, glued, stalled by a length of fc, wrapped lengths.
    row("ff5503 220102d8", "/readSoundInfo(2)");
    row("ff 55 03 22 01 02 d8", "//////readSoundInfo(2)");
    row("0001ff00ff&22:05 00 22:05", "readLaguage()//readLaguage()");
    row("22:02&22:05&00&21:01&22:07 22:08 - - - -",
        "readMediaSource()/readLaguage()//readRadioArea()/readPwrStatus()/");
    row("ff5500ff 55&22:05", "/readLaguage()"); // the end of a cut packet makes no pair
    row("ff55fc00 22:05 22:05 stop start 22:05", "/////readLaguage()");
    row("ff55fd00 22:05 ff55fe00&22:07 -", "/readLaguage()//readRadioArea()");
    row("ff55022101dd&22:05 -", "/readLaguage()");
    // Between start and stop.
    row("start 22:05 ff5502 stop 22:05 start 2205d7 22:05", "/readLaguage()//////readLaguage()");
    // Without its bytes a request is read on into its checksum and then as zeros ...
    row("22:01", "readSoundInfo(219)");
    row("2e:05", "setLanguage(203) 6e:05:");
    row("2e:10", "setRadioRds(192,0) 6e:10:");
    row("2e:10:11", "setRadioRds(17,174) 6e:10:11");
    // ... or, where it wraps, from its start; byte arrays never take the checksum in.
    row("2e:01", "setSoundInfo(207,255) 6e:01:");
    row("2e:01:11", "setSoundInfo(17,189) 6e:01:11");
    row("2e:02", "setMedisSource(206,255,85) 6e:02:");
    row("2e:02:11", "setMedisSource(17,188,255) 6e:02:11");
    row("2e:03", "setScreenInfo(205,255) 6e:03:");
    row("2e:03:11", "setScreenInfo(17,187) 6e:03:11");
    row("2e:04", "6e:04:");
    row("2e:04:11", "setTimeDataInfo(17,0x) 6e:04:11");
    row("2e:34", "6e:34:");
    row("2e:34:1112", "setCallPhone(0x12) 6e:34:1112");
    row("ff550122dd ff55012ed1 ff550000", "//"); // no DID, no type
    // The key test is off at first, outlives the mode, and drops a key that is held when it ends.
    row("161,0,0 2,0,1 +500 2e:3c:01 2,0,1 2e:3c:02 +500 2e:3c:01 stop 2,1,1",
        "///enterWheelStudyUi() 6e:3c:01/62:41:012f/exitWheelStudyUi() 6e:3c:02//"
        "enterWheelStudyUi() 6e:3c:01//62:41:0000");

    const auto keys = [](const char *steps, const QString &effects) {
        QTest::newRow(QByteArray("2e:3c:01 ") + steps) << "enterWheelStudyUi() 6e:3c:01/" + effects;
    };
    keys("161,0,0 162,0,0 163,0,0 165,0,0 166,0,0 167,0,0 168,0,0 169,0,0 170,0,0",
         "62:d2:04/62:d2:05/62:d2:01/62:d2:02/62:d2:07/62:d2:06/62:d2:09/62:d2:0a/62:d2:0d");
    keys("172,0,0 176,0,0 177,1,0 178,-7,0 164,0,0 -2147483648,0,0",
         "62:d2:08/62:d2:0b/62:d2:0c/62:d2:03/62:d2:/62:d2:");
    keys("2,0,1 +499 2,1,1 +500", "62:41:012f//62:41:0000/");
    keys("2,0,1 +500 +500 2,1,1", "62:41:012f/62:41:022f//62:41:0000");
    keys("6,0,1 14,0,1 15,0,1 166,0,1 167,0,1 +500",
         "62:41:01af/62:41:01ad/62:41:01ae/62:41:01a4/62:41:01a3/62:41:02a3");
    keys("5,0,1 +500 5,1,1 -2147483648,0,1", "62:41:01/62:41:02/62:41:0000/62:41:01");
    keys("2,0,1 +300 6,0,1 +499 +1", "62:41:012f//62:41:01af//62:41:02af");
    keys("1,1,1 2,1,1 1,0,1 +100 1,1,1 +400", "/62:41:0000////62:41:022f"); // 1: only as held
    keys("1,0,1 2,1,1 +500 2,0,1 1,1,1 +500", "/62:41:0000//62:41:012f//62:41:022f");
    keys("2,3,1 5,-1,1 1,3,1 2,0,2 161,0,-1 +500", "62:41:2f/62:41:////");
}

void tst_AutoTestHandler::plays()
{
    FactoryStation station;
    QTEST(station.play(QTest::currentDataTag()), "effects");
}

void tst_AutoTestHandler::logs_data()
{
    QTest::addColumn<QString>("logged"); // "!" in front of errors
    const auto row = [](const char *steps, const char *logged) { QTest::newRow(steps) << logged; };
    row("-", "''/recv data 0.");
    row("0001ff", "'0001ff'/not found sync id.");
    row("00ff5503", "'00ff5503'/3/package is not entire.");
    row("ff55032205", "'ff55032205'/5 7 3/package is not entire.");
    row("ff5502210100", "'ff5502210100'/!0 220/!packet verification failed !!! 'ff5502210100'");
    row("ff55fc00", "'ff55fc00'/!0 0/!packet verification failed !!! ''");
    row("ff55fe00", "'ff55fe00'/!85 0/!packet verification failed !!! 'ff55'");
    row("ff55ff00", "'ff55ff00'/!255 0/!packet verification failed !!! 'ff55ff'");
    row("ff55022305d6", "'ff55022305d6'/35");   // a type that nobody knows
    row("ff55022206d6", "'ff55022206d6'/34/6"); // a DID that nobody knows
    row("ff55032ef409d2", "'ff55032ef409d2'/46/9");
    row("161,9,0 2,3,1 2,0,7", "161 9/2 3/2 0");
    row("2e:3c:01 2,3,1 2,0,7", "'ff55032e3c0192'/46/2 3/wrong state/2 0/wrong kind");
    row("start stop", "start!!!/stop!!!");
}

void tst_AutoTestHandler::logs()
{
    FactoryStation station;
    testkit::LogCapture log;
    station.play(QTest::currentDataTag());
    QStringList texts;
    for (const testkit::LogLine &line : log.take()) {
        if (!line.file.startsWith("autotest/"))
            continue;
        texts.append((line.type == QtCriticalMsg ? "!" : "") + line.text.section(" -- ", 1));
        static const QRegularExpression operations("Handler::(on|st|analysis|parse)|wire::");
        QVERIFY2(line.function.contains(operations), qPrintable(line.function));
    }
    QTEST(texts.join('/').replace('"', '\''), "logged");
}

void tst_AutoTestHandler::sends()
{
    FactoryStation station;
    mcu::AutoTestHandler &handler = station.handler;
    QTemporaryFile raw;
    QVERIFY(raw.open());
    const int standardError = dup(STDERR_FILENO);
    dup2(raw.handle(), STDERR_FILENO);
    station.play("00ff55032ef703d5ff stop"); // answers leave outside the test mode too
    handler.sendReadInfo(0x01, 2, "\x0a");
    handler.sendReadInfo(0x141, -1, {});
    handler.sendReadInfo(-208, "AB");
    handler.sendReadInfo(0x30, {});
    handler.sendWriteInfo(0x05, 0x302, "A");
    handler.sendWriteInfo(0xf1, 0, {});
    handler.sendFeedbackInfo(0x25, 7, "AB");
    handler.sendBootDoneSuccess();
    handler.sendBTSearchSuccess();
    handler.sendBTConnSuccess();
    handler.sendBTDownPhoneBookSuccess();
    handler.sendBTCallSuccess();
    dup2(standardError, STDERR_FILENO);
    close(standardError);

    QCOMPARE(station.effects(),
             QString("62:01:020a 62:41:ff 62:30:4142 62:30: 6e:05:0241 6e:f1:00 21:25:074142 "
                     "21:01: 21:30: 21:31: 21:33: 21:34:"));
    raw.seek(0);
    const QByteArray written = raw.readAll();
    QVERIFY(written.startsWith("[AT]<< FF 55 03 2E F7 03 D5\n[AT]>> FF 55 04 6E F7 00 01 96\n"
                               "[AT]>> FF 55 04 62 01 02 0A 8D\n[AT]>> FF 55 03 62 41 FF 5B\n"));
    QVERIFY(written.endsWith("[AT]>> FF 55 02 21 01 DC\n[AT]>> FF 55 02 21 30 AD\n"
                             "[AT]>> FF 55 02 21 31 AC\n[AT]>> FF 55 02 21 33 AA\n"
                             "[AT]>> FF 55 02 21 34 A9\n"));
    // A payload ends where the length byte does: ff + 62 + 85 + 253 times 01 = 2e3.
    const QByteArray longest = bytes("ff55ff6285") + QByteArray(253, '\1') + '\x1d';
    for (int size : {253, 254, 255, 256, 1000})
        QCOMPARE(mcu::wire::build(0x62, 0x85, QByteArray(size, '\1')), longest);
}

void tst_AutoTestHandler::listenerMayLetTheNextPacketIn()
{
    FactoryStation station;
    connect(&station.handler, &mcu::AutoTestHandler::setLanguage,
            [&] { station.send(bytes("2e:06:7778")); });
    QCOMPARE(station.send(bytes("2e:05:02")), QString("6e:05:02"));
}

void tst_AutoTestHandler::mcuSwitchesTheMode()
{
    using substitute::link::inject;
    FactoryStation station; // binds the facade; its own handler stays out
    station.handler.stop();
    mcu::McuService *service = mcu::McuService::instance();
    mcu::AutoTestHandler *handler = mcu::AutoTestHandler::instance();
    QVERIFY(!handler->parent() && handler != &station.handler);
    bool ranWhenTold = false;
    connect(service, &mcu::McuService::autoTestStatusChanged, &station.handler,
            [&] { ranWhenTold = handler->isInAutotestMode(); });

    // Reports of a steering-wheel key and of a panel key: one for each connection.
    const QString wheel = "62:d2:04", panel = "62:41:0000";
    for (const auto &[status, wheels, panels] :
         {std::tuple(0, 0, 0), std::tuple(1, 1, 1), std::tuple(1, 1, 1), // unchanged: nothing new
          std::tuple(2, 2, 2), std::tuple(0, 0, 2), std::tuple(-5, 1, 3)}) {
        QVERIFY(inject("autoTestStatusChanged", {status}));
        QCOMPARE(handler->isInAutotestMode(), status != 0);
        QCOMPARE(ranWhenTold, status != 0);
        QCOMPARE(station.send(bytes("2e:3c:01")), QString(status ? "6e:3c:01" : ""));
        QVERIFY(inject("keyEventSgl", {0xa1, 0}));
        QCOMPARE(station.effects(), (wheel + ' ').repeated(wheels).trimmed());
        substitute::platform::pressPanelKey(2, 1, 1);
        QCOMPARE(station.effects(), (panel + ' ').repeated(panels).trimmed());
    }
    QVERIFY(handler->isKeyDetect() && handler->isInKeyTest());

    for (const auto &[mode, headlight] : {std::pair("2e:f3:01", 2), std::pair("2e:f3:02", 1)}) {
        station.send(bytes(mode));
        QCOMPARE(service->headlightState(), headlight);
    }
}

int main(int argc, char **argv) { return testkit::run<tst_AutoTestHandler>(argc, argv); }
#include "tst_autotesthandler.moc"
