// The commands and queries of the substitute MCU link. A command logs its name and arguments; a
// query returns the answer that was set for it.
#include "mcusrv.h"

#include "linksubstitute.h"

namespace mcu {

namespace {

using substitute::link::log;

QVariant answer(const char *query) { return substitute::link::answer(QString::fromLatin1(query)); }

} // namespace

// Queries

QString McuSrv::getVersion1() { return answer(__func__).toString(); }
QString McuSrv::getVersion2() { return answer(__func__).toString(); }
int McuSrv::getSysBootState() { return answer(__func__).toInt(); }
bool McuSrv::isReverseOn() const { return answer(__func__).toBool(); }
bool McuSrv::isMuteOn() const { return answer(__func__).toBool(); }
bool McuSrv::isNeedRenew() { return answer(__func__).toBool(); }
QString McuSrv::getCarFeatureCode() { return answer(__func__).toString(); }
QByteArray McuSrv::getVelroCarFeatureCode() { return answer(__func__).toByteArray(); }
int McuSrv::getFeatureDataStatus() { return answer(__func__).toInt(); }
int McuSrv::getEcuEdititon() { return answer(__func__).toInt(); }

// Life of the link

void McuSrv::init() { log().record(__func__); }
void McuSrv::mcuConnClose() { log().record(__func__); }
void McuSrv::terminate() { log().record(__func__); }

// Volume and mute

void McuSrv::SetVolume(int level) { log().record(__func__, level); }
void McuSrv::volumePlus() { log().record(__func__); }
void McuSrv::volumeMinus() { log().record(__func__); }
void McuSrv::mute(bool on) { log().record(__func__, on); }
void McuSrv::setMute(bool on, int type) { log().record(__func__, on, type); }
void McuSrv::setMuteLevel(int level) { log().record(__func__, level); }
void McuSrv::setAudioMute(int mute, int type, int flag)
{
    log().record(__func__, mute, type, flag);
}
void McuSrv::setAudioMute2(int mute, int type, int flag)
{
    log().record(__func__, mute, type, flag);
}
void McuSrv::uiCmdMute(int on) { log().record(__func__, on); }
void McuSrv::uiCmdAtt(int on) { log().record(__func__, on); }
void McuSrv::uiCmdAtt20DB(int on) { log().record(__func__, on); }
void McuSrv::duckAudio(int type, int level) { log().record(__func__, type, level); }
void McuSrv::unduckAudio(int type) { log().record(__func__, type); }
void McuSrv::reverseDuckVol(int level) { log().record(__func__, level); }
void McuSrv::setVolChangePreNext(int value) { log().record(__func__, value); }
void McuSrv::setVolResponse(int value) { log().record(__func__, value); }
void McuSrv::setAudioVolumeValue(int type, int level) { log().record(__func__, type, level); }
void McuSrv::setAudioInputGainValue(int type, int gain) { log().record(__func__, type, gain); }
void McuSrv::speedOfSound(int level) { log().record(__func__, level); }

// Audio routing and status

void McuSrv::updateAudioChannel(int channel) { log().record(__func__, channel); }
void McuSrv::updateAudioStatus(int status) { log().record(__func__, status); }
void McuSrv::updateCPAAStatus(int status) { log().record(__func__, status); }
void McuSrv::setMixChannel(unsigned char channels, unsigned char on)
{
    log().record(__func__, channels, on);
}
void McuSrv::setAudioMode(int mode) { log().record(__func__, mode); }
void McuSrv::setAudioTimerDelay(int type, int delay1, int delay2, int delay3, int delay4,
                                int delay5)
{
    log().record(__func__, type, delay1, delay2, delay3, delay4, delay5);
}
void McuSrv::set_UICMD_AUDIO_Playback_Comleted(int value) { log().record(__func__, value); }
void McuSrv::set_UICMD_Native_Music_Mode(int mode) { log().record(__func__, mode); }
void McuSrv::set_UICMD_Sleep_All_Mute(int on) { log().record(__func__, on); }
void McuSrv::updateMultiMediaInfo(int type, int len, QByteArray data)
{
    log().record(__func__, type, len, data);
}

// Sound shaping

void McuSrv::setPresetEQType(int type) { log().record(__func__, type); }
void McuSrv::setCustomEQValue(int band, int level) { log().record(__func__, band, level); }
void McuSrv::setBalanceFader(int balance, int fader) { log().record(__func__, balance, fader); }
void McuSrv::setLoudness(int level) { log().record(__func__, level); }
void McuSrv::set_UICMD_Loundness(int level) { log().record(__func__, level); }
void McuSrv::setBassBoost(int level) { log().record(__func__, level); }
void McuSrv::setSubwooferValue(int level) { log().record(__func__, level); }
void McuSrv::setSubwooferPhase(int phase) { log().record(__func__, phase); }
void McuSrv::setHPFValue(int position, int freq, int slope)
{
    log().record(__func__, position, freq, slope);
}
void McuSrv::setLPFValue(int freq, int slope) { log().record(__func__, freq, slope); }
void McuSrv::setRearLpf(int freq, int slope) { log().record(__func__, freq, slope); }
void McuSrv::setFrCrossover(int type, int value) { log().record(__func__, type, value); }
void McuSrv::setSpeakerLevel(QByteArray levels) { log().record(__func__, levels); }
void McuSrv::set_speaker_phase(int phase) { log().record(__func__, phase); }
void McuSrv::setInternalAmp(int on) { log().record(__func__, on); }
void McuSrv::setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3, int AMP_Date4,
                          int AMP_Date5, int AMP_Date6, int AMP_Date7, int AMP_Date8)
{
    log().record(__func__, AMP_Date0, AMP_Date1, AMP_Date2, AMP_Date3, AMP_Date4, AMP_Date5,
                 AMP_Date6, AMP_Date7, AMP_Date8);
}
void McuSrv::triggerBeep(int type) { log().record(__func__, type); }
void McuSrv::toggleKeyTone(int on) { log().record(__func__, on); }

