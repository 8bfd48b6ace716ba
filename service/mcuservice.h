/// \file
/// The facade over the vehicle MCU for applications: signals for the reports of the MCU, getters
/// for the last reported state, and commands to the MCU.
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

/// The facade through which all applications reach the vehicle MCU.
///
/// The host application calls init() once. From then on the reports of the MCU link are emitted as
/// signals. What a getter returns is stored before its signal: a getter called inside the signal
/// returns the new value, unless the signal says otherwise. Reports are not compared with earlier
/// ones: an identical report is emitted again, unless the signal says otherwise.
///
/// Values are codes, levels and units of the MCU. They pass through unchanged, and no argument is
/// range-checked, unless a comment says otherwise. A value that a comment does not explain is such
/// a code; an abbreviation without an explanation (DOP, DSP, SNID) is the MCU's. Before the first
/// report and without a link, getters return 0, false or an empty text, unless their comment says
/// otherwise.
///
/// A command sets the value that its comment names. Commands are one-way: a result, if any, is
/// reported by a signal. Without a link they do nothing and are not stored for later, unless their
/// comment says otherwise.
///
/// The object belongs to the thread that first calls instance(). Call all operations from this
/// thread; its event loop must run. Signals that the link emits in another thread are queued to it.
/// Nothing throws, and nothing waits: a command takes as long as the link's.
///
/// Kept: some names are misspelled and few getters are const, because applications are linked
/// against these names.
class MCUSERVICE_EXPORT McuService : public QObject {
    Q_OBJECT

public:
    /// \name Life cycle
    ///@{

    /// The object: created on first use (thread-safe), destroyed at process exit, never null.
    static McuService *instance();
    /// An object without a link, for tests; applications use instance().
    explicit McuService(QObject *parent = nullptr);
    /// Does not delete the link object, which belongs to its own library.
    ~McuService() override;
    /// Connects the facade to the MCU link; see connectService(). Always true.
    /// Call it once, after the application object exists (its event loop drives the CAN check
    /// timer) and before relying on any signal. A second call makes every connection again: each
    /// report then arrives twice, and the rate limits run at double speed.
    bool init();
    /// Takes McuSrv::instance() as the link, calls its init(), passes it to
    /// McuRadioInterface::setMcuSrv(), connects its signals and starts the 50 ms CAN check timer.
    /// Always true. Called by init().
    bool connectService();
    /// Connects the link's 66 signals; called by connectService() alone.
    void serviceConnectedSignals();
    ///@}

    /// \name Versions and identity
    /// Texts of the last report, unless a line says otherwise.
    ///@{

    /// First text of the MCU's version report.
    QString test_version();
    /// Second text of the MCU's version report.
    QString user_version();
    /// Software version of the MCU, queried from the link.
    QString SOC_version();
    /// Hardware version of the MCU, queried from the link.
    QString HARD_version();
    /// Serial number of the device.
    QString serialNumber() const;
    /// SNID text.
    QString snIdName();
    /// SNID checksum. Kept: always 0, because no report carries it; applications call it.
    int snIdChecksum();
    /// Software edition of the amplifier.
    QString getAmpSwEdition();
    /// Hardware edition of the amplifier.
    QString getAmpHwEdition();
    /// Software edition of the ECU.
    QString getEcuSwEdition();
    /// Hardware edition of the ECU.
    QString getEcuHwEdition();
    ///@}

    /// \name System state
    ///@{

    /// Boot state of the MCU, queried from the link. While the platform setting
    /// "mcu_upgrade_status" is true the result is 2, with or without a link.
    int startUpState();
    /// Whether the MCU asks for a software renewal, queried from the link.
    bool isNeedRenew();
    /// Whether reverse gear is engaged, queried from the link.
    bool isReverseFromMcuSrv() const;
    /// Whether the MCU reports mute on, queried from the link.
    bool isMuteFromMcuSrv() const;
    /// Parking lamp of the last tail-line report: 2 is on, any other value is off.
    int parkingState();
    /// Reverse gear of the last tail-line report: 2 is on, any other value is off. The reverse gear
    /// of an AVM report is not stored here; see reverseChanged().
    int reverseState();
    /// Headlight of the last tail-line report: 2 is on, any other value is off. Also set by
    /// setDayNightModeFromAutoTst().
    int headlightState();
    /// Mute line of the last tail-line report, a code of the MCU.
    int muteLineState();
    /// DSP state of the last tail-line report, a code of the MCU.
    int dspState() const;
    /// Factory test: stores 2 as the headlight state for mode 1, and 1 for any other mode. Then
    /// emits headlightChanged() with it, changed or not. The surround-view bridge is not informed.
    void setDayNightModeFromAutoTst(int mode);
    /// Whether attenuation is on: the mute state of the last volume report, or of the last
    /// notifyAttState(), is not 0.
    bool isAttOn();
    /// Stores the attenuation state, 0 for off; emits nothing.
    void notifyAttState(int state);
    /// Destination code of the last report; 256 before it.
    int getDest();
    /// Demo mode of the last destination report.
    int getDemo();
    /// First setup block; syncSetupInfo() announces a new one.
    SetupInfo setupInfo();
    /// Second setup block; syncSetupInfo1() announces a new one.
    SetupInfo1 setupInfo1();
    /// True from the first USB power report on, whatever its status. Kept: nothing clears it; user
    /// interfaces close their warning at hideUsbOverPower().
    bool isUsbOverCurrent();
    /// True from the first date and time report, or notifyDateTime(), on.
    bool isDateTimeReady();
    /// Marks date and time ready; emits nothing.
    void notifyDateTime();
    /// A flag for applications, true at start; not used here.
    bool getNeedSyncTimeState();
    /// Sets the flag of getNeedSyncTimeState().
    void setNeedSyncMcuTime(bool needed);
    /// The Bluetooth-test flag for applications, false at start; not used here.
    bool getBttestState();
    /// Sets the flag of getBttestState().
    void setBttestState(bool state);
    /// Whether a satellite radio exists. Kept: always 1; applications call it.
    int sxmExist();
    /// Whether the last tuner work status is not 0; false before the first. Kept: despite the name,
    /// true means a tuner at work; applications rely on the value.
    bool radioIsIdle();
    ///@}

