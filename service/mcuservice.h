// The facade over the vehicle MCU as applications see it: signals for what the MCU reports, getters
// for the state last reported, and commands to the MCU.
#pragma once

#include "mcuserviceexport.h"
#include "setupinfo.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>
#include <string>

namespace mcu {

class McuServicePrivate;
class McuSrv;

/// The one way of all applications to the vehicle MCU.
///
/// The host application calls init() once; from then on every report of the MCU link arrives here,
/// is stored once and leaves as a signal. Getters answer from what was last reported and work
/// before init() too: they give the defaults named with them. Operations that need the link do
/// nothing without it and return 0, false or an empty value.
///
/// Everything runs in the event loop of the thread that first called instance(); a link that emits
/// from its own thread is queued into it. Call all operations from that thread. Nothing throws,
/// nothing blocks, and no argument is range-checked: codes pass through as the MCU gives them.
///
/// Reports are not compared with earlier ones: an identical report is emitted again, except where a
/// signal says otherwise.
///
/// const is part of the names that applications are linked against: only the getters that they know
/// as const carry it.
class MCUSERVICE_EXPORT McuService : public QObject {
    Q_OBJECT

public:
    /// The object, created on first use (by one of several threads at most) and destroyed at
    /// process exit. Never null.
    static McuService *instance();

    explicit McuService(QObject *parent = nullptr);
    ~McuService() override;

    /// Binds the facade to the MCU link; see connectService(). Call it once, with the application
    /// object made (its event loop drives the timer) and before relying on any signal: a second
    /// call makes every connection again, so each report would arrive twice.
    bool init();
    /// Prepares the link, hands it to the radio interface, connects all link signals and starts the
    /// 50 ms CAN check timer. Always true.
    bool connectService();
    /// Connects the link's 66 signals; called by connectService() alone.
    void serviceConnectedSignals();

    // Versions and identity

    /// Version texts of the last version report; empty before it.
    QString test_version();
    QString user_version();
    /// MCU software and hardware version, asked from the link; empty without a link.
    QString SOC_version();
    QString HARD_version();
    /// Serial number last reported; empty before.
    QString serialNumber() const;
    /// SNID text last reported; empty before.
    QString snIdName();
    /// SNID checksum; always 0, nothing reports it.
    int snIdChecksum();
    /// Editions last reported; empty before.
    QString getAmpSwEdition();
    QString getAmpHwEdition();
    QString getEcuSwEdition();
    QString getEcuHwEdition();

    // System state

    /// 2 while the setting "mcu_upgrade_status" is true, otherwise the link's boot state; 0 without
    /// a link.
    int startUpState();
    /// Whether the MCU asks for a software renewal, asked from the link; false without a link.
    bool isNeedRenew();
    /// Reverse gear and mute, asked from the link; false without a link.
    bool isReverseFromMcuSrv() const;
    bool isMuteFromMcuSrv() const;
    /// Tail-line values last reported, 0 before. Parking, reverse and headlight are on at 2.
    int parkingState();
    int reverseState();
    int headlightState();
    int muteLineState();
    int dspState() const;
    /// Factory test: the headlight state becomes 2 for mode 1 and 1 for any other mode, and
    /// headlightChanged() is emitted with it. The surround-view bridge is not told.
    void setDayNightModeFromAutoTst(int mode);
    /// Whether attenuation is on: the mute state of the last volume report is not 0.
    bool isAttOn();
    /// Stores the attenuation state; emits nothing.
    void notifyAttState(int state);
    /// Destination code last reported; 256 before.
    int getDest();
    /// Demo mode last reported; 0 before.
    int getDemo();
    /// Setup blocks last reported; all zeros before. syncSetupInfo() and syncSetupInfo1() tell of a
    /// new one.
    SetupInfo setupInfo();
    SetupInfo1 setupInfo1();
    /// True from the first USB power report on, for the life of the process.
    bool isUsbOverCurrent();
    /// True from the first date and time report on.
    bool isDateTimeReady();
    /// Marks date and time ready; emits nothing.
    void notifyDateTime();
    /// A note shared between callers, true at start; the facade does not consult it.
    bool getNeedSyncTimeState();
    void setNeedSyncMcuTime(bool needed);
    /// The Bluetooth-test flag, false at start.
    bool getBttestState();
    void setBttestState(bool state);
    /// Whether a satellite radio is there: always 1.
    int sxmExist();
    /// True when the tuner work status last reported is not 0; false before the first.
    bool radioIsIdle();

    // Antennas

