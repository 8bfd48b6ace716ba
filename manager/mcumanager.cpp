// The manager: its start, the relays of the facade's signals, the watchdog, and the commands and
// queries that it forwards to the facade.
#include "mcumanager.h"

#include "callon_p.h"
#include "logline_p.h"
#include "mcuservice.h"
#include "mediarecords_p.h"
#include "updatefiles_p.h"

#include <QTime>

using mcu::callOn;
using mcu::McuService;
namespace mediarecords = mcu::mediarecords;
namespace updatefiles = mcu::updatefiles;

namespace {

constexpr int watchdogPeriod = 10000; ///< milliseconds
constexpr char mediaRoot[] = "/media";

/// Codes of the reports that the manager requests from the MCU.
enum Request : int {
    DtcFlagInfo = 197,
    SetupInit1 = 220,
    SetupInit = 229,
    RadioInit = 237,
    WheelStudyState = 246,
    TaillineState = 248
};

void send(McuService *service, const mediarecords::MediaRecord &record)
{
    callOn(service, &McuService::updateMultiMediaInfo, record.type, record.data.size(),
           record.data);
}

} // namespace

// Start and relays

McuManager *McuManager::instance()
{
    static McuManager manager(McuService::instance());
    return &manager;
}

McuManager::McuManager(McuService *service) : m_service(service)
{
    // Kept: the labels do not match the versions; tools read the lines by them.
    LOG_DEBUG << "Hardware Version:" << mcuUserVersion();
    LOG_DEBUG << "MCU Version:" << mcuTestVersion();
    requestRadioInitData();
    if (m_service)
        connectRelays();

    m_dlyUptPheEndTmr.setInterval(200);
    m_dlyUptPheEndTmr.setSingleShot(true);
    connect(&m_dlyUptPheEndTmr, SIGNAL(timeout()), this, SLOT(onDlyUptPheEndTmrout()));
    m_dlyEndRestoreMuteTmr.setInterval(3000);
    m_dlyEndRestoreMuteTmr.setSingleShot(true);
    connect(&m_dlyEndRestoreMuteTmr, SIGNAL(timeout()), this, SLOT(onDlyEndRestoreMuteTmrout()));
}

McuManager::~McuManager() = default;

void McuManager::connectRelays()
{
    // Without blanks in the signatures a connection takes the fast path of Qt.
    // clang-format off
    const struct {
        const char *signal;
        const char *target;
    } relays[]{
        {SIGNAL(shallowSleep()), SIGNAL(shallowSleep())},
        {SIGNAL(sysBootState(int)), SIGNAL(sysBootState(int))},
        {SIGNAL(wheelStudyState(int,int)), SIGNAL(studyState(int,int))},
        {SIGNAL(wheelStudyKeys(QString)), SIGNAL(studyKeys(QString))},
        {SIGNAL(usbPowerStatus(int)), SIGNAL(usbPwrState(int))},
        {SIGNAL(hideUsbOverPower()), SIGNAL(hideUsbOverPwr())},
        {SIGNAL(parkingChanged(int)), SIGNAL(parkingChanged(int))},
        {SIGNAL(reverseChanged(int)), SIGNAL(reverseChanged(int))},
        {SIGNAL(headlightChanged(int)), SIGNAL(headlightChanged(int))},
        {SIGNAL(extDeviceChanged(int)), SIGNAL(extDeviceChanged(int))},
        {SIGNAL(audioVolumeChanged(int,int,int)), SLOT(onVolumeChanged(int,int,int))},
        {SIGNAL(reset()), SIGNAL(factoryReset())},
        {SIGNAL(discChange()), SIGNAL(discChange())},
        {SIGNAL(autoTestStatusChanged(int)), SIGNAL(autoTestStatusChanged(int))},
    };
    // clang-format on
    for (const auto &relay : relays)
        connect(m_service, relay.signal, this, relay.target);
}

void McuManager::onVolumeChanged(int muteState, int vol, int type)
{
    LOG_DEBUG << muteState << vol;
    m_mainMuted = (muteState & 1) != 0;
    Q_EMIT volumeChanged();
    Q_EMIT audioVolumeChanged(muteState, vol, type);
}

// Watchdog

void McuManager::setWatchDogEnable(bool enable)
{
    callOn(m_service, &McuService::setWatchDogEnable, enable);
    if (!m_watchdogTmr) {
        m_watchdogTmr = new QTimer(this);
        connect(m_watchdogTmr, SIGNAL(timeout()), this, SLOT(onWatchdogTmrout()));
    }
    if (enable)
        m_watchdogTmr->start(watchdogPeriod);
    else
        m_watchdogTmr->stop();
}

void McuManager::onWatchdogTmrout()
{
    // Kept: time of the last watchdog command, read only in the debugger.
    static QTime lastKick;
    lastKick = QTime::currentTime();
    setWatchDogEnable(true);
}

// Versions, identity and state

QString McuManager::mcuTestVersion() { return callOn(m_service, &McuService::test_version); }

QString McuManager::mcuUserVersion() { return callOn(m_service, &McuService::user_version); }

