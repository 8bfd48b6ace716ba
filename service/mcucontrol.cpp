// Commands from applications to the MCU. Most are one line that passes the arguments to the link;
// commands with special behaviour have a body.
//
// Kept: setMixChannel(), setSleepMode() and setSerialNumer() have no null check. The amplifier, the
// sleep and the identity of the unit depend on them, so a call before init() is a programming error
// that must be noticed.
#include "mcuservice.h"

#include "callon_p.h"
#include "logline_p.h"

#include "mcusrv.h"
#include "tunercontrol.h"

#include <utility>

namespace mcu {

// Volume and mute

void McuService::volumePlus() { callOn(m_link, &McuSrv::volumePlus); }

void McuService::volumeMinus() { callOn(m_link, &McuSrv::volumeMinus); }

void McuService::SetVolume(int level) { callOn(m_link, &McuSrv::SetVolume, level); }

// Kept: the three mute commands log twice, when called and when sent; log filters pair the lines.

void McuService::setMute(bool mute, int type)
{
    LOG_DEBUG << mute;
    if (!m_link)
        return;
    LOG_DEBUG << mute;
    m_link->setMute(mute, type);
}

void McuService::setAudioMute(int mute, int type, int flag)
{
    LOG_DEBUG << mute;
    if (!m_link)
        return;
    LOG_DEBUG << mute;
    m_link->setAudioMute(mute, type, flag);
}

void McuService::setAudioMute2(int mute, int type, int flag)
{
    LOG_DEBUG << mute;
    if (!m_link)
        return;
    LOG_DEBUG << mute;
    m_link->setAudioMute2(mute, type, flag);
}

void McuService::setMuteLevel(int level)
{
    // Kept: one last level in the process, for all objects that applications use; 255 counts as
    // sent at start.
    static int lastSent = 0xff;
    if (level == lastSent || !m_link)
        return;
    m_link->setMuteLevel(level);
    lastSent = level;
}

void McuService::uiCmdMute(int on) { callOn(m_link, &McuSrv::uiCmdMute, on); }

void McuService::uiCmdAtt(int on) { callOn(m_link, &McuSrv::uiCmdAtt, on); }

void McuService::uiCmdAtt20DB(int on) { callOn(m_link, &McuSrv::uiCmdAtt20DB, on); }

void McuService::duckAudio(int type, int level) { callOn(m_link, &McuSrv::duckAudio, type, level); }

void McuService::unduckAudio(int type) { callOn(m_link, &McuSrv::unduckAudio, type); }

void McuService::reverseDuckVol(int level) { callOn(m_link, &McuSrv::reverseDuckVol, level); }

void McuService::setVolChangePreNext(int value)
{
    callOn(m_link, &McuSrv::setVolChangePreNext, value);
}

void McuService::setVolResponse(int value) { callOn(m_link, &McuSrv::setVolResponse, value); }

void McuService::setAudioVolumeValue(int type, int level)
{
    callOn(m_link, &McuSrv::setAudioVolumeValue, type, level);
}

void McuService::setAudioInputGainValue(int type, int gain)
{
    callOn(m_link, &McuSrv::setAudioInputGainValue, type, gain);
}

void McuService::speedOfSound(int level) { callOn(m_link, &McuSrv::speedOfSound, level); }

// Audio routing and status

void McuService::updateAudioChannel(int channel)
{
    callOn(m_link, &McuSrv::updateAudioChannel, channel);
}

void McuService::updateAudioStatus(int status)
{
    callOn(m_link, &McuSrv::updateAudioStatus, status);
}

void McuService::updateCPAAStatus(int status) { callOn(m_link, &McuSrv::updateCPAAStatus, status); }

void McuService::setMixChannel(unsigned char channels, unsigned char on)
{
    LOG_DEBUG << QStringLiteral("%1").arg(channels, 8, 2, QLatin1Char('0')) << on;
    m_link->setMixChannel(channels, on); // no null check, see above
}

void McuService::setAudioMode(int mode) { callOn(m_link, &McuSrv::setAudioMode, mode); }

void McuService::setAudioTimerDelay(int type, int *delays)
{
    if (!m_link || !delays)
        return;
    m_link->setAudioTimerDelay(type, delays[0], delays[1], delays[2], delays[3], delays[4]);
}

// Kept: the B is a capital letter here and a small one on the link; applications and link have
// these names.
void McuService::set_UICMD_AUDIO_PlayBack_Comleted(int value)
{
    callOn(m_link, &McuSrv::set_UICMD_AUDIO_Playback_Comleted, value);
}

void McuService::setNativeMusicMode(int mode)
{
    callOn(m_link, &McuSrv::set_UICMD_Native_Music_Mode, mode);
}

// Kept: a second name; applications use both.
void McuService::set_UICMD_Native_Music_Mode(int mode) { setNativeMusicMode(mode); }

void McuService::set_UICMD_Sleep_All_Mute(int on)
{
    callOn(m_link, &McuSrv::set_UICMD_Sleep_All_Mute, on);
}

void McuService::setSleepAllMute(int on)
{
    if (!m_link)
        return;
    LOG_DEBUG << on;
    m_link->set_UICMD_Sleep_All_Mute(on);
}

void McuService::updateMultiMediaInfo(int type, int len, QByteArray data)
{
    callOn(m_link, &McuSrv::updateMultiMediaInfo, type, len, std::move(data));
}

// Sound shaping

void McuService::setPresetEQType(int type) { callOn(m_link, &McuSrv::setPresetEQType, type); }

void McuService::setCustomEQValue(int band, int level)
{
    callOn(m_link, &McuSrv::setCustomEQValue, band, level);
}

void McuService::setBalanceFader(int balance, int fader)
{
    // Kept: the MCU counts both from 0. For the last values of int the sum wraps.
    constexpr qint64 middle = 25;
    callOn(m_link, &McuSrv::setBalanceFader, int(balance + middle), int(fader + middle));
}

void McuService::setLoudness(int level) { callOn(m_link, &McuSrv::setLoudness, level); }

void McuService::set_UICMD_Loundness(int level)
{
    callOn(m_link, &McuSrv::set_UICMD_Loundness, level);
}

void McuService::setBassBoost(int level) { callOn(m_link, &McuSrv::setBassBoost, level); }

void McuService::setSubwooferValue(int level) { callOn(m_link, &McuSrv::setSubwooferValue, level); }

void McuService::setSubwooferPhase(int phase) { callOn(m_link, &McuSrv::setSubwooferPhase, phase); }

void McuService::setHPFValue(int position, int freq, int slope)
{
    callOn(m_link, &McuSrv::setHPFValue, position, freq, slope);
}

void McuService::setLPFValue(int freq, int slope)
{
    LOG_DEBUG << "====" << freq << slope; // Kept: log filters match the text
    callOn(m_link, &McuSrv::setLPFValue, freq, slope);
}

void McuService::setRearLpf(int freq, int slope)
{
    callOn(m_link, &McuSrv::setRearLpf, freq, slope);
}

void McuService::setFrCrossover(int type, int value)
{
    callOn(m_link, &McuSrv::setFrCrossover, type, value);
}

void McuService::setSpeakerLevel(QByteArray levels)
{
    callOn(m_link, &McuSrv::setSpeakerLevel, std::move(levels));
}

void McuService::setSpeakerPhase(int phase) { callOn(m_link, &McuSrv::set_speaker_phase, phase); }

void McuService::setInternalAmp(int on) { callOn(m_link, &McuSrv::setInternalAmp, on); }

void McuService::setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                              int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                              int AMP_Date8)
{
    callOn(m_link, &McuSrv::setAmpStatus, AMP_Date0, AMP_Date1, AMP_Date2, AMP_Date3, AMP_Date4,
           AMP_Date5, AMP_Date6, AMP_Date7, AMP_Date8);
}