    /// Stores both antenna states (bit 0 connected, bit 1 abnormal) and emits gpsAntennaChanged()
    /// and dabAntennaChanged(), each only when its state differs from the stored one.
    void notifyAntennaStatus(unsigned char gps, unsigned char dab);
    /// GPS state becomes 1, connected; emits nothing.
    void setGpsAntAttach();
    /// GPS state becomes 2, abnormal; emits gpsAntennaChanged(2).
    void setGpsAntShort();
    bool gpsAntennaIsConnected();
    bool gpsAntennaIsAbnormal();
    bool dabAntennaIsConnected();
    bool dabAntennaIsAbnormal();

    // DAB notifications: each emits the signal of its name, nothing is stored.

    void notifyDabAntStatus(int status);
    void notifyDabToFmLinkStatus(int status);
    void notifyDabSelectFreq(int index);
    void notifyDabSelectService(int index);
    void notifyDabMcuRequest(int action, int arg);

    // Factory test

    /// Stores len bytes as the factory-test package and emits autoTestPkgChanged() with them. A
    /// negative length counts as 0.
    void notifyAutoTestPackage(int len, char *data);
    /// Package last stored; empty before.
    QByteArray autoTestPackage() const;
    /// Stores a new factory-test status and emits autoTestStatusChanged(); an unchanged one does
    /// nothing. Any status but 0 starts the factory test handler and routes keys to it; 0 stops it
    /// and takes the facade's keys away again.
    void notifyAutoTestStatus(int status);
    /// Factory-test status last stored; 0, off, before.
    int autoTestStatus() const;

    // Vehicle records: copies of the record last stored, at full length and all zeros before the
    // first report. Whether a report has arrived tell the records' signals and getCANDataSignal().

    /// Air conditioning, 15 bytes.
    QByteArray getReportACDate();
    /// Surround view, 6 bytes.
    QByteArray getReportAVMDate();
    /// Steering angle, 16 bytes.
    QByteArray getSteeringAngleChanged();
    /// Head unit, 12 bytes.
    QByteArray getReportHuDate();
    /// Parking distances, 11 bytes.
    QByteArray getReportPdcDate();
    /// Tyre pressures, 18 bytes.
    QByteArray getReportTpmsDate();
    /// Vehicle body, 8 bytes.
    QByteArray getReportVehicleBodyDate();
    /// Meter settings, 8 bytes.
    QByteArray getReportMeterSetting();
    /// Vehicle faults, 8 bytes.
    QByteArray getReportVehicleFaultData();
    /// Amplifier status, 9 bytes.
    QByteArray getReportAmpStatusDate();
    /// Surround-view calibration command, 4 bytes.
    QByteArray getAvmCalibrationCmdData();
    /// Truck: learning of tyre sensors, 11 bytes.
    QByteArray getTruckTpmsLearnData();
    /// Truck: driver monitoring, 7 bytes.
    QByteArray getTruckDmsData();
    /// Truck: road-sign recognition, 11 bytes.
    QByteArray getTruckRsr1Data();
    /// Truck: driver-assistance lamps, 15 bytes.
    QByteArray getTruckSecurityData();
    /// Truck: vehicle health, 14 bytes.
    QByteArray getTruckVehicleHealthData();
    /// Truck: rear parking sensors, 11 bytes.
    QByteArray getTruckRpasData();
    /// Truck: tyre pressure thresholds, 17 bytes.
    QByteArray getTruckTpmsThresholdData();
    /// Truck: tyre inflation, 17 bytes.
    QByteArray getTruckTpmsCtiData();
    /// Truck: tyre temperatures, 34 bytes.
    QByteArray getTruckTpmsTemperatureData();
    /// Truck: tyre pressures, 17 bytes.
    QByteArray getTruckTpmsPressureData();
    /// Truck: alerts, 7 bytes.
    QByteArray getTruckVehicleAlertsData();
    /// Truck: trip computer, 28 bytes.
    QByteArray getTruckPerformanceParametersData();
    /// Truck: engine and cab temperatures, 20 bytes.
    QByteArray getTruckVehicleParametersData();
    /// Speed of the last vehicle speed record; 0 before.
    int getVehicleSpeed();
    /// First byte of the amplifier status record; 0 before.
    int getAmpStatus();
    /// Car feature code asked from the link: one byte for each decimal number of its ";"-separated
    /// text, empty parts giving 0. Does not use the stored record. Empty without a link.
    QByteArray getReportFeatureCodeChanged();
    /// Extended feature code asked from the link; empty without a link.
    QByteArray getVelroReportFeatureCodeChanged();
    /// Feature data status asked from the link; 0 without a link.
    int getFeatureDataStatus();
    /// True once all seven car reports, or all thirteen truck reports, have been emitted.
    bool getCANDataReady();
    /// The car reports that have been emitted at least once, one bit each: feature code 1, HU 2,
    /// AC 4, TPMS 8, meter setting 16, vehicle fault 32, vehicle body 64.
    int getCANDataSignal();

