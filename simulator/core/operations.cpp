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

QVector<Operation> ofService()
{
    using Object = mcu::McuService;
    return {
        // Queries
        CALL(test_version, ""), CALL(user_version, ""), CALL(SOC_version, ""),
        CALL(HARD_version, ""), CALL(serialNumber, ""), CALL(snIdName, ""), CALL(snIdChecksum, ""),
        CALL(getAmpSwEdition, ""), CALL(getAmpHwEdition, ""), CALL(getEcuSwEdition, ""),
        CALL(getEcuHwEdition, ""), CALL(startUpState, ""), CALL(isNeedRenew, ""),
        CALL(isReverseFromMcuSrv, ""), CALL(isMuteFromMcuSrv, ""), CALL(parkingState, ""),
        CALL(reverseState, ""), CALL(headlightState, ""), CALL(muteLineState, ""),
        CALL(dspState, ""), CALL(isAttOn, ""), CALL(getDest, ""), CALL(getDemo, ""),
        CALL(isUsbOverCurrent, ""), CALL(isDateTimeReady, ""), CALL(getNeedSyncTimeState, ""),
        CALL(getBttestState, ""), CALL(sxmExist, ""), CALL(radioIsIdle, ""),
        CALL(gpsAntennaIsConnected, ""), CALL(gpsAntennaIsAbnormal, ""),
        CALL(dabAntennaIsConnected, ""), CALL(dabAntennaIsAbnormal, ""), CALL(autoTestPackage, ""),
        CALL(autoTestStatus, ""), CALL(getReportACDate, ""), CALL(getReportAVMDate, ""),
        CALL(getSteeringAngleChanged, ""), CALL(getReportHuDate, ""), CALL(getReportPdcDate, ""),
        CALL(getReportTpmsDate, ""), CALL(getReportVehicleBodyDate, ""),
        CALL(getReportMeterSetting, ""), CALL(getReportVehicleFaultData, ""),
        CALL(getReportAmpStatusDate, ""), CALL(getAvmCalibrationCmdData, ""),
        CALL(getTruckTpmsLearnData, ""), CALL(getTruckDmsData, ""), CALL(getTruckRsr1Data, ""),
        CALL(getTruckSecurityData, ""), CALL(getTruckVehicleHealthData, ""),
        CALL(getTruckRpasData, ""), CALL(getTruckTpmsThresholdData, ""),
        CALL(getTruckTpmsCtiData, ""), CALL(getTruckTpmsTemperatureData, ""),
        CALL(getTruckTpmsPressureData, ""), CALL(getTruckVehicleAlertsData, ""),
        CALL(getTruckPerformanceParametersData, ""), CALL(getTruckVehicleParametersData, ""),
        CALL(getVehicleSpeed, ""), CALL(getAmpStatus, ""), CALL(getReportFeatureCodeChanged, ""),
        CALL(getVelroReportFeatureCodeChanged, ""), CALL(getFeatureDataStatus, ""),
        CALL(getCANDataReady, ""), CALL(getCANDataSignal, ""),

        // Setters and notifications
        CALL(setDayNightModeFromAutoTst, "mode"), CALL(notifyAttState, "state"),
        CALL(notifyDateTime, ""), CALL(setNeedSyncMcuTime, "needed"), CALL(setBttestState, "state"),
        CALL(notifyAntennaStatus, "gps, dab"), CALL(setGpsAntAttach, ""), CALL(setGpsAntShort, ""),
        CALL(notifyDabAntStatus, "status"), CALL(notifyDabToFmLinkStatus, "status"),
        CALL(notifyDabSelectFreq, "index"), CALL(notifyDabSelectService, "index"),
        CALL(notifyDabMcuRequest, "action, arg"), CALL(notifyAutoTestStatus, "status"),

        // Commands
        CALL(volumePlus, ""), CALL(volumeMinus, ""), CALL(SetVolume, "level"),
        CALL(setMute, "mute, type"), CALL(setAudioMute, "mute, type, flag"),
        CALL(setAudioMute2, "mute, type, flag"), CALL(setMuteLevel, "level"), CALL(uiCmdMute, "on"),
        CALL(uiCmdAtt, "on"), CALL(uiCmdAtt20DB, "on"), CALL(duckAudio, "type, level"),
        CALL(unduckAudio, "type"), CALL(reverseDuckVol, "level"),
        CALL(setVolChangePreNext, "value"), CALL(setVolResponse, "value"),
        CALL(setAudioVolumeValue, "type, level"), CALL(setAudioInputGainValue, "type, gain"),
        CALL(speedOfSound, "level"), CALL(updateAudioChannel, "channel"),
        CALL(updateAudioStatus, "status"), CALL(updateCPAAStatus, "status"),
        CALL(setMixChannel, "channels, on"), CALL(setAudioMode, "mode"),
        CALL(setAudioTimerDelay, "type, delays"), CALL(set_UICMD_AUDIO_PlayBack_Comleted, "value"),
        CALL(setNativeMusicMode, "mode"), CALL(set_UICMD_Native_Music_Mode, "mode"),
        CALL(set_UICMD_Sleep_All_Mute, "on"), CALL(setSleepAllMute, "on"),
        CALL(updateMultiMediaInfo, "type, len, data"), CALL(setPresetEQType, "type"),
        CALL(setCustomEQValue, "band, level"), CALL(setBalanceFader, "balance, fader"),
        CALL(setLoudness, "level"), CALL(set_UICMD_Loundness, "level"), CALL(setBassBoost, "level"),
        CALL(setSubwooferValue, "level"), CALL(setSubwooferPhase, "phase"),
        CALL(setHPFValue, "position, freq, slope"), CALL(setLPFValue, "freq, slope"),
        CALL(setRearLpf, "freq, slope"), CALL(setFrCrossover, "type, value"),
        CALL(setSpeakerLevel, "levels"), CALL(setSpeakerPhase, "phase"), CALL(setInternalAmp, "on"),
        CALL(setAmpStatus, "AMP_Date0, AMP_Date1, AMP_Date2, AMP_Date3, AMP_Date4, AMP_Date5, "
                           "AMP_Date6, AMP_Date7, AMP_Date8"),
        CALL(triggerBeep, "type"), CALL(setBeepInterval, "ms"), CALL(toggleKeyTone, "on"),
        CALL(setRadioRds, "on"), CALL(setRadioTA, "on"), CALL(setRadioAF, "on"),
        CALL(setDabAntPower, "on"), CALL(dabRequestScan, ""), CALL(dabRequestTuneFreq, "index"),
        CALL(steeringWheelStudy, ""), CALL(steeringWheelTest, ""), CALL(steeringWheelNormal, ""),
        CALL(steeringWheelAbandon, ""), CALL(steeringWheelReset, ""),
        CALL(steeringWheelStudyKey, "key"), CALL(steeringWheelDopState, "on"),
        CALL(steeringWheeldopReset, ""), CALL(steeringWheeldopClear, ""),
        CALL(setDopSwc, "key, action, value"), CALL(setSteeringControl, "value"),
        CALL(setSteeringState, "state"), CALL(sendStwCarTypeToMcu, "type"),
        CALL(setKeyStarFunction, "function"), CALL(updateKeyRotary, "value"),
        CALL(setSleepMode, "mode"), CALL(setPowerOff, "on"), CALL(setPowerOffDelay, "on"),
        CALL(uiCmdPower, ""), CALL(uiCmdReset, ""), CALL(uiCmdRadioReset, ""),
        CALL(uiCmdSource, ""), CALL(setCurrentMode, "mode"), CALL(requestCommand, "command"),
        CALL(factoryReset, ""), CALL(setWatchDogEnable, "enable"), CALL(setMonitorState, "state"),
        CALL(setLoopBack, "on"), CALL(setVcomValue, "value"),
        CALL(set_Illumination, "type, text, value1, value2"), CALL(setClockTime, "is24Hour"),
        CALL(syncDatetime, "year, month, day, hour, minute, second, flag"),
        CALL(setDestCode, "dest, demo"), CALL(setRearViewDelay, "delay"),
        CALL(updateCamraSetup, "on"), CALL(updateTouchCoordinate, "state, x, y"),
        CALL(updateDeviceStatus, "type, status"), CALL(updateBtInputLevel, "level"),
        CALL(set_UICMD_Reverse_test, "on"), CALL(set_UICMD_FastAcc, "on"),
        CALL(set_UICMD_Speed, "speed"), CALL(setMeterClearDisplay, "value"), CALL(mcuConnClose, ""),
        CALL(updateAppVersion, "version"), CALL(updateBtAddress, "address"),
        CALL(updateSdkVersion, "version"), CALL(updateSysVersion, "version"),
        CALL(setSocVer, "version1, version2"), CALL(setSerialNumer, "serial"),
        CALL(setUpgradeState, "state"), CALL(mcuUpdate, ""), CALL(getEcuEdititon, ""),
        CALL(sendVehicleSpeed, "speed"), CALL(setVechicleInfo, "data0, data1, data2, data3, data4"),
        CALL(setACState, "key, state"), CALL(setACFastWarm, "data0, data1, data2"),
        CALL(setAirACState, "data0, data1, data2, data3, data4, data5, data6, data7, data8"),
        CALL(setHUState, "HU_Date0, HU_Date1, HU_Date2, HU_Date3, HU_Date4, HU_Date5, "
                         "HU_Date6, HU_Date7, HU_Date8, HU_Date9, HU_Date10, HU_Date11"),
        CALL(setMeterSettingInfor, "data0, data1, data2, data3, data4, data5, data6, data7"),
        CALL(set_amb_data, "data0, data1, data2, data3, data4, data5, data6, data7, data8, "
                           "data9, data10, data11, data12, data13"),
        CALL(epsDriveModeLink, "mode"),
        CALL(setAvmCameraStatus, "data0, data1, data2, data3, data4, data5, data6, data7"),
        CALL(setAvmCalibrationStatus, "data0, data1, data2, data3"),
        CALL(setTruckAccInfor, "data0, data1, data2, data3, data4, data5, data6, data7"),
        CALL(setTruckCameraPower, "data0, data1, data2, data3, data4"),
        CALL(setTruckOtpInfotainment, "data0, data1, data2, data3, data4, data5, data6, data7"),
        CALL(setTruckTpmsInfor, "data0, data1, data2, data3, data4, data5, data6, data7"),
        CALL(sendAutoTestPkgToMcu, "len, pkg")};
}