    /// \name Antennas
    /// An antenna state has two bits: 0 connected, 1 abnormal (short or open). Both states are 0 at
    /// start.
    ///@{

    /// Stores both states. Emits gpsAntennaChanged() and dabAntennaChanged(), each only if its
    /// state differs from the stored one.
    void notifyAntennaStatus(unsigned char gps, unsigned char dab);
    /// Stores 1, connected, as the GPS state; emits nothing.
    void setGpsAntAttach();
    /// Stores 2, abnormal, as the GPS state; emits gpsAntennaChanged() with it, changed or not.
    void setGpsAntShort();
    /// Bit 0 of the GPS state.
    bool gpsAntennaIsConnected();
    /// Bit 1 of the GPS state.
    bool gpsAntennaIsAbnormal();
    /// Bit 0 of the DAB state.
    bool dabAntennaIsConnected();
    /// Bit 1 of the DAB state.
    bool dabAntennaIsAbnormal();
    ///@}

    /// \name DAB notifications
    /// For the DAB tuner's software. Nothing is stored; the values pass through.
    ///@{

    /// Emits dabAntStatusChanged().
    void notifyDabAntStatus(int status);
    /// Emits dabToFmLinkStatusChanged().
    void notifyDabToFmLinkStatus(int status);
    /// Emits dabSelectFreq().
    void notifyDabSelectFreq(int index);
    /// Emits dabSelectService().
    void notifyDabSelectService(int index);
    /// Emits dabMcuRequestAction().
    void notifyDabMcuRequest(int action, int arg);
    ///@}

    /// \name Factory test mode
    ///@{

    /// Stores len bytes as the factory-test package and emits autoTestPkgChanged() with them. A
    /// negative len counts as 0; the package is then empty and emitted all the same.
    void notifyAutoTestPackage(int len, char *data);
    /// Package stored last; empty before.
    QByteArray autoTestPackage() const;
    /// Stores a changed status. A status other than 0 then starts AutoTestHandler and connects the
    /// keys to it; 0 stops it and disconnects keyEvent(). Emits autoTestStatusChanged() last. An
    /// unchanged status is only logged.
    /// Kept: the platform's panel keys stay connected after the mode ends, and each change to a
    /// status other than 0 connects the keys once more; test stations know the repeated key
    /// reports.
    void notifyAutoTestStatus(int status);
    /// Factory-test status stored last; 0, off, before.
    int autoTestStatus() const;
    ///@}

    /// \name Vehicle record getters
    /// Copies of the last report as a record of bytes, at full length; all zeros before the first
    /// report. docs/vehicle-records.md has the fields of each. To learn whether a report has
    /// arrived, use its signal or getCANDataSignal().
    ///@{

    /// Air conditioning, 15 bytes.
    QByteArray getReportACDate();
    /// Surround view (AVM), 6 bytes.
    QByteArray getReportAVMDate();
    /// Steering angle, 16 bytes.
    QByteArray getSteeringAngleChanged();
    /// Head unit, 12 bytes; the latest report also while its signal is held back.
    QByteArray getReportHuDate();
    /// Parking distances, 11 bytes.
    QByteArray getReportPdcDate();
    /// Tyre pressures, 18 bytes.
    QByteArray getReportTpmsDate();
    /// Vehicle body, 8 bytes.
    QByteArray getReportVehicleBodyDate();
    /// Meter settings, 8 bytes.
    QByteArray getReportMeterSetting();
    /// Vehicle faults, 8 bytes; the latest report also while its signal is held back.
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
    /// Truck: central tyre inflation, 17 bytes.
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
    ///@}

    /// \name Vehicle values and readiness
    ///@{

    /// Speed of the last vehicle speed record.
    int getVehicleSpeed();
    /// First byte of the amplifier status record, 0 to 255.
    int getAmpStatus();
    /// Car feature code, queried from the link: the low byte of each decimal number of its
    /// ";"-separated text. A part that is empty or not a number becomes 0, so an empty text becomes
    /// one byte 0. Does not use the stored record.
    QByteArray getReportFeatureCodeChanged();
    /// Extended feature code, queried from the link.
    QByteArray getVelroReportFeatureCodeChanged();
    /// Status of the feature data, queried from the link.
    int getFeatureDataStatus();
    /// Whether all seven car reports, or all thirteen truck reports, have been emitted.
    bool getCANDataReady();
    /// The car reports that have been emitted at least once, one bit each: feature code 1, HU 2, AC
    /// 4, TPMS 8, meter setting 16, vehicle fault 32, vehicle body 64. A bit is set after the
    /// report's signal has returned.
    int getCANDataSignal();
    ///@}

    /// \name Commands: volume and mute
    ///@{

    /// Raises the volume by one step.
    void volumePlus();
    /// Lowers the volume by one step.
    void volumeMinus();
    /// Sets the volume. Kept: applications are linked against the capital S.
    void SetVolume(int level);
    /// Mutes (true) or unmutes one type of sound. McuManager decides when to mute; this only sends.
    void setMute(bool mute, int type);
    /// Audio mute of one type of sound, with a flag.
    void setAudioMute(int mute, int type, int flag);
    /// Second form of the audio mute; McuManager covers switches of the main audio with it.
    void setAudioMute2(int mute, int type, int flag);
    /// Sends a mute level, unless it is the one sent last by any caller in the process; 255 counts
    /// as sent at start. Without a link nothing is sent and nothing counts as sent.
    void setMuteLevel(int level);
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

    /// \name Commands: audio routing and status
    ///@{

