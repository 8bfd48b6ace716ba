// Audio arbitration: the audio channel, and the main audio during an event and after it.
// docs/audio.md describes the cycle; the comments here use the names of its states:
//
//     idle        nothing is recorded
//     recorded    an event is heard; mute and attenuation from before it are recorded
//     waiting     the event has ended, but the platform still has interrupting events
//     restoring   the main audio is restored; the records are kept until the restore timer ends
#include "mcumanager.h"

#include "audioarbitration_p.h"
#include "callon_p.h"
#include "logline_p.h"
#include "mcuservice.h"

#include "audioservice.h"

using hxaudio::AudioService;
using mcu::callOn;
using mcu::McuService;
namespace arbitration = mcu::arbitration;

namespace {

/// Type of the MCU mute that covers a switch of the main audio. Kept: a manager over another
/// service also sends it through instance(), because there is one MCU.
constexpr int switchMute = 50;

constexpr char duckMarker[] = "~~~~~~~~~~~~~~~~~~~~~~~"; ///< Kept: log filters match the text

} // namespace

// Channel

void McuManager::updateAudioChannel(McuManager::AudioChannel channel)
{
    if (m_carplayAlert) {
        LOG_DEBUG << "switch channel at alert!";
        m_audioChannel = channel;
        return;
    }
    if (!m_service)
        return;
    LOG_DEBUG << "channel=" << channel;
    Q_EMIT audioChannel(channel);
    m_audioChannel = channel;
    m_service->updateAudioChannel(channel);
}

void McuManager::onCarplayAlertStart() { m_carplayAlert = true; }

void McuManager::onCarplayAlertStop()
{
    if (!m_carplayAlert)
        return;
    m_carplayAlert = false;
    updateAudioChannel(AudioChannel(m_audioChannel));
}

// Status and the event-mute cycle

int McuManager::audioStatus()
{
    const int status = m_audioStatus;
    LOG_DEBUG << status;
    return status;
}

void McuManager::updateAudioStatus(McuManager::AudioStatus status)
{
    const QMutexLocker lock(&m_mutex);
    if (!m_service) {
        m_lastAudioStatus = status;
        return;
    }
    m_audioStatus = status;

    switch (arbitration::groupOf(status)) {
    case arbitration::StatusGroup::EventOn: { // idle, recorded, restoring -> recorded
        AudioService *audio = AudioService::instance();
        // An existing record stays: only the first event of a run is recorded.
        if (m_restoreMuteOfEvtOff == arbitration::NothingRecorded) {
            const bool muted = audio->isMainAudioMute(audio->muteState());
            LOG_DEBUG << muted;
            m_restoreMuteOfEvtOff = arbitration::recordOf(muted);
            LOG_DEBUG << "m_restoreMuteOfEvtOff is" << m_restoreMuteOfEvtOff;
            LOG_DEBUG << (muted ? "need restore mute" : "need restore demute");
        }
        if (m_atttoreMuteOfEvtOff == arbitration::NothingRecorded) {
            const int attenuation = audio->getAttState();
            LOG_DEBUG << attenuation;
            m_atttoreMuteOfEvtOff = arbitration::recordOf(attenuation != 0);
            LOG_DEBUG << "m_atttoreMuteOfEvtOff is" << m_atttoreMuteOfEvtOff;
            LOG_DEBUG << (attenuation != 0 ? "need restore att" : "need restore deAtt");
        }
        instance()->setAudioMute2(true, switchMute);
        audio->Att20DB(false);
        audio->setMainAudioMute(false);
        // Stop and start of the timer are queued, because it belongs to the manager's thread.
        QMetaObject::invokeMethod(&m_dlyEndRestoreMuteTmr, "stop", Qt::QueuedConnection);
        break;
    }
    case arbitration::StatusGroup::EventOff: // recorded -> waiting or restoring
        checkEventOffRestoreMute();
        break;
    case arbitration::StatusGroup::PhoneEnd:
        m_phoneEndPending = false;
        break;
    case arbitration::StatusGroup::PassThrough:
        break;
    }

    LOG_DEBUG << "**updateAudio****" << m_audioStatus;
    m_service->updateAudioStatus(m_audioStatus);
    m_lastAudioStatus = status;
}