QVector<Operation> ofRadio()
{
    using Object = mcu::McuRadioInterface;
    return {// Tuner
            CALL(tune, "freq"), CALL(mute, "val"), CALL(setRdsOnOff, "state"),
            CALL(seekForward, ""), CALL(seekBackward, ""), CALL(autoScan, ""), CALL(terminate, ""),
            CALL(searchPty, "type"), CALL(dismissTaAlarm, ""),
            CALL(setFMRange, "lowFreq, highFreq, step"),
            CALL(setAMRange, "lowFreq, highFreq, step"), CALL(setTaOnOff, "onoff"),
            CALL(setAfOnOff, "onoff"), CALL(setCtOnOff, "onoff"), CALL(set_tuner_step, "step"),
            // Slots
            CALL(onTunerStateChanged, "state"), CALL(onSimulateNewsState, "state")};
}

QVector<Operation> ofAutoTest()
{
    using Object = mcu::AutoTestHandler;
    return {// State
            CALL(start, ""), CALL(stop, ""), CALL(isInAutotestMode, ""), CALL(isKeyDetect, ""),
            // Answers to the station
            overload<Object, void, int, int, const QByteArray &>(
                "sendReadInfo", &Object::sendReadInfo, "did, item, data"),
            overload<Object, void, int, const QByteArray &>("sendReadInfo", &Object::sendReadInfo,
                                                            "did, data"),
            CALL(sendWriteInfo, "did, item, data"), CALL(sendFeedbackInfo, "did, item, data"),
            CALL(sendBootDoneSuccess, ""), CALL(sendBTSearchSuccess, ""),
            CALL(sendBTConnSuccess, ""), CALL(sendBTDownPhoneBookSuccess, ""),
            CALL(sendBTCallSuccess, "")};
}

