// What the audio arbitration knows: which statuses start and end an audio event, which platform
// events interrupt, what is taken down to be restored. Plain values; McuManager acts on them.
#pragma once

#include <QList>

namespace mcu::arbitration {

/// What an audio status does to the main audio.
enum class StatusGroup {
    EventOn,    ///< an event takes over: its mute and attenuation are recorded, then cleared
    EventOff,   ///< an event is over: what was recorded is given back
    PhoneEnd,   ///< a phone call is over
    PassThrough ///< nothing
};

/// The group of a status; every value has one.
StatusGroup groupOf(int status);

/// How the mute or the attenuation was before the first event of a run, and so is to be again.
enum RestoreRecord : int { NothingRecorded = 0, RestoreOff = 1, RestoreOn = 2 };

constexpr RestoreRecord recordOf(bool isOn) { return isOn ? RestoreOn : RestoreOff; }

/// Whether one of the active platform events interrupts the main audio.
bool containsInterrupt(const QList<int> &activeEvents);

} // namespace mcu::arbitration
