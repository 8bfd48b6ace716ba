/// \file
/// The MCU link, the closed class mcu::McuSrv, declared with exactly the operations and signals
/// that the facade and the radio interface use. The link library (libmcusrv.so.1) defines them.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

namespace mcu {

/// The one link to the vehicle MCU.
///
/// Codes, levels and units belong to the MCU protocol and pass through the library unchanged. What
/// a comment does not explain is such a code. Commands set what their comment names. They are
/// one-way: a result, if any, is reported by a signal. They are called from the facade's thread,
/// unless their comment says otherwise. Signals may be emitted from a reader thread of the link.
/// The library never deletes the object.
///
/// Commands are declared as slots so that the simulator can drive them by name; the library calls
/// them as plain functions, and a link need not declare them as slots. Signals are connected by
/// their text, so they must be Qt signals of exactly these names and argument types.
class Q_DECL_IMPORT McuSrv : public QObject {
    Q_OBJECT

public:
    /// \name Life cycle
    ///@{

    /// The one link object; never null.
    static McuSrv *instance();
    /// Prepares the link. From its return on the link emits its signals. Called once, by
    /// McuService::connectService().
    void init();
    ///@}

    /// \name Queries
    /// Synchronous: the library uses the result at once.
    ///@{

    /// Software version of the MCU.
    QString getVersion1();
    /// Hardware version of the MCU.
    QString getVersion2();
    /// Boot state of the MCU.
    int getSysBootState();
    /// Whether reverse gear is engaged.
    bool isReverseOn() const;
    /// Whether the MCU reports mute on.
    bool isMuteOn() const;
    /// Whether the MCU asks for a software renewal.
    bool isNeedRenew();
    /// Car feature code: decimal numbers separated by ";".
    QString getCarFeatureCode();
    /// Extended feature code.
    QByteArray getVelroCarFeatureCode();
    /// Status of the feature data.
    int getFeatureDataStatus();
    /// Result of the ECU edition query. Kept: the link exports this spelling.
    int getEcuEdititon();
    ///@}

public Q_SLOTS:
    /// \name Life of the link
    ///@{

    /// Closes the link.
    void mcuConnClose();
    /// Terminate command of the tuner, from McuRadioInterface::terminate().
    void terminate();
    ///@}

    /// \name Volume and mute
    ///@{

    /// Sets the volume.
    void SetVolume(int level);
    /// Raises the volume by one step.
    void volumePlus();
    /// Lowers the volume by one step.
    void volumeMinus();
    /// Mutes (true) or unmutes the tuner, from McuRadioInterface::mute().
    void mute(bool on);
    /// Mutes (true) or unmutes one type of sound.
    void setMute(bool on, int type);
    /// Mute level; never the same one twice in a row.
    void setMuteLevel(int level);
    /// Audio mute of one type of sound, with a flag.
    void setAudioMute(int mute, int type, int flag);
    /// Second form of the audio mute. Type 50 covers a switch of the main audio and comes from the
    /// thread that calls McuManager::updateAudioStatus().
    void setAudioMute2(int mute, int type, int flag);
    /// Mute as the user switches it.
    void uiCmdMute(int on);
    /// Attenuation as the user switches it.
    void uiCmdAtt(int on);
    /// Attenuation by 20 dB as the user switches it.
    void uiCmdAtt20DB(int on);
    /// Lowers other sound to a level for one type of sound (ducking).
    void duckAudio(int type, int level);
    /// Ends the ducking for one type of sound.
    void unduckAudio(int type);
    /// Level of ducking in reverse gear.
    void reverseDuckVol(int level);
    /// Volume change for previous and next.
    void setVolChangePreNext(int value);
    /// Volume response.
    void setVolResponse(int value);
    /// Volume of one type of sound.
    void setAudioVolumeValue(int type, int level);
    /// Input gain of one type of sound.
    void setAudioInputGainValue(int type, int gain);
    /// Level of the volume that depends on the vehicle speed.
    void speedOfSound(int level);
    ///@}