    // Commands: one-way; what comes of one is reported by a signal. Without a link, before init(),
    // they do nothing and nothing is kept for later; the exceptions say so. Numbers are codes and
    // levels of the MCU and are sent as they are.

    // Commands: volume and mute

    /// One step up or down, or a level.
    void volumePlus();
    void volumeMinus();
    void SetVolume(int level);
    /// Mutes, or lifts the mute of, a kind of sound. When to mute is decided by the manager.
    void setMute(bool mute, int type);
    void setAudioMute(int mute, int type, int flag);
    void setAudioMute2(int mute, int type, int flag);
    /// Sends a mute level unless it is the one sent last, by any caller in the process. 255 counts
    /// as sent at the start. Without a link nothing is remembered.
    void setMuteLevel(int level);
    /// Mute, attenuation and attenuation by 20 dB as the user switches them.
    void uiCmdMute(int on);
    void uiCmdAtt(int on);
    void uiCmdAtt20DB(int on);
    /// Lowers other sound below a prompt, and brings it back.
    void duckAudio(int type, int level);
    void unduckAudio(int type);
    /// Level of ducking in reverse gear.
    void reverseDuckVol(int level);
    void setVolChangePreNext(int value);
    void setVolResponse(int value);
    /// Volume and input gain of one kind of sound.
    void setAudioVolumeValue(int type, int level);
    void setAudioInputGainValue(int type, int gain);
    /// Volume that rises with speed.
    void speedOfSound(int level);

    // Commands: audio routing and status

    /// Values of McuManager's audio channel, audio status and phone-projection status.
    void updateAudioChannel(int channel);
    void updateAudioStatus(int status);
    void updateCPAAStatus(int status);
    /// Mixer channels, one bit each. Must not be called before init(): the link is not tested.
    void setMixChannel(unsigned char channels, unsigned char on);
    void setAudioMode(int mode);
    /// Delays of a type; reads five ints from the pointer. A null pointer sends nothing.
    void setAudioTimerDelay(int type, int *delays);
    /// The playing of a sound has ended.
    void set_UICMD_AUDIO_PlayBack_Comleted(int value);
    /// Native music mode; both names send the same command.
    void setNativeMusicMode(int mode);
    void set_UICMD_Native_Music_Mode(int mode);
    /// Mute of everything for sleep; both names send the same command.
    void set_UICMD_Sleep_All_Mute(int on);
    void setSleepAllMute(int on);
    /// One media or phone record: type code, number of bytes, bytes.
    void updateMultiMediaInfo(int type, int len, QByteArray data);

    // Commands: sound shaping

    /// Equaliser: a preset, or the level of one band.
    void setPresetEQType(int type);
    void setCustomEQValue(int band, int level);
    /// Balance and fader around 0; the MCU receives each plus 25.
    void setBalanceFader(int balance, int fader);
    /// Loudness, by two commands of the MCU.
    void setLoudness(int level);
    void set_UICMD_Loundness(int level);
    void setBassBoost(int level);
    /// Subwoofer, high-pass and low-pass filters (corner frequency and slope) and crossover.
    void setSubwooferValue(int level);
    void setSubwooferPhase(int phase);
    void setHPFValue(int position, int freq, int slope);
    void setLPFValue(int freq, int slope);
    void setRearLpf(int freq, int slope);
    void setFrCrossover(int type, int value);
    /// Speaker levels, one byte a channel, and phase.
    void setSpeakerLevel(QByteArray levels);
    void setSpeakerPhase(int phase);
    /// The built-in amplifier, and the nine values of the amplifier's status message.
    void setInternalAmp(int on);
    void setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3, int AMP_Date4,
                      int AMP_Date5, int AMP_Date6, int AMP_Date7, int AMP_Date8);
    /// Sends a key beep unless the beep interval of the last one still runs. Whatever the type, the
    /// MCU receives 0. Without a link nothing is sent, but the interval starts.
    void triggerBeep(int type);
    /// Shortest time between two beeps in milliseconds; values of 0 and less change nothing. At the
    /// start there is none and every beep is sent. Needs no link.
    void setBeepInterval(int ms);
    /// The key tone on or off.
    void toggleKeyTone(int on);

    // Commands: radio and DAB

    /// RDS of the tuner, its traffic announcements and its alternative frequencies.
    void setRadioRds(bool on);
    void setRadioTA(bool on);
    void setRadioAF(bool on);
    /// Power of the DAB antenna.
    void setDabAntPower(bool on);
    /// A service scan, and tuning to the FM frequency of an index: go to the platform's DAB tuner,
    /// not the MCU, and need no link.
    void dabRequestScan();
    void dabRequestTuneFreq(int index);

    // Commands: steering-wheel keys