    /// Audio channel, a value of McuManager::AudioChannel.
    void updateAudioChannel(int channel);
    /// Audio status, a value of McuManager::AudioStatus.
    void updateAudioStatus(int status);
    /// Phone-projection status, a value of McuManager::CPAAStatus.
    void updateCPAAStatus(int status);
    /// Mixer channels, one bit for each, and what to switch them to. Kept: no null check, so that a
    /// call before init(), which is a programming error, is noticed.
    void setMixChannel(unsigned char channels, unsigned char on);
    /// Audio mode.
    void setAudioMode(int mode);
    /// Five delays of one type; delays must point to five ints. A null pointer sends nothing.
    void setAudioTimerDelay(int type, int *delays);
    /// The playback of a sound has ended. Kept: applications are linked against this spelling.
    void set_UICMD_AUDIO_PlayBack_Comleted(int value);
    /// Native music mode.
    void setNativeMusicMode(int mode);
    /// Kept: second name of setNativeMusicMode(); applications know both.
    void set_UICMD_Native_Music_Mode(int mode);
    /// Mute of all sound for sleep.
    void set_UICMD_Sleep_All_Mute(int on);
    /// Kept: second name of set_UICMD_Sleep_All_Mute(); applications know both.
    void setSleepAllMute(int on);
    /// One media or phone record for the MCU's own display: type code, number of bytes, bytes.
    /// McuManager builds them.
    void updateMultiMediaInfo(int type, int len, QByteArray data);
    ///@}

    /// \name Commands: sound shaping
    ///@{

    /// Selects an equaliser preset.
    void setPresetEQType(int type);
    /// Level of one equaliser band.
    void setCustomEQValue(int band, int level);
    /// Balance and fader, 0 being the middle. The MCU receives each plus 25.
    void setBalanceFader(int balance, int fader);
    /// Loudness.
    void setLoudness(int level);
    /// Loudness by the MCU's second command for it. Kept: applications are linked against this
    /// spelling.
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
    void setSpeakerPhase(int phase);
    /// Built-in amplifier on or off.
    void setInternalAmp(int on);
    /// The nine bytes of the amplifier's status message.
    void setAmpStatus(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3, int AMP_Date4,
                      int AMP_Date5, int AMP_Date6, int AMP_Date7, int AMP_Date8);
    /// Sends a key beep, unless the interval after the last one still runs. Without a link nothing
    /// is sent, but the interval starts. Kept: type is ignored and 0 is sent; applications pass
    /// types, the MCU has one beep.
    void triggerBeep(int type);
    /// Shortest time between two beeps in milliseconds; needs no link. 0 and less change nothing.
    /// At start there is no interval: every call beeps. A running interval starts anew.
    void setBeepInterval(int ms);
    /// Key tone on or off.
    void toggleKeyTone(int on);
    ///@}

    /// \name Commands: radio and DAB
    ///@{

    /// RDS of the tuner on or off.
    void setRadioRds(bool on);
    /// Traffic announcements of the tuner on or off.
    void setRadioTA(bool on);
    /// Alternative frequencies of the tuner on or off.
    void setRadioAF(bool on);
    /// Power of the DAB antenna on or off.
    void setDabAntPower(bool on);
    /// Starts a DAB scan. Goes to the platform's tuner, not to the MCU; needs no link.
    void dabRequestScan();
    /// Tunes to the DAB frequency of an index. Goes to the platform's tuner, not to the MCU; needs
    /// no link.
    void dabRequestTuneFreq(int index);
    ///@}

    /// \name Commands: steering-wheel keys
    /// wheelStudyState() reports the progress of key learning and wheelStudyKeys() the learnt keys.
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
    /// DOP keys on or off.
    void steeringWheelDopState(bool on);
    /// Resets the DOP keys. Kept: applications are linked against this spelling.
    void steeringWheeldopReset();
    /// Clears the DOP keys. Kept: applications are linked against this spelling.
    void steeringWheeldopClear();
    /// Action and value of a DOP key.
    void setDopSwc(int key, int action, int value);
    /// Steering-wheel control.
    void setSteeringControl(int value);
    /// Steering-wheel state.
    void setSteeringState(int state);
    /// Car type for the steering-wheel keys. The MCU's own report of it is ignored.
    void sendStwCarTypeToMcu(int type);
    /// Function of the star key.
    void setKeyStarFunction(int function);
    /// Setting of the rotary knob.
    void updateKeyRotary(int value);
    ///@}

    /// \name Commands: system and power
    ///@{

    /// Sleep mode. Kept: no null check, so that a call before init(), which is a programming error,
    /// is noticed.
    void setSleepMode(int mode);
    /// Power-off: true is sent as 1, false as 0.
    void setPowerOff(bool on);
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
    /// Requests a report from the MCU by its code; the request...() operations of McuManager send
    /// known ones.
    void requestCommand(int command);
    /// Requests the reset to factory settings from the MCU.
    void factoryReset();
    /// Watchdog of the MCU on or off. McuManager::setWatchDogEnable() repeats it as long as it is
    /// on.
    void setWatchDogEnable(bool enable);
    /// State of the monitor.
    void setMonitorState(int state);
    /// Loop-back on or off.
    void setLoopBack(bool on);
    /// VCOM value of the display panel.
    void setVcomValue(int value);
    /// Illumination of a type; text is UTF-8.
    void set_Illumination(int type, std::string text, int value1, int value2);
    /// Clock format: 24 hours (true) or 12 hours.
    void setClockTime(bool is24Hour);
    /// Sets the MCU's clock.
    void syncDatetime(int year, int month, int day, int hour, int minute, int second, int flag);
    /// Destination code and demo mode.
    void setDestCode(int dest, int demo);
    /// Delay of the rear view.
    void setRearViewDelay(int delay);
    /// Camera setting, on or off. Kept: applications are linked against this spelling.
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
    void setMeterClearDisplay(int value);
    /// Closes the link.
    void mcuConnClose();
    ///@}

    /// \name Commands: versions, identity and update
    ///@{

