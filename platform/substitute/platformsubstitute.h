// The inspection side of the substitute platform services: audio service, clock, event dispatcher,
// display, tuner and settings. Product code never sees this header.
#pragma once

#include "substitutelog.h"

namespace substitute {
namespace platform {

/// Every call that the platform services received, in order over all of them:
/// "AudioService.Att20DB", "DateTimeManager.setDateTime", "EventHandler.onEvent",
/// "TunerControl.HDR_DabTunerFM", "SettingsUtil.SubwooferOnOff", "SettingsExe.setOtherPathValue".
/// Plain reads (eventStates, getValue, IsForceTime ...) are not logged.
CallLog &log();

/// Sets the active audio events and emits eventStateChanged() when the list differs from before.
void setAudioEvents(const QList<int> &events);
/// Sets what the audio service holds, as another application would; no signal, no log line.
void setMainAudioMuted(bool muted);
void setAttenuated(bool attenuated);
bool isMainAudioMuted();
bool isAttenuated();
/// The same in the service's own words: any mute state, of which bit 0 is the main audio's, and any
/// attenuation.
void setMuteState(int state);
void setAttState(int state);

/// Emits a panel key of the event dispatcher.
void pressPanelKey(int key, int state, int kind);
/// Sets the current display source, which is 0 before.
void setCurrentDisplay(int display);

/// Sets the user's force-time setting.
void setForceTime(bool force);
/// Sets a general setting such as "mcu_upgrade_status".
void setSetting(const QString &key, bool value);

/// Puts every settings file under this folder ("/media/x.ini" becomes "<root>/media/x.ini").
/// Without a call it is a private temporary folder that goes with the process.
void setSettingsRoot(const QString &folder);
QString settingsRoot();

/// Puts everything back as in a fresh process; the settings root with its files and a listener of
/// the log stay.
void reset();

} // namespace platform
} // namespace substitute