    /// \name Audio routing and status
    ///@{

    /// Audio channel, a value of McuManager::AudioChannel.
    void updateAudioChannel(int channel);
    /// Audio status, a value of McuManager::AudioStatus. Comes from the thread that calls
    /// McuManager::updateAudioStatus().
    void updateAudioStatus(int status);
    /// Phone-projection status, a value of McuManager::CPAAStatus.
    void updateCPAAStatus(int status);
    /// Mixer channels, one bit for each, and what to switch them to.
    void setMixChannel(unsigned char channels, unsigned char on);
    /// Audio mode.
    void setAudioMode(int mode);
    /// Five delays of one type.
    void setAudioTimerDelay(int type, int delay1, int delay2, int delay3, int delay4, int delay5);
    /// The playback of a sound has ended. Kept: the link exports this spelling.
    void set_UICMD_AUDIO_Playback_Comleted(int value);
    /// Native music mode.
    void set_UICMD_Native_Music_Mode(int mode);
    /// Mute of all sound for sleep.
    void set_UICMD_Sleep_All_Mute(int on);
    /// One media or phone record for the MCU's own display: type code, number of bytes, bytes.
    void updateMultiMediaInfo(int type, int len, QByteArray data);
    ///@}

    /// \name Sound shaping
    ///@{

    /// Selects an equaliser preset.
    void setPresetEQType(int type);
    /// Level of one equaliser band.
    void setCustomEQValue(int band, int level);
    /// Balance and fader; 25 is the middle.
    void setBalanceFader(int balance, int fader);
    /// Loudness.
    void setLoudness(int level);
    /// Loudness, second command. Kept: the link exports this spelling.
    void set_UICMD_Loundness(int level);
    /// Bass boost.
    void setBassBoost(int level);
    /// Level of the subwoofer.
    void setSubwooferValue(int level);
    /// Phase of the subwoofer.
    void setSubwooferPhase(int phase);
    /// High-pass filter at a position: corner frequency and slope.
    void setHPFValue(int position, int freq, int slope);
    /// Low-pass filter: corner frequency and slope.
    void setLPFValue(int freq, int slope);
    /// Rear low-pass filter: corner frequency and slope.
    void setRearLpf(int freq, int slope);
    /// Crossover: value of one type.
    void setFrCrossover(int type, int value);
    /// Speaker levels, one byte for each channel.
    void setSpeakerLevel(QByteArray levels);
    /// Phase of the speakers.
    void set_speaker_phase(int phase);
    /// Built-in amplifier on or off.
    void setInternalAmp(int on);
    /// The nine bytes of the amplifier's status message.
    void setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3, int AMP_Date4,
                      int AMP_Date5, int AMP_Date6, int AMP_Date7, int AMP_Date8);
    /// Key beep; type is always 0.
    void triggerBeep(int type);
    /// Key tone on or off.
    void toggleKeyTone(int on);
    ///@}

    /// \name Tuner and RDS
    ///@{

    /// Tunes to a frequency.
    void tune(int freq);
    /// Seeks the next station forward.
    void seekForward();
    /// Seeks the next station backward.
    void seekBackward();
    /// Starts an automatic scan.
    void autoScan();
    /// Searches a station of a programme type; answered by tunerPtySearchResultSgl().
    void searchPty(int type);
    /// Lowest and highest frequency and step of AM.
    void setAMRange(int lowFreq, int highFreq, int step);
    /// Lowest and highest frequency and step of FM.
    void setFMRange(int lowFreq, int highFreq, int step);
    /// Frequency step of the tuner.
    void set_tuner_step(int step);
    /// Alternative frequencies on or off.
    void setAfOnOff(bool onoff);
    /// Traffic announcements on or off.
    void setTaOnOff(bool onoff);
    /// RDS on or off.
    void setRdsOnOff(bool state);
    /// RDS clock time on or off.
    void setCtOnOff(bool onoff);
    /// Dismisses the alarm of a traffic announcement.
    void dismissTaAlarm();
    /// Power of the DAB antenna: 1 on, 0 off.
    void setDabAntPower(int on);
    ///@}