// Tuner and RDS

void McuSrv::tune(int freq) { log().record(__func__, freq); }
void McuSrv::seekForward() { log().record(__func__); }
void McuSrv::seekBackward() { log().record(__func__); }
void McuSrv::autoScan() { log().record(__func__); }
void McuSrv::searchPty(int type) { log().record(__func__, type); }
void McuSrv::setAMRange(int lowFreq, int highFreq, int step)
{
    log().record(__func__, lowFreq, highFreq, step);
}
void McuSrv::setFMRange(int lowFreq, int highFreq, int step)
{
    log().record(__func__, lowFreq, highFreq, step);
}
void McuSrv::set_tuner_step(int step) { log().record(__func__, step); }
void McuSrv::setAfOnOff(bool onoff) { log().record(__func__, onoff); }
void McuSrv::setTaOnOff(bool onoff) { log().record(__func__, onoff); }
void McuSrv::setRdsOnOff(bool state) { log().record(__func__, state); }
void McuSrv::setCtOnOff(bool onoff) { log().record(__func__, onoff); }
void McuSrv::dismissTaAlarm() { log().record(__func__); }
void McuSrv::setDabAntPower(int on) { log().record(__func__, on); }

// Steering-wheel keys

void McuSrv::steeringWheelStudy() { log().record(__func__); }
void McuSrv::steeringWheelTest() { log().record(__func__); }
void McuSrv::steeringWheelNormal() { log().record(__func__); }
void McuSrv::steeringWheelAbandon() { log().record(__func__); }
void McuSrv::steeringWheelReset() { log().record(__func__); }
void McuSrv::steeringWheelStudyKey(int key) { log().record(__func__, key); }
void McuSrv::steeringWheedoplReset() { log().record(__func__); }
void McuSrv::steeringWheedoplClear() { log().record(__func__); }
void McuSrv::setWheelDopState(bool on) { log().record(__func__, on); }
void McuSrv::setDopSwc(int key, int action, int value)
{
    log().record(__func__, key, action, value);
}
void McuSrv::setSteeringControl(int value) { log().record(__func__, value); }
void McuSrv::setSteeringState(int state) { log().record(__func__, state); }
void McuSrv::sendStwCarTypeToMcu(int type) { log().record(__func__, type); }
void McuSrv::setKeyStarFunction(int function) { log().record(__func__, function); }
void McuSrv::updateKeyRotary(int value) { log().record(__func__, value); }

// System and power