bool McuManager::isContainAudioInterrupt()
{
    const QList<int> events = AudioService::instance()->eventStates();
    LOG_DEBUG << events;
    return arbitration::containsInterrupt(events);
}

void McuManager::checkEventOffRestoreMute()
{
    AudioService *audio = AudioService::instance();
    disconnect(audio, SIGNAL(eventStateChanged()), this, SLOT(onEventStateChanged()));
    if (isContainAudioInterrupt()) { // -> waiting
        LOG_DEBUG << "wait for the end of the audio events";
        connect(audio, SIGNAL(eventStateChanged()), this, SLOT(onEventStateChanged()));
        return;
    }

    // -> restoring. Kept: restoring the attenuation cancels the restore of the mute, and the
    // attenuation is switched off if the mute record says off; audio applications rely on both.
    LOG_DEBUG << m_atttoreMuteOfEvtOff;
    if (m_atttoreMuteOfEvtOff == arbitration::RestoreOn) {
        LOG_DEBUG << "restore att";
        instance()->setAudioMute2(true, switchMute);
        audio->Att20DB(true);
        m_restoreMuteOfEvtOff = arbitration::NothingRecorded;
    } else if (m_restoreMuteOfEvtOff == arbitration::RestoreOff) {
        LOG_DEBUG << "restore deAtt";
        audio->Att20DB(false);
    }

    LOG_DEBUG << m_restoreMuteOfEvtOff;
    if (m_restoreMuteOfEvtOff == arbitration::RestoreOn) {
        LOG_DEBUG << "restore mute";
        instance()->setAudioMute2(true, switchMute);
        audio->setMainAudioMute(true);
    } else if (m_restoreMuteOfEvtOff == arbitration::RestoreOff) {
        LOG_DEBUG << "restore demute";
        audio->setMainAudioMute(false);
    }
    QMetaObject::invokeMethod(&m_dlyEndRestoreMuteTmr, "start", Qt::QueuedConnection);
}

void McuManager::onEventStateChanged()
{
    // The wait lasts while any event is active, interrupting or not.
    const bool noEvent = AudioService::instance()->eventStates().isEmpty();
    LOG_DEBUG << noEvent;
    if (noEvent)
        checkEventOffRestoreMute();
}

void McuManager::onDlyEndRestoreMuteTmrout() // restoring -> idle
{
    m_restoreMuteOfEvtOff = arbitration::NothingRecorded;
    m_atttoreMuteOfEvtOff = arbitration::NothingRecorded;
    LOG_DEBUG << "m_restoreMuteOfEvtOff is" << m_restoreMuteOfEvtOff << m_atttoreMuteOfEvtOff;
}

void McuManager::onDlyUptPheEndTmrout()
{
    m_phoneEndPending = false;
    LOG_DEBUG << m_pendingAtt << m_cpConnected << m_mainMuted;
    if (m_pendingAtt) {
        m_pendingAtt = false;
        if (!m_mainMuted)
            triggerAtt(1);
    } else if (m_mainMuted) {
        triggerAtt(0);
    }
    LOG_DEBUG << m_pendingMute;
    if (m_pendingMute)
        setAudioMute(true);
}

// Ducking

void McuManager::duckAudio(int type, int level)
{
    LOG_DEBUG << duckMarker << type << level;
    m_isDucking = true;
    callOn(m_service, &McuService::duckAudio, type, level);
}

void McuManager::unduckAudio(int type)
{
    LOG_DEBUG << duckMarker << type;
    m_isDucking = false;
    // Serialised with updateAudioStatus().
    const QMutexLocker lock(&m_mutex);
    callOn(m_service, &McuService::unduckAudio, type);
}

bool McuManager::isDucking() { return m_isDucking; }