void McuService::triggerBeep(int)
{
    if (m_beepGuard.isActive())
        return;
    // Kept: always 0; applications pass types, but the MCU has one beep.
    callOn(m_link, &McuSrv::triggerBeep, 0);
    if (m_beepGuard.interval() > 0)
        m_beepGuard.start();
}

void McuService::setBeepInterval(int ms)
{
    if (ms <= 0)
        return;
    m_beepGuard.setInterval(ms);
    m_beepGuard.setSingleShot(true);
}

void McuService::toggleKeyTone(int on) { callOn(m_link, &McuSrv::toggleKeyTone, on); }

// Radio and DAB

void McuService::setRadioRds(bool on) { callOn(m_link, &McuSrv::setRdsOnOff, on); }

void McuService::setRadioTA(bool on) { callOn(m_link, &McuSrv::setTaOnOff, on); }

void McuService::setRadioAF(bool on) { callOn(m_link, &McuSrv::setAfOnOff, on); }

void McuService::setDabAntPower(bool on) { callOn(m_link, &McuSrv::setDabAntPower, int(on)); }

void McuService::dabRequestScan() { tuner::TunerControl::instance()->HDR_DabRequestScan(); }

void McuService::dabRequestTuneFreq(int index)
{
    tuner::TunerControl::instance()->HDR_DabTunerFM(index);
}