    /// \name Steering-wheel keys
    ///@{

    /// Enters the learning mode.
    void steeringWheelStudy();
    /// Enters the test mode.
    void steeringWheelTest();
    /// Returns to the normal mode.
    void steeringWheelNormal();
    /// Abandons learning.
    void steeringWheelAbandon();
    /// Resets the learnt keys.
    void steeringWheelReset();
    /// Key to learn next.
    void steeringWheelStudyKey(int key);
    /// Resets the DOP keys. Kept: the link exports this spelling.
    void steeringWheedoplReset();
    /// Clears the DOP keys. Kept: the link exports this spelling.
    void steeringWheedoplClear();
    /// DOP keys on or off.
    void setWheelDopState(bool on);
    /// Action and value of a DOP key.
    void setDopSwc(int key, int action, int value);
    /// Steering-wheel control.
    void setSteeringControl(int value);
    /// Steering-wheel state.
    void setSteeringState(int state);
    /// Car type for the steering-wheel keys.
    void sendStwCarTypeToMcu(int type);
    /// Function of the star key.
    void setKeyStarFunction(int function);
    /// Setting of the rotary knob.
    void updateKeyRotary(int value);
    ///@}

    /// \name System and power
    ///@{

    /// Sleep mode.
    void setSleepMode(int mode);
    /// Power-off: 1 for true, 0 for false.
    void setPowerOff(int on);
    /// Delayed power-off, on or off.
    void setPowerOffDelay(int on);
    /// The power key of the user interface.
    void uiCmdPower();
    /// Resets the unit.
    void uiCmdReset();
    /// Resets the radio.
    void uiCmdRadioReset();
    /// The source key of the user interface.
    void uiCmdSource();
    /// Current mode of the unit.
    void setCurrentMode(int mode);
    /// Requests a report by its code. The library sends 197 (trouble code flags), 220 (second setup
    /// block), 229 (first setup block), 237 (radio data), 246 (key learning) and 248 (tail line),
    /// applications any other.
    void requestCommand(int command);
    /// Requests the reset to factory settings.
    void factoryReset();
    /// Watchdog on or off; true is repeated every 10 seconds while McuManager keeps it on.
    void setWatchDogEnable(bool enable);
    /// State of the monitor.
    void setMonitorState(int state);
    /// Loop-back on or off.
    void setLoopBack(bool on);
    /// VCOM value of the display panel.
    void setVcomValue(int value);
    /// Illumination of a type, with a text.
    void set_Illumination(int type, QString text, int value1, int value2);
    /// Clock format: 24 hours (true) or 12 hours.
    void setClockTime(bool is24Hour);
    /// Sets the MCU's clock.
    void syncDatetime(int year, int month, int day, int hour, int minute, int second, int flag);
    /// Destination code and demo mode.
    void setDestCode(int dest, int demo);
    /// Delay of the rear view.
    void setRearViewDelay(int delay);
    /// Camera setting, on or off. Kept: the link exports this spelling.
    void updateCamraSetup(int on);
    /// A touch: state, a value of McuManager::TouchState, and coordinates.
    void updateTouchCoordinate(int state, int x, int y);
    /// Status of a device: values of McuManager::DeviceType and McuManager::DeviceStatus.
    void updateDeviceStatus(int type, int status);
    /// Input level of Bluetooth.
    void updateBtInputLevel(int level);
    /// Reverse test on or off.
    void set_UICMD_Reverse_test(int on);
    /// Fast ACC on or off.
    void set_UICMD_FastAcc(int on);
    /// Speed as the user interface sends it.
    void set_UICMD_Speed(int speed);
    /// Clears the meter's display.
    void set_UICMD_Meter_Clear_Display(int value);
    ///@}

    /// \name Versions, identity and update
    ///@{

