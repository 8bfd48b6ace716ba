/// \file
/// The platform audio service, a closed class, as far as the audio arbitration uses it.
#pragma once

#include <QList>
#include <QObject>

namespace hxaudio {

/// Holds the active audio events and the mute and attenuation of the main audio.
///
/// Called from the thread of McuManager, and from any other that calls
/// McuManager::updateAudioStatus().
class Q_DECL_IMPORT AudioService : public QObject {
    Q_OBJECT

public:
    /// The one object; never null.
    static AudioService *instance();

    /// Codes of the active audio events; docs/audio.md lists those that interrupt the main audio.
    QList<int> eventStates() const;
    /// Mute state, to be passed to isMainAudioMute().
    int muteState();
    /// Whether the main audio is muted in the given mute state.
    bool isMainAudioMute(int muteState);
    /// Non-zero while the main audio is attenuated.
    int getAttState();

    /// Switches the 20 dB attenuation of the main audio on or off.
    void Att20DB(bool on);
    /// Mutes (true) or unmutes the main audio.
    void setMainAudioMute(bool on);

Q_SIGNALS:
    /// The list of active events changed. The library connects to it by its text; an emission from
    /// another thread is queued.
    void eventStateChanged();
};

} // namespace hxaudio