    /// Version of the application; answers requestAppVersion().
    void updateAppVersion(QString version);
    /// Bluetooth address of the unit; answers requestBtAddress().
    void updateBtAddress(QString address);
    /// Version of the SDK.
    void updateSdkVersion(QString version);
    /// Version of the system software.
    void updateSysVersion(QString version);
    /// Two version texts of the SoC.
    void setSocVer(QString version1, QString version2);
    /// Serial number of the device. Kept: no null check, so that a call before init(), which is a
    /// programming error, is noticed. Applications are linked against this spelling.
    void setSerialNumer(const QString &serial);
    /// State of an update.
    void setUpgradeState(int state);
    /// Starts the update of the MCU's own software.
    void mcuUpdate();
    /// ECU edition query of the link, a code of the MCU. Kept: applications are linked against this
    /// spelling.
    int getEcuEdititon();
    ///@}

    /// \name Commands: vehicle (CAN) writes
    /// Values are those of the MCU's messages, in their order.
    ///@{

    /// Vehicle speed.
    void sendVehicleSpeed(int speed);
    /// Vehicle information. Kept: applications are linked against this spelling.
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
    /// Truck: ACC information.
    void setTruckAccInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                          int data6, int data7);
    /// Truck: power of the cameras.
    void setTruckCameraPower(int data0, int data1, int data2, int data3, int data4);
    /// Truck: OTP infotainment.
    void setTruckOtpInfotainment(int data0, int data1, int data2, int data3, int data4, int data5,
                                 int data6, int data7);
    /// Truck: tyre pressure monitoring.
    void setTruckTpmsInfor(int data0, int data1, int data2, int data3, int data4, int data5,
                           int data6, int data7);
    ///@}

    /// \name Commands: factory test
    ///@{

    /// A packet to the test station: number of bytes, bytes. AutoTestHandler builds them.
    void sendAutoTestPkgToMcu(int len, const QByteArray &pkg);
    ///@}

