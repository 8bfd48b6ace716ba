// The table of operations. Types come from the operations themselves; the names of the parameters
// stand beside them.
#include "operations.h"

#include "autotesthandler.h"
#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "operationtable.h"

namespace mcusim {

namespace {

void addService(QVector<Operation> &table)
{
    using mcu::McuService;
    Class<McuService> add("McuService", table);
    // Queries
    add("test_version", &McuService::test_version);
    add("user_version", &McuService::user_version);
    add("SOC_version", &McuService::SOC_version);
    add("HARD_version", &McuService::HARD_version);
    add("serialNumber", &McuService::serialNumber);
    add("snIdName", &McuService::snIdName);
    add("snIdChecksum", &McuService::snIdChecksum);
    add("getAmpSwEdition", &McuService::getAmpSwEdition);
    add("getAmpHwEdition", &McuService::getAmpHwEdition);
    add("getEcuSwEdition", &McuService::getEcuSwEdition);
    add("getEcuHwEdition", &McuService::getEcuHwEdition);
    add("startUpState", &McuService::startUpState);
    add("isNeedRenew", &McuService::isNeedRenew);
    add("isReverseFromMcuSrv", &McuService::isReverseFromMcuSrv);
    add("isMuteFromMcuSrv", &McuService::isMuteFromMcuSrv);
    add("parkingState", &McuService::parkingState);
    add("reverseState", &McuService::reverseState);
    add("headlightState", &McuService::headlightState);
    add("muteLineState", &McuService::muteLineState);
    add("dspState", &McuService::dspState);
    add("isAttOn", &McuService::isAttOn);
    add("getDest", &McuService::getDest);
    add("getDemo", &McuService::getDemo);
    add("isUsbOverCurrent", &McuService::isUsbOverCurrent);
    add("isDateTimeReady", &McuService::isDateTimeReady);
    add("getNeedSyncTimeState", &McuService::getNeedSyncTimeState);
    add("getBttestState", &McuService::getBttestState);
    add("sxmExist", &McuService::sxmExist);
    add("radioIsIdle", &McuService::radioIsIdle);
    add("gpsAntennaIsConnected", &McuService::gpsAntennaIsConnected);
    add("gpsAntennaIsAbnormal", &McuService::gpsAntennaIsAbnormal);
    add("dabAntennaIsConnected", &McuService::dabAntennaIsConnected);
    add("dabAntennaIsAbnormal", &McuService::dabAntennaIsAbnormal);
    add("autoTestPackage", &McuService::autoTestPackage);
    add("autoTestStatus", &McuService::autoTestStatus);
    add("getReportACDate", &McuService::getReportACDate);
    add("getReportAVMDate", &McuService::getReportAVMDate);
    add("getSteeringAngleChanged", &McuService::getSteeringAngleChanged);
    add("getReportHuDate", &McuService::getReportHuDate);
    add("getReportPdcDate", &McuService::getReportPdcDate);
    add("getReportTpmsDate", &McuService::getReportTpmsDate);
    add("getReportVehicleBodyDate", &McuService::getReportVehicleBodyDate);
    add("getReportMeterSetting", &McuService::getReportMeterSetting);
    add("getReportVehicleFaultData", &McuService::getReportVehicleFaultData);
    add("getReportAmpStatusDate", &McuService::getReportAmpStatusDate);
    add("getAvmCalibrationCmdData", &McuService::getAvmCalibrationCmdData);
    add("getTruckTpmsLearnData", &McuService::getTruckTpmsLearnData);
    add("getTruckDmsData", &McuService::getTruckDmsData);
    add("getTruckRsr1Data", &McuService::getTruckRsr1Data);
    add("getTruckSecurityData", &McuService::getTruckSecurityData);
    add("getTruckVehicleHealthData", &McuService::getTruckVehicleHealthData);
    add("getTruckRpasData", &McuService::getTruckRpasData);
    add("getTruckTpmsThresholdData", &McuService::getTruckTpmsThresholdData);
    add("getTruckTpmsCtiData", &McuService::getTruckTpmsCtiData);
    add("getTruckTpmsTemperatureData", &McuService::getTruckTpmsTemperatureData);
    add("getTruckTpmsPressureData", &McuService::getTruckTpmsPressureData);
    add("getTruckVehicleAlertsData", &McuService::getTruckVehicleAlertsData);
    add("getTruckPerformanceParametersData", &McuService::getTruckPerformanceParametersData);
    add("getTruckVehicleParametersData", &McuService::getTruckVehicleParametersData);
    add("getVehicleSpeed", &McuService::getVehicleSpeed);
    add("getAmpStatus", &McuService::getAmpStatus);
    add("getReportFeatureCodeChanged", &McuService::getReportFeatureCodeChanged);
    add("getVelroReportFeatureCodeChanged", &McuService::getVelroReportFeatureCodeChanged);
    add("getFeatureDataStatus", &McuService::getFeatureDataStatus);
    add("getCANDataReady", &McuService::getCANDataReady);
    add("getCANDataSignal", &McuService::getCANDataSignal);
    // Setters and notifications
    add("setDayNightModeFromAutoTst", &McuService::setDayNightModeFromAutoTst, {"mode"});
    add("notifyAttState", &McuService::notifyAttState, {"state"});
    add("notifyDateTime", &McuService::notifyDateTime);
    add("setNeedSyncMcuTime", &McuService::setNeedSyncMcuTime, {"needed"});
    add("setBttestState", &McuService::setBttestState, {"state"});
    add("notifyAntennaStatus", &McuService::notifyAntennaStatus, {"gps", "dab"});
    add("setGpsAntAttach", &McuService::setGpsAntAttach);
    add("setGpsAntShort", &McuService::setGpsAntShort);
    add("notifyDabAntStatus", &McuService::notifyDabAntStatus, {"status"});
    add("notifyDabToFmLinkStatus", &McuService::notifyDabToFmLinkStatus, {"status"});
    add("notifyDabSelectFreq", &McuService::notifyDabSelectFreq, {"index"});
    add("notifyDabSelectService", &McuService::notifyDabSelectService, {"index"});
    add("notifyDabMcuRequest", &McuService::notifyDabMcuRequest, {"action", "arg"});
    add("notifyAutoTestStatus", &McuService::notifyAutoTestStatus, {"status"});
    // Commands
    add("volumePlus", &McuService::volumePlus);
    add("volumeMinus", &McuService::volumeMinus);
    add("SetVolume", &McuService::SetVolume, {"level"});
    add("setMute", &McuService::setMute, {"mute", "type"});
    add("setAudioMute", &McuService::setAudioMute, {"mute", "type", "flag"});
    add("setAudioMute2", &McuService::setAudioMute2, {"mute", "type", "flag"});
    add("setMuteLevel", &McuService::setMuteLevel, {"level"});
    add("uiCmdMute", &McuService::uiCmdMute, {"on"});
    add("uiCmdAtt", &McuService::uiCmdAtt, {"on"});
    add("uiCmdAtt20DB", &McuService::uiCmdAtt20DB, {"on"});
    add("duckAudio", &McuService::duckAudio, {"type", "level"});
    add("unduckAudio", &McuService::unduckAudio, {"type"});
    add("reverseDuckVol", &McuService::reverseDuckVol, {"level"});
    add("setVolChangePreNext", &McuService::setVolChangePreNext, {"value"});
    add("setVolResponse", &McuService::setVolResponse, {"value"});
    add("setAudioVolumeValue", &McuService::setAudioVolumeValue, {"type", "level"});
    add("setAudioInputGainValue", &McuService::setAudioInputGainValue, {"type", "gain"});
    add("speedOfSound", &McuService::speedOfSound, {"level"});
    add("updateAudioChannel", &McuService::updateAudioChannel, {"channel"});
    add("updateAudioStatus", &McuService::updateAudioStatus, {"status"});
    add("updateCPAAStatus", &McuService::updateCPAAStatus, {"status"});
    add("setMixChannel", &McuService::setMixChannel, {"channels", "on"});
    add("setAudioMode", &McuService::setAudioMode, {"mode"});
    add("setAudioTimerDelay", &McuService::setAudioTimerDelay, {"type", "delays"});
    add("set_UICMD_AUDIO_PlayBack_Comleted", &McuService::set_UICMD_AUDIO_PlayBack_Comleted,
        {"value"});
    add("setNativeMusicMode", &McuService::setNativeMusicMode, {"mode"});
    add("set_UICMD_Native_Music_Mode", &McuService::set_UICMD_Native_Music_Mode, {"mode"});
    add("set_UICMD_Sleep_All_Mute", &McuService::set_UICMD_Sleep_All_Mute, {"on"});
    add("setSleepAllMute", &McuService::setSleepAllMute, {"on"});
    add("updateMultiMediaInfo", &McuService::updateMultiMediaInfo, {"type", "len", "data"});
    add("setPresetEQType", &McuService::setPresetEQType, {"type"});
    add("setCustomEQValue", &McuService::setCustomEQValue, {"band", "level"});
    add("setBalanceFader", &McuService::setBalanceFader, {"balance", "fader"});
    add("setLoudness", &McuService::setLoudness, {"level"});
    add("set_UICMD_Loundness", &McuService::set_UICMD_Loundness, {"level"});
    add("setBassBoost", &McuService::setBassBoost, {"level"});
    add("setSubwooferValue", &McuService::setSubwooferValue, {"level"});
    add("setSubwooferPhase", &McuService::setSubwooferPhase, {"phase"});
    add("setHPFValue", &McuService::setHPFValue, {"position", "freq", "slope"});
    add("setLPFValue", &McuService::setLPFValue, {"freq", "slope"});
    add("setRearLpf", &McuService::setRearLpf, {"freq", "slope"});
    add("setFrCrossover", &McuService::setFrCrossover, {"type", "value"});
    add("setSpeakerLevel", &McuService::setSpeakerLevel, {"levels"});
    add("setSpeakerPhase", &McuService::setSpeakerPhase, {"phase"});
    add("setInternalAmp", &McuService::setInternalAmp, {"on"});
    add("setAmpStatus", &McuService::setAmpStatus,
        {"AMP_Date0", "AMP_Date1", "AMP_Date2", "AMP_Date3", "AMP_Date4", "AMP_Date5", "AMP_Date6",
         "AMP_Date7", "AMP_Date8"});
    add("triggerBeep", &McuService::triggerBeep, {"type"});
    add("setBeepInterval", &McuService::setBeepInterval, {"ms"});
    add("toggleKeyTone", &McuService::toggleKeyTone, {"on"});
    add("setRadioRds", &McuService::setRadioRds, {"on"});
    add("setRadioTA", &McuService::setRadioTA, {"on"});
    add("setRadioAF", &McuService::setRadioAF, {"on"});
    add("setDabAntPower", &McuService::setDabAntPower, {"on"});
    add("dabRequestScan", &McuService::dabRequestScan);
    add("dabRequestTuneFreq", &McuService::dabRequestTuneFreq, {"index"});
    add("steeringWheelStudy", &McuService::steeringWheelStudy);
    add("steeringWheelTest", &McuService::steeringWheelTest);
    add("steeringWheelNormal", &McuService::steeringWheelNormal);
    add("steeringWheelAbandon", &McuService::steeringWheelAbandon);
    add("steeringWheelReset", &McuService::steeringWheelReset);
    add("steeringWheelStudyKey", &McuService::steeringWheelStudyKey, {"key"});
    add("steeringWheelDopState", &McuService::steeringWheelDopState, {"on"});
    add("steeringWheeldopReset", &McuService::steeringWheeldopReset);
    add("steeringWheeldopClear", &McuService::steeringWheeldopClear);
    add("setDopSwc", &McuService::setDopSwc, {"key", "action", "value"});
    add("setSteeringControl", &McuService::setSteeringControl, {"value"});
    add("setSteeringState", &McuService::setSteeringState, {"state"});
    add("sendStwCarTypeToMcu", &McuService::sendStwCarTypeToMcu, {"type"});
    add("setKeyStarFunction", &McuService::setKeyStarFunction, {"function"});
    add("updateKeyRotary", &McuService::updateKeyRotary, {"value"});
    add("setSleepMode", &McuService::setSleepMode, {"mode"});
    add("setPowerOff", &McuService::setPowerOff, {"on"});
    add("setPowerOffDelay", &McuService::setPowerOffDelay, {"on"});
    add("uiCmdPower", &McuService::uiCmdPower);
    add("uiCmdReset", &McuService::uiCmdReset);
    add("uiCmdRadioReset", &McuService::uiCmdRadioReset);
    add("uiCmdSource", &McuService::uiCmdSource);
    add("setCurrentMode", &McuService::setCurrentMode, {"mode"});
    add("requestCommand", &McuService::requestCommand, {"command"});
    add("factoryReset", &McuService::factoryReset);
    add("setWatchDogEnable", &McuService::setWatchDogEnable, {"enable"});
    add("setMonitorState", &McuService::setMonitorState, {"state"});
    add("setLoopBack", &McuService::setLoopBack, {"on"});
    add("setVcomValue", &McuService::setVcomValue, {"value"});
    add("set_Illumination", &McuService::set_Illumination, {"type", "text", "value1", "value2"});
    add("setClockTime", &McuService::setClockTime, {"is24Hour"});
    add("syncDatetime", &McuService::syncDatetime,
        {"year", "month", "day", "hour", "minute", "second", "flag"});
    add("setDestCode", &McuService::setDestCode, {"dest", "demo"});
    add("setRearViewDelay", &McuService::setRearViewDelay, {"delay"});
    add("updateCamraSetup", &McuService::updateCamraSetup, {"on"});
    add("updateTouchCoordinate", &McuService::updateTouchCoordinate, {"state", "x", "y"});
    add("updateDeviceStatus", &McuService::updateDeviceStatus, {"type", "status"});
    add("updateBtInputLevel", &McuService::updateBtInputLevel, {"level"});
    add("set_UICMD_Reverse_test", &McuService::set_UICMD_Reverse_test, {"on"});
    add("set_UICMD_FastAcc", &McuService::set_UICMD_FastAcc, {"on"});
    add("set_UICMD_Speed", &McuService::set_UICMD_Speed, {"speed"});
    add("setMeterClearDisplay", &McuService::setMeterClearDisplay, {"value"});
    add("mcuConnClose", &McuService::mcuConnClose);
    add("updateAppVersion", &McuService::updateAppVersion, {"version"});
    add("updateBtAddress", &McuService::updateBtAddress, {"address"});
    add("updateSdkVersion", &McuService::updateSdkVersion, {"version"});
    add("updateSysVersion", &McuService::updateSysVersion, {"version"});
    add("setSocVer", &McuService::setSocVer, {"version1", "version2"});
    add("setSerialNumer", &McuService::setSerialNumer, {"serial"});
    add("setUpgradeState", &McuService::setUpgradeState, {"state"});
    add("mcuUpdate", &McuService::mcuUpdate);
    add("getEcuEdititon", &McuService::getEcuEdititon);
    add("sendVehicleSpeed", &McuService::sendVehicleSpeed, {"speed"});
    add("setVechicleInfo", &McuService::setVechicleInfo,
        {"data0", "data1", "data2", "data3", "data4"});
    add("setACState", &McuService::setACState, {"key", "state"});
    add("setACFastWarm", &McuService::setACFastWarm, {"data0", "data1", "data2"});
    add("setAirACState", &McuService::setAirACState,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7", "data8"});
    add("setHUState", &McuService::setHUState,
        {"HU_Date0", "HU_Date1", "HU_Date2", "HU_Date3", "HU_Date4", "HU_Date5", "HU_Date6",
         "HU_Date7", "HU_Date8", "HU_Date9", "HU_Date10", "HU_Date11"});
    add("setMeterSettingInfor", &McuService::setMeterSettingInfor,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7"});
    add("set_amb_data", &McuService::set_amb_data,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7", "data8", "data9",
         "data10", "data11", "data12", "data13"});
    add("epsDriveModeLink", &McuService::epsDriveModeLink, {"mode"});
    add("setAvmCameraStatus", &McuService::setAvmCameraStatus,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7"});
    add("setAvmCalibrationStatus", &McuService::setAvmCalibrationStatus,
        {"data0", "data1", "data2", "data3"});
    add("setTruckAccInfor", &McuService::setTruckAccInfor,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7"});
    add("setTruckCameraPower", &McuService::setTruckCameraPower,
        {"data0", "data1", "data2", "data3", "data4"});
    add("setTruckOtpInfotainment", &McuService::setTruckOtpInfotainment,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7"});
    add("setTruckTpmsInfor", &McuService::setTruckTpmsInfor,
        {"data0", "data1", "data2", "data3", "data4", "data5", "data6", "data7"});
    add("sendAutoTestPkgToMcu", &McuService::sendAutoTestPkgToMcu, {"len", "pkg"});
}

void addRadio(QVector<Operation> &table)
{
    using mcu::McuRadioInterface;
    Class<McuRadioInterface> add("McuRadioInterface", table);
    add("tune", &McuRadioInterface::tune, {"freq"});
    add("mute", &McuRadioInterface::mute, {"val"});
    add("setRdsOnOff", &McuRadioInterface::setRdsOnOff, {"state"});
    add("seekForward", &McuRadioInterface::seekForward);
    add("seekBackward", &McuRadioInterface::seekBackward);
    add("autoScan", &McuRadioInterface::autoScan);
    add("terminate", &McuRadioInterface::terminate);
    add("searchPty", &McuRadioInterface::searchPty, {"type"});
    add("dismissTaAlarm", &McuRadioInterface::dismissTaAlarm);
    add("setFMRange", &McuRadioInterface::setFMRange, {"lowFreq", "highFreq", "step"});
    add("setAMRange", &McuRadioInterface::setAMRange, {"lowFreq", "highFreq", "step"});
    add("setTaOnOff", &McuRadioInterface::setTaOnOff, {"onoff"});
    add("setAfOnOff", &McuRadioInterface::setAfOnOff, {"onoff"});
    add("setCtOnOff", &McuRadioInterface::setCtOnOff, {"onoff"});
    add("set_tuner_step", &McuRadioInterface::set_tuner_step, {"step"});
    add("onTunerStateChanged", &McuRadioInterface::onTunerStateChanged, {"state"});
    add("onSimulateNewsState", &McuRadioInterface::onSimulateNewsState, {"state"});
}

void addAutoTest(QVector<Operation> &table)
{
    using mcu::AutoTestHandler;
    Class<AutoTestHandler> add("AutoTestHandler", table);
    using WithItem = void (AutoTestHandler::*)(int, int, const QByteArray &);
    using WithoutItem = void (AutoTestHandler::*)(int, const QByteArray &);
    add("start", &AutoTestHandler::start);
    add("stop", &AutoTestHandler::stop);
    add("isInAutotestMode", &AutoTestHandler::isInAutotestMode);
    add("isKeyDetect", &AutoTestHandler::isKeyDetect);
    add("sendReadInfo", WithItem(&AutoTestHandler::sendReadInfo), {"did", "item", "data"});
    add("sendReadInfo", WithoutItem(&AutoTestHandler::sendReadInfo), {"did", "data"});
    add("sendWriteInfo", &AutoTestHandler::sendWriteInfo, {"did", "item", "data"});
    add("sendFeedbackInfo", &AutoTestHandler::sendFeedbackInfo, {"did", "item", "data"});
    add("sendBootDoneSuccess", &AutoTestHandler::sendBootDoneSuccess);
    add("sendBTSearchSuccess", &AutoTestHandler::sendBTSearchSuccess);
    add("sendBTConnSuccess", &AutoTestHandler::sendBTConnSuccess);
    add("sendBTDownPhoneBookSuccess", &AutoTestHandler::sendBTDownPhoneBookSuccess);
    add("sendBTCallSuccess", &AutoTestHandler::sendBTCallSuccess);
}

void addManager(QVector<Operation> &table)
{
    Class<McuManager> add("McuManager", table);
    add("mcuTestVersion", &McuManager::mcuTestVersion);
    add("mcuUserVersion", &McuManager::mcuUserVersion);
    add("cpSerialNumber", &McuManager::cpSerialNumber);
    add("parkingState", &McuManager::parkingState);
    add("reverseState", &McuManager::reverseState);
    add("headlightState", &McuManager::headlightState);
    add("getAmpStatus", &McuManager::getAmpStatus);
    add("getSysBootState", &McuManager::getSysBootState);
    add("autotestStatus", &McuManager::autotestStatus);
    add("isUsbOverCurrent", &McuManager::isUsbOverCurrent);
    add("isMcuNeedRenew", &McuManager::isMcuNeedRenew);
    add("isMcuDateTimeReady", &McuManager::isMcuDateTimeReady);
    add("isAttOn", &McuManager::isAttOn);
    add("updateAudioChannel", &McuManager::updateAudioChannel, {"channel"});
    add("updateAudioStatus", &McuManager::updateAudioStatus, {"status"});
    add("audioStatus", &McuManager::audioStatus);
    add("isContainAudioInterrupt", &McuManager::isContainAudioInterrupt);
    add("checkEventOffRestoreMute", &McuManager::checkEventOffRestoreMute);
    add("updateCPAAStatus", &McuManager::updateCPAAStatus, {"status"});
    add("setCpPhone", &McuManager::setCpPhone, {"on"});
    add("setCPConnected", &McuManager::setCPConnected, {"connected"});
    add("setVolume", &McuManager::setVolume, {"level"});
    add("setMute", &McuManager::setMute, {"mute"});
    add("setAudioMute", static_cast<void (McuManager::*)(bool)>(&McuManager::setAudioMute),
        {"mute"});
    add("setAudioMute", static_cast<void (McuManager::*)(int, int)>(&McuManager::setAudioMute),
        {"mute", "type"});
    add("setAudioMute2", &McuManager::setAudioMute2, {"mute", "type"});
    add("duckAudio", &McuManager::duckAudio, {"type", "level"});
    add("unduckAudio", &McuManager::unduckAudio, {"type"});
    add("isDucking", &McuManager::isDucking);
    add("triggerAtt", &McuManager::triggerAtt, {"on"});
    add("triggerBeep", &McuManager::triggerBeep, {"type"});
    add("setBalanceFader", &McuManager::setBalanceFader, {"balance", "fader"});
    add("setSubwooferlevel", &McuManager::setSubwooferlevel, {"level"});
    add("setSubwooferPhase", &McuManager::setSubwooferPhase, {"phase"});
    add("setFrCrossover", &McuManager::setFrCrossover, {"type", "value"});
    add("setAmpDelayState", &McuManager::setAmpDelayState, {"state"});
    add("setAudioTimerDelay", &McuManager::setAudioTimerDelay, {"type", "delays"});
    add("updateBtInputLevel", &McuManager::updateBtInputLevel, {"level"});
    add("requestRadioInitData", &McuManager::requestRadioInitData);
    add("setRadioRDSonoff", &McuManager::setRadioRDSonoff, {"on"});
    add("setRadioTAonoff", &McuManager::setRadioTAonoff, {"on"});
    add("setRadioAFonoff", &McuManager::setRadioAFonoff, {"on"});
    add("setDabAntPower", &McuManager::setDabAntPower, {"on"});
    add("requestWheelStudyState", &McuManager::requestWheelStudyState);
    add("notifyWheelDopStart", &McuManager::notifyWheelDopStart, {"on"});
    add("notifyWheelReset", &McuManager::notifyWheelReset);
    add("notifyWheelDopReset", &McuManager::notifyWheelDopReset);
    add("notifyWheelDopClear", &McuManager::notifyWheelDopClear);
    add("notifyWheelStudyKey", &McuManager::notifyWheelStudyKey, {"key"});
    add("notifyWheelStudyMode", &McuManager::notifyWheelStudyMode);
    add("notifyWheelTestMode", &McuManager::notifyWheelTestMode);
    add("notifyWheelNormalMode", &McuManager::notifyWheelNormalMode);
    add("notifyWheelAbandonMode", &McuManager::notifyWheelAbandonMode);
    add("setDopSwc", &McuManager::setDopSwc, {"key", "action", "value"});
    add("sendStwCarTypeToMcu", &McuManager::sendStwCarTypeToMcu, {"type"});
    add("setWatchDogEnable", &McuManager::setWatchDogEnable, {"enable"});
    add("setUpgradeState", &McuManager::setUpgradeState, {"state"});
    add("setMonitorState", &McuManager::setMonitorState, {"state"});
    add("setVcomValue", &McuManager::setVcomValue, {"value"});
    add("setLoopBack", &McuManager::setLoopBack, {"on"});
    add("setPowerOffDelay", &McuManager::setPowerOffDelay, {"on"});
    add("setDestCode", &McuManager::setDestCode, {"dest", "demo"});
    add("setGpsAntAttach", &McuManager::setGpsAntAttach);
    add("notifyFactoryReset", &McuManager::notifyFactoryReset);
    add("requestTaillineState", &McuManager::requestTaillineState);
    add("requestSetupInitData", &McuManager::requestSetupInitData);
    add("requestSetupInitData1", &McuManager::requestSetupInitData1);
    add("requestDtcFlagInfoData", &McuManager::requestDtcFlagInfoData);
    add("updateArmVersion", &McuManager::updateArmVersion, {"version"});
    add("updateBtAddress", &McuManager::updateBtAddress, {"address"});
    add("updateCameraSetup", &McuManager::updateCameraSetup, {"on"});
    add("updateTouchCoordinate", &McuManager::updateTouchCoordinate, {"state", "x", "y"});
    add("updateDeviceStatus", &McuManager::updateDeviceStatus, {"type", "status"});
    add("setNCMTestMode", &McuManager::setNCMTestMode);
    add("setEnterCameraIntr", &McuManager::setEnterCameraIntr, {"on"});
    add("updateMediaSourceState", &McuManager::updateMediaSourceState, {"source"});
    add("updateMediaRadioFreq", &McuManager::updateMediaRadioFreq, {"freq"});
    add("updateMediaId3", &McuManager::updateMediaId3, {"first", "second", "third"});
    add("updateBTState", &McuManager::updateBTState, {"connected"});
    add("updateBtDeveciname", &McuManager::updateBtDeveciname, {"name"});
    add("updateCallState", &McuManager::updateCallState, {"state"});
    add("updateCallNumber", &McuManager::updateCallNumber, {"number"});
    add("updateCallName", &McuManager::updateCallName, {"name"});
    add("updateCallTime", &McuManager::updateCallTime, {"a", "b", "c"});
    add("findUpdateFile",
        static_cast<QString (McuManager::*)(McuManager::UpdateFile)>(&McuManager::findUpdateFile),
        {"file"});
    add("findUpdateFile",
        static_cast<QString (McuManager::*)(McuManager::UpdateFile, QString, bool)>(
            &McuManager::findUpdateFile),
        {"file", "mountKey", "enabled"});
    add("findUpdateFile",
        static_cast<QString (McuManager::*)(QString, QString)>(&McuManager::findUpdateFile),
        {"folder", "name"});
    add("findUpdateFile",
        static_cast<QString (McuManager::*)(QString, QString, QString, bool)>(
            &McuManager::findUpdateFile),
        {"folder", "name", "mountKey", "forceSd"});
    add("onVolumeChanged", &McuManager::onVolumeChanged, {"muteState", "vol", "type"});
    add("onCarplayAlertStart", &McuManager::onCarplayAlertStart);
    add("onCarplayAlertStop", &McuManager::onCarplayAlertStop);
}

QVector<Operation> makeTable()
{
    QVector<Operation> table;
    addService(table);
    addRadio(table);
    addAutoTest(table);
    addManager(table);
    return table;
}

} // namespace

const QVector<Operation> &operations()
{
    static const QVector<Operation> table = makeTable();
    return table;
}

} // namespace mcusim
