// The manager as an object: its methods, its start and relays, commands and queries with a service
// and without, the watchdog.
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuservice.h"
#include "testkit.h"

#include <thread>

static_assert(McuManager::EventOn13 == 13 && McuManager::EventOff28 == 28);

namespace {

struct Desk {
    Desk()
    {
        substitute::link::reset();
        service.init();
        trace.listen(substitute::link::log());
    }
    QString taken() { return trace.take().join(' '); }

    testkit::Trace trace;
    mcu::McuService service;
    McuManager manager{&service};
    McuManager alone{nullptr};
};

/// Emits a signal with the arguments 1, 2, 3 ...
void emitCounted(QObject &source, const QMetaMethod &signal)
{
    std::vector<QVariant> arguments;
    std::vector<void *> pointers{nullptr};
    arguments.reserve(std::size_t(signal.parameterCount()));
    for (int i = 0; i < signal.parameterCount(); ++i) {
        arguments.emplace_back(i + 1).convert(signal.parameterType(i));
        pointers.push_back(arguments.back().data());
    }
    source.qt_metacall(QMetaObject::InvokeMetaMethod, signal.methodIndex(), pointers.data());
}

QString answers(McuManager &m)
{
    return testkit::show("",
                         {m.mcuTestVersion(), m.mcuUserVersion(), m.cpSerialNumber(),
                          m.parkingState(), m.reverseState(), m.headlightState(), m.getAmpStatus(),
                          m.getSysBootState(), m.autotestStatus(), m.isUsbOverCurrent(),
                          m.isMcuNeedRenew(), m.isMcuDateTimeReady(), m.isAttOn()});
}

template <typename Operations, typename... Arguments>
void callEach(McuManager &manager, const Operations &operations, Arguments... arguments)
{
    for (const auto operation : operations)
        (manager.*operation)(arguments...);
}

void giveCommands(McuManager &manager)
{
    using M = McuManager;
    void (M::*const plain[])(){
        &M::requestWheelStudyState, &M::requestTaillineState,  &M::requestRadioInitData,
        &M::requestSetupInitData,   &M::requestSetupInitData1, &M::requestDtcFlagInfoData,
        &M::notifyWheelReset,       &M::notifyWheelDopReset,   &M::notifyWheelDopClear,
        &M::notifyWheelStudyMode,   &M::notifyWheelTestMode,   &M::notifyWheelNormalMode,
        &M::notifyWheelAbandonMode, &M::notifyFactoryReset,    &M::setGpsAntAttach,
        &M::setNCMTestMode};
    void (M::*const withNumber[])(int){
        &M::setUpgradeState,    &M::setMonitorState,   &M::notifyWheelStudyKey, &M::triggerAtt,
        &M::updateBtInputLevel, &M::setVcomValue,      &M::sendStwCarTypeToMcu, &M::setVolume,
        &M::setSubwooferlevel,  &M::setSubwooferPhase, &M::setAmpDelayState,    &M::triggerBeep};
    void (M::*const withSwitch[])(bool){
        &M::setMute,           &M::notifyWheelDopStart, &M::updateCameraSetup, &M::setLoopBack,
        &M::setDabAntPower,    &M::setPowerOffDelay,    &M::setRadioRDSonoff,  &M::setRadioTAonoff,
        &M::setRadioAFonoff,   &M::setAudioMute,        &M::setCpPhone,        &M::setCPConnected,
        &M::setEnterCameraIntr};
    void (M::*const withPair[])(int, int){&M::setAudioMute, &M::setBalanceFader, &M::setDestCode,
                                          &M::setFrCrossover, &M::duckAudio};
    callEach(manager, plain);
    callEach(manager, withNumber, 7);
    callEach(manager, withSwitch, true);
    callEach(manager, withPair, 8, 9);

    int delays[]{61, 62, 63, 64, 65};
    QString text = "v1";
    manager.unduckAudio(7);
    manager.setAudioMute2(true, 7);
    manager.updateCPAAStatus(M::CPAAStatus(-3));
    manager.updateTouchCoordinate(M::TouchState(1), 2, INT_MAX);
    manager.updateDeviceStatus(M::DeviceType(16), M::DeviceStatus(17));
    manager.setDopSwc(18, 19, 20);
    manager.setAudioTimerDelay(60, delays);
    manager.setAudioTimerDelay(60, nullptr);
    manager.updateArmVersion(text);
    manager.updateBtAddress(text);
}

/// The facade's signals that are relayed, and what comes of each.
const QString relayed = QStringLiteral(
    "shallowSleep() sysBootState(int) wheelStudyState(int,int) wheelStudyKeys(QString) "
    "usbPowerStatus(int) hideUsbOverPower() parkingChanged(int) reverseChanged(int) "
    "headlightChanged(int) extDeviceChanged(int) audioVolumeChanged(int,int,int) reset() "
    "discChange() autoTestStatusChanged(int)");
const QString effects = QStringLiteral(
    "shallowSleep() sysBootState(1) studyState(1,2) studyKeys(\"1\") usbPwrState(1) "
    "hideUsbOverPwr() parkingChanged(1) reverseChanged(1) headlightChanged(1) extDeviceChanged(1) "
    "volumeChanged()+audioVolumeChanged(1,2,3) factoryReset() discChange() "
    "autoTestStatusChanged(1)");

} // namespace