void McuSrv::setSleepMode(int mode) { log().record(__func__, mode); }
void McuSrv::setPowerOff(int on) { log().record(__func__, on); }
void McuSrv::setPowerOffDelay(int on) { log().record(__func__, on); }
void McuSrv::uiCmdPower() { log().record(__func__); }
void McuSrv::uiCmdReset() { log().record(__func__); }
void McuSrv::uiCmdRadioReset() { log().record(__func__); }
void McuSrv::uiCmdSource() { log().record(__func__); }
void McuSrv::setCurrentMode(int mode) { log().record(__func__, mode); }
void McuSrv::requestCommand(int command) { log().record(__func__, command); }
void McuSrv::factoryReset() { log().record(__func__); }
void McuSrv::setWatchDogEnable(bool enable) { log().record(__func__, enable); }
void McuSrv::setMonitorState(int state) { log().record(__func__, state); }
void McuSrv::setLoopBack(bool on) { log().record(__func__, on); }
void McuSrv::setVcomValue(int value) { log().record(__func__, value); }
void McuSrv::set_Illumination(int type, QString text, int value1, int value2)
{
    log().record(__func__, type, text, value1, value2);
}
void McuSrv::setClockTime(bool is24Hour) { log().record(__func__, is24Hour); }
void McuSrv::syncDatetime(int year, int month, int day, int hour, int minute, int second, int flag)
{
    log().record(__func__, year, month, day, hour, minute, second, flag);
}
void McuSrv::setDestCode(int dest, int demo) { log().record(__func__, dest, demo); }
void McuSrv::setRearViewDelay(int delay) { log().record(__func__, delay); }
void McuSrv::updateCamraSetup(int on) { log().record(__func__, on); }
void McuSrv::updateTouchCoordinate(int state, int x, int y) { log().record(__func__, state, x, y); }
void McuSrv::updateDeviceStatus(int type, int status) { log().record(__func__, type, status); }
void McuSrv::updateBtInputLevel(int level) { log().record(__func__, level); }
void McuSrv::set_UICMD_Reverse_test(int on) { log().record(__func__, on); }
void McuSrv::set_UICMD_FastAcc(int on) { log().record(__func__, on); }
void McuSrv::set_UICMD_Speed(int speed) { log().record(__func__, speed); }
void McuSrv::set_UICMD_Meter_Clear_Display(int value) { log().record(__func__, value); }

// Versions, identity and update

void McuSrv::updateAppVersion(QString version) { log().record(__func__, version); }
void McuSrv::updateSdkVersion(QString version) { log().record(__func__, version); }
void McuSrv::updateSysVersion(QString version) { log().record(__func__, version); }
void McuSrv::setSocVer(QString version1, QString version2)
{
    log().record(__func__, version1, version2);
}
void McuSrv::updateBtAddress(QString address) { log().record(__func__, address); }
void McuSrv::setSerialNumer(const QString &serial) { log().record(__func__, serial); }
void McuSrv::setUpgradeState(int state) { log().record(__func__, state); }
void McuSrv::mcuUpdate() { log().record(__func__); }

// Vehicle (CAN) writes

void McuSrv::sendVehicleSpeed(int speed) { log().record(__func__, speed); }
void McuSrv::setVechicleInfo(int data0, int data1, int data2, int data3, int data4)
{
    log().record(__func__, data0, data1, data2, data3, data4);
}
void McuSrv::setACState(int key, int state) { log().record(__func__, key, state); }
void McuSrv::setACFastWarm(int data0, int data1, int data2)
{
    log().record(__func__, data0, data1, data2);
}
void McuSrv::setAirACState(int data0, int data1, int data2, int data3, int data4, int data5,
                           int data6, int data7, int data8)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7, data8);
}
void McuSrv::setHUState(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                        int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                        int HU_Date10, int HU_Date11)
{
    log().record(__func__, HU_Date0, HU_Date1, HU_Date2, HU_Date3, HU_Date4, HU_Date5, HU_Date6,
                 HU_Date7, HU_Date8, HU_Date9, HU_Date10, HU_Date11);
}
void McuSrv::setMeterSettingInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                                  int data6, int data7)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7);
}
void McuSrv::set_amb_data(int data0, int data1, int data2, int data3, int data4, int data5,
                          int data6, int data7, int data8, int data9, int data10, int data11,
                          int data12, int data13)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7, data8, data9,
                 data10, data11, data12, data13);
}
void McuSrv::epsDriveModeLink(int mode) { log().record(__func__, mode); }
void McuSrv::setAvmCameraStatus(int data0, int data1, int data2, int data3, int data4, int data5,
                                int data6, int data7)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7);
}
void McuSrv::setAvmCalibrationStatus(int data0, int data1, int data2, int data3)
{
    log().record(__func__, data0, data1, data2, data3);
}

// Truck (CAN) writes

void McuSrv::setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                              int data6, int data7)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7);
}
void McuSrv::setTruckCameraPower(int data0, int data1, int data2, int data3, int data4)
{
    log().record(__func__, data0, data1, data2, data3, data4);
}
void McuSrv::setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4,
                                     int data5, int data6, int data7)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7);
}
void McuSrv::setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                               int data6, int data7)
{
    log().record(__func__, data0, data1, data2, data3, data4, data5, data6, data7);
}

// Factory test

void McuSrv::sendAutoTestPkgToMcu(int len, QByteArray pkg) { log().record(__func__, len, pkg); }

} // namespace mcu
