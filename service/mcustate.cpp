// System state. Reports are stored in the private block and emitted as signals. Getters return the
// stored values; a few query the link.
#include "mcuservice.h"

#include "callon_p.h"
#include "logline_p.h"
#include "mcuservice_p.h"
#include "mcuvechiclebridge.h"

#include "datetimemanager.h"
#include "mcusrv.h"
#include "settingsfunc.h"
#include "settingsutil.h"

namespace mcu {

namespace {

/// The tail-line value of parking, reverse and headlight that means on.
constexpr int tailLineOn = 2;

/// Stores a tail-line value and emits its signal if it differs from the stored one.
void updateTailLine(McuService *service, int &kept, int value, void (McuService::*changed)(int))
{
    if (kept == value)
        return;
    kept = value;
    Q_EMIT(service->*changed)(value);
}

} // namespace

// Reports

void McuService::onKeyEvent(int key, int state)
{
    if (m_data->usbOverCurrent)
        Q_EMIT hideUsbOverPower();
    LOG_DEBUG << "--------------------------------------" << key; // Kept: log filters match it
    Q_EMIT keyEvent(key, state);
    if (state != 0)
        Q_EMIT keyReleased(key);
    else
        Q_EMIT keyPressed(key);
}

void McuService::onVolumeTurn(int state)
{
    if (m_data->usbOverCurrent)
        Q_EMIT hideUsbOverPower();
    Q_EMIT volumeTurn(state);
}

void McuService::onAudioVolume(int muteState, int level, int type)
{
    notifyAttState(muteState);
    if (m_data->usbOverCurrent)
        Q_EMIT hideUsbOverPower();
    // Kept: two forms of the signal; applications connect to both.
    Q_EMIT audioVolumeChanged(muteState, level, type);
    Q_EMIT audioVolumeChanged(muteState == 1, level, type);
}

void McuService::onUsbPowerStatus(int status)
{
    // Kept: set for every status and never cleared. Each of these reports means that the warning is
    // shown, and user interfaces rely on every later user action to close it.
    m_data->usbOverCurrent = true;
    Q_EMIT usbPowerStatus(status);
}

void McuService::onTaillineState(int parking, int reverse, int headlight, int mute, int dspState)
{
    LOG_DEBUG << parking << reverse << headlight << mute << dspState;
    updateTailLine(this, m_data->parking, parking, &McuService::parkingChanged);
    updateTailLine(this, m_data->reverse, reverse, &McuService::reverseChanged);
    updateTailLine(this, m_data->headlight, headlight, &McuService::headlightChanged);
    updateTailLine(this, m_data->muteLine, mute, &McuService::muteLineStateChanged);
    updateTailLine(this, m_data->dsp, dspState, &McuService::dspStateChanged);

    McuVechicleBridge *bridge = McuVechicleBridge::instance();
    bridge->notifyHeadlightUpdate(headlight == tailLineOn, 0);
    bridge->notifyReverseUpdate(reverse == tailLineOn, 0);
    bridge->notifyParkingUpdate(parking == tailLineOn, 0);
}

void McuService::onDatetimeSync(int year, int month, int day, int hour, int minute, int second)
{
    notifyDateTime();
    if (mem::SettingsUtil::instance()->IsForceTime())
        return;
    hxdatetime::DateTimeManager::instance()->setDateTime(year, month, day, hour, minute, second,
                                                         false);
    Q_EMIT McuUpdateDateTime();
}

void McuService::onRequestAppVer(int mode)
{
    if (mode == 1)
        Q_EMIT requestBtAddress();
    else
        Q_EMIT requestAppVersion();
}

void McuService::onSystemSnidChanged(QString snid)
{
    m_data->snIdName = snid;
    Q_EMIT snidChanged(m_data->snIdName);
}

void McuService::onSetDest(int dest, int demo)
{
    LOG_DEBUG << dest << demo;
    m_data->destCode = dest;
    m_data->demo = demo;
    Q_EMIT syncDestCode(dest);
}

void McuService::onSetupInfoState(int bt_input_level, int timer_onoff, int beep_onoff,
                                  int camera_onoff, int steering_control, int extra_bass,
                                  int eq_type, int eq1_level, int eq2_level, int eq3_level,
                                  int eq4_level, int eq5_level, int eq6_level, int eq7_level,
                                  int eq8_level, int eq9_level, int eq10_level, int eq11_level,
                                  int eq12_level, int eq13_level, int subwoofer_level,
                                  int balance_level, int fader_level, int hpf_front_freq,
                                  int hpf_rear_freq, int lpf_freq, int subwoofer_phase, int dso,
                                  int rotary, int bassboost)
{
    m_data->setupInfo = {
        bt_input_level,  timer_onoff,     beep_onoff,  camera_onoff,   steering_control,
        extra_bass,      eq_type,         eq1_level,   eq2_level,      eq3_level,
        eq4_level,       eq5_level,       eq6_level,   eq7_level,      eq8_level,
        eq9_level,       eq10_level,      eq11_level,  eq12_level,     eq13_level,
        subwoofer_level, balance_level,   fader_level, hpf_front_freq, hpf_rear_freq,
        lpf_freq,        subwoofer_phase, dso,         rotary,         bassboost};
    Q_EMIT syncSetupInfo();
}

void McuService::onSetupInfo1State(int main_volume, int bt_ring_volume, int bt_talking_volume,
                                   int navi_volume, int voice_volume, int ta_volume,
                                   int radio_input_gain, int usb_input_gain,
                                   int bt_audio_input_gain, int aux_input_gain,
                                   int carplay_input_gain, int android_auto_input_gain,
                                   int loud_status, int rear_view_delay, int poweroff_delay_onoff,
                                   int steer_state, int internal_amp_state, int break_volume,
                                   int idl_chime_vol, int ti_vol, int idl_warn_vol,
                                   int idl_info_vol, int idl_reco_vol, int bt_siri_vol)
{
    m_data->setupInfo1 = {
        main_volume,         bt_ring_volume,  bt_talking_volume,    navi_volume,
        voice_volume,        ta_volume,       radio_input_gain,     usb_input_gain,
        bt_audio_input_gain, aux_input_gain,  carplay_input_gain,   android_auto_input_gain,
        loud_status,         rear_view_delay, poweroff_delay_onoff, steer_state,
        internal_amp_state,  break_volume,    idl_chime_vol,        ti_vol,
        idl_warn_vol,        idl_info_vol,    idl_reco_vol,         bt_siri_vol};
    Q_EMIT syncSetupInfo1();
}

void McuService::onMcuVersion(QString version1, QString version2)
{
    m_data->testVersion = version1;
    m_data->userVersion = version2;
}

void McuService::onSerialNumberChanged(QString serial)
{
    m_data->serialNumber = serial;
    Q_EMIT serialNumChanged(m_data->serialNumber);
}

void McuService::onStwAdcStatusChanged() { Q_EMIT stwAdcStatusChanged(); }

void McuService::onStwAdcValueChanged(int value)
{
    LOG_DEBUG << value;
    Q_EMIT stwAdcValueChanged(value);
}

// Kept: does nothing; the link reports the car type, but the facade only sends it.
void McuService::onStwCarTypeChanged(int) {}

// Queries and small setters

bool McuService::isUsbOverCurrent() { return m_data->usbOverCurrent; }

QString McuService::snIdName() { return m_data->snIdName; }

// Kept: always 0; no report has it, but applications call this.
int McuService::snIdChecksum() { return m_data->snIdChecksum; }

bool McuService::getNeedSyncTimeState() { return m_data->needSyncTime; }

void McuService::setNeedSyncMcuTime(bool needed) { m_data->needSyncTime = needed; }

QString McuService::test_version() { return m_data->testVersion; }

QString McuService::user_version() { return m_data->userVersion; }

QString McuService::SOC_version() { return callOn(m_link, &McuSrv::getVersion1); }

QString McuService::HARD_version() { return callOn(m_link, &McuSrv::getVersion2); }

bool McuService::isAttOn() { return m_data->attState != 0; }

void McuService::notifyAttState(int state) { m_data->attState = state; }

bool McuService::isNeedRenew() { return callOn(m_link, &McuSrv::isNeedRenew); }

int McuService::startUpState()
{
    constexpr int upgradeInProgress = 2;
    if (mem::SettingsFunc::instance()->getValue(QStringLiteral("mcu_upgrade_status"), false))
        return upgradeInProgress;
    return callOn(m_link, &McuSrv::getSysBootState);
}

int McuService::parkingState() { return m_data->parking; }

int McuService::reverseState() { return m_data->reverse; }

int McuService::headlightState() { return m_data->headlight; }

int McuService::muteLineState() { return m_data->muteLine; }

int McuService::dspState() const { return m_data->dsp; }

bool McuService::isReverseFromMcuSrv() const { return callOn(m_link, &McuSrv::isReverseOn); }

bool McuService::isMuteFromMcuSrv() const { return callOn(m_link, &McuSrv::isMuteOn); }

// Kept: always 1; every unit has a satellite radio, but applications call this.
int McuService::sxmExist() { return 1; }

int McuService::getDest() { return m_data->destCode; }

int McuService::getDemo() { return m_data->demo; }

SetupInfo McuService::setupInfo() { return m_data->setupInfo; }

SetupInfo1 McuService::setupInfo1() { return m_data->setupInfo1; }

void McuService::setDayNightModeFromAutoTst(int mode)
{
    m_data->headlight = mode == 1 ? tailLineOn : 1;
    Q_EMIT headlightChanged(m_data->headlight);
}

bool McuService::getBttestState() { return m_data->btTest; }

void McuService::setBttestState(bool state) { m_data->btTest = state; }

bool McuService::isDateTimeReady() { return m_data->dateTimeReady; }

void McuService::notifyDateTime() { m_data->dateTimeReady = true; }

QString McuService::serialNumber() const { return m_data->serialNumber; }

} // namespace mcu
