// The MCU link as this library needs it: the closed class mcu::McuSrv, declared with exactly the
// operations and signals that the facade and the radio interface use. The link library
// (libmcusrv.so.1) brings the bodies; product code sees no more of it than this header.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

namespace mcu {

/// The one link to the vehicle MCU.
///
/// Numeric codes (keys, sources, mute levels, EQ indices) belong to the MCU protocol and pass
/// through the library unchanged. Commands are called from the facade's thread; signals may come
/// from a reader thread of the link's own. The object is never deleted by its users.
class Q_DECL_IMPORT McuSrv : public QObject {
    Q_OBJECT

public:
    /// The one link object; never null.
    static McuSrv *instance();

    /// Prepares the link; from its return on the signals below are delivered. Called once.
    void init();

    // Queries: synchronous, the caller uses the value at once.

    /// MCU software version text.
    QString getVersion1();
    /// MCU hardware version text.
    QString getVersion2();
    /// Boot state of the MCU.
    int getSysBootState();
    /// Reverse gear engaged.
    bool isReverseOn() const;
    /// The MCU reports mute on.
    bool isMuteOn() const;
    /// The MCU asks for a software renewal.
    bool isNeedRenew();
    /// Car feature code: decimal numbers separated by ";".
    QString getCarFeatureCode();
    /// Extended feature-code block.
    QByteArray getVelroCarFeatureCode();
    /// Status of the feature data, a code of the MCU.
    int getFeatureDataStatus();
    /// Result of the ECU edition query, a code of the MCU.
    int getEcuEdititon();

    // Commands: one-way; results, if any, come back as signals. They are declared as slots so that
    // a link can be described and driven by name; the library calls them as plain functions.
public Q_SLOTS:
    // Life of the link
    void mcuConnClose();
    void terminate();

    // Volume and mute
    void SetVolume(int level);
    void volumePlus();
    void volumeMinus();
    void mute(bool on);
    void setMute(bool on, int type);
    void setMuteLevel(int level);
    void setAudioMute(int mute, int type, int flag);
    void setAudioMute2(int mute, int type, int flag);
    void uiCmdMute(int on);
    void uiCmdAtt(int on);
    void uiCmdAtt20DB(int on);
    void duckAudio(int type, int level);
    void unduckAudio(int type);
    void reverseDuckVol(int level);
    void setVolChangePreNext(int value);
    void setVolResponse(int value);
    void setAudioVolumeValue(int type, int level);
    void setAudioInputGainValue(int type, int gain);
    void speedOfSound(int level);

    // Audio routing and status
    void updateAudioChannel(int channel);
    void updateAudioStatus(int status);
    void updateCPAAStatus(int status);
    void setMixChannel(unsigned char channels, unsigned char on);
    void setAudioMode(int mode);
    void setAudioTimerDelay(int type, int delay1, int delay2, int delay3, int delay4, int delay5);
    void set_UICMD_AUDIO_Playback_Comleted(int value);
    void set_UICMD_Native_Music_Mode(int mode);
    void set_UICMD_Sleep_All_Mute(int on);
    void updateMultiMediaInfo(int type, int len, QByteArray data);

    // Sound shaping
    void setPresetEQType(int type);
    void setCustomEQValue(int band, int level);
    void setBalanceFader(int balance, int fader);
    void setLoudness(int level);
    void set_UICMD_Loundness(int level);
    void setBassBoost(int level);
    void setSubwooferValue(int level);
    void setSubwooferPhase(int phase);
    void setHPFValue(int position, int freq, int slope);
    void setLPFValue(int freq, int slope);
    void setRearLpf(int freq, int slope);
    void setFrCrossover(int type, int value);
    void setSpeakerLevel(QByteArray levels);
    void set_speaker_phase(int phase);
    void setInternalAmp(int on);
    void setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3, int AMP_Date4,
                      int AMP_Date5, int AMP_Date6, int AMP_Date7, int AMP_Date8);
    void triggerBeep(int type);
    void toggleKeyTone(int on);

    // Tuner and RDS
    void tune(int freq);
    void seekForward();
    void seekBackward();
    void autoScan();
    void searchPty(int type);
    void setAMRange(int lowFreq, int highFreq, int step);
    void setFMRange(int lowFreq, int highFreq, int step);
    void set_tuner_step(int step);
    void setAfOnOff(bool onoff);
    void setTaOnOff(bool onoff);
    void setRdsOnOff(bool state);
    void setCtOnOff(bool onoff);
    void dismissTaAlarm();
    void setDabAntPower(int on);

