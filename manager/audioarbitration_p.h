// Tables of the audio arbitration: the statuses that start and end an audio event, the platform
// events that interrupt, and the records to restore. Plain values; McuManager acts on them.
#pragma once

#include <QList>

namespace mcu::arbitration {

/// The effect of an audio status on the main audio.
enum class StatusGroup {
    EventOn,    ///< an event begins: mute and attenuation are recorded, then switched off
    EventOff,   ///< an event ends: the recorded mute and attenuation are restored
    PhoneEnd,   ///< a phone call ends: no effect
    PassThrough ///< no effect
};

/// The group of a status; every number has one.
StatusGroup groupOf(int status);

/// State of the mute or the attenuation before the first event of a run, to be restored.
enum RestoreRecord : int { NothingRecorded = 0, RestoreOff = 1, RestoreOn = 2 };

constexpr RestoreRecord recordOf(bool isOn) { return isOn ? RestoreOn : RestoreOff; }

/// Whether one of the active platform events interrupts the main audio.
bool containsInterrupt(const QList<int> &activeEvents);

} // namespace mcu::arbitration