QVector<Operation> ofManager()
{
    using Object = McuManager;
    return {// Queries
            CALL(mcuTestVersion, ""), CALL(mcuUserVersion, ""), CALL(cpSerialNumber, ""),
            CALL(parkingState, ""), CALL(reverseState, ""), CALL(headlightState, ""),
            CALL(getAmpStatus, ""), CALL(getSysBootState, ""), CALL(autotestStatus, ""),
            CALL(isUsbOverCurrent, ""), CALL(isMcuNeedRenew, ""), CALL(isMcuDateTimeReady, ""),
            CALL(isAttOn, ""),

            // Audio
            CALL(updateAudioChannel, "channel"), CALL(updateAudioStatus, "status"),
            CALL(audioStatus, ""), CALL(isContainAudioInterrupt, ""),
            CALL(checkEventOffRestoreMute, ""), CALL(updateCPAAStatus, "status"),
            CALL(setCpPhone, "on"), CALL(setCPConnected, "connected"), CALL(setVolume, "level"),
            CALL(setMute, "mute"),
            overload<Object, void, bool>("setAudioMute", &Object::setAudioMute, "mute"),
            overload<Object, void, int, int>("setAudioMute", &Object::setAudioMute, "mute, type"),
            CALL(setAudioMute2, "mute, type"), CALL(duckAudio, "type, level"),
            CALL(unduckAudio, "type"), CALL(isDucking, ""), CALL(triggerAtt, "on"),
            CALL(triggerBeep, "type"), CALL(setBalanceFader, "balance, fader"),
            CALL(setSubwooferlevel, "level"), CALL(setSubwooferPhase, "phase"),
            CALL(setFrCrossover, "type, value"), CALL(setAmpDelayState, "state"),
            CALL(setAudioTimerDelay, "type, delays"), CALL(updateBtInputLevel, "level"),

            // Radio and steering wheel
            CALL(requestRadioInitData, ""), CALL(setRadioRDSonoff, "on"),
            CALL(setRadioTAonoff, "on"), CALL(setRadioAFonoff, "on"), CALL(setDabAntPower, "on"),
            CALL(requestWheelStudyState, ""), CALL(notifyWheelDopStart, "on"),
            CALL(notifyWheelReset, ""), CALL(notifyWheelDopReset, ""),
            CALL(notifyWheelDopClear, ""), CALL(notifyWheelStudyKey, "key"),
            CALL(notifyWheelStudyMode, ""), CALL(notifyWheelTestMode, ""),
            CALL(notifyWheelNormalMode, ""), CALL(notifyWheelAbandonMode, ""),
            CALL(setDopSwc, "key, action, value"), CALL(sendStwCarTypeToMcu, "type"),

            // The unit
            CALL(setWatchDogEnable, "enable"), CALL(setUpgradeState, "state"),
            CALL(setMonitorState, "state"), CALL(setVcomValue, "value"), CALL(setLoopBack, "on"),
            CALL(setPowerOffDelay, "on"), CALL(setDestCode, "dest, demo"),
            CALL(setGpsAntAttach, ""), CALL(notifyFactoryReset, ""), CALL(requestTaillineState, ""),
            CALL(requestSetupInitData, ""), CALL(requestSetupInitData1, ""),
            CALL(requestDtcFlagInfoData, ""), CALL(updateArmVersion, "version"),
            CALL(updateBtAddress, "address"), CALL(updateCameraSetup, "on"),
            CALL(updateTouchCoordinate, "state, x, y"), CALL(updateDeviceStatus, "type, status"),
            CALL(setNCMTestMode, ""), CALL(setEnterCameraIntr, "on"),

            // Media and calls
            CALL(updateMediaSourceState, "source"), CALL(updateMediaRadioFreq, "freq"),
            CALL(updateMediaId3, "first, second, third"), CALL(updateBTState, "connected"),
            CALL(updateBtDeveciname, "name"), CALL(updateCallState, "state"),
            CALL(updateCallNumber, "number"), CALL(updateCallName, "name"),
            CALL(updateCallTime, "a, b, c"),

            // Updates
            overload<Object, QString, McuManager::UpdateFile>("findUpdateFile",
                                                              &Object::findUpdateFile, "file"),
            overload<Object, QString, McuManager::UpdateFile, QString, bool>(
                "findUpdateFile", &Object::findUpdateFile, "file, mountKey, enabled"),
            overload<Object, QString, QString, QString>("findUpdateFile", &Object::findUpdateFile,
                                                        "folder, name"),
            overload<Object, QString, QString, QString, QString, bool>(
                "findUpdateFile", &Object::findUpdateFile, "folder, name, mountKey, forceSd"),

            // Slots
            CALL(onVolumeChanged, "muteState, vol, type"), CALL(onCarplayAlertStart, ""),
            CALL(onCarplayAlertStop, "")};
}

} // namespace

const QVector<Operation> &operations()
{
    static const QVector<Operation> table = ofService() + ofRadio() + ofAutoTest() + ofManager();
    return table;
}

} // namespace mcusim