    /// Version of the application.
    void updateAppVersion(QString version);
    /// Version of the SDK.
    void updateSdkVersion(QString version);
    /// Version of the system software.
    void updateSysVersion(QString version);
    /// Two version texts of the SoC.
    void setSocVer(QString version1, QString version2);
    /// Bluetooth address of the unit.
    void updateBtAddress(QString address);
    /// Serial number of the device. Kept: the link exports this spelling.
    void setSerialNumer(const QString &serial);
    /// State of an update.
    void setUpgradeState(int state);
    /// Starts the update of the MCU's own software.
    void mcuUpdate();
    ///@}

    /// \name Vehicle (CAN) writes
    /// Values are those of the MCU's messages, in their order.
    ///@{

    /// Vehicle speed.
    void sendVehicleSpeed(int speed);
    /// Vehicle information. Kept: the link exports this spelling.
    void setVechicleInfo(int data0, int data1, int data2, int data3, int data4);
    /// Air conditioning: a key and its state.
    void setACState(int key, int state);
    /// Air conditioning: fast warming.
    void setACFastWarm(int data0, int data1, int data2);
    /// Air conditioning: state.
    void setAirACState(int data0, int data1, int data2, int data3, int data4, int data5, int data6,
                       int data7, int data8);
    /// State of the head unit.
    void setHUState(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                    int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                    int HU_Date10, int HU_Date11);
    /// Meter settings.
    void setMeterSettingInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                              int data6, int data7);
    /// Ambient light.
    void set_amb_data(int data0, int data1, int data2, int data3, int data4, int data5, int data6,
                      int data7, int data8, int data9, int data10, int data11, int data12,
                      int data13);
    /// Drive mode link of the EPS.
    void epsDriveModeLink(int mode);
    /// Camera status for the surround view.
    void setAvmCameraStatus(int data0, int data1, int data2, int data3, int data4, int data5,
                            int data6, int data7);
    /// Status of the surround-view calibration.
    void setAvmCalibrationStatus(int data0, int data1, int data2, int data3);
    ///@}

    /// \name Truck (CAN) writes
    /// Values are those of the MCU's messages, in their order.
    ///@{

    /// ACC information.
    void setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                          int data6, int data7);
    /// Power of the cameras.
    void setTruckCameraPower(int data0, int data1, int data2, int data3, int data4);
    /// OTP infotainment.
    void setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4, int data5,
                                 int data6, int data7);
    /// Tyre pressure monitoring.
    void setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                           int data6, int data7);
    ///@}

    /// \name Factory test
    ///@{

    /// A packet to the test station: number of bytes, bytes.
    void sendAutoTestPkgToMcu(int len, QByteArray pkg);
    ///@}

