// The manager that applications talk to: the facade's signals under the applications' names, its
// commands, and what has a policy of its own: audio arbitration, watchdog, media information,
// update files.
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
/// Commands go straight to the facade with their arguments unchanged: codes are the MCU's, no range
/// is checked, nothing is cached. Without a service they do nothing, and queries answer 0, false or
/// empty text unless they say otherwise.
///
/// The object lives in the thread that first calls instance(), which must be the facade's: its
/// timers and slots run there, and it is where to call everything. updateAudioStatus() and
/// audioStatus() alone may be called from any thread. Nothing throws; nothing waits, except
/// updateAudioStatus() and unduckAudio() for each other.
///
/// const is part of the names that applications are linked against: of the getters,
/// autotestStatus() alone carries it.
class MCUSERVICE_EXPORT McuManager : public QObject {
    Q_OBJECT

public:
    /// Codes that pass through to the MCU; none has a meaning here, so none has a name. Make one
    /// from its number: McuManager::AudioChannel(3).
    enum AudioChannel : int {};
    enum CPAAStatus : int {};
    enum TouchState : int {};
    enum DeviceType : int {};
    enum DeviceStatus : int {};

    /// Audio status of the system: in the name its number and what updateAudioStatus() does with
    /// it. All other numbers pass through as well.
    enum AudioStatus : int {
        EventOff0,
        EventOn1,
        EventOn2,
        EventOn3,
        EventOff4,
        EventOn5,
        EventOff6,
        EventOn7,
        EventOff8,
        PassThrough9,
        PassThrough10,
        PassThrough11,
        PhoneEnd12,
        EventOn13,
        EventOff14,
        PassThrough15,
        PassThrough16,
        NoBeep17, ///< passes through; triggerBeep() is silent
        PassThrough18,
        PassThrough19,
        PassThrough20,
        EventOn21,
        EventOff22,
        EventOn23,
        EventOff24,
        EventOn25,
        EventOff26,
        EventOn27,
        EventOff28
    };

    /// A file on removable media, in the folder "update" of a medium or at its top level.
    enum UpdateFile : int {
        McuFirmware,     ///< update/st26mcu.bin
        CustomPio,       ///< update/CUST_PIO.BIN
        SystemImage,     ///< ISPBOOOT.BIN
        SystemImageMd5,  ///< ISPBOOOT.md5
        DegradedMode,    ///< turndegradedmode
        CustomPioMd5,    ///< update/CUST_PIO.md5
        NavigationMarker ///< navigation; known to the search of the first medium alone
    };

    /// The object, created on first use and destroyed at process exit. Never null.
    static McuManager *instance();

    /// A manager over a service of one's own, for tests; applications use instance(). Logs the
    /// service's versions, requests the radio data and connects the relays. The service must
    /// outlive the manager; null gives a manager without a service. The mute that covers a switch
    /// of the main audio goes through instance() all the same, to the facade's one object.
    explicit McuManager(mcu::McuService *service);
    ~McuManager() override;

    // Versions, identity and state

    /// Version texts of the last version report.
    QString mcuTestVersion();
    QString mcuUserVersion();
    /// The SNID text; "40527BKFM18264" without a service.
    QString cpSerialNumber();
    /// Tail-line values, on at 2.
    int parkingState();
    int reverseState();
    int headlightState();
    /// First byte of the amplifier status; -1 without a service.
    int getAmpStatus();
    /// Boot state, 2 during an upgrade of the MCU; -1 without a service.
    int getSysBootState();
    /// Factory-test status, 0 while off.
    int autotestStatus() const;
    bool isUsbOverCurrent();
    bool isMcuNeedRenew();
    bool isMcuDateTimeReady();
    bool isAttOn();

    // Audio: channel and status. docs/audio.md tells the whole of it.

