// The sample services except the settings. They print the calls that they receive. No audio event
// is active, and the display source is 0.
#include "audioservice.h"
#include "datetimemanager.h"
#include "eventhandler.h"
#include "show.h"
#include "srcdsplctrl.h"
#include "tunercontrol.h"

using sample::show;

namespace hxaudio {

AudioService *AudioService::instance()
{
    static AudioService service;
    return &service;
}

QList<int> AudioService::eventStates() const { return {}; }
int AudioService::muteState() { return 0; }
bool AudioService::isMainAudioMute(int muteState) { return muteState != 0; }
int AudioService::getAttState() { return 0; }
void AudioService::Att20DB(bool on) { show("Att20DB", {on}); }
void AudioService::setMainAudioMute(bool on) { show("setMainAudioMute", {on}); }

} // namespace hxaudio

namespace hxdatetime {

DateTimeManager *DateTimeManager::instance()
{
    static DateTimeManager manager;
    return &manager;
}

void DateTimeManager::setDateTime(int year, int month, int day, int hour, int minute, int second,
                                  bool flag)
{
    show("setDateTime", {year, month, day, hour, minute, second, flag});
}

} // namespace hxdatetime

EventHandler *EventHandler::instance()
{
    static EventHandler handler;
    return &handler;
}

void EventHandler::onEvent(int event) { show("onEvent", {event}); }

int SrcDsplCtrl::currentDspl() { return 0; }

namespace tuner {

TunerControl *TunerControl::instance()
{
    static TunerControl control;
    return &control;
}

void TunerControl::HDR_DabRequestScan() { show("HDR_DabRequestScan", {}); }
void TunerControl::HDR_DabTunerFM(int index) { show("HDR_DabTunerFM", {index}); }

} // namespace tuner
