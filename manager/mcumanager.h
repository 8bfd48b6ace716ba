/// \file
/// The manager that applications use. It passes on signals and commands of the facade under the
/// applications' names, and adds audio arbitration, watchdog, media information and update files.
#pragma once

#include "mcuserviceexport.h"

#include <QMutex>
#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>

namespace mcu {
class McuService;
}

/// The applications' manager over mcu::McuService.
///
/// Commands go to the facade with their arguments unchanged: codes, levels and units are the MCU's,
/// no range is checked, nothing is cached. A command sets the value that its comment names; a value
/// that a comment does not explain is such a code. Before the first report, without a link and
/// without a service, queries return 0, false or an empty text and commands do nothing, unless
/// their comment says otherwise.
///
/// The object lives in the thread that first calls instance(), which must be the facade's. Its
/// timers and slots run there. Call everything from there, except updateAudioStatus() and
/// audioStatus(), which are thread-safe. Nothing throws; nothing waits, except updateAudioStatus()
/// and unduckAudio() for each other.
///
/// Kept: of the getters autotestStatus() alone is const, because applications are linked against
/// these names.
class MCUSERVICE_EXPORT McuManager : public QObject {
    Q_OBJECT

public:
    /// \name Codes of the MCU
    /// The manager only passes them to the MCU, so they have no names here. To make one from its
    /// number: McuManager::AudioChannel(3).
    ///@{

    /// What updateAudioChannel() brings to the front.
    enum AudioChannel : int {};
    /// Phone-projection status.
    enum CPAAStatus : int {};
    /// State of a touch.
    enum TouchState : int {};
    /// Type of a connected device.
    enum DeviceType : int {};
    /// Status of a connected device.
    enum DeviceStatus : int {};
    ///@}

    /// Audio status of the system. Each name has the number and says what updateAudioStatus() does
    /// with it. All other numbers pass through.
    enum AudioStatus : int {
        EventOff0,     ///< an event ends
        EventOn1,      ///< an event begins
        EventOn2,      ///< an event begins
        EventOn3,      ///< an event begins
        EventOff4,     ///< an event ends
        EventOn5,      ///< an event begins
        EventOff6,     ///< an event ends
        EventOn7,      ///< an event begins
        EventOff8,     ///< an event ends
        PassThrough9,  ///< passes through
        PassThrough10, ///< passes through
        PassThrough11, ///< passes through
        PhoneEnd12,    ///< a phone call ends
        EventOn13,     ///< an event begins
        EventOff14,    ///< an event ends
        PassThrough15, ///< passes through
        PassThrough16, ///< passes through
        NoBeep17,      ///< passes through; triggerBeep() sends nothing
        PassThrough18, ///< passes through
        PassThrough19, ///< passes through
        PassThrough20, ///< passes through
        EventOn21,     ///< an event begins
        EventOff22,    ///< an event ends
        EventOn23,     ///< an event begins
        EventOff24,    ///< an event ends
        EventOn25,     ///< an event begins
        EventOff26,    ///< an event ends
        EventOn27,     ///< an event begins
        EventOff28     ///< an event ends
    };

    /// A file on removable media, in the folder "update" of a medium or at its top level.
    enum UpdateFile : int {
        McuFirmware,     ///< update/st26mcu.bin
        CustomPio,       ///< update/CUST_PIO.BIN
        SystemImage,     ///< ISPBOOOT.BIN
        SystemImageMd5,  ///< ISPBOOOT.md5
        DegradedMode,    ///< turndegradedmode
        CustomPioMd5,    ///< update/CUST_PIO.md5
        NavigationMarker ///< navigation; only in the one-argument findUpdateFile()
    };

    /// \name Life cycle
    ///@{

    /// The object: created on first use (thread-safe), destroyed at process exit, never null.
    static McuManager *instance();
    /// A manager over another service, for tests; applications use instance(). Logs the service's
    /// versions, requests the radio data and connects the relays. The service must outlive the
    /// manager; null creates a manager without a service.
    /// The mute that covers a switch of the main audio still goes through instance(), to the
    /// service of the process.
    explicit McuManager(mcu::McuService *service);
    /// Stops the watchdog's repetition; the MCU is not informed.
    ~McuManager() override;
    ///@}

