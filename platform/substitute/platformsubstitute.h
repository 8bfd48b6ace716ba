// Control of the substitute platform services: audio service, clock, event dispatcher, display,
// tuner and settings. The library never includes this header.
#pragma once

#include "substitutelog.h"

namespace substitute::platform {

/// The calls that the platform services have received, all services in one order:
/// "AudioService.Att20DB", "DateTimeManager.setDateTime", "EventHandler.onEvent",
/// "TunerControl.HDR_DabTunerFM", "SettingsUtil.SubwooferOnOff", "SettingsExe.setOtherPathValue".
/// Queries (eventStates, getValue, IsForceTime ...) are not logged.
CallLog &log();

/// Sets the active audio events and emits eventStateChanged() when the list differs from before.
void setAudioEvents(const QList<int> &events);
/// Sets the state of the audio service, as another application would; emits and logs nothing.
void setMainAudioMuted(bool muted);
void setAttenuated(bool attenuated);
bool isMainAudioMuted();
bool isAttenuated();
/// The same with the codes of the audio service: any mute state, in which bit 0 is the main audio,
/// and any attenuation.
void setMuteState(int state);
void setAttState(int state);

/// Emits the event dispatcher's signal for a panel key.
void pressPanelKey(int key, int state, int kind);
/// Sets the current display source; 0 by default.
void setCurrentDisplay(int display);

/// Sets whether the user forces a manual time.
void setForceTime(bool force);
/// Sets a general setting such as "mcu_upgrade_status".
void setSetting(const QString &key, bool value);

/// Sets the root folder of all settings files ("/media/x.ini" becomes "<root>/media/x.ini"). The
/// default is a private temporary folder, which is removed when the process ends.
void setSettingsRoot(const QString &folder);
QString settingsRoot();

/// Resets everything as in a new process, except the settings root with its files and the listener
/// of the log.
void reset();

} // namespace substitute::platform