    /// Makes a channel the one in front: emits audioChannel() and tells the MCU. During a
    /// phone-projection alert the channel is held back until onCarplayAlertStop(); only the last
    /// one counts.
    void updateAudioChannel(McuManager::AudioChannel channel);
    /// Takes the new audio status, acts on it by its group and hands it to the MCU. When an event
    /// takes over, mute and attenuation of the main audio are recorded and cleared; when the last
    /// event is over, they are given back. Calls the MCU and the platform audio service in the
    /// caller's thread; the restore timer stays in the manager's. Without a service nothing
    /// changes.
    void updateAudioStatus(McuManager::AudioStatus status);
    /// Status last given to a manager with a service; 0 at start.
    int audioStatus();
    /// Whether an event that interrupts the main audio is active in the platform audio service.
    bool isContainAudioInterrupt();
    /// Gives the main audio back what was recorded before the first event, at once or when the
    /// interrupting events are over. Called with the statuses that end an event.
    void checkEventOffRestoreMute();
    /// Phone-projection status.
    void updateCPAAStatus(McuManager::CPAAStatus status);
    /// Notes about phone projection: stored, and without effect here.
    void setCpPhone(bool on);
    void setCPConnected(bool connected);

    // Audio: volume, mute and sound

    void setVolume(int level);
    void setMute(bool mute);
    /// Kept in the interface; does nothing.
    void setAudioMute(bool mute);
    /// Mutes by type, unless the MCU has the main audio muted or audio is ducked.
    void setAudioMute(int mute, int type);
    void setAudioMute2(bool mute, int type);
    /// Ducks audio and brings it back. While ducked, isDucking() is true, with or without a
    /// service.
    void duckAudio(int type, int level);
    void unduckAudio(int type);
    bool isDucking();
    void triggerAtt(int on);
    /// Beeps, unless the audio status is 17. The facade limits the rate.
    void triggerBeep(int type);
    /// Balance and fader around 0.
    void setBalanceFader(int balance, int fader);
    void setSubwooferlevel(int level);
    void setSubwooferPhase(int phase);
    void setFrCrossover(int type, int value);
    void setAmpDelayState(int state);
    /// Delays of a type; reads five ints from the pointer. A null pointer sends nothing.
    void setAudioTimerDelay(int type, int *delays);
    void updateBtInputLevel(int level);

    // Radio

    void requestRadioInitData();
    void setRadioRDSonoff(bool on);
    void setRadioTAonoff(bool on);
    void setRadioAFonoff(bool on);
    void setDabAntPower(bool on);

    // Steering-wheel keys

    void requestWheelStudyState();
    void notifyWheelDopStart(bool on);
    void notifyWheelReset();
    void notifyWheelDopReset();
    void notifyWheelDopClear();
    void notifyWheelStudyKey(int key);
    void notifyWheelStudyMode();
    void notifyWheelTestMode();
    void notifyWheelNormalMode();
    void notifyWheelAbandonMode();
    void setDopSwc(int key, int action, int value);
    void sendStwCarTypeToMcu(int type);

    // System

    /// Keeps the MCU's watchdog fed: sends the command, and true again every 10 seconds until it is
    /// disabled. Each call begins a new period.
    void setWatchDogEnable(bool enable);
    void setUpgradeState(int state);
    void setMonitorState(int state);
    void setVcomValue(int value);
    void setLoopBack(bool on);
    void setPowerOffDelay(bool on);
    void setDestCode(int dest, int demo);
    /// The GPS antenna counts as connected; emits nothing.
    void setGpsAntAttach();
    void notifyFactoryReset();
    void requestTaillineState();
    void requestSetupInitData();
    void requestSetupInitData1();
    void requestDtcFlagInfoData();
    /// Answers to the facade's requests for versions; the texts stay as they are.
    void updateArmVersion(QString &version);
    void updateBtAddress(QString &address);
    void updateCameraSetup(bool on);
    void updateTouchCoordinate(McuManager::TouchState state, int x, int y);
    void updateDeviceStatus(McuManager::DeviceType type, McuManager::DeviceStatus status);
    /// Kept in the interface; do nothing.
    void setNCMTestMode();
    void setEnterCameraIntr(bool on);

    // Media and phone information for the MCU's own display. Each call sends its record, changed or
    // not; numbers are cut to the bytes given, texts are UTF-8 of any length.