    /// \name Versions, identity and state
    ///@{

    /// mcu::McuService::test_version(): first text of the MCU's version report.
    QString mcuTestVersion();
    /// mcu::McuService::user_version(): second text of the MCU's version report.
    QString mcuUserVersion();
    /// The SNID text, empty before its first report; "40527BKFM18264" without a service.
    QString cpSerialNumber();
    /// Parking lamp of the last tail-line report: 2 is on, any other value is off.
    int parkingState();
    /// Reverse gear of the last tail-line report: 2 is on, any other value is off.
    int reverseState();
    /// Headlight of the last tail-line report or factory test setting: 2 is on, any other value is
    /// off.
    int headlightState();
    /// First byte of the amplifier status record; -1 without a service.
    int getAmpStatus();
    /// mcu::McuService::startUpState(): boot state of the MCU, 2 during an upgrade; -1 without a
    /// service.
    int getSysBootState();
    /// Factory-test status; 0 is off.
    int autotestStatus() const;
    /// mcu::McuService::isUsbOverCurrent(): true from the first USB power report on.
    bool isUsbOverCurrent();
    /// Whether the MCU asks for a software renewal.
    bool isMcuNeedRenew();
    /// mcu::McuService::isDateTimeReady(): whether date and time have been reported.
    bool isMcuDateTimeReady();
    /// mcu::McuService::isAttOn(): whether attenuation is on.
    bool isAttOn();
    ///@}

    /// \name Audio: channel and status
    /// docs/audio.md describes the whole arbitration.
    ///@{

    /// Brings a channel to the front: emits audioChannel() and informs the MCU. During a
    /// phone-projection alert, the channel is only stored; onCarplayAlertStop() applies the last
    /// one. Without an alert and without a service nothing happens.
    void updateAudioChannel(McuManager::AudioChannel channel);
    /// Stores the audio status, acts on its group and sends it to the MCU. A status that begins an
    /// event records mute and attenuation of the main audio, then switches both off; a status that
    /// ends one calls checkEventOffRestoreMute().
    /// Thread-safe: calls the MCU and the platform audio service in the caller's thread; the
    /// restore timer runs in the manager's. Without a service nothing changes. Code that it
    /// calls must call neither it nor unduckAudio().
    void updateAudioStatus(McuManager::AudioStatus status);
    /// Status of the last updateAudioStatus(); 0 at start. Thread-safe.
    int audioStatus();
    /// Whether the platform audio service has an active event that interrupts the main audio.
    bool isContainAudioInterrupt();
    /// Restores the recorded mute and attenuation of the main audio, at once or when the platform
    /// audio service has no event left. Nothing recorded: restores nothing. The records are cleared
    /// 3 seconds after the restore, unless a new event begins.
    /// Kept: restoring the attenuation cancels the restore of the mute, so that users hear the
    /// audio that returns.
    void checkEventOffRestoreMute();
    /// Sends the phone-projection status.
    void updateCPAAStatus(McuManager::CPAAStatus status);
    /// Kept: stored and not used; applications call it.
    void setCpPhone(bool on);
    /// Kept: stored and only logged; applications call it.
    void setCPConnected(bool connected);
    ///@}

    /// \name Audio: volume, mute and sound
    ///@{