class tst_Manager : public QObject {
    Q_OBJECT

public:
    explicit tst_Manager(substitute::VirtualClock *clock) : m_clock(clock) {}

private Q_SLOTS:
    void hasItsSignalsAndSlots();
    void startsWithVersionsAndRequest();
    void relaysWithoutMore();
    void forwardsCommands();
    void answersFromTheService();
    void holdsBackMuteAndBeep();
    void kicksTheWatchdog();

private:
    substitute::VirtualClock *m_clock;
};

void tst_Manager::hasItsSignalsAndSlots()
{
    QString methods;
    const QMetaObject &manager = McuManager::staticMetaObject;
    for (int i = 0; i < manager.methodCount() - manager.methodOffset(); ++i) {
        const QMetaMethod method = manager.method(manager.methodOffset() + i);
        methods += substitute::describe(method) + ' ';
        QCOMPARE(method.methodType() == QMetaMethod::Signal, i < 20);
        QCOMPARE(method.access() == QMetaMethod::Public, i < 23);
    }
    QCOMPARE(methods,
             QString("shallowSleep() sysBootState(int state) studyState(int state, int para) "
                     "studyKeys(QString keys) usbPwrState(int state) hideUsbOverPwr() "
                     "parkingChanged(int state) reverseChanged(int state) "
                     "headlightChanged(int state) extDeviceChanged(int state) "
                     "audioChannel(int channel) volumeChanged() factoryReset() discChange() "
                     "audioVolumeChanged(int, int, int) dabAntStatusChanged(int) "
                     "dabSelectFreq(int index) dabSelectService(int index) "
                     "dabRequestAction(int action, int arg) autoTestStatusChanged(int status) "
                     "onVolumeChanged(int muteState, int vol, int type) onCarplayAlertStart() "
                     "onCarplayAlertStop() onDlyUptPheEndTmrout() onWatchdogTmrout() "
                     "onDlyEndRestoreMuteTmrout() onEventStateChanged() "));
}

void tst_Manager::startsWithVersionsAndRequest()
{
    Desk desk;
    desk.service.onMcuVersion("test", "user");
    desk.trace.take();
    testkit::LogCapture log;
    const McuManager manager(&desk.service);
    const McuManager alone(nullptr);
    QCOMPARE(log.takeTexts(), (QStringList{"Hardware Version: \"user\"", "MCU Version: \"test\"",
                                           "Hardware Version: \"\"", "MCU Version: \"\""}));
    QCOMPARE(desk.taken(), QString("requestCommand(237)"));
}

void tst_Manager::relaysWithoutMore()
{
    Desk desk;
    desk.trace.listen(&desk.manager);
    desk.trace.take();
    QMap<QByteArray, QString> relays;
    for (int i = 0; i < 14; ++i)
        relays[relayed.split(' ')[i].toLatin1()] = effects.split(' ')[i];
    for (const QMetaMethod &signal :
         substitute::declaredSignals(mcu::McuService::staticMetaObject)) {
        emitCounted(desk.service, signal);
        QCOMPARE(desk.trace.take().join('+'), relays.take(signal.methodSignature()));
    }
    QVERIFY(relays.isEmpty());

    // From another thread they come queued.
    std::thread([&] { Q_EMIT desk.service.reset(); }).join();
    QCOMPARE(desk.taken(), QString());
    m_clock->settle();
    QCOMPARE(desk.taken(), QString("factoryReset()"));
}