    // Steering-wheel keys
    void steeringWheelStudy();
    void steeringWheelTest();
    void steeringWheelNormal();
    void steeringWheelAbandon();
    void steeringWheelReset();
    void steeringWheelStudyKey(int key);
    void steeringWheedoplReset();
    void steeringWheedoplClear();
    void setWheelDopState(bool on);
    void setDopSwc(int key, int action, int value);
    void setSteeringControl(int value);
    void setSteeringState(int state);
    void sendStwCarTypeToMcu(int type);
    void setKeyStarFunction(int function);
    void updateKeyRotary(int value);

    // System and power
    void setSleepMode(int mode);
    void setPowerOff(int on);
    void setPowerOffDelay(int on);
    void uiCmdPower();
    void uiCmdReset();
    void uiCmdRadioReset();
    void uiCmdSource();
    void setCurrentMode(int mode);
    void requestCommand(int command);
    void factoryReset();
    void setWatchDogEnable(bool enable);
    void setMonitorState(int state);
    void setLoopBack(bool on);
    void setVcomValue(int value);
    void set_Illumination(int type, QString text, int value1, int value2);
    void setClockTime(bool is24Hour);
    void syncDatetime(int year, int month, int day, int hour, int minute, int second, int flag);
    void setDestCode(int dest, int demo);
    void setRearViewDelay(int delay);
    void updateCamraSetup(int on);
    void updateTouchCoordinate(int state, int x, int y);
    void updateDeviceStatus(int type, int status);
    void updateBtInputLevel(int level);
    void set_UICMD_Reverse_test(int on);
    void set_UICMD_FastAcc(int on);
    void set_UICMD_Speed(int speed);
    void set_UICMD_Meter_Clear_Display(int value);

    // Versions, identity and update
    void updateAppVersion(QString version);
    void updateSdkVersion(QString version);
    void updateSysVersion(QString version);
    void setSocVer(QString version1, QString version2);
    void updateBtAddress(QString address);
    void setSerialNumer(const QString &serial);
    void setUpgradeState(int state);
    void mcuUpdate();

    // Vehicle (CAN) writes
    void sendVehicleSpeed(int speed);
    void setVechicleInfo(int data0, int data1, int data2, int data3, int data4);
    void setACState(int key, int state);
    void setACFastWarm(int data0, int data1, int data2);
    void setAirACState(int data0, int data1, int data2, int data3, int data4, int data5, int data6,
                       int data7, int data8);
    void setHUState(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                    int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                    int HU_Date10, int HU_Date11);
    void setMeterSettingInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                              int data6, int data7);
    void set_amb_data(int data0, int data1, int data2, int data3, int data4, int data5, int data6,
                      int data7, int data8, int data9, int data10, int data11, int data12,
                      int data13);
    void epsDriveModeLink(int mode);
    void setAvmCameraStatus(int data0, int data1, int data2, int data3, int data4, int data5,
                            int data6, int data7);
    void setAvmCalibrationStatus(int data0, int data1, int data2, int data3);

    // Truck (CAN) writes
    void setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                          int data6, int data7);
    void setTruckCameraPower(int data0, int data1, int data2, int data3, int data4);
    void setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4, int data5,
                                 int data6, int data7);
    void setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                           int data6, int data7);

    // Factory test
    void sendAutoTestPkgToMcu(int len, QByteArray pkg);

