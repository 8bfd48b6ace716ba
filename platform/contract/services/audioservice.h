// The platform audio service as the audio arbitration needs it: hxaudio::AudioService, closed.
#pragma once

#include <QList>
#include <QObject>

namespace hxaudio {

/// Holds the active audio events and the mute and attenuation of the main audio.
class Q_DECL_IMPORT AudioService : public QObject {
    Q_OBJECT

public:
    static AudioService *instance();

    /// Codes of the audio events that are active now.
    QList<int> eventStates() const;
    /// Mute state word, to be read with isMainAudioMute().
    int muteState();
    /// Whether the main audio is muted in the given mute state word.
    bool isMainAudioMute(int muteState);
    /// Non-zero while the main audio is attenuated.
    int getAttState();

    /// Switches the 20 dB attenuation of the main audio.
    void Att20DB(bool on);
    /// Mutes or unmutes the main audio.
    void setMainAudioMute(bool on);

Q_SIGNALS:
    /// The list of active events changed.
    void eventStateChanged();
};

} // namespace hxaudio