// Steering-wheel keys

void McuService::steeringWheelStudy() { callOn(m_link, &McuSrv::steeringWheelStudy); }

void McuService::steeringWheelTest() { callOn(m_link, &McuSrv::steeringWheelTest); }

void McuService::steeringWheelNormal() { callOn(m_link, &McuSrv::steeringWheelNormal); }

void McuService::steeringWheelAbandon() { callOn(m_link, &McuSrv::steeringWheelAbandon); }

void McuService::steeringWheelReset() { callOn(m_link, &McuSrv::steeringWheelReset); }

void McuService::steeringWheelStudyKey(int key)
{
    callOn(m_link, &McuSrv::steeringWheelStudyKey, key);
}

void McuService::steeringWheelDopState(bool on) { callOn(m_link, &McuSrv::setWheelDopState, on); }

// Kept: the link has another spelling of these two, which it exports.

void McuService::steeringWheeldopReset() { callOn(m_link, &McuSrv::steeringWheedoplReset); }

void McuService::steeringWheeldopClear() { callOn(m_link, &McuSrv::steeringWheedoplClear); }

void McuService::setDopSwc(int key, int action, int value)
{
    callOn(m_link, &McuSrv::setDopSwc, key, action, value);
}

void McuService::setSteeringControl(int value)
{
    callOn(m_link, &McuSrv::setSteeringControl, value);
}

void McuService::setSteeringState(int state) { callOn(m_link, &McuSrv::setSteeringState, state); }

void McuService::sendStwCarTypeToMcu(int type)
{
    callOn(m_link, &McuSrv::sendStwCarTypeToMcu, type);
}

void McuService::setKeyStarFunction(int function)
{
    callOn(m_link, &McuSrv::setKeyStarFunction, function);
}

void McuService::updateKeyRotary(int value) { callOn(m_link, &McuSrv::updateKeyRotary, value); }

// System and power

void McuService::setSleepMode(int mode) { m_link->setSleepMode(mode); } // see above

void McuService::setPowerOff(bool on) { callOn(m_link, &McuSrv::setPowerOff, int(on)); }

void McuService::setPowerOffDelay(int on) { callOn(m_link, &McuSrv::setPowerOffDelay, on); }

void McuService::uiCmdPower() { callOn(m_link, &McuSrv::uiCmdPower); }

void McuService::uiCmdReset()
{
    LOG_DEBUG << "ui cmd reset!!!";
    callOn(m_link, &McuSrv::uiCmdReset);
}