    /// Key learning: its modes, and the key to learn next. wheelStudyState() tells of progress and
    /// wheelStudyKeys() of the keys learnt.
    void steeringWheelStudy();
    void steeringWheelTest();
    void steeringWheelNormal();
    void steeringWheelAbandon();
    void steeringWheelReset();
    void steeringWheelStudyKey(int key);
    /// Dual-operation keys.
    void steeringWheelDopState(bool on);
    void steeringWheeldopReset();
    void steeringWheeldopClear();
    void setDopSwc(int key, int action, int value);
    /// Steering-wheel adapter and key functions.
    void setSteeringControl(int value);
    void setSteeringState(int state);
    void sendStwCarTypeToMcu(int type);
    void setKeyStarFunction(int function);
    void updateKeyRotary(int value);

    // Commands: system and power

    /// Must not be called before init(): the link is not tested.
    void setSleepMode(int mode);
    /// Power: off now, off with a delay, and the power key.
    void setPowerOff(bool on);
    void setPowerOffDelay(int on);
    void uiCmdPower();
    /// Reset of the unit, and of the radio alone.
    void uiCmdReset();
    void uiCmdRadioReset();
    /// The source key, and the current mode.
    void uiCmdSource();
    void setCurrentMode(int mode);
    /// Asks the MCU to report something; the codes are the MCU's.
    void requestCommand(int command);
    void factoryReset();
    /// Whether the MCU restarts a unit that no longer answers.
    void setWatchDogEnable(bool enable);
    void setMonitorState(int state);
    void setLoopBack(bool on);
    /// Common voltage of the display panel.
    void setVcomValue(int value);
    /// Illumination; the text is UTF-8.
    void set_Illumination(int type, std::string text, int value1, int value2);
    /// Clock format, and the clock itself.
    void setClockTime(bool is24Hour);
    void syncDatetime(int year, int month, int day, int hour, int minute, int second, int flag);
    /// Destination code and demo mode.
    void setDestCode(int dest, int demo);
    /// Delay of the rear view, and the camera setting.
    void setRearViewDelay(int delay);
    void updateCamraSetup(int on);
    /// Values of McuManager's touch state, and the coordinates.
    void updateTouchCoordinate(int state, int x, int y);
    /// Values of McuManager's device type and device status.
    void updateDeviceStatus(int type, int status);
    void updateBtInputLevel(int level);
    /// Further commands of the user interface.
    void set_UICMD_Reverse_test(int on);
    void set_UICMD_FastAcc(int on);
    void set_UICMD_Speed(int speed);
    void setMeterClearDisplay(int value);
    /// Closes the link.
    void mcuConnClose();

    // Commands: versions, identity and update

    /// Answers to requestAppVersion() and requestBtAddress().
    void updateAppVersion(QString version);
    void updateBtAddress(QString address);
    /// Versions of the unit's software, for the MCU to keep.
    void updateSdkVersion(QString version);
    void updateSysVersion(QString version);
    void setSocVer(QString version1, QString version2);
    /// Must not be called before init(): the link is not tested.
    void setSerialNumer(const QString &serial);
    /// Update of the MCU's own software: its progress, and the start of it.
    void setUpgradeState(int state);
    void mcuUpdate();
    /// ECU edition query of the link, a code of the MCU; 0 without a link.
    int getEcuEdititon();

    // Commands: vehicle (CAN) writes

    /// Values in the order of the MCU's messages.
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
    void setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                          int data6, int data7);
    void setTruckCameraPower(int data0, int data1, int data2, int data3, int data4);
    void setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4, int data5,
                                 int data6, int data7);
    void setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                           int data6, int data7);

    // Commands: factory test

    /// A packet to the test station: number of bytes, bytes.
    void sendAutoTestPkgToMcu(int len, const QByteArray &pkg);

