// The substitute platform services except the settings files. Each keeps the state that the library
// can query, and logs the calls that it receives.
#include "platformsubstitute.h"

#include "audioservice.h"
#include "datetimemanager.h"
#include "eventhandler.h"
#include "settingsexe.h"
#include "settingsfunc.h"
#include "settingsutil.h"
#include "srcdsplctrl.h"
#include "tunercontrol.h"

#include <QHash>

#include <mutex>

using substitute::platform::log;

namespace {

struct State {
    QList<int> audioEvents;
    int mutes = 0; ///< one bit per kind of muted audio
    int attenuation = 0;
    int display = 0;
    bool forceTime = false;
    QHash<QString, bool> settings;
};

/// The state while it is locked: the library uses the audio service from two threads.
class Access {
public:
    State *operator->() const { return &values(); }
    State &operator*() const { return values(); }

private:
    static State &values()
    {
        static State state;
        return state;
    }
    static std::recursive_mutex &mutex()
    {
        static std::recursive_mutex mutex;
        return mutex;
    }

    std::unique_lock<std::recursive_mutex> m_lock{mutex()};
};

Access state() { return {}; }

constexpr int mainAudio = 1; ///< bit of the mute state

/// The one object of a platform class.
template <typename Service>
Service *only()
{
    static Service service;
    return &service;
}

} // namespace

namespace substitute::platform {

CallLog &log()
{
    static CallLog calls;
    return calls;
}

void setAudioEvents(const QList<int> &events)
{
    if (events == state()->audioEvents)
        return;
    state()->audioEvents = events;
    Q_EMIT hxaudio::AudioService::instance()->eventStateChanged();
}

void setMainAudioMuted(bool muted) { state()->mutes = muted ? mainAudio : 0; }

void setAttenuated(bool attenuated) { state()->attenuation = attenuated; }

bool isMainAudioMuted() { return (state()->mutes & mainAudio) != 0; }

bool isAttenuated() { return state()->attenuation != 0; }

void setMuteState(int mutes) { state()->mutes = mutes; }

void setAttState(int attenuation) { state()->attenuation = attenuation; }

void pressPanelKey(int key, int state, int kind)
{
    Q_EMIT EventHandler::instance()->keyEventForAutotest(key, state, kind);
}

void setCurrentDisplay(int display) { state()->display = display; }

void setForceTime(bool force) { state()->forceTime = force; }

void setSetting(const QString &key, bool value) { state()->settings[key] = value; }

void reset()
{
    log().clear();
    *state() = {};
}

} // namespace substitute::platform

namespace hxaudio {

AudioService *AudioService::instance() { return only<AudioService>(); }

QList<int> AudioService::eventStates() const { return state()->audioEvents; }

int AudioService::muteState() { return state()->mutes; }

bool AudioService::isMainAudioMute(int muteState) { return (muteState & mainAudio) != 0; }

int AudioService::getAttState() { return state()->attenuation; }

void AudioService::Att20DB(bool on)
{
    log().record("AudioService.Att20DB", on);
    state()->attenuation = on;
}

void AudioService::setMainAudioMute(bool on)
{
    log().record("AudioService.setMainAudioMute", on);
    substitute::platform::setMainAudioMuted(on);
}

} // namespace hxaudio

namespace hxdatetime {

DateTimeManager *DateTimeManager::instance() { return only<DateTimeManager>(); }

void DateTimeManager::setDateTime(int year, int month, int day, int hour, int minute, int second,
                                  bool flag)
{
    log().record("DateTimeManager.setDateTime", year, month, day, hour, minute, second, flag);
}

} // namespace hxdatetime

EventHandler *EventHandler::instance() { return only<EventHandler>(); }

void EventHandler::onEvent(int event) { log().record("EventHandler.onEvent", event); }

int SrcDsplCtrl::currentDspl() { return state()->display; }

namespace tuner {

TunerControl *TunerControl::instance() { return only<TunerControl>(); }

void TunerControl::HDR_DabRequestScan() { log().record("TunerControl.HDR_DabRequestScan"); }

void TunerControl::HDR_DabTunerFM(int index) { log().record("TunerControl.HDR_DabTunerFM", index); }

} // namespace tuner

namespace mem {

SettingsFunc *SettingsFunc::instance() { return only<SettingsFunc>(); }

bool SettingsFunc::getValue(QString key, bool fallback)
{
    return state()->settings.value(key, fallback);
}

SettingsUtil *SettingsUtil::instance() { return only<SettingsUtil>(); }

SettingsExe *SettingsUtil::getSaver() { return only<SettingsExe>(); }

bool SettingsUtil::IsForceTime() { return state()->forceTime; }

void SettingsUtil::SubwooferOnOff(int value) { log().record("SettingsUtil.SubwooferOnOff", value); }

void SettingsUtil::CrossoverType(int value) { log().record("SettingsUtil.CrossoverType", value); }

void SettingsUtil::HpfLpfOnOff(int type, int value)
{
    log().record("SettingsUtil.HpfLpfOnOff", type, value);
}

void SettingsUtil::DemoOnOff(bool value) { log().record("SettingsUtil.DemoOnOff", value); }

} // namespace mem