// Kept: a fixed text without a service; applications compare with it.
QString McuManager::cpSerialNumber()
{
    return m_service ? m_service->snIdName() : QStringLiteral("40527BKFM18264");
}

int McuManager::parkingState() { return callOn(m_service, &McuService::parkingState); }

int McuManager::reverseState() { return callOn(m_service, &McuService::reverseState); }

int McuManager::headlightState() { return callOn(m_service, &McuService::headlightState); }

int McuManager::getAmpStatus() { return m_service ? m_service->getAmpStatus() : -1; }

int McuManager::getSysBootState() { return m_service ? m_service->startUpState() : -1; }

int McuManager::autotestStatus() const { return callOn(m_service, &McuService::autoTestStatus); }

bool McuManager::isUsbOverCurrent() { return callOn(m_service, &McuService::isUsbOverCurrent); }

bool McuManager::isMcuNeedRenew() { return callOn(m_service, &McuService::isNeedRenew); }

bool McuManager::isMcuDateTimeReady() { return callOn(m_service, &McuService::isDateTimeReady); }

bool McuManager::isAttOn() { return callOn(m_service, &McuService::isAttOn); }

// Audio

void McuManager::updateCPAAStatus(McuManager::CPAAStatus status)
{
    callOn(m_service, &McuService::updateCPAAStatus, status);
}

void McuManager::setCpPhone(bool on) { m_cpPhone = on; }

void McuManager::setCPConnected(bool connected) { m_cpConnected = connected; }

void McuManager::setVolume(int level) { callOn(m_service, &McuService::SetVolume, level); }

void McuManager::setMute(bool mute) { callOn(m_service, &McuService::setMute, mute, 0); }

// Kept: does nothing; applications call it.
void McuManager::setAudioMute(bool) {}

void McuManager::setAudioMute(int mute, int type)
{
    if (!m_mainMuted && !m_isDucking)
        callOn(m_service, &McuService::setAudioMute, mute, type, 0);
}

void McuManager::setAudioMute2(bool mute, int type)
{
    callOn(m_service, &McuService::setAudioMute2, mute, type, 0);
}

void McuManager::triggerAtt(int on) { callOn(m_service, &McuService::uiCmdAtt, on); }

void McuManager::triggerBeep(int type)
{
    if (m_audioStatus != NoBeep17)
        callOn(m_service, &McuService::triggerBeep, type);
}

void McuManager::setBalanceFader(int balance, int fader)
{
    callOn(m_service, &McuService::setBalanceFader, balance, fader);
}

void McuManager::setSubwooferlevel(int level)
{
    callOn(m_service, &McuService::setSubwooferValue, level);
}

void McuManager::setSubwooferPhase(int phase)
{
    callOn(m_service, &McuService::setSubwooferPhase, phase);
}

void McuManager::setFrCrossover(int type, int value)
{
    callOn(m_service, &McuService::setFrCrossover, type, value);
}

void McuManager::setAmpDelayState(int state)
{
    callOn(m_service, &McuService::setInternalAmp, state);
}

void McuManager::setAudioTimerDelay(int type, int *delays)
{
    callOn(m_service, &McuService::setAudioTimerDelay, type, delays);
}

void McuManager::updateBtInputLevel(int level)
{
    callOn(m_service, &McuService::updateBtInputLevel, level);
}

// Radio

void McuManager::requestRadioInitData()
{
    callOn(m_service, &McuService::requestCommand, RadioInit);
}

void McuManager::setRadioRDSonoff(bool on) { callOn(m_service, &McuService::setRadioRds, on); }

void McuManager::setRadioTAonoff(bool on) { callOn(m_service, &McuService::setRadioTA, on); }

void McuManager::setRadioAFonoff(bool on) { callOn(m_service, &McuService::setRadioAF, on); }

void McuManager::setDabAntPower(bool on) { callOn(m_service, &McuService::setDabAntPower, on); }

// Steering-wheel keys

void McuManager::requestWheelStudyState()
{
    callOn(m_service, &McuService::requestCommand, WheelStudyState);
}

void McuManager::notifyWheelDopStart(bool on)
{
    callOn(m_service, &McuService::steeringWheelDopState, on);
}

void McuManager::notifyWheelReset() { callOn(m_service, &McuService::steeringWheelReset); }

void McuManager::notifyWheelDopReset() { callOn(m_service, &McuService::steeringWheeldopReset); }

void McuManager::notifyWheelDopClear() { callOn(m_service, &McuService::steeringWheeldopClear); }

void McuManager::notifyWheelStudyKey(int key)
{
    callOn(m_service, &McuService::steeringWheelStudyKey, key);
}

void McuManager::notifyWheelStudyMode()
{
    LOG_DEBUG << "swc study mode";
    callOn(m_service, &McuService::steeringWheelStudy);
}

void McuManager::notifyWheelTestMode()
{
    LOG_DEBUG << "swc test mode";
    callOn(m_service, &McuService::steeringWheelTest);
}