Q_SIGNALS:
    /// The MCU enters shallow sleep.
    void shallowSleep();
    /// Declared for applications; this library does not emit it.
    void attStateChanged(bool on);
    /// The MCU asks for a software renewal.
    void mcuNeedRenew();
    /// A key went down (state 0); follows keyEvent().
    void keyPressed(int key);
    /// A key came up (any other state); follows keyEvent().
    void keyReleased(int key);
    /// A volume report; isMute exactly when the mute state is 1. Follows the form with the state.
    void audioVolumeChanged(bool isMute, int level, int type);
    /// A volume report.
    void audioVolumeChanged(int muteState, int level, int type);
    /// A key report; state 0 is pressed, anything else released.
    void keyEvent(int key, int state);
    /// The volume knob turned.
    void volumeTurn(int state);
    /// Boot state of the MCU.
    void sysBootState(int state);
    /// Progress of steering-wheel key learning.
    void wheelStudyState(int state, int para);
    /// The learnt steering-wheel keys.
    void wheelStudyKeys(QString keys);
    /// A USB power report; any of them means that the over-current warning shows.
    void usbPowerStatus(int status);
    /// A key, volume or knob report after a USB power report: time to close the warning. Comes
    /// first.
    void hideUsbOverPower();
    /// Tail line: the value changed. 2 is on.
    void parkingChanged(int state);
    /// Tail line: the value changed, 2 is on. Also with every AVM report that gives a direction.
    void reverseChanged(int state);
    /// Declared for applications; this library does not emit it.
    void avmReverrseChanged(int);
    /// Tail line: the value changed, 2 is on. Also from setDayNightModeFromAutoTst().
    void headlightChanged(int state);
    /// Tail line: the value changed.
    void muteLineStateChanged(int state);
    /// Tail line: the value changed.
    void dspStateChanged(int state);
    /// Declared for applications; this library does not emit them.
    void extDeviceChanged(int state);
    void sxmDeviceChanged();
    /// Destination code report.
    void syncDestCode(int code);
    /// SNID report.
    void snidChanged(QString snid);
    /// A setup block arrived; read it with setupInfo() or setupInfo1().
    void syncSetupInfo();
    void syncSetupInfo1();
    /// A vehicle report arrived, the whole record as stored. See the getters for lengths.
    void syncACInforUpdate(QByteArray air_infor);
    void syncAVMInforUpdate(QByteArray avm_infor);
    void syncVehicleSpeedInforUpdate(QByteArray vehicle_speed_infor);
    /// Speed alone, after each vehicle speed record.
    void syncSpeedUpdate(int speed);
    void syncSteeringAngleInforUpdate(QByteArray steering_angle_infor);
    /// Either the 5-byte feature code or the extended package; told apart by length.
    void syncFeatureCodeInforUpdate(QByteArray feature_code_infor);
    /// Rate-limited: at once when quiet, then the latest state once more 150 to 200 ms later.
    void syncHuInforUpdate(QByteArray hu_infor);
    void syncAmbInforUpdate(QByteArray amb_infor);
    void syncPdcInforUpdate(QByteArray pdc_infor);
    void syncTpmsInforUpdate(QByteArray tpms_infor);
    void syncVehicleBodyInforUpdate(QByteArray vehicle_body_infor);
    void syncMeterSettingInforUpdate(QByteArray meter_setting_infor);
    /// Rate-limited: at once when quiet, then the latest state 250 to 300 ms after the last report.
    void syncVehicleFaultInforUpdate(QByteArray vehicle_fault_infor);
    void syncAmpStatusUpdate(QByteArray amp_status);
    void syncAvmCalibrationCmdUpdate(QByteArray avm_calibration_cmd);
    /// A truck report arrived, the whole record as stored.
    void syncTruckTpmsLearnInforUpdate(QByteArray truck_tpms_learn_infor);
    void syncTruckDmsInforUpdate(QByteArray truck_dms_infor);
    void syncTruckRsr1InforUpdate(QByteArray truck_rsr1_infor);
    void syncTruckSecurityInforUpdate(QByteArray truck_security_infor);
    void syncTruckVehicleHealthInforUpdate(QByteArray truck_vehicle_health_infor);
    void syncTruckRpasInforUpdate(QByteArray truck_rpas_infor);
    void syncTruckTpmsThresholdUpdate(QByteArray truck_tpms_threshold);
    void syncTruckTpmsCtiInforUpdate(QByteArray truck_tpms_cti_infor);
    /// Diagnostic trouble code flags, 16 bytes.
    void syncDtcFlagInforUpdate(QByteArray dtc_flag_infor);
    void syncTruckTpmsTemperatureUpdate(QByteArray truck_tpms_temperature);
    void syncTruckTpmsPressureUpdate(QByteArray truck_tpms_pressure);
    void syncTruckVehicleAlertsInforUpdate(QByteArray truck_vehicle_alerts_infor);
    void syncTruckPerformanceParametersInforUpdate(QByteArray truck_performance_parameters_infor);
    void syncTruckVehicleParametersInforUpdate(QByteArray truck_vehicle_parameters_infor);
    /// EQ type.
    void eqTypeChanged(int type);
    /// The MCU wants updateAppVersion() or updateBtAddress().
    void requestAppVersion();
    void requestBtAddress();
    /// Track number selected from the MCU.
    void selTrackNum(int num);
    /// The MCU requests a factory reset.
    void reset();
    /// Source code.
    void sourceChanged(int source);
    /// Declared for applications; this library does not emit it. SNID texts travel in
    /// snidChanged().
    void systemSnidChanged();
    /// Action code.
    void requestAction(int action);
    /// Declared for applications; this library does not emit them.
    void discTrayOutRequest();
    void discTrayInReady();
    void discTrayOutReady();
    void discChange();
    void muteState(int state);
    void syncAVMError(QString);
    /// Amplifier overload.
    void ampOverloadStuChanged(int status);
    /// The clock was set from the MCU; not while the user forces a manual time.
    void McuUpdateDateTime();
    /// All seven car or all thirteen truck reports have been emitted; once per process.
    void CANDataReady();
    /// DAB notifications, from the operations of these names.
    void dabAntStatusChanged(int status);
    void dabToFmLinkStatusChanged(int status);
    void dabSelectFreq(int index);
    void dabSelectService(int index);
    void dabMcuRequestAction(int action, int arg);
    /// Radio status. A tuner work status of 0 gives 0 and then 1, any other gives 1: take the last.
    void radioStatusChanged(int status);
    /// Current and scanned radio channels.
    void radioCurrChInfoChanged(int freq, int rssi, int picode);
    void radioScanChInfoChanged(int freq, int rssi, int picode);
    /// A chunk of factory-test packets.
    void autoTestPkgChanged(QByteArray pkg);
    /// The factory-test status changed; 0 is off.
    void autoTestStatusChanged(int status);
    /// Serial number report.
    void serialNumChanged(QString serial);
    /// Antenna state: bit 0 connected, bit 1 abnormal. With every report, changed or not.
    void gpsAntennaChanged(int status);
    void dabAntennaChanged(int status);
    /// Steering-wheel ADC.
    void stwAdcStatusChanged();
    void stwAdcValueChanged(int);
    /// ECU editions arrived; read them with getEcuSwEdition() and getEcuHwEdition().
    void syncEcuEdition();