void McuService::uiCmdRadioReset() { callOn(m_link, &McuSrv::uiCmdRadioReset); }

void McuService::uiCmdSource() { callOn(m_link, &McuSrv::uiCmdSource); }

void McuService::setCurrentMode(int mode) { callOn(m_link, &McuSrv::setCurrentMode, mode); }

void McuService::requestCommand(int command) { callOn(m_link, &McuSrv::requestCommand, command); }

void McuService::factoryReset() { callOn(m_link, &McuSrv::factoryReset); }

void McuService::setWatchDogEnable(bool enable)
{
    callOn(m_link, &McuSrv::setWatchDogEnable, enable);
}

void McuService::setMonitorState(int state) { callOn(m_link, &McuSrv::setMonitorState, state); }

void McuService::setLoopBack(bool on) { callOn(m_link, &McuSrv::setLoopBack, on); }

void McuService::setVcomValue(int value) { callOn(m_link, &McuSrv::setVcomValue, value); }

void McuService::set_Illumination(int type, std::string text, int value1, int value2)
{
    callOn(m_link, &McuSrv::set_Illumination, type, QString::fromStdString(text), value1, value2);
}

void McuService::setClockTime(bool is24Hour) { callOn(m_link, &McuSrv::setClockTime, is24Hour); }

void McuService::syncDatetime(int year, int month, int day, int hour, int minute, int second,
                              int flag)
{
    callOn(m_link, &McuSrv::syncDatetime, year, month, day, hour, minute, second, flag);
}

void McuService::setDestCode(int dest, int demo)
{
    callOn(m_link, &McuSrv::setDestCode, dest, demo);
}

void McuService::setRearViewDelay(int delay) { callOn(m_link, &McuSrv::setRearViewDelay, delay); }

void McuService::updateCamraSetup(int on) { callOn(m_link, &McuSrv::updateCamraSetup, on); }

void McuService::updateTouchCoordinate(int state, int x, int y)
{
    callOn(m_link, &McuSrv::updateTouchCoordinate, state, x, y);
}

void McuService::updateDeviceStatus(int type, int status)
{
    callOn(m_link, &McuSrv::updateDeviceStatus, type, status);
}

void McuService::updateBtInputLevel(int level)
{
    callOn(m_link, &McuSrv::updateBtInputLevel, level);
}

void McuService::set_UICMD_Reverse_test(int on)
{
    callOn(m_link, &McuSrv::set_UICMD_Reverse_test, on);
}

void McuService::set_UICMD_FastAcc(int on) { callOn(m_link, &McuSrv::set_UICMD_FastAcc, on); }

void McuService::set_UICMD_Speed(int speed) { callOn(m_link, &McuSrv::set_UICMD_Speed, speed); }

void McuService::setMeterClearDisplay(int value)
{
    if (!m_link)
        return;
    LOG_DEBUG << value;
    m_link->set_UICMD_Meter_Clear_Display(value);
}

void McuService::mcuConnClose() { callOn(m_link, &McuSrv::mcuConnClose); }

// Versions, identity and update

void McuService::updateAppVersion(QString version)
{
    callOn(m_link, &McuSrv::updateAppVersion, std::move(version));
}

void McuService::updateBtAddress(QString address)
{
    callOn(m_link, &McuSrv::updateBtAddress, std::move(address));
}

void McuService::updateSdkVersion(QString version)
{
    callOn(m_link, &McuSrv::updateSdkVersion, std::move(version));
}

void McuService::updateSysVersion(QString version)
{
    callOn(m_link, &McuSrv::updateSysVersion, std::move(version));
}

void McuService::setSocVer(QString version1, QString version2)
{
    callOn(m_link, &McuSrv::setSocVer, std::move(version1), std::move(version2));
}

void McuService::setSerialNumer(const QString &serial)
{
    m_link->setSerialNumer(serial); // see above
}