void McuManager::notifyWheelNormalMode()
{
    LOG_DEBUG << "swc normal mode";
    callOn(m_service, &McuService::steeringWheelNormal);
}

void McuManager::notifyWheelAbandonMode()
{
    LOG_DEBUG << "swc abandon mode";
    callOn(m_service, &McuService::steeringWheelAbandon);
}

void McuManager::setDopSwc(int key, int action, int value)
{
    callOn(m_service, &McuService::setDopSwc, key, action, value);
}

void McuManager::sendStwCarTypeToMcu(int type)
{
    callOn(m_service, &McuService::sendStwCarTypeToMcu, type);
}

// System

void McuManager::setUpgradeState(int state)
{
    callOn(m_service, &McuService::setUpgradeState, state);
}

void McuManager::setMonitorState(int state)
{
    callOn(m_service, &McuService::setMonitorState, state);
}

void McuManager::setVcomValue(int value) { callOn(m_service, &McuService::setVcomValue, value); }

void McuManager::setLoopBack(bool on) { callOn(m_service, &McuService::setLoopBack, on); }

void McuManager::setPowerOffDelay(bool on) { callOn(m_service, &McuService::setPowerOffDelay, on); }

void McuManager::setDestCode(int dest, int demo)
{
    callOn(m_service, &McuService::setDestCode, dest, demo);
}

void McuManager::setGpsAntAttach() { callOn(m_service, &McuService::setGpsAntAttach); }

void McuManager::notifyFactoryReset() { callOn(m_service, &McuService::factoryReset); }

void McuManager::requestTaillineState()
{
    callOn(m_service, &McuService::requestCommand, TaillineState);
}

void McuManager::requestSetupInitData()
{
    callOn(m_service, &McuService::requestCommand, SetupInit);
}

void McuManager::requestSetupInitData1()
{
    callOn(m_service, &McuService::requestCommand, SetupInit1);
}

void McuManager::requestDtcFlagInfoData()
{
    callOn(m_service, &McuService::requestCommand, DtcFlagInfo);
}

void McuManager::updateArmVersion(QString &version)
{
    callOn(m_service, &McuService::updateAppVersion, version);
}

void McuManager::updateBtAddress(QString &address)
{
    callOn(m_service, &McuService::updateBtAddress, address);
}

void McuManager::updateCameraSetup(bool on)
{
    callOn(m_service, &McuService::updateCamraSetup, on);
}

void McuManager::updateTouchCoordinate(McuManager::TouchState state, int x, int y)
{
    callOn(m_service, &McuService::updateTouchCoordinate, state, x, y);
}

void McuManager::updateDeviceStatus(McuManager::DeviceType type, McuManager::DeviceStatus status)
{
    callOn(m_service, &McuService::updateDeviceStatus, type, status);
}

// Kept: these two do nothing; applications call them.

void McuManager::setNCMTestMode() {}

void McuManager::setEnterCameraIntr(bool) {}

// Media and phone information

void McuManager::updateMediaSourceState(int source)
{
    send(m_service, mediarecords::sourceState(source));
}

void McuManager::updateMediaRadioFreq(int freq)
{
    send(m_service, mediarecords::radioFrequency(freq));
}

void McuManager::updateMediaId3(const QString &first, const QString &second, const QString &third)
{
    for (const mediarecords::MediaRecord &record : mediarecords::trackTexts(first, second, third))
        send(m_service, record);
}

void McuManager::updateBTState(bool connected)
{
    send(m_service, mediarecords::bluetoothState(connected));
}

void McuManager::updateBtDeveciname(const QString &name)
{
    send(m_service, mediarecords::bluetoothDevice(name));
}

void McuManager::updateCallState(int state) { send(m_service, mediarecords::callState(state)); }

void McuManager::updateCallNumber(const QString &number)
{
    send(m_service, mediarecords::callNumber(number));
}

void McuManager::updateCallName(const QString &name)
{
    send(m_service, mediarecords::callName(name));
}

void McuManager::updateCallTime(int a, int b, int c)
{
    send(m_service, mediarecords::callTime(a, b, c));
}

// Update files

QString McuManager::findUpdateFile(McuManager::UpdateFile file)
{
    const updatefiles::Image image = updatefiles::imageOf(file);
    return image.name ? findUpdateFile(image.folder, image.name) : QString();
}

QString McuManager::findUpdateFile(McuManager::UpdateFile file, QString mountKey, bool enabled)
{
    const updatefiles::Image image = updatefiles::imageOf(file);
    if (!enabled || !image.name || file == NavigationMarker)
        return {};
    return findUpdateFile(image.folder, image.name, mountKey, false);
}

QString McuManager::findUpdateFile(QString folder, QString name)
{
    AutoPrint trace(Q_FUNC_INFO, __LINE__);
    return updatefiles::findOnFirstMount(mediaRoot, folder, name, CALL_SITE);
}

QString McuManager::findUpdateFile(QString folder, QString name, QString mountKey, bool forceSd)
{
    return updatefiles::findOnAllMounts(mediaRoot, folder, name, mountKey, forceSd);
}