void tst_Manager::forwardsCommands()
{
    Desk desk;
    desk.trace.take();
    giveCommands(desk.manager);
    QCOMPARE(desk.trace.take(),
             QString("requestCommand(246) requestCommand(248) requestCommand(237) "
                     "requestCommand(229) requestCommand(220) requestCommand(197) "
                     "steeringWheelReset() steeringWheedoplReset() steeringWheedoplClear() "
                     "steeringWheelStudy() steeringWheelTest() steeringWheelNormal() "
                     "steeringWheelAbandon() factoryReset() setUpgradeState(7) setMonitorState(7) "
                     "steeringWheelStudyKey(7) uiCmdAtt(7) updateBtInputLevel(7) setVcomValue(7) "
                     "sendStwCarTypeToMcu(7) SetVolume(7) setSubwooferValue(7) "
                     "setSubwooferPhase(7) setInternalAmp(7) triggerBeep(0) setMute(true,0) "
                     "setWheelDopState(true) updateCamraSetup(1) setLoopBack(true) "
                     "setDabAntPower(1) setPowerOffDelay(1) setRdsOnOff(true) setTaOnOff(true) "
                     "setAfOnOff(true) setAudioMute(8,9,0) setBalanceFader(33,34) setDestCode(8,9) "
                     "setFrCrossover(8,9) duckAudio(8,9) unduckAudio(7) setAudioMute2(1,7,0) "
                     "updateCPAAStatus(-3) updateTouchCoordinate(1,2,2147483647) "
                     "updateDeviceStatus(16,17) setDopSwc(18,19,20) "
                     "setAudioTimerDelay(60,61,62,63,64,65) updateAppVersion(\"v1\") "
                     "updateBtAddress(\"v1\")")
                 .split(' '));
    QVERIFY(desk.service.gpsAntennaIsConnected());

    testkit::LogCapture log;
    giveCommands(desk.alone);
    QCOMPARE(desk.trace.take(), QStringList());
    QCOMPARE(log.takeTexts().mid(0, 4).join(';'),
             QString("swc study mode;swc test mode;swc normal mode;swc abandon mode"));
}

void tst_Manager::answersFromTheService()
{
    Desk desk;
    QCOMPARE(answers(desk.alone),
             QString("(\"\",\"\",\"40527BKFM18264\",0,0,0,-1,-1,0,false,false,false,false)"));
    QCOMPARE(answers(desk.manager),
             QString("(\"\",\"\",\"\",0,0,0,0,0,0,false,false,false,false)"));
    desk.service.onMcuVersion("test", "user");
    desk.service.onSystemSnidChanged("snid");
    desk.service.onTaillineState(11, 12, 13, 0, 0);
    desk.service.onAmpStatusChanged(14, 0, 0, 0, 0, 0, 0, 0, 0);
    desk.service.notifyAutoTestStatus(15);
    desk.service.onUsbPowerStatus(0);
    desk.service.notifyDateTime();
    desk.service.notifyAttState(1);
    substitute::link::setAnswer("getSysBootState", 16);
    substitute::link::setAnswer("isNeedRenew", true);
    QCOMPARE(answers(desk.manager),
             QString("(\"test\",\"user\",\"snid\",11,12,13,14,16,15,true,true,true,true)"));
}

void tst_Manager::holdsBackMuteAndBeep()
{
    Desk desk;
    const auto mute = [&] {
        desk.trace.take();
        desk.manager.setAudioMute(1, 2);
        return desk.taken() == "setAudioMute(1,2,0)";
    };
    for (int muteState : {1, -1, 3, 0, 2}) {
        desk.manager.onVolumeChanged(muteState, 0, 0);
        QCOMPARE(mute(), muteState % 2 == 0);
    }
    desk.manager.duckAudio(3, 4);
    QVERIFY(desk.manager.isDucking() && !mute());
    desk.manager.unduckAudio(3);
    QVERIFY(!desk.manager.isDucking() && mute());

    for (int status : {17, 18}) {
        desk.manager.updateAudioStatus(McuManager::AudioStatus(status));
        desk.trace.take();
        desk.manager.triggerBeep(5);
        QCOMPARE(desk.taken(), QString(status == 17 ? "" : "triggerBeep(0)"));
    }
}

void tst_Manager::kicksTheWatchdog()
{
    Desk desk;
    const auto after = [&](int ms) {
        desk.trace.take();
        m_clock->advance(ms);
        return desk.trace.take().count("setWatchDogEnable(true)");
    };
    for (int round = 0; round < 2; ++round) {
        after(5000);
        desk.manager.setWatchDogEnable(true);
        QCOMPARE(desk.taken(), QString("setWatchDogEnable(true)"));
        QCOMPARE(after(9999), 0);
        QCOMPARE(after(1), 1);
        QCOMPARE(after(20000), 2);
    }
    QCOMPARE(desk.manager.findChildren<QTimer *>().size(), 1);
    desk.manager.setWatchDogEnable(false);
    QCOMPARE(desk.taken(), QString("setWatchDogEnable(false)"));
    QCOMPARE(after(60000), 0);
}

int main(int argc, char **argv) { return testkit::run<tst_Manager>(argc, argv); }
#include "tst_manager.moc"