void McuService::setUpgradeState(int state) { callOn(m_link, &McuSrv::setUpgradeState, state); }

void McuService::mcuUpdate() { callOn(m_link, &McuSrv::mcuUpdate); }

int McuService::getEcuEdititon() { return callOn(m_link, &McuSrv::getEcuEdititon); }

// Vehicle (CAN) writes

void McuService::sendVehicleSpeed(int speed) { callOn(m_link, &McuSrv::sendVehicleSpeed, speed); }

void McuService::setVechicleInfo(int data0, int data1, int data2, int data3, int data4)
{
    callOn(m_link, &McuSrv::setVechicleInfo, data0, data1, data2, data3, data4);
}

void McuService::setACState(int key, int state) { callOn(m_link, &McuSrv::setACState, key, state); }

void McuService::setACFastWarm(int data0, int data1, int data2)
{
    callOn(m_link, &McuSrv::setACFastWarm, data0, data1, data2);
}

void McuService::setAirACState(int data0, int data1, int data2, int data3, int data4, int data5,
                               int data6, int data7, int data8)
{
    callOn(m_link, &McuSrv::setAirACState, data0, data1, data2, data3, data4, data5, data6, data7,
           data8);
}

void McuService::setHUState(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                            int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                            int HU_Date10, int HU_Date11)
{
    callOn(m_link, &McuSrv::setHUState, HU_Date0, HU_Date1, HU_Date2, HU_Date3, HU_Date4, HU_Date5,
           HU_Date6, HU_Date7, HU_Date8, HU_Date9, HU_Date10, HU_Date11);
}

void McuService::setMeterSettingInfor(int data0, int data1, int data2, int data3, int data4,
                                      int data5, int data6, int data7)
{
    callOn(m_link, &McuSrv::setMeterSettingInfor, data0, data1, data2, data3, data4, data5, data6,
           data7);
}

void McuService::set_amb_data(int data0, int data1, int data2, int data3, int data4, int data5,
                              int data6, int data7, int data8, int data9, int data10, int data11,
                              int data12, int data13)
{
    callOn(m_link, &McuSrv::set_amb_data, data0, data1, data2, data3, data4, data5, data6, data7,
           data8, data9, data10, data11, data12, data13);
}

void McuService::epsDriveModeLink(int mode) { callOn(m_link, &McuSrv::epsDriveModeLink, mode); }

void McuService::setAvmCameraStatus(int data0, int data1, int data2, int data3, int data4,
                                    int data5, int data6, int data7)
{
    callOn(m_link, &McuSrv::setAvmCameraStatus, data0, data1, data2, data3, data4, data5, data6,
           data7);
}

void McuService::setAvmCalibrationStatus(int data0, int data1, int data2, int data3)
{
    callOn(m_link, &McuSrv::setAvmCalibrationStatus, data0, data1, data2, data3);
}

void McuService::setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                                  int data6, int data7)
{
    callOn(m_link, &McuSrv::setTruckAccInfor, data0, data1, data2, data3, data4, data5, data6,
           data7);
}

void McuService::setTruckCameraPower(int data0, int data1, int data2, int data3, int data4)
{
    callOn(m_link, &McuSrv::setTruckCameraPower, data0, data1, data2, data3, data4);
}

void McuService::setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4,
                                         int data5, int data6, int data7)
{
    callOn(m_link, &McuSrv::setTruckOtpInfotainment, data0, data1, data2, data3, data4, data5,
           data6, data7);
}

void McuService::setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                                   int data6, int data7)
{
    callOn(m_link, &McuSrv::setTruckTpmsInfor, data0, data1, data2, data3, data4, data5, data6,
           data7);
}

// Factory test

void McuService::sendAutoTestPkgToMcu(int len, const QByteArray &pkg)
{
    callOn(m_link, &McuSrv::sendAutoTestPkgToMcu, len, pkg);
}

} // namespace mcu