    /// Volume, a level of the MCU.
    void setVolume(int level);
    /// Mutes (true) or unmutes; sends type 0.
    void setMute(bool mute);
    /// Kept: does nothing; applications call it.
    void setAudioMute(bool mute);
    /// Mutes by type, except while audio is ducked or the last volume report has bit 0 of its mute
    /// state set: then nothing is sent.
    void setAudioMute(int mute, int type);
    /// Mutes (true) or unmutes by type, in every case.
    void setAudioMute2(bool mute, int type);
    /// Lowers other sound for one type of sound. From now on isDucking() is true, with or without a
    /// service.
    void duckAudio(int type, int level);
    /// Ends the ducking. Serialised with updateAudioStatus().
    void unduckAudio(int type);
    /// Whether duckAudio() was called after the last unduckAudio(); false at start.
    bool isDucking();
    /// Attenuation on or off.
    void triggerAtt(int on);
    /// Key beep, except while the audio status is 17; mcu::McuService::setBeepInterval() limits the
    /// rate.
    void triggerBeep(int type);
    /// Balance and fader, 0 being the middle.
    void setBalanceFader(int balance, int fader);
    /// Level of the subwoofer. Kept: applications are linked against this spelling.
    void setSubwooferlevel(int level);
    /// Phase of the subwoofer.
    void setSubwooferPhase(int phase);
    /// Crossover: value of one type.
    void setFrCrossover(int type, int value);
    /// State of the built-in amplifier; sends mcu::McuService::setInternalAmp().
    void setAmpDelayState(int state);
    /// Five delays of one type; delays must point to five ints. A null pointer sends nothing.
    void setAudioTimerDelay(int type, int *delays);
    /// Input level of Bluetooth.
    void updateBtInputLevel(int level);
    ///@}

    /// \name Radio
    ///@{

    /// Requests the radio data, code 237; the constructor does so as well.
    void requestRadioInitData();
    /// RDS of the tuner on or off.
    void setRadioRDSonoff(bool on);
    /// Traffic announcements of the tuner on or off.
    void setRadioTAonoff(bool on);
    /// Alternative frequencies of the tuner on or off.
    void setRadioAFonoff(bool on);
    /// Power of the DAB antenna on or off.
    void setDabAntPower(bool on);
    ///@}

    /// \name Steering-wheel keys
    /// studyState() reports the progress of key learning and studyKeys() the learnt keys.
    ///@{

    /// Requests the state of key learning, code 246.
    void requestWheelStudyState();
    /// DOP keys on or off.
    void notifyWheelDopStart(bool on);
    /// Resets the learnt keys.
    void notifyWheelReset();
    /// Resets the DOP keys.
    void notifyWheelDopReset();
    /// Clears the DOP keys.
    void notifyWheelDopClear();
    /// Key to learn next.
    void notifyWheelStudyKey(int key);
    /// Enters the learning mode.
    void notifyWheelStudyMode();
    /// Enters the test mode.
    void notifyWheelTestMode();
    /// Returns to the normal mode.
    void notifyWheelNormalMode();
    /// Abandons learning.
    void notifyWheelAbandonMode();
    /// Action and value of a DOP key.
    void setDopSwc(int key, int action, int value);
    /// Car type for the steering-wheel keys.
    void sendStwCarTypeToMcu(int type);
    ///@}

    /// \name System
    ///@{

    /// Watchdog of the MCU on or off. While it is on, the command is repeated every 10 seconds,
    /// which tells the MCU that the unit is alive; each call starts a new period.
    void setWatchDogEnable(bool enable);
    /// State of an update.
    void setUpgradeState(int state);
    /// State of the monitor.
    void setMonitorState(int state);
    /// VCOM value of the display panel.
    void setVcomValue(int value);
    /// Loop-back on or off.
    void setLoopBack(bool on);
    /// Delayed power-off on or off.
    void setPowerOffDelay(bool on);
    /// Destination code and demo mode.
    void setDestCode(int dest, int demo);
    /// Stores the GPS antenna as connected; nothing is sent or emitted.
    void setGpsAntAttach();
    /// Requests the reset to factory settings from the MCU.
    void notifyFactoryReset();
    /// Requests a tail-line report, code 248.
    void requestTaillineState();
    /// Requests the first setup block, code 229.
    void requestSetupInitData();
    /// Requests the second setup block, code 220.
    void requestSetupInitData1();
    /// Requests the flags of the diagnostic trouble codes, code 197.
    void requestDtcFlagInfoData();
    /// Version of the application; answers mcu::McuService::requestAppVersion(). The text is not
    /// changed.
    void updateArmVersion(QString &version);
    /// Bluetooth address of the unit; answers mcu::McuService::requestBtAddress(). The text is not
    /// changed.
    void updateBtAddress(QString &address);
    /// Camera setting, on or off.
    void updateCameraSetup(bool on);
    /// A touch and its coordinates.
    void updateTouchCoordinate(McuManager::TouchState state, int x, int y);
    /// Status of a connected device.
    void updateDeviceStatus(McuManager::DeviceType type, McuManager::DeviceStatus status);
    /// Kept: does nothing; applications call it.
    void setNCMTestMode();
    /// Kept: does nothing; applications call it.
    void setEnterCameraIntr(bool on);
    ///@}