Q_SIGNALS:
    /// \name System reports
    ///@{

    /// The MCU enters shallow sleep.
    void shallowSleepSgl();
    /// Version texts of the MCU: test version, user version.
    void mcuVersionSgl(QString version1, QString version2);
    /// The MCU asks for a software renewal.
    void mcuNeedRenewSgl();
    /// The MCU requests a reset to factory settings.
    void factoryResetSgl();
    /// Overload status of the amplifier.
    void ampOverloadStuChangedSgl(int status);
    /// Track number that was selected through the MCU.
    void selTrackNumSgl(int num);
    /// Equaliser type.
    void eqTypeChangedSgl(int type);
    /// Source code.
    void sourceChangedSgl(int source);
    /// SNID text.
    void systemSnidChanged(QString snid);
    /// Progress of steering-wheel key learning.
    void wheelStudyStateSgl(int state, int para);
    /// The learnt steering-wheel keys.
    void wheelStudyKeysSgl(QString keys);
    /// The MCU requests an action.
    void requestActionSgl(int action);
    /// Boot state.
    void sysBootStateSgl(int state);
    /// Radio status.
    void radioStatusChangedSgl(int status);
    /// Current radio channel: frequency, signal strength, PI code.
    void radioCurrChInfoChangedSgl(int freq, int rssi, int picode);
    /// A radio channel that the scan found: frequency, signal strength, PI code.
    void radioScanChInfoChangedSgl(int freq, int rssi, int picode);
    /// Date and time of the MCU's clock.
    void datetimeInfoSgl(int year, int month, int day, int hour, int minute, int second);
    /// Tail line; 2 is on for parking, reverse and headlight.
    void taillineStateSgl(int parking, int reverse, int headlight, int mute, int dspState);
    /// Mode 1 requests the Bluetooth address, any other mode the application version.
    void requestAppVerSgl(int mode);
    /// Second setup block; the fields of SetupInfo1 in their order.
    void setupInfo1StateSgl(int main_volume, int bt_ring_volume, int bt_talking_volume,
                            int navi_volume, int voice_volume, int ta_volume, int radio_input_gain,
                            int usb_input_gain, int bt_audio_input_gain, int aux_input_gain,
                            int carplay_input_gain, int android_auto_input_gain, int loud_status,
                            int rear_view_delay, int poweroff_delay_onoff, int steer_state,
                            int internal_amp_state, int break_volume, int idl_chime_vol, int ti_vol,
                            int idl_warn_vol, int idl_info_vol, int idl_reco_vol, int bt_siri_vol);
    /// First setup block; the fields of SetupInfo in their order.
    void setupInfoStateSgl(int bt_input_level, int timer_onoff, int beep_onoff, int camera_onoff,
                           int steering_control, int extra_bass, int eq_type, int eq1_level,
                           int eq2_level, int eq3_level, int eq4_level, int eq5_level,
                           int eq6_level, int eq7_level, int eq8_level, int eq9_level,
                           int eq10_level, int eq11_level, int eq12_level, int eq13_level,
                           int subwoofer_level, int balance_level, int fader_level,
                           int hpf_front_freq, int hpf_rear_freq, int lpf_freq, int subwoofer_phase,
                           int dso, int rotary, int bassboost);
    /// USB power. Any status means that the over-current warning is shown.
    void usbPowerStatusSgl(int status);
    /// A key: state 0 is pressed, any other released.
    void keyEventSgl(int key, int state);
    /// Destination code and demo mode.
    void syncDestCodeSgl(int dest, int demo);
    /// Mute state, level and type of sound.
    void audioVolumeSgl(int muteState, int level, int type);
    /// Turn of the volume knob.
    void volumeTurnSgl(int state);
    /// Work status of the tuner.
    void tunerWorkStatusSgl(int status);
    /// A chunk of the test station's packets.
    void autoTestPkgChanged(QByteArray pkg);
    /// Factory-test status; 0 is off.
    void autoTestStatusChanged(int status);
    /// Serial number of the device.
    void serialNumberChanged(QString serial);
    /// The status of the steering-wheel ADC changed.
    void stwAdcStatusChanged();
    /// A value of the steering-wheel ADC.
    void stwAdcValue(int value);
    /// Car type for the steering-wheel keys; ignored.
    void stwCarTypeChanged(int type);
    /// GPS antenna, low byte: bit 0 connected, bit 1 abnormal.
    void gpsAntennaChanged(int status);
    /// DAB antenna, low byte: bit 0 connected, bit 1 abnormal.
    void dabAntennaChanged(int status);
    /// Software and hardware edition of the amplifier.
    void setAmpEditionSgl(QString sw_edition, QString hw_edition);
    /// Software and hardware edition of the ECU.
    void setEcuEditionSgl(QString sw_edition, QString hw_edition);
    ///@}

    /// \name Vehicle reports
    /// docs/vehicle-records.md shows what the facade makes of each.
    ///@{

    /// Air conditioning.
    void reportAcChangedSgl(int KeyState, int AcType, int Templevel, int ModeDisp,
                            int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl, int ExtTemp,
                            int IndicatorAutoFront, int IndicatorDefrostFront, int IndicatorACFront,
                            int IndicatorOFFFront, int IndicatorACMAX, int InternalRecycle,
                            int DefrostRear);
    /// Surround view (AVM).
    void reportAVMChangedSgl(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                             int SpeedSetResp, int VideoType, int WarnType);
    /// Vehicle speed.
    void reportVehicleSpeedChangedSgl(int vehicle_speed, int vehicle_speed_valid, int Reserve,
                                      int Reserve1);
    /// Steering angle; 65535 is invalid.
    void reportSteeringAngleChangedSgl(int steering_angle, int steering_angle_dir, int Reserve,
                                       int Reserve1);
    /// Feature code.
    void reportFeatureCodeChangedSgl(int code0, int code1, int code2, int code3, int code4);
    /// Extended feature code.
    void reportFeatureVelroCodeChangedSgl(QByteArray pkg);
    /// Head unit.
    void reportHuChangedSgl(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                            int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                            int HU_Date10, int HU_Date11);
    /// Ambient light.
    void reportAmbChangedSgl(int State, int ShowModelStatus, int ShowFrequency, int SafeModelSW,
                             int ColorModelSelect, int SynchronizeWithBackLight);
    /// Parking distances; code 0 is no obstacle.
    void reportPdcChangedSgl(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                             int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                             int RSRPDCDistance, int RFRPDCDistance, int PAS_SW, int PDCSysSts,
                             int ReverseAssisVideo);
    /// Tyre pressures.
    void reportTpmsChangedSgl(int FLTirePres, int FRTirePres, int RLTirePres, int RRTirePres,
                              int FLPressureWarning, int FRPressureWarning, int RLPressureWarning,
                              int RRPressureWarning, int FLTempHigh, int FRTempHigh, int RLTempHigh,
                              int RRTempHigh, int SystemWarning, int StudyFailureWarning,
                              int FLTireTemp, int FRTireTemp, int RLTireTemp, int RRTireTemp);
    /// Vehicle body.
    void reportVehicleBodyChangedSgl(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                     int data4, int data5, int data6, int data7);
    /// Meter settings.
    void reportMeterSettingChangedSgl(int data0, int data1, int data2, int data3, int data4,
                                      int data5, int data6, int data7);
    /// Vehicle faults.
    void reportVehicleFaultChangedSgl(int data0, int data1, int data2, int data3, int data4,
                                      int data5, int data6, int data7);
    /// Amplifier status.
    void ampStatusChangedSgl(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                             int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                             int AMP_Date8);
    /// Surround-view calibration command.
    void avmCalibrationCmdChangedSgl(int calibration_start, int reserve0, int reserve1,
                                     int reserve2);
    /// Flags of the diagnostic trouble codes.
    void reportDtcFlagChangedSgl(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4);
    ///@}

    /// \name Truck reports
    /// docs/vehicle-records.md shows what the facade makes of each.
    ///@{

    /// Learning of tyre sensors.
    void
    reportTruckTpmsLearnChangedSgl(int TPMS_Learn_ResponseFeatureID, int TPMS_Learn_ResponseStatus,
                                   int TPMS_Learn_TireStatusData2, int TPMS_Learn_TireStatusData3,
                                   int TPMS_Learn_TireStatusData4, int TPMS_Learn_TireStatusData5,
                                   int TPMS_Learn_TireStatusData6, int TPMS_Learn_TireStatusData7,
                                   int TPMS_Learn_TireStatusData8, int TPMS_Learn_Reserve1,
                                   int TPMS_Learn_Reserve2);
    /// Driver monitoring.
    void reportTruckDmsChangedSgl(int DMS_DistractionWarning, int DMS_CanData2, int DMS_CanData3,
                                  int DMS_Reserve1, int DMS_Reserve2, int DMS_Reserve3,
                                  int DMS_Reserve4);
    /// Road-sign recognition.
    void reportTruckRsr1ChangedSgl(int RSR1_MenAtWorkSign, int RSR1_StopSign,
                                   int RSR1_RSRSystemState, int RSR1_TSRSpeedSignDetected,
                                   int RSR1_SpeedLimitIconCommand, int RSR1_NarrowRoadSign,
                                   int RSR1_SlipperyRoadSignDetected, int RSR1_Reserve1,
                                   int RSR1_Reserve2, int RSR1_Reserve3, int RSR1_Reserve4);
    /// Driver-assistance lamps.
    void reportTruckSecurityChangedSgl(
        int Security_LDW_Lamp_Status, int Security_ACC_Lamp_Status, int Security_AEBS_Lamp_Status,
        int Security_AEBS_System_Status, int Security_FLI_Right_Side, int Security_FLI_Left_Side,
        int Security_ACC_Mode, int Security_ACC_Distance_Mode, int Security_ACC_Shutoff_Warning,
        int Security_ACC_Alert_Signal, int Security_TPMS_warning_Lamp, int Security_Reserve1,
        int Security_Reserve2, int Security_Reserve3, int Security_Reserve4);
    /// Vehicle health.
    void reportTruckVehicleHealthChangedSgl(
        int Vehicle_Battery_Potential, int Vehicle_Fluid_Tank_Level,
        int Vehicle_Engine_Coolant_Temp, int Vehicle_Coolant_Level, int Vehicle_Transmission_Mode1,
        int Vehicle_Transmission_Mode2, int Vehicle_FuelLevel1, int Vehicle_FuelLevel2,
        int Vehicle_EngOilLevel, int Vehicle_Reserve1, int Vehicle_Reserve2, int Vehicle_Reserve3,
        int Vehicle_Reserve4);
    /// Rear parking sensors.
    void reportTruckRpasChangedSgl(int RPAS_Active_Sensor_Status, int RPAS_Sensor1_Distance,
                                   int RPAS_Sensor2_Distance, int RPAS_Sensor3_Distance,
                                   int RPAS_Sensor4_Distance, int RPAS_Sensor5_Distance,
                                   int RPAS_Shortest_Distance, int RPAS_Warning_Levels,
                                   int RPAS_Reserve1, int RPAS_Reserve2, int RPAS_Reserve3);
    /// Tyre pressure thresholds.
    void reportTruckTpmsThresholdChangedSgl(
        int Axle1_Left_Threshold, int Axle1_Right_Threshold, int Axle2_Left_Threshold,
        int Axle2_Right_Threshold, int Axle3_Left_Threshold, int Axle3_Right_Threshold,
        int Axle4_Left_Outside_Threshold, int Axle4_Left_Inside_Threshold,
        int Axle4_Right_Inside_Threshold, int Axle4_Right_Outside_Threshold,
        int Axle5_Left_Outside_Threshold, int Axle5_Left_Inside_Threshold,
        int Axle5_Right_Inside_Threshold, int Axle5_Right_Outside_Threshold,
        int Axle6_Left_Threshold, int Axle6_Right_Threshold, int First_Spare_Threshold);
    /// Central tyre inflation.
    void reportTruckTpmsCtiChangedSgl(
        int Axle1_Left_CTIInfor, int Axle1_Right_CTIInfor, int Axle2_Left_CTIInfor,
        int Axle2_Right_CTIInfor, int Axle3_Left_CTIInfor, int Axle3_Right_CTIInfor,
        int Axle4_Left_Outside_CTIInfor, int Axle4_Left_Inside_CTIInfor,
        int Axle4_Right_Inside_CTIInfor, int Axle4_Right_Outside_CTIInfor,
        int Axle5_Left_Outside_CTIInfor, int Axle5_Left_Inside_CTIInfor,
        int Axle5_Right_Inside_CTIInfor, int Axle5_Right_Outside_CTIInfor, int Axle6_Left_CTIInfor,
        int Axle6_Right_CTIInfor, int First_Spare_CTIInfor);
    /// Tyre temperatures.
    void reportTruckTpmsTemperatureChangedSgl(
        int Axle1_Left_Temp, int Axle1_Right_Temp, int Axle2_Left_Temp, int Axle2_Right_Temp,
        int Axle3_Left_Temp, int Axle3_Right_Temp, int Axle4_Left_Outside_Temp,
        int Axle4_Left_Inside_Temp, int Axle4_Right_Inside_Temp, int Axle4_Right_Outside_Temp,
        int Axle5_Left_Outside_Temp, int Axle5_Left_Inside_Temp, int Axle5_Right_Inside_Temp,
        int Axle5_Right_Outside_Temp, int Axle6_Left_Temp, int Axle6_Right_Temp,
        int First_Spare_Temp);
    /// Tyre pressures.
    void reportTruckTpmsPressureChangedSgl(
        int Axle1_Left_Pressure, int Axle1_Right_Pressure, int Axle2_Left_Pressure,
        int Axle2_Right_Pressure, int Axle3_Left_Pressure, int Axle3_Right_Pressure,
        int Axle4_Left_Outside_Pressure, int Axle4_Left_Inside_Pressure,
        int Axle4_Right_Inside_Pressure, int Axle4_Right_Outside_Pressure,
        int Axle5_Left_Outside_Pressure, int Axle5_Left_Inside_Pressure,
        int Axle5_Right_Inside_Pressure, int Axle5_Right_Outside_Pressure, int Axle6_Left_Pressure,
        int Axle6_Right_Pressure, int First_Spare_Pressure);
    /// Alerts.
    void reportTruckVehicleAlertsChangedSgl(int Vehicle_Gear_Change, int Vehicle_VehicleOverspeed,
                                            int Vehicle_MSA_Signal, int Vehicle_Reserve1,
                                            int Vehicle_Reserve2, int Vehicle_Reserve3,
                                            int Vehicle_Reserve4);
    /// Trip computer; distances and hours of a trip come in two parts, low 16 bits (L) and high 8
    /// bits (H).
    void reportTruckPerformanceParametersChangedSgl(
        int Vehicle_IC_Total_Distance, int Vehicle_IC_Run_Time, int Vehicle_TripA_DistanceL,
        int Vehicle_TripA_DistanceH, int Vehicle_TripA_FuelEffKm, int Vehicle_TripA_FuelEffHrs,
        int Vehicle_TripA_HoursL, int Vehicle_TripA_HoursH, int Vehicle_TripB_DistanceL,
        int Vehicle_TripB_DistanceH, int Vehicle_TripB_FuelEffKm, int Vehicle_TripB_FuelEffHrs,
        int Vehicle_TripB_HoursL, int Vehicle_TripB_HoursH);
    /// Engine and cab temperatures. Kept: the link declares it without the "Sgl" ending.
    void reportTruckVehicleParametersChanged(int Vehicle_EngFuelTemp1, int Vehicle_EngOilTemp1,
                                             int Vehicle_DPFLampCmd, int Vehicle_EngOilTemp2,
                                             int Vehicle_EngECUTemp, int Vehicle_CabInteriorTemp,
                                             int Vehicle_AmbientAirTemp,
                                             int Vehicle_EngAirIntakeTemp, int Vehicle_Reserve1,
                                             int Vehicle_Reserve2, int Vehicle_Reserve3,
                                             int Vehicle_Reserve4);
    ///@}

    /// \name Radio notifications
    /// Received by McuRadioInterface.
    ///@{

    /// Programme service name of the station.
    void psNameNotifySgl(QString text);
    /// Frequency of the station; only logged.
    void tunerStationNotifySgl(int freq);
    /// Programme type of the station.
    void tunerPtyTypeNotifySgl(int type);
    /// RDS alarm state.
    void rdsAlarmStateSgl(int state);
    /// Result of searchPty().
    void tunerPtySearchResultSgl(int ret);
    /// RDS radio text.
    void radioTextSgl(QString text);
    /// Stereo reception; 0 is mono.
    void tunerStereoSgl(int stereo);
    /// Traffic programme flag; 0 is off.
    void tunerTPStateSgl(int state);
    /// Frequency of a station that the auto-store run has taken.
    void tunerAsStationChangedSgl(int freq);
    /// A station that the auto-store run has found: frequency, field strength.
    void tunerASStationFoundSgl(int freq, int smeter);
    ///@}
};

} // namespace mcu