Q_SIGNALS:
    /// The MCU enters shallow sleep.
    void shallowSleepSgl();
    /// Version texts of the MCU.
    void mcuVersionSgl(QString version1, QString version2);
    /// The MCU asks for renewal.
    void mcuNeedRenewSgl();
    /// The MCU requests a factory reset.
    void factoryResetSgl();
    /// Amplifier overload.
    void ampOverloadStuChangedSgl(int status);
    /// Track number selected from the MCU.
    void selTrackNumSgl(int num);
    /// EQ type.
    void eqTypeChangedSgl(int type);
    /// Source code.
    void sourceChangedSgl(int source);
    /// System SNID text.
    void systemSnidChanged(QString snid);
    /// Steering-wheel key learning.
    void wheelStudyStateSgl(int state, int para);
    /// Learnt keys.
    void wheelStudyKeysSgl(QString keys);
    /// Action code.
    void requestActionSgl(int action);
    /// Boot state.
    void sysBootStateSgl(int state);
    /// Radio status.
    void radioStatusChangedSgl(int status);
    /// Current channel.
    void radioCurrChInfoChangedSgl(int freq, int rssi, int picode);
    /// A scanned channel.
    void radioScanChInfoChangedSgl(int freq, int rssi, int picode);
    /// Date and time of the MCU's clock.
    void datetimeInfoSgl(int year, int month, int day, int hour, int minute, int second);
    /// Tail line; 2 is on for parking, reverse and headlight.
    void taillineStateSgl(int parking, int reverse, int headlight, int mute, int dspState);
    /// 1: Bluetooth address wanted, otherwise the application version.
    void requestAppVerSgl(int mode);
    /// Second setup block.
    void setupInfo1StateSgl(int main_volume, int bt_ring_volume, int bt_talking_volume,
                            int navi_volume, int voice_volume, int ta_volume, int radio_input_gain,
                            int usb_input_gain, int bt_audio_input_gain, int aux_input_gain,
                            int carplay_input_gain, int android_auto_input_gain, int loud_status,
                            int rear_view_delay, int poweroff_delay_onoff, int steer_state,
                            int internal_amp_state, int break_volume, int idl_chime_vol, int ti_vol,
                            int idl_warn_vol, int idl_info_vol, int idl_reco_vol, int bt_siri_vol);
    /// First setup block.
    void setupInfoStateSgl(int bt_input_level, int timer_onoff, int beep_onoff, int camera_onoff,
                           int steering_control, int extra_bass, int eq_type, int eq1_level,
                           int eq2_level, int eq3_level, int eq4_level, int eq5_level,
                           int eq6_level, int eq7_level, int eq8_level, int eq9_level,
                           int eq10_level, int eq11_level, int eq12_level, int eq13_level,
                           int subwoofer_level, int balance_level, int fader_level,
                           int hpf_front_freq, int hpf_rear_freq, int lpf_freq, int subwoofer_phase,
                           int dso, int rotary, int bassboost);
    /// USB power.
    void usbPowerStatusSgl(int status);
    /// Key; state 0 is pressed, anything else released.
    void keyEventSgl(int key, int state);
    /// Destination code.
    void syncDestCodeSgl(int dest, int demo);
    /// Audio volume.
    void audioVolumeSgl(int muteState, int level, int type);
    /// Turn of the volume knob.
    void volumeTurnSgl(int state);
    /// Tuner work status.
    void tunerWorkStatusSgl(int status);
    /// A chunk of factory-test packets.
    void autoTestPkgChanged(QByteArray pkg);
    /// Factory-test status, 0 is off.
    void autoTestStatusChanged(int status);
    /// Device serial number.
    void serialNumberChanged(QString serial);
    /// Steering-wheel ADC status changed.
    void stwAdcStatusChanged();
    /// A steering-wheel ADC value.
    void stwAdcValue(int value);
    /// Steering-wheel car type.
    void stwCarTypeChanged(int type);
    /// GPS antenna bits: 0 connected, 1 abnormal.
    void gpsAntennaChanged(int status);
    /// DAB antenna bits: 0 connected, 1 abnormal.
    void dabAntennaChanged(int status);
    /// Amplifier editions.
    void setAmpEditionSgl(QString sw_edition, QString hw_edition);
    /// ECU editions.
    void setEcuEditionSgl(QString sw_edition, QString hw_edition);

    // Vehicle reports
    void reportAcChangedSgl(int KeyState, int AcType, int Templevel, int ModeDisp,
                            int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl, int ExtTemp,
                            int IndicatorAutoFront, int IndicatorDefrostFront, int IndicatorACFront,
                            int IndicatorOFFFront, int IndicatorACMAX, int InternalRecycle,
                            int DefrostRear);
    void reportAVMChangedSgl(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                             int SpeedSetResp, int VideoType, int WarnType);
    void reportVehicleSpeedChangedSgl(int vehicle_speed, int vehicle_speed_valid, int Reserve,
                                      int Reserve1);
    void reportSteeringAngleChangedSgl(int steering_angle, int steering_angle_dir, int Reserve,
                                       int Reserve1);
    void reportFeatureCodeChangedSgl(int code0, int code1, int code2, int code3, int code4);
    void reportFeatureVelroCodeChangedSgl(QByteArray pkg);
    void reportHuChangedSgl(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                            int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                            int HU_Date10, int HU_Date11);
    void reportAmbChangedSgl(int State, int ShowModelStatus, int ShowFrequency, int SafeModelSW,
                             int ColorModelSelect, int SynchronizeWithBackLight);
    void reportPdcChangedSgl(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                             int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                             int RSRPDCDistance, int RFRPDCDistance, int PAS_SW, int PDCSysSts,
                             int ReverseAssisVideo);
    void reportTpmsChangedSgl(int FLTirePres, int FRTirePres, int RLTirePres, int RRTirePres,
                              int FLPressureWarning, int FRPressureWarning, int RLPressureWarning,
                              int RRPressureWarning, int FLTempHigh, int FRTempHigh, int RLTempHigh,
                              int RRTempHigh, int SystemWarning, int StudyFailureWarning,
                              int FLTireTemp, int FRTireTemp, int RLTireTemp, int RRTireTemp);
    void reportVehicleBodyChangedSgl(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                     int data4, int data5, int data6, int data7);
    void reportMeterSettingChangedSgl(int data0, int data1, int data2, int data3, int data4,
                                      int data5, int data6, int data7);
    void reportVehicleFaultChangedSgl(int data0, int data1, int data2, int data3, int data4,
                                      int data5, int data6, int data7);
    void ampStatusChangedSgl(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                             int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                             int AMP_Date8);
    void avmCalibrationCmdChangedSgl(int calibration_start, int reserve0, int reserve1,
                                     int reserve2);
    void reportDtcFlagChangedSgl(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4);

    // Truck reports
    void
    reportTruckTpmsLearnChangedSgl(int TPMS_Learn_ResponseFeatureID, int TPMS_Learn_ResponseStatus,
                                   int TPMS_Learn_TireStatusData2, int TPMS_Learn_TireStatusData3,
                                   int TPMS_Learn_TireStatusData4, int TPMS_Learn_TireStatusData5,
                                   int TPMS_Learn_TireStatusData6, int TPMS_Learn_TireStatusData7,
                                   int TPMS_Learn_TireStatusData8, int TPMS_Learn_Reserve1,
                                   int TPMS_Learn_Reserve2);
    void reportTruckDmsChangedSgl(int DMS_DistractionWarning, int DMS_CanData2, int DMS_CanData3,
                                  int DMS_Reserve1, int DMS_Reserve2, int DMS_Reserve3,
                                  int DMS_Reserve4);
    void reportTruckRsr1ChangedSgl(int RSR1_MenAtWorkSign, int RSR1_StopSign,
                                   int RSR1_RSRSystemState, int RSR1_TSRSpeedSignDetected,
                                   int RSR1_SpeedLimitIconCommand, int RSR1_NarrowRoadSign,
                                   int RSR1_SlipperyRoadSignDetected, int RSR1_Reserve1,
                                   int RSR1_Reserve2, int RSR1_Reserve3, int RSR1_Reserve4);
    void reportTruckSecurityChangedSgl(
        int Security_LDW_Lamp_Status, int Security_ACC_Lamp_Status, int Security_AEBS_Lamp_Status,
        int Security_AEBS_System_Status, int Security_FLI_Right_Side, int Security_FLI_Left_Side,
        int Security_ACC_Mode, int Security_ACC_Distance_Mode, int Security_ACC_Shutoff_Warning,
        int Security_ACC_Alert_Signal, int Security_TPMS_warning_Lamp, int Security_Reserve1,
        int Security_Reserve2, int Security_Reserve3, int Security_Reserve4);
    void reportTruckVehicleHealthChangedSgl(
        int Vehicle_Battery_Potential, int Vehicle_Fluid_Tank_Level,
        int Vehicle_Engine_Coolant_Temp, int Vehicle_Coolant_Level, int Vehicle_Transmission_Mode1,
        int Vehicle_Transmission_Mode2, int Vehicle_FuelLevel1, int Vehicle_FuelLevel2,
        int Vehicle_EngOilLevel, int Vehicle_Reserve1, int Vehicle_Reserve2, int Vehicle_Reserve3,
        int Vehicle_Reserve4);
    void reportTruckRpasChangedSgl(int RPAS_Active_Sensor_Status, int RPAS_Sensor1_Distance,
                                   int RPAS_Sensor2_Distance, int RPAS_Sensor3_Distance,
                                   int RPAS_Sensor4_Distance, int RPAS_Sensor5_Distance,
                                   int RPAS_Shortest_Distance, int RPAS_Warning_Levels,
                                   int RPAS_Reserve1, int RPAS_Reserve2, int RPAS_Reserve3);
    void reportTruckTpmsThresholdChangedSgl(
        int Axle1_Left_Threshold, int Axle1_Right_Threshold, int Axle2_Left_Threshold,
        int Axle2_Right_Threshold, int Axle3_Left_Threshold, int Axle3_Right_Threshold,
        int Axle4_Left_Outside_Threshold, int Axle4_Left_Inside_Threshold,
        int Axle4_Right_Inside_Threshold, int Axle4_Right_Outside_Threshold,
        int Axle5_Left_Outside_Threshold, int Axle5_Left_Inside_Threshold,
        int Axle5_Right_Inside_Threshold, int Axle5_Right_Outside_Threshold,
        int Axle6_Left_Threshold, int Axle6_Right_Threshold, int First_Spare_Threshold);
    void reportTruckTpmsCtiChangedSgl(
        int Axle1_Left_CTIInfor, int Axle1_Right_CTIInfor, int Axle2_Left_CTIInfor,
        int Axle2_Right_CTIInfor, int Axle3_Left_CTIInfor, int Axle3_Right_CTIInfor,
        int Axle4_Left_Outside_CTIInfor, int Axle4_Left_Inside_CTIInfor,
        int Axle4_Right_Inside_CTIInfor, int Axle4_Right_Outside_CTIInfor,
        int Axle5_Left_Outside_CTIInfor, int Axle5_Left_Inside_CTIInfor,
        int Axle5_Right_Inside_CTIInfor, int Axle5_Right_Outside_CTIInfor, int Axle6_Left_CTIInfor,
        int Axle6_Right_CTIInfor, int First_Spare_CTIInfor);
    void reportTruckTpmsTemperatureChangedSgl(
        int Axle1_Left_Temp, int Axle1_Right_Temp, int Axle2_Left_Temp, int Axle2_Right_Temp,
        int Axle3_Left_Temp, int Axle3_Right_Temp, int Axle4_Left_Outside_Temp,
        int Axle4_Left_Inside_Temp, int Axle4_Right_Inside_Temp, int Axle4_Right_Outside_Temp,
        int Axle5_Left_Outside_Temp, int Axle5_Left_Inside_Temp, int Axle5_Right_Inside_Temp,
        int Axle5_Right_Outside_Temp, int Axle6_Left_Temp, int Axle6_Right_Temp,
        int First_Spare_Temp);
    void reportTruckTpmsPressureChangedSgl(
        int Axle1_Left_Pressure, int Axle1_Right_Pressure, int Axle2_Left_Pressure,
        int Axle2_Right_Pressure, int Axle3_Left_Pressure, int Axle3_Right_Pressure,
        int Axle4_Left_Outside_Pressure, int Axle4_Left_Inside_Pressure,
        int Axle4_Right_Inside_Pressure, int Axle4_Right_Outside_Pressure,
        int Axle5_Left_Outside_Pressure, int Axle5_Left_Inside_Pressure,
        int Axle5_Right_Inside_Pressure, int Axle5_Right_Outside_Pressure, int Axle6_Left_Pressure,
        int Axle6_Right_Pressure, int First_Spare_Pressure);
    void reportTruckVehicleAlertsChangedSgl(int Vehicle_Gear_Change, int Vehicle_VehicleOverspeed,
                                            int Vehicle_MSA_Signal, int Vehicle_Reserve1,
                                            int Vehicle_Reserve2, int Vehicle_Reserve3,
                                            int Vehicle_Reserve4);
    void reportTruckPerformanceParametersChangedSgl(
        int Vehicle_IC_Total_Distance, int Vehicle_IC_Run_Time, int Vehicle_TripA_DistanceL,
        int Vehicle_TripA_DistanceH, int Vehicle_TripA_FuelEffKm, int Vehicle_TripA_FuelEffHrs,
        int Vehicle_TripA_HoursL, int Vehicle_TripA_HoursH, int Vehicle_TripB_DistanceL,
        int Vehicle_TripB_DistanceH, int Vehicle_TripB_FuelEffKm, int Vehicle_TripB_FuelEffHrs,
        int Vehicle_TripB_HoursL, int Vehicle_TripB_HoursH);
    /// The one report without the "Sgl" ending.
    void reportTruckVehicleParametersChanged(int Vehicle_EngFuelTemp1, int Vehicle_EngOilTemp1,
                                             int Vehicle_DPFLampCmd, int Vehicle_EngOilTemp2,
                                             int Vehicle_EngECUTemp, int Vehicle_CabInteriorTemp,
                                             int Vehicle_AmbientAirTemp,
                                             int Vehicle_EngAirIntakeTemp, int Vehicle_Reserve1,
                                             int Vehicle_Reserve2, int Vehicle_Reserve3,
                                             int Vehicle_Reserve4);

    // Radio notifications
    void psNameNotifySgl(QString text);
    void tunerStationNotifySgl(int freq);
    void tunerPtyTypeNotifySgl(int type);
    void rdsAlarmStateSgl(int state);
    void tunerPtySearchResultSgl(int ret);
    void radioTextSgl(QString text);
    void tunerStereoSgl(int stereo);
    void tunerTPStateSgl(int state);
    void tunerAsStationChangedSgl(int freq);
    void tunerASStationFoundSgl(int freq, int smeter);
};

} // namespace mcu