    /// \name Media and phone information
    /// For the MCU's own display. Each call sends its record at once, changed or not. Numbers keep
    /// their low bytes; texts are UTF-8 of any length, without a terminator.
    ///@{

    /// Type 0x30, 4 bytes: low byte of the source, then three zeros.
    void updateMediaSourceState(int source);
    /// Type 0x31, 4 bytes: frequency, little-endian.
    void updateMediaRadioFreq(int freq);
    /// Three texts about a track in three records, types 0x34, 0x33, 0x32 in this order; an empty
    /// text is sent as well.
    void updateMediaId3(const QString &first, const QString &second, const QString &third);
    /// Type 0x50, 1 byte: 1 when Bluetooth is connected, else 0.
    void updateBTState(bool connected);
    /// Type 0x51: name of the Bluetooth device. Kept: applications are linked against this
    /// spelling.
    void updateBtDeveciname(const QString &name);
    /// Type 0x52, 1 byte: state of the phone call.
    void updateCallState(int state);
    /// Type 0x53: number of the phone call.
    void updateCallNumber(const QString &number);
    /// Type 0x54: name of the phone call.
    void updateCallName(const QString &name);
    /// Type 0x55, 3 bytes: time of the phone call, low byte of each number.
    void updateCallTime(int a, int b, int c);
    ///@}

    /// \name Update files
    /// On the media mounted under "/media". The result is an absolute path, or an empty text if
    /// there is no such file. Only folders are read, no file is opened. Media and entries are taken
    /// in the order of their names, ignoring case. In folder "ROOT", the top level, a name must
    /// match exactly; it may lead through folders, but not out of the medium. Links are
    /// followed.
    ///@{

    /// Searches only the first medium with "/sd" in its path. Empty for an unknown file.
    QString findUpdateFile(McuManager::UpdateFile file);
    /// Searches all media with mountKey in their path; a null mountKey stands for "/sd", an empty
    /// one is in every path. Empty for an unknown file, for NavigationMarker and if not enabled.
    QString findUpdateFile(McuManager::UpdateFile file, QString mountKey, bool enabled);
    /// Searches only the first medium with "/sd" in its path. Folder "ROOT": the entry of that
    /// name. Otherwise the file, in any case, in the folder "update", in any case and whatever
    /// folder says; an empty folder also takes files at the top level.
    QString findUpdateFile(QString folder, QString name);
    /// Searches all media with mountKey in their path, or with "/sd" if mountKey is null or forceSd
    /// is set. Folder "ROOT": the entry of that name on the first of these media that is not empty.
    /// Otherwise the file, in any case, in the top-level folders whose path contains folder (case
    /// counts); an empty folder takes all of them and the files at the top level.
    QString findUpdateFile(QString folder, QString name, QString mountKey, bool forceSd);
    ///@}

Q_SIGNALS:
    /// \name Relays
    /// Signals of the facade under the applications' names, with the same values.
    ///@{