public Q_SLOTS:
    // Targets of the link's signals, in the thread of the facade.

    void onTaillineState(int parking, int reverse, int headlight, int mute, int dspState);
    void onDatetimeSync(int year, int month, int day, int hour, int minute, int second);
    void onRequestAppVer(int mode);
    void onSystemSnidChanged(QString snid);
    void onSetupInfo1State(int main_volume, int bt_ring_volume, int bt_talking_volume,
                           int navi_volume, int voice_volume, int ta_volume, int radio_input_gain,
                           int usb_input_gain, int bt_audio_input_gain, int aux_input_gain,
                           int carplay_input_gain, int android_auto_input_gain, int loud_status,
                           int rear_view_delay, int poweroff_delay_onoff, int steer_state,
                           int internal_amp_state, int break_volume, int idl_chime_vol, int ti_vol,
                           int idl_warn_vol, int idl_info_vol, int idl_reco_vol, int bt_siri_vol);
    void onSetupInfoState(int bt_input_level, int timer_onoff, int beep_onoff, int camera_onoff,
                          int steering_control, int extra_bass, int eq_type, int eq1_level,
                          int eq2_level, int eq3_level, int eq4_level, int eq5_level, int eq6_level,
                          int eq7_level, int eq8_level, int eq9_level, int eq10_level,
                          int eq11_level, int eq12_level, int eq13_level, int subwoofer_level,
                          int balance_level, int fader_level, int hpf_front_freq, int hpf_rear_freq,
                          int lpf_freq, int subwoofer_phase, int dso, int rotary, int bassboost);
    void onUsbPowerStatus(int status);
    void onKeyEvent(int key, int state);
    void onSetDest(int dest, int demo);
    void onMcuVersion(QString version1, QString version2);
    void onReportAcChanged(int KeyState, int AcType, int Templevel, int ModeDisp,
                           int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl, int ExtTemp,
                           int IndicatorAutoFront, int IndicatorDefrostFront, int IndicatorACFront,
                           int IndicatorOFFFront, int IndicatorACMAX, int InternalRecycle,
                           int DefrostRear);
    void onReportAVMChanged(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                            int SpeedSetResp, int VideoType, int WarnType);
    void onReportVehicleSpeedChanged(int vehicle_speed, int vehicle_speed_valid, int Reserve,
                                     int Reserve1);
    void onReportSteeringAngleChanged(int steering_angle, int steering_angle_dir, int Reserve,
                                      int Reserve1);
    void onReportFeatureCodeChanged(int code0, int code1, int code2, int code3, int code4);
    void onReportFeatureVelroCodeChanged(QByteArray pkg);
    void onReportHuChanged(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                           int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                           int HU_Date10, int HU_Date11);
    void onReportAmbChanged(int State, int ShowModelStatus, int ShowFrequency, int SafeModelSW,
                            int ColorModelSelect, int SynchronizeWithBackLight);
    void onReportPdcChanged(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                            int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                            int RSRPDCDistance, int RFRPDCDistance, int PAS_SW, int PDCSysSts,
                            int ReverseAssisVideo);
    void onReportTpmsChanged(int FLTirePres, int FRTirePres, int RLTirePres, int RRTirePres,
                             int FLPressureWarning, int FRPressureWarning, int RLPressureWarning,
                             int RRPressureWarning, int FLTempHigh, int FRTempHigh, int RLTempHigh,
                             int RRTempHigh, int SystemWarning, int StudyFailureWarning,
                             int FLTireTemp, int FRTireTemp, int RLTireTemp, int RRTireTemp);
    void onReportVehicleBodyChanged(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                    int data4, int data5, int data6, int data7);
    void onReportMeterSettingChanged(int data0, int data1, int data2, int data3, int data4,
                                     int data5, int data6, int data7);
    void onReportVehicleFaultChanged(int data0, int data1, int data2, int data3, int data4,
                                     int data5, int data6, int data7);
    void onAmpStatusChanged(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                            int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                            int AMP_Date8);
    void onAvmCalibrationCmdChanged(int calibration_start, int reserve0, int reserve1,
                                    int reserve2);
    void onSetAmpEdition(QString sw_edition, QString hw_edition);
    void onsetEcuEdition(QString sw_edition, QString hw_edition);
    void
    onReportTruckTpmsLearnChanged(int TPMS_Learn_ResponseFeatureID, int TPMS_Learn_ResponseStatus,
                                  int TPMS_Learn_TireStatusData2, int TPMS_Learn_TireStatusData3,
                                  int TPMS_Learn_TireStatusData4, int TPMS_Learn_TireStatusData5,
                                  int TPMS_Learn_TireStatusData6, int TPMS_Learn_TireStatusData7,
                                  int TPMS_Learn_TireStatusData8, int TPMS_Learn_Reserve1,
                                  int TPMS_Learn_Reserve2);
    void onReportTruckDmsChanged(int DMS_DistractionWarning, int DMS_CanData2, int DMS_CanData3,
                                 int DMS_Reserve1, int DMS_Reserve2, int DMS_Reserve3,
                                 int DMS_Reserve4);
    void onReportTruckRsr1Changed(int RSR1_MenAtWorkSign, int RSR1_StopSign,
                                  int RSR1_RSRSystemState, int RSR1_TSRSpeedSignDetected,
                                  int RSR1_SpeedLimitIconCommand, int RSR1_NarrowRoadSign,
                                  int RSR1_SlipperyRoadSignDetected, int RSR1_Reserve1,
                                  int RSR1_Reserve2, int RSR1_Reserve3, int RSR1_Reserve4);
    void onReportTruckSecurityChanged(
        int Security_LDW_Lamp_Status, int Security_ACC_Lamp_Status, int Security_AEBS_Lamp_Status,
        int Security_AEBS_System_Status, int Security_FLI_Right_Side, int Security_FLI_Left_Side,
        int Security_ACC_Mode, int Security_ACC_Distance_Mode, int Security_ACC_Shutoff_Warning,
        int Security_ACC_Alert_Signal, int Security_TPMS_warning_Lamp, int Security_Reserve1,
        int Security_Reserve2, int Security_Reserve3, int Security_Reserve4);
    void onReportTruckVehicleHealthChanged(
        int Vehicle_Battery_Potential, int Vehicle_Fluid_Tank_Level,
        int Vehicle_Engine_Coolant_Temp, int Vehicle_Coolant_Level, int Vehicle_Transmission_Mode1,
        int Vehicle_Transmission_Mode2, int Vehicle_FuelLevel1, int Vehicle_FuelLevel2,
        int Vehicle_EngOilLevel, int Vehicle_Reserve1, int Vehicle_Reserve2, int Vehicle_Reserve3,
        int Vehicle_Reserve4);
    void onReportTruckRpasChanged(int RPAS_Active_Sensor_Status, int RPAS_Sensor1_Distance,
                                  int RPAS_Sensor2_Distance, int RPAS_Sensor3_Distance,
                                  int RPAS_Sensor4_Distance, int RPAS_Sensor5_Distance,
                                  int RPAS_Shortest_Distance, int RPAS_Warning_Levels,
                                  int RPAS_Reserve1, int RPAS_Reserve2, int RPAS_Reserve3);
    void onReportTruckTpmsThresholdChanged(
        int Axle1_Left_Threshold, int Axle1_Right_Threshold, int Axle2_Left_Threshold,
        int Axle2_Right_Threshold, int Axle3_Left_Threshold, int Axle3_Right_Threshold,
        int Axle4_Left_Outside_Threshold, int Axle4_Left_Inside_Threshold,
        int Axle4_Right_Inside_Threshold, int Axle4_Right_Outside_Threshold,
        int Axle5_Left_Outside_Threshold, int Axle5_Left_Inside_Threshold,
        int Axle5_Right_Inside_Threshold, int Axle5_Right_Outside_Threshold,
        int Axle6_Left_Threshold, int Axle6_Right_Threshold, int First_Spare_Threshold);
    void onReportTruckTpmsCtiChanged(
        int Axle1_Left_CTIInfor, int Axle1_Right_CTIInfor, int Axle2_Left_CTIInfor,
        int Axle2_Right_CTIInfor, int Axle3_Left_CTIInfor, int Axle3_Right_CTIInfor,
        int Axle4_Left_Outside_CTIInfor, int Axle4_Left_Inside_CTIInfor,
        int Axle4_Right_Inside_CTIInfor, int Axle4_Right_Outside_CTIInfor,
        int Axle5_Left_Outside_CTIInfor, int Axle5_Left_Inside_CTIInfor,
        int Axle5_Right_Inside_CTIInfor, int Axle5_Right_Outside_CTIInfor, int Axle6_Left_CTIInfor,
        int Axle6_Right_CTIInfor, int First_Spare_CTIInfor);
    void onReportDtcFlagChanged(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4);
    void onReportTruckTpmsTemperatureChanged(
        int Axle1_Left_Temp, int Axle1_Right_Temp, int Axle2_Left_Temp, int Axle2_Right_Temp,
        int Axle3_Left_Temp, int Axle3_Right_Temp, int Axle4_Left_Outside_Temp,
        int Axle4_Left_Inside_Temp, int Axle4_Right_Inside_Temp, int Axle4_Right_Outside_Temp,
        int Axle5_Left_Outside_Temp, int Axle5_Left_Inside_Temp, int Axle5_Right_Inside_Temp,
        int Axle5_Right_Outside_Temp, int Axle6_Left_Temp, int Axle6_Right_Temp,
        int First_Spare_Temp);
    void onReportTruckTpmsPressureChanged(
        int Axle1_Left_Pressure, int Axle1_Right_Pressure, int Axle2_Left_Pressure,
        int Axle2_Right_Pressure, int Axle3_Left_Pressure, int Axle3_Right_Pressure,
        int Axle4_Left_Outside_Pressure, int Axle4_Left_Inside_Pressure,
        int Axle4_Right_Inside_Pressure, int Axle4_Right_Outside_Pressure,
        int Axle5_Left_Outside_Pressure, int Axle5_Left_Inside_Pressure,
        int Axle5_Right_Inside_Pressure, int Axle5_Right_Outside_Pressure, int Axle6_Left_Pressure,
        int Axle6_Right_Pressure, int First_Spare_Pressure);
    void onReportTruckVehicleAlertsChanged(int Vehicle_Gear_Change, int Vehicle_VehicleOverspeed,
                                           int Vehicle_MSA_Signal, int Vehicle_Reserve1,
                                           int Vehicle_Reserve2, int Vehicle_Reserve3,
                                           int Vehicle_Reserve4);
    void onReportTruckPerformanceParametersChanged(
        int Vehicle_IC_Total_Distance, int Vehicle_IC_Run_Time, int Vehicle_TripA_DistanceL,
        int Vehicle_TripA_DistanceH, int Vehicle_TripA_FuelEffKm, int Vehicle_TripA_FuelEffHrs,
        int Vehicle_TripA_HoursL, int Vehicle_TripA_HoursH, int Vehicle_TripB_DistanceL,
        int Vehicle_TripB_DistanceH, int Vehicle_TripB_FuelEffKm, int Vehicle_TripB_FuelEffHrs,
        int Vehicle_TripB_HoursL, int Vehicle_TripB_HoursH);
    void onReportTruckVehicleParametersChanged(int Vehicle_EngFuelTemp1, int Vehicle_EngOilTemp1,
                                               int Vehicle_DPFLampCmd, int Vehicle_EngOilTemp2,
                                               int Vehicle_EngECUTemp, int Vehicle_CabInteriorTemp,
                                               int Vehicle_AmbientAirTemp,
                                               int Vehicle_EngAirIntakeTemp, int Vehicle_Reserve1,
                                               int Vehicle_Reserve2, int Vehicle_Reserve3,
                                               int Vehicle_Reserve4);
    void onAudioVolume(int muteState, int level, int type);
    void onVolumeTurn(int state);
    void onDabWorkStatus(int status);
    void onAutoTestPkgChanged(QByteArray pkg);
    void onAutoTestStatusChanged(int status);
    void onSerialNumberChanged(QString serial);
    void onStwAdcStatusChanged();
    void onStwCarTypeChanged(int type);
    void onGpsAntennaChanged(int status);
    void onDabAntennaChanged(int status);
    void onCheckCanbusTmrDelay();
    void onStwAdcValueChanged(int value);

private:
    McuSrv *m_link = nullptr; ///< not owned
    QTimer m_beepGuard;
    std::unique_ptr<McuServicePrivate> m_data;
};

} // namespace mcu