Q_SIGNALS:
    /// \name Sleep, attenuation, renewal
    ///@{

    /// The MCU enters shallow sleep.
    void shallowSleep();
    /// Kept: never emitted here; applications connect to it.
    void attStateChanged(bool on);
    /// The MCU asks for a software renewal.
    void mcuNeedRenew();
    ///@}

    /// \name Keys and volume
    ///@{

    /// A key was pressed (state 0); follows keyEvent().
    void keyPressed(int key);
    /// A key was released (any other state); follows keyEvent().
    void keyReleased(int key);
    /// A volume report; isMute is true exactly when the mute state is 1. Follows the form with the
    /// mute state.
    void audioVolumeChanged(bool isMute, int level, int type); // clazy:exclude=overloaded-signal
    /// A volume report: mute state, level and type of sound, all codes of the MCU.
    void audioVolumeChanged(int muteState, int level, int type); // clazy:exclude=overloaded-signal
    /// A key report: state 0 is pressed, any other released. Keys are not stored.
    void keyEvent(int key, int state);
    /// The volume knob was turned.
    void volumeTurn(int state);
    ///@}

    /// \name Start, key learning, USB power
    ///@{

    /// Boot state of the MCU.
    void sysBootState(int state);
    /// Progress of steering-wheel key learning.
    void wheelStudyState(int state, int para);
    /// The learnt steering-wheel keys.
    void wheelStudyKeys(QString keys);
    /// A USB power report. Any of them, whatever its status, means that the over-current warning is
    /// shown.
    void usbPowerStatus(int status);
    /// A key, volume or knob report arrived while isUsbOverCurrent() is true: user interfaces close
    /// the warning. Emitted before the report's own signals.
    void hideUsbOverPower();
    ///@}

    /// \name Tail line
    /// A tail-line report emits, in the order parking, reverse, headlight, mute line, DSP, those
    /// that differ from the stored value; each is stored just before its signal. Parking, reverse
    /// and headlight are on at 2.
    ///@{

    /// The parking lamp changed.
    void parkingChanged(int state);
    /// The reverse gear changed. Also emitted before each AVM record, changed or not, and not
    /// stored: 1 when bit 0 of its WorkState is 0, 2 when that bit is 1 and its WarnType is not 4,
    /// otherwise nothing.
    void reverseChanged(int state);
    /// Kept: never emitted here; applications connect to it by this spelling.
    void avmReverrseChanged(int);
    /// The headlight changed. Also emitted by setDayNightModeFromAutoTst().
    void headlightChanged(int state);
    /// The mute line changed.
    void muteLineStateChanged(int state);
    /// The DSP state changed.
    void dspStateChanged(int state);
    ///@}

    /// \name Devices, identity and setup
    ///@{

    /// Kept: never emitted here; McuManager relays it and applications connect to it.
    void extDeviceChanged(int state);
    /// Kept: never emitted here; applications connect to it.
    void sxmDeviceChanged();
    /// A destination report; getDemo() has its demo mode.
    void syncDestCode(int code);
    /// An SNID report.
    void snidChanged(QString snid);
    /// The first setup block arrived; read it with setupInfo().
    void syncSetupInfo();
    /// The second setup block arrived; read it with setupInfo1().
    void syncSetupInfo1();
    ///@}

    /// \name Vehicle record signals
    /// A vehicle report arrived; the argument is a copy of the whole record as stored.
    /// docs/vehicle-records.md has the fields of each.
    ///@{

    /// Air conditioning, 15 bytes.
    void syncACInforUpdate(QByteArray air_infor);
    /// Surround view (AVM), 6 bytes; reverseChanged() may come first.
    void syncAVMInforUpdate(QByteArray avm_infor);
    /// Vehicle speed, 16 bytes.
    void syncVehicleSpeedInforUpdate(QByteArray vehicle_speed_infor);
    /// Vehicle speed alone, after each vehicle speed record.
    void syncSpeedUpdate(int speed);
    /// Steering angle, 16 bytes.
    void syncSteeringAngleInforUpdate(QByteArray steering_angle_infor);
    /// Feature code, 5 bytes, or the extended package; receivers tell them apart by length.
    void syncFeatureCodeInforUpdate(QByteArray feature_code_infor);
    /// Head unit, 12 bytes. Rate-limited: the first report is emitted at once, the reports of the
    /// next 150 to 200 ms are only stored, then the latest one is emitted, even if there was no
    /// further one.
    void syncHuInforUpdate(QByteArray hu_infor);
    /// Ambient light, 6 bytes.
    void syncAmbInforUpdate(QByteArray amb_infor);
    /// Parking distances, 11 bytes.
    void syncPdcInforUpdate(QByteArray pdc_infor);
    /// Tyre pressures, 18 bytes.
    void syncTpmsInforUpdate(QByteArray tpms_infor);
    /// Vehicle body, 8 bytes.
    void syncVehicleBodyInforUpdate(QByteArray vehicle_body_infor);
    /// Meter settings, 8 bytes.
    void syncMeterSettingInforUpdate(QByteArray meter_setting_infor);
    /// Vehicle faults, 8 bytes. Rate-limited: the first report is emitted at once, further ones are
    /// only stored until none has come for 250 to 300 ms, then the latest one is emitted, even if
    /// there was no further one.
    void syncVehicleFaultInforUpdate(QByteArray vehicle_fault_infor);
    /// Amplifier status, 9 bytes.
    void syncAmpStatusUpdate(QByteArray amp_status);
    /// Surround-view calibration command, 4 bytes.
    void syncAvmCalibrationCmdUpdate(QByteArray avm_calibration_cmd);
    /// Truck: learning of tyre sensors, 11 bytes.
    void syncTruckTpmsLearnInforUpdate(QByteArray truck_tpms_learn_infor);
    /// Truck: driver monitoring, 7 bytes.
    void syncTruckDmsInforUpdate(QByteArray truck_dms_infor);
    /// Truck: road-sign recognition, 11 bytes.
    void syncTruckRsr1InforUpdate(QByteArray truck_rsr1_infor);
    /// Truck: driver-assistance lamps, 15 bytes.
    void syncTruckSecurityInforUpdate(QByteArray truck_security_infor);
    /// Truck: vehicle health, 14 bytes.
    void syncTruckVehicleHealthInforUpdate(QByteArray truck_vehicle_health_infor);
    /// Truck: rear parking sensors, 11 bytes.
    void syncTruckRpasInforUpdate(QByteArray truck_rpas_infor);
    /// Truck: tyre pressure thresholds, 17 bytes.
    void syncTruckTpmsThresholdUpdate(QByteArray truck_tpms_threshold);
    /// Truck: central tyre inflation, 17 bytes.
    void syncTruckTpmsCtiInforUpdate(QByteArray truck_tpms_cti_infor);
    /// Flags of the diagnostic trouble codes, 16 bytes; cars too.
    void syncDtcFlagInforUpdate(QByteArray dtc_flag_infor);
    /// Truck: tyre temperatures, 34 bytes.
    void syncTruckTpmsTemperatureUpdate(QByteArray truck_tpms_temperature);
    /// Truck: tyre pressures, 17 bytes.
    void syncTruckTpmsPressureUpdate(QByteArray truck_tpms_pressure);
    /// Truck: alerts, 7 bytes.
    void syncTruckVehicleAlertsInforUpdate(QByteArray truck_vehicle_alerts_infor);
    /// Truck: trip computer, 28 bytes.
    void syncTruckPerformanceParametersInforUpdate(QByteArray truck_performance_parameters_infor);
    /// Truck: engine and cab temperatures, 20 bytes.
    void syncTruckVehicleParametersInforUpdate(QByteArray truck_vehicle_parameters_infor);
    ///@}

    /// \name Reports and requests of the MCU
    ///@{

    /// Equaliser type.
    void eqTypeChanged(int type);
    /// The MCU requests updateAppVersion().
    void requestAppVersion();
    /// The MCU requests updateBtAddress().
    void requestBtAddress();
    /// Track number that was selected through the MCU.
    void selTrackNum(int num);
    /// The MCU requests a reset to factory settings.
    void reset();
    /// Audio source, a code of the MCU.
    void sourceChanged(int source);
    /// Kept: never emitted here; applications connect to it. SNID texts come with snidChanged().
    void systemSnidChanged();
    /// The MCU requests an action, a code of the MCU.
    void requestAction(int action);
    ///@}

    /// \name Disc, mute and errors
    ///@{

    /// Kept: never emitted here; applications connect to it.
    void discTrayOutRequest();
    /// Kept: never emitted here; applications connect to it.
    void discTrayInReady();
    /// Kept: never emitted here; applications connect to it.
    void discTrayOutReady();
    /// Kept: never emitted here; McuManager relays it and applications connect to it.
    void discChange();
    /// Kept: never emitted here; applications connect to it.
    void muteState(int state);
    /// Kept: never emitted here; applications connect to it.
    void syncAVMError(QString);
    /// Overload status of the amplifier.
    void ampOverloadStuChanged(int status);
    ///@}

    /// \name Clock and readiness
    ///@{

    /// The system clock was set from the MCU's date and time. Not emitted while the user forces a
    /// manual time: the clock is then left alone.
    void McuUpdateDateTime();
    /// All seven car reports, or all thirteen truck reports, have been emitted. Emitted once in a
    /// process, after the signal of the report that completes a set.
    void CANDataReady();
    ///@}

    /// \name DAB and radio
    /// The DAB signals come from the notify...() operations alone.
    ///@{

    /// Status of the DAB antenna.
    void dabAntStatusChanged(int status);
    /// Status of the link from DAB to FM.
    void dabToFmLinkStatusChanged(int status);
    /// The frequency of an index was selected.
    void dabSelectFreq(int index);
    /// The service of an index was selected.
    void dabSelectService(int index);
    /// The MCU requests an action with an argument.
    void dabMcuRequestAction(int action, int arg);
    /// Radio status of the MCU. Also emitted for a tuner work status: 0 and then 1 for a status of
    /// 0, else 1 alone. Kept: applications take the last value.
    void radioStatusChanged(int status);
    /// Current radio channel: frequency, signal strength, PI code.
    void radioCurrChInfoChanged(int freq, int rssi, int picode);
    /// A radio channel that the scan found: frequency, signal strength, PI code.
    void radioScanChInfoChanged(int freq, int rssi, int picode);
    ///@}

    /// \name Factory test, identity, antennas and steering wheel
    ///@{

    /// A chunk of the test station's packets, from the MCU or notifyAutoTestPackage().
    void autoTestPkgChanged(QByteArray pkg);
    /// The factory-test status changed; 0 is off.
    void autoTestStatusChanged(int status);
    /// A serial number report.
    void serialNumChanged(QString serial);
    /// GPS antenna state: bit 0 connected, bit 1 abnormal. Emitted for each report of the MCU,
    /// changed or not.
    void gpsAntennaChanged(int status);
    /// DAB antenna state, as gpsAntennaChanged().
    void dabAntennaChanged(int status);
    /// The status of the steering-wheel ADC changed.
    void stwAdcStatusChanged();
    /// A value of the steering-wheel ADC.
    void stwAdcValueChanged(int);
    /// New ECU editions; read them with getEcuSwEdition() and getEcuHwEdition().
    void syncEcuEdition();
    ///@}