    /// mcu::McuService::shallowSleep(): the MCU enters shallow sleep.
    void shallowSleep();
    /// mcu::McuService::sysBootState(): boot state of the MCU.
    void sysBootState(int state);
    /// mcu::McuService::wheelStudyState(): progress of steering-wheel key learning.
    void studyState(int state, int para);
    /// mcu::McuService::wheelStudyKeys(): the learnt steering-wheel keys.
    void studyKeys(QString keys);
    /// mcu::McuService::usbPowerStatus(): the over-current warning is shown.
    void usbPwrState(int state);
    /// mcu::McuService::hideUsbOverPower(): time to close the over-current warning.
    void hideUsbOverPwr();
    /// mcu::McuService::parkingChanged(): 2 is on.
    void parkingChanged(int state);
    /// mcu::McuService::reverseChanged(): 2 is on; also emitted for surround-view reports.
    void reverseChanged(int state);
    /// mcu::McuService::headlightChanged(): 2 is on.
    void headlightChanged(int state);
    /// mcu::McuService::extDeviceChanged(). Kept: never emitted; applications connect to it.
    void extDeviceChanged(int state);
    ///@}

    /// \name Audio, reset, disc
    ///@{

    /// updateAudioChannel() brought a channel to the front; not emitted while a channel is only
    /// stored.
    void audioChannel(int channel);
    /// A volume report arrived; audioVolumeChanged() follows with its values.
    void volumeChanged();
    /// mcu::McuService::reset(): the MCU requests a reset to factory settings.
    void factoryReset();
    /// mcu::McuService::discChange(). Kept: never emitted; applications connect to it.
    void discChange();
    /// A volume report: mute state, level and type of sound.
    void audioVolumeChanged(int, int, int);
    ///@}

    /// \name DAB
    /// For the DAB signals that are emitted, see mcu::McuService.
    ///@{

    /// Kept: never emitted; applications connect to it.
    void dabAntStatusChanged(int);
    /// Kept: never emitted; applications connect to it.
    void dabSelectFreq(int index);
    /// Kept: never emitted; applications connect to it.
    void dabSelectService(int index);
    /// Kept: never emitted; applications connect to it.
    void dabRequestAction(int action, int arg);
    ///@}

    /// \name Factory test
    ///@{

    /// mcu::McuService::autoTestStatusChanged(): the factory-test status changed; 0 is off.
    void autoTestStatusChanged(int status);
    ///@}

public Q_SLOTS:
    /// \name Targets of signals
    ///@{

    /// Stores bit 0 of the mute state for setAudioMute(), emits volumeChanged(), then
    /// audioVolumeChanged().
    void onVolumeChanged(int muteState, int vol, int type);
    /// A phone-projection alert begins: channels are only stored from now on.
    void onCarplayAlertStart();
    /// The alert ends: updateAudioChannel() with the channel that was last set, also if that was
    /// before the alert. Without an alert nothing happens.
    void onCarplayAlertStop();
    ///@}

private Q_SLOTS:
    void onDlyUptPheEndTmrout();
    void onWatchdogTmrout();
    void onDlyEndRestoreMuteTmrout();
    void onEventStateChanged();

private:
    void connectRelays();

    mcu::McuService *const m_service; ///< not owned
    int m_audioChannel = 0;
    // updateAudioStatus() may run in another thread at the same time as slots that take no lock.
    // Members that both use are atomic, so a value is always complete. Their order is not defined.
    std::atomic<int> m_audioStatus{0};
    int m_lastAudioStatus = 0; ///< Kept: nothing reads it but the debugger
    QMutex m_mutex;
    bool m_cpPhone = false;
    bool m_carplayAlert = false;
    bool m_cpConnected = false;
    bool m_mainMuted = false;
    // Kept: nothing sets the two pending flags and nothing starts the 200 ms timer whose slot reads
    // them, but the slot is part of the interface.
    bool m_pendingAtt = false;
    bool m_pendingMute = false;
    std::atomic<bool> m_phoneEndPending{false};
    bool m_isDucking = false;
    std::atomic<int> m_restoreMuteOfEvtOff{0}; ///< an arbitration::RestoreRecord
    std::atomic<int> m_atttoreMuteOfEvtOff{0}; ///< the same for the attenuation
    QTimer m_dlyUptPheEndTmr;
    QTimer *m_watchdogTmr = nullptr; ///< a child, from the first setWatchDogEnable() on
    QTimer m_dlyEndRestoreMuteTmr;
};