    /// One byte.
    void updateMediaSourceState(int source);
    /// Four bytes.
    void updateMediaRadioFreq(int freq);
    /// Sends three records, for empty texts too.
    void updateMediaId3(const QString &first, const QString &second, const QString &third);
    void updateBTState(bool connected);
    void updateBtDeveciname(const QString &name);
    /// One byte.
    void updateCallState(int state);
    void updateCallNumber(const QString &number);
    void updateCallName(const QString &name);
    /// One byte each.
    void updateCallTime(int a, int b, int c);

    // Update files on the media mounted under "/media": the absolute path, or an empty text when
    // there is none. Only folders are read. Media and entries are taken by name, ignoring case. In
    // folder "ROOT", the top level, a name counts exactly and may lead through folders, but not out
    // of the medium.

    /// Looks on the first medium with "/sd" in its path, and on no other.
    QString findUpdateFile(McuManager::UpdateFile file);
    /// Looks on all media with the key in their path; a null key stands for "/sd", an empty one is
    /// in every path. NavigationMarker is not known here. Not enabled: looks for nothing.
    QString findUpdateFile(McuManager::UpdateFile file, QString mountKey, bool enabled);
    /// The first medium with "/sd" in its path. Folder "ROOT": the entry of that name. Else the
    /// file in the medium's folder "update", both in any case; an empty folder takes files at the
    /// top level too.
    QString findUpdateFile(QString folder, QString name);
    /// All media with the key in their path, or "/sd" for a null key and when forced. Folder
    /// "ROOT": the entry of that name on the first such medium that is not empty. Else the file, in
    /// any case, in folders of the medium whose path contains the folder given; an empty folder
    /// takes files at the top level too.
    QString findUpdateFile(QString folder, QString name, QString mountKey, bool forceSd);

Q_SIGNALS:
    // Relays of the facade's signals, each with the values as they come.

    void shallowSleep();
    void sysBootState(int state);
    /// mcu::McuService::wheelStudyState().
    void studyState(int state, int para);
    /// mcu::McuService::wheelStudyKeys().
    void studyKeys(QString keys);
    /// mcu::McuService::usbPowerStatus().
    void usbPwrState(int state);
    /// mcu::McuService::hideUsbOverPower().
    void hideUsbOverPwr();
    void parkingChanged(int state);
    void reverseChanged(int state);
    void headlightChanged(int state);
    void extDeviceChanged(int state);
    /// A channel came to the front; not while one is held back.
    void audioChannel(int channel);
    /// A volume report arrived; audioVolumeChanged() follows with its values.
    void volumeChanged();
    /// mcu::McuService::reset(): the MCU asks for the factory settings.
    void factoryReset();
    void discChange();
    /// Mute state, volume and type of a volume report.
    void audioVolumeChanged(int, int, int);
    /// Declared for applications; this library does not emit these four.
    void dabAntStatusChanged(int);
    void dabSelectFreq(int index);
    void dabSelectService(int index);
    void dabRequestAction(int action, int arg);
    void autoTestStatusChanged(int status);

public Q_SLOTS:
    /// A volume report of the facade.
    void onVolumeChanged(int muteState, int vol, int type);
    /// A phone-projection alert begins: channels are held back from now on.
    void onCarplayAlertStart();
    /// The alert is over: the channel last asked for comes to the front. Without an alert nothing
    /// happens.
    void onCarplayAlertStop();

private Q_SLOTS:
    void onDlyUptPheEndTmrout();
    void onWatchdogTmrout();
    void onDlyEndRestoreMuteTmrout();
    void onEventStateChanged();

private:
    void connectRelays();

    mcu::McuService *const m_service; ///< not owned
    int m_audioChannel = 0;
    // An updateAudioStatus() in another thread meets slots here that take no lock. What both touch
    // is atomic: a value is always whole, and which of two that meet comes first is open anyway.
    std::atomic<int> m_audioStatus{0};
    int m_lastAudioStatus = 0; ///< for the debugger; nothing reads it
    QMutex m_mutex;
    bool m_cpPhone = false;
    bool m_carplayAlert = false;
    bool m_cpConnected = false;
    bool m_mainMuted = false;
    // Nothing sets the two pending flags and nothing starts the 200 ms timer whose slot reads them;
    // the slot is part of the interface.
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