public Q_SLOTS:
    /// \name Targets of the link's system signals
    /// They run in the thread of the facade and store values unchecked. For the link alone:
    /// applications connect to the signals that they emit.
    ///@{

    /// Emits those of the five tail-line signals whose value changed, then passes headlight,
    /// reverse and parking (2 is on) to McuVechicleBridge, changed or not.
    void onTaillineState(int parking, int reverse, int headlight, int mute, int dspState);
    /// Marks date and time ready. Unless the user forces a manual time, sets the system clock and
    /// emits McuUpdateDateTime().
    void onDatetimeSync(int year, int month, int day, int hour, int minute, int second);
    /// Emits requestBtAddress() for mode 1, else requestAppVersion().
    void onRequestAppVer(int mode);
    /// Stores the SNID text and emits snidChanged().
    void onSystemSnidChanged(QString snid);
    /// Stores the second setup block and emits syncSetupInfo1().
    void onSetupInfo1State(int main_volume, int bt_ring_volume, int bt_talking_volume,
                           int navi_volume, int voice_volume, int ta_volume, int radio_input_gain,
                           int usb_input_gain, int bt_audio_input_gain, int aux_input_gain,
                           int carplay_input_gain, int android_auto_input_gain, int loud_status,
                           int rear_view_delay, int poweroff_delay_onoff, int steer_state,
                           int internal_amp_state, int break_volume, int idl_chime_vol, int ti_vol,
                           int idl_warn_vol, int idl_info_vol, int idl_reco_vol, int bt_siri_vol);
    /// Stores the first setup block and emits syncSetupInfo().
    void onSetupInfoState(int bt_input_level, int timer_onoff, int beep_onoff, int camera_onoff,
                          int steering_control, int extra_bass, int eq_type, int eq1_level,
                          int eq2_level, int eq3_level, int eq4_level, int eq5_level, int eq6_level,
                          int eq7_level, int eq8_level, int eq9_level, int eq10_level,
                          int eq11_level, int eq12_level, int eq13_level, int subwoofer_level,
                          int balance_level, int fader_level, int hpf_front_freq, int hpf_rear_freq,
                          int lpf_freq, int subwoofer_phase, int dso, int rotary, int bassboost);
    /// Sets isUsbOverCurrent() to true and emits usbPowerStatus().
    void onUsbPowerStatus(int status);
    /// Emits hideUsbOverPower() if due, keyEvent(), then keyPressed() for state 0, else
    /// keyReleased().
    void onKeyEvent(int key, int state);
    /// Stores destination code and demo mode and emits syncDestCode().
    void onSetDest(int dest, int demo);
    /// Stores test_version() and user_version(); emits nothing.
    void onMcuVersion(QString version1, QString version2);
    ///@}

    /// \name Targets of the link's vehicle reports
    /// Each stores its record and emits the signal named; docs/vehicle-records.md has the fields.
    /// Eight-bit fields keep the low byte.
    ///@{

    /// Emits syncACInforUpdate().
    void onReportAcChanged(int KeyState, int AcType, int Templevel, int ModeDisp,
                           int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl, int ExtTemp,
                           int IndicatorAutoFront, int IndicatorDefrostFront, int IndicatorACFront,
                           int IndicatorOFFFront, int IndicatorACMAX, int InternalRecycle,
                           int DefrostRear);
    /// Emits reverseChanged() if the report shows the direction, stores, then emits
    /// syncAVMInforUpdate().
    void onReportAVMChanged(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                            int SpeedSetResp, int VideoType, int WarnType);
    /// Passes the speed to McuVechicleBridge, emits syncVehicleSpeedInforUpdate(), then
    /// syncSpeedUpdate().
    void onReportVehicleSpeedChanged(int vehicle_speed, int vehicle_speed_valid, int Reserve,
                                     int Reserve1);
    /// Emits syncSteeringAngleInforUpdate(), then passes the angle to McuVechicleBridge, unless it
    /// is 65535 (invalid).
    void onReportSteeringAngleChanged(int steering_angle, int steering_angle_dir, int Reserve,
                                      int Reserve1);
    /// Emits syncFeatureCodeInforUpdate().
    void onReportFeatureCodeChanged(int code0, int code1, int code2, int code3, int code4);
    /// Stores the extended package and emits syncFeatureCodeInforUpdate() with it.
    void onReportFeatureVelroCodeChanged(QByteArray pkg);
    /// Emits syncHuInforUpdate(), rate-limited.
    void onReportHuChanged(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3, int HU_Date4,
                           int HU_Date5, int HU_Date6, int HU_Date7, int HU_Date8, int HU_Date9,
                           int HU_Date10, int HU_Date11);
    /// Emits syncAmbInforUpdate().
    void onReportAmbChanged(int State, int ShowModelStatus, int ShowFrequency, int SafeModelSW,
                            int ColorModelSelect, int SynchronizeWithBackLight);
    /// Emits syncPdcInforUpdate(), then passes the unshortened values to McuVechicleBridge.
    void onReportPdcChanged(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                            int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                            int RSRPDCDistance, int RFRPDCDistance, int PAS_SW, int PDCSysSts,
                            int ReverseAssisVideo);
    /// Emits syncTpmsInforUpdate().
    void onReportTpmsChanged(int FLTirePres, int FRTirePres, int RLTirePres, int RRTirePres,
                             int FLPressureWarning, int FRPressureWarning, int RLPressureWarning,
                             int RRPressureWarning, int FLTempHigh, int FRTempHigh, int RLTempHigh,
                             int RRTempHigh, int SystemWarning, int StudyFailureWarning,
                             int FLTireTemp, int FRTireTemp, int RLTireTemp, int RRTireTemp);
    /// Passes turn switch and doors to McuVechicleBridge, then emits syncVehicleBodyInforUpdate().
    void onReportVehicleBodyChanged(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                    int data4, int data5, int data6, int data7);
    /// Emits syncMeterSettingInforUpdate().
    void onReportMeterSettingChanged(int data0, int data1, int data2, int data3, int data4,
                                     int data5, int data6, int data7);
    /// Emits syncVehicleFaultInforUpdate(), rate-limited.
    void onReportVehicleFaultChanged(int data0, int data1, int data2, int data3, int data4,
                                     int data5, int data6, int data7);
    /// Emits syncAmpStatusUpdate().
    void onAmpStatusChanged(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                            int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                            int AMP_Date8);
    /// Emits syncAvmCalibrationCmdUpdate().
    void onAvmCalibrationCmdChanged(int calibration_start, int reserve0, int reserve1,
                                    int reserve2);
    /// Stores the amplifier editions; emits nothing.
    void onSetAmpEdition(QString sw_edition, QString hw_edition);
    /// Stores the ECU editions and emits syncEcuEdition(). Kept: this spelling is part of the
    /// meta-object that applications know.
    void onsetEcuEdition(QString sw_edition, QString hw_edition);
    /// Emits syncTruckTpmsLearnInforUpdate().
    void
    onReportTruckTpmsLearnChanged(int TPMS_Learn_ResponseFeatureID, int TPMS_Learn_ResponseStatus,
                                  int TPMS_Learn_TireStatusData2, int TPMS_Learn_TireStatusData3,
                                  int TPMS_Learn_TireStatusData4, int TPMS_Learn_TireStatusData5,
                                  int TPMS_Learn_TireStatusData6, int TPMS_Learn_TireStatusData7,
                                  int TPMS_Learn_TireStatusData8, int TPMS_Learn_Reserve1,
                                  int TPMS_Learn_Reserve2);
    /// Emits syncTruckDmsInforUpdate().
    void onReportTruckDmsChanged(int DMS_DistractionWarning, int DMS_CanData2, int DMS_CanData3,
                                 int DMS_Reserve1, int DMS_Reserve2, int DMS_Reserve3,
                                 int DMS_Reserve4);
    /// Emits syncTruckRsr1InforUpdate().
    void onReportTruckRsr1Changed(int RSR1_MenAtWorkSign, int RSR1_StopSign,
                                  int RSR1_RSRSystemState, int RSR1_TSRSpeedSignDetected,
                                  int RSR1_SpeedLimitIconCommand, int RSR1_NarrowRoadSign,
                                  int RSR1_SlipperyRoadSignDetected, int RSR1_Reserve1,
                                  int RSR1_Reserve2, int RSR1_Reserve3, int RSR1_Reserve4);
    /// Emits syncTruckSecurityInforUpdate().
    void onReportTruckSecurityChanged(
        int Security_LDW_Lamp_Status, int Security_ACC_Lamp_Status, int Security_AEBS_Lamp_Status,
        int Security_AEBS_System_Status, int Security_FLI_Right_Side, int Security_FLI_Left_Side,
        int Security_ACC_Mode, int Security_ACC_Distance_Mode, int Security_ACC_Shutoff_Warning,
        int Security_ACC_Alert_Signal, int Security_TPMS_warning_Lamp, int Security_Reserve1,
        int Security_Reserve2, int Security_Reserve3, int Security_Reserve4);
    /// Emits syncTruckVehicleHealthInforUpdate().
    void onReportTruckVehicleHealthChanged(
        int Vehicle_Battery_Potential, int Vehicle_Fluid_Tank_Level,
        int Vehicle_Engine_Coolant_Temp, int Vehicle_Coolant_Level, int Vehicle_Transmission_Mode1,
        int Vehicle_Transmission_Mode2, int Vehicle_FuelLevel1, int Vehicle_FuelLevel2,
        int Vehicle_EngOilLevel, int Vehicle_Reserve1, int Vehicle_Reserve2, int Vehicle_Reserve3,
        int Vehicle_Reserve4);
    /// Emits syncTruckRpasInforUpdate().
    void onReportTruckRpasChanged(int RPAS_Active_Sensor_Status, int RPAS_Sensor1_Distance,
                                  int RPAS_Sensor2_Distance, int RPAS_Sensor3_Distance,
                                  int RPAS_Sensor4_Distance, int RPAS_Sensor5_Distance,
                                  int RPAS_Shortest_Distance, int RPAS_Warning_Levels,
                                  int RPAS_Reserve1, int RPAS_Reserve2, int RPAS_Reserve3);
    /// Emits syncTruckTpmsThresholdUpdate().
    void onReportTruckTpmsThresholdChanged(
        int Axle1_Left_Threshold, int Axle1_Right_Threshold, int Axle2_Left_Threshold,
        int Axle2_Right_Threshold, int Axle3_Left_Threshold, int Axle3_Right_Threshold,
        int Axle4_Left_Outside_Threshold, int Axle4_Left_Inside_Threshold,
        int Axle4_Right_Inside_Threshold, int Axle4_Right_Outside_Threshold,
        int Axle5_Left_Outside_Threshold, int Axle5_Left_Inside_Threshold,
        int Axle5_Right_Inside_Threshold, int Axle5_Right_Outside_Threshold,
        int Axle6_Left_Threshold, int Axle6_Right_Threshold, int First_Spare_Threshold);
    /// Emits syncTruckTpmsCtiInforUpdate().
    void onReportTruckTpmsCtiChanged(
        int Axle1_Left_CTIInfor, int Axle1_Right_CTIInfor, int Axle2_Left_CTIInfor,
        int Axle2_Right_CTIInfor, int Axle3_Left_CTIInfor, int Axle3_Right_CTIInfor,
        int Axle4_Left_Outside_CTIInfor, int Axle4_Left_Inside_CTIInfor,
        int Axle4_Right_Inside_CTIInfor, int Axle4_Right_Outside_CTIInfor,
        int Axle5_Left_Outside_CTIInfor, int Axle5_Left_Inside_CTIInfor,
        int Axle5_Right_Inside_CTIInfor, int Axle5_Right_Outside_CTIInfor, int Axle6_Left_CTIInfor,
        int Axle6_Right_CTIInfor, int First_Spare_CTIInfor);
    /// Emits syncDtcFlagInforUpdate().
    void onReportDtcFlagChanged(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4);
    /// Emits syncTruckTpmsTemperatureUpdate().
    void onReportTruckTpmsTemperatureChanged(
        int Axle1_Left_Temp, int Axle1_Right_Temp, int Axle2_Left_Temp, int Axle2_Right_Temp,
        int Axle3_Left_Temp, int Axle3_Right_Temp, int Axle4_Left_Outside_Temp,
        int Axle4_Left_Inside_Temp, int Axle4_Right_Inside_Temp, int Axle4_Right_Outside_Temp,
        int Axle5_Left_Outside_Temp, int Axle5_Left_Inside_Temp, int Axle5_Right_Inside_Temp,
        int Axle5_Right_Outside_Temp, int Axle6_Left_Temp, int Axle6_Right_Temp,
        int First_Spare_Temp);
    /// Emits syncTruckTpmsPressureUpdate().
    void onReportTruckTpmsPressureChanged(
        int Axle1_Left_Pressure, int Axle1_Right_Pressure, int Axle2_Left_Pressure,
        int Axle2_Right_Pressure, int Axle3_Left_Pressure, int Axle3_Right_Pressure,
        int Axle4_Left_Outside_Pressure, int Axle4_Left_Inside_Pressure,
        int Axle4_Right_Inside_Pressure, int Axle4_Right_Outside_Pressure,
        int Axle5_Left_Outside_Pressure, int Axle5_Left_Inside_Pressure,
        int Axle5_Right_Inside_Pressure, int Axle5_Right_Outside_Pressure, int Axle6_Left_Pressure,
        int Axle6_Right_Pressure, int First_Spare_Pressure);
    /// Emits syncTruckVehicleAlertsInforUpdate().
    void onReportTruckVehicleAlertsChanged(int Vehicle_Gear_Change, int Vehicle_VehicleOverspeed,
                                           int Vehicle_MSA_Signal, int Vehicle_Reserve1,
                                           int Vehicle_Reserve2, int Vehicle_Reserve3,
                                           int Vehicle_Reserve4);
    /// Emits syncTruckPerformanceParametersInforUpdate().
    void onReportTruckPerformanceParametersChanged(
        int Vehicle_IC_Total_Distance, int Vehicle_IC_Run_Time, int Vehicle_TripA_DistanceL,
        int Vehicle_TripA_DistanceH, int Vehicle_TripA_FuelEffKm, int Vehicle_TripA_FuelEffHrs,
        int Vehicle_TripA_HoursL, int Vehicle_TripA_HoursH, int Vehicle_TripB_DistanceL,
        int Vehicle_TripB_DistanceH, int Vehicle_TripB_FuelEffKm, int Vehicle_TripB_FuelEffHrs,
        int Vehicle_TripB_HoursL, int Vehicle_TripB_HoursH);
    /// Emits syncTruckVehicleParametersInforUpdate().
    void onReportTruckVehicleParametersChanged(int Vehicle_EngFuelTemp1, int Vehicle_EngOilTemp1,
                                               int Vehicle_DPFLampCmd, int Vehicle_EngOilTemp2,
                                               int Vehicle_EngECUTemp, int Vehicle_CabInteriorTemp,
                                               int Vehicle_AmbientAirTemp,
                                               int Vehicle_EngAirIntakeTemp, int Vehicle_Reserve1,
                                               int Vehicle_Reserve2, int Vehicle_Reserve3,
                                               int Vehicle_Reserve4);
    ///@}

    /// \name Targets of the link's other signals, and the CAN check timer
    ///@{

    /// Stores the mute state as the attenuation state, emits hideUsbOverPower() if due, then both
    /// forms of audioVolumeChanged(), the one with the mute state first.
    void onAudioVolume(int muteState, int level, int type);
    /// Emits hideUsbOverPower() if due, then volumeTurn().
    void onVolumeTurn(int state);
    /// Passes the tuner work status to McuRadioInterface::onTunerStateChanged(), stores it for
    /// radioIsIdle() and emits radioStatusChanged().
    void onDabWorkStatus(int status);
    /// Stores the package and emits autoTestPkgChanged().
    void onAutoTestPkgChanged(QByteArray pkg);
    /// Calls notifyAutoTestStatus().
    void onAutoTestStatusChanged(int status);
    /// Stores the serial number and emits serialNumChanged().
    void onSerialNumberChanged(QString serial);
    /// Emits stwAdcStatusChanged().
    void onStwAdcStatusChanged();
    /// Kept: does nothing; the link reports the car type, but the facade only sends it, with
    /// sendStwCarTypeToMcu().
    void onStwCarTypeChanged(int type);
    /// Stores the low byte and emits gpsAntennaChanged() with it.
    void onGpsAntennaChanged(int status);
    /// Stores the low byte and emits dabAntennaChanged() with it.
    void onDabAntennaChanged(int status);
    /// Tick of the CAN check timer, every 50 ms: emits the latest HU or vehicle fault record when
    /// its hold ends.
    void onCheckCanbusTmrDelay();
    /// Emits stwAdcValueChanged().
    void onStwAdcValueChanged(int value);
    ///@}

private:
    McuSrv *m_link = nullptr; ///< not owned
    QTimer m_beepGuard;
    std::unique_ptr<McuServicePrivate> m_data;
};

} // namespace mcu
