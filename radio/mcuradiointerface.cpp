// Tuner commands to the link and tuner notifications from it, passed on without change.
#include "mcuradiointerface.h"

#include "callon_p.h"
#include "logline_p.h"

#include "mcusrv.h"

namespace mcu {

McuRadioInterface *McuRadioInterface::instance()
{
    static McuRadioInterface radio;
    return &radio;
}

McuRadioInterface::McuRadioInterface() = default;

McuRadioInterface::~McuRadioInterface() = default;

void McuRadioInterface::setMcuSrv(McuSrv *link)
{
    m_link = link;
    serviceConnectedSignals();
}

void McuRadioInterface::serviceConnectedSignals()
{
    connect(m_link, SIGNAL(psNameNotifySgl(QString)), SLOT(onPsNameNotify(QString)));
    connect(m_link, SIGNAL(tunerStationNotifySgl(int)), SLOT(onTunerStationNotify(int)));
    connect(m_link, SIGNAL(tunerPtyTypeNotifySgl(int)), SLOT(onTunerPtyTypeNotify(int)));
    connect(m_link, SIGNAL(rdsAlarmStateSgl(int)), SLOT(onAlarmState(int)));
    connect(m_link, SIGNAL(tunerPtySearchResultSgl(int)), SLOT(onTunerPtySearchResultNotify(int)));
    connect(m_link, SIGNAL(radioTextSgl(QString)), SLOT(onTunerRadioTextNotify(QString)));
    connect(m_link, SIGNAL(tunerStereoSgl(int)), SLOT(onTunerStereoNotify(int)));
    connect(m_link, SIGNAL(tunerTPStateSgl(int)), SLOT(onTunerTPStateNotify(int)));
    connect(m_link, SIGNAL(tunerAsStationChangedSgl(int)), SLOT(onAsStationChanged(int)));
    // Without blanks in the signatures a connection takes the fast path of Qt.
    // clang-format off
    connect(m_link, SIGNAL(tunerASStationFoundSgl(int,int)), SLOT(onAsStationFound(int,int)));
    // clang-format on
}

// Commands

void McuRadioInterface::tune(int freq)
{
    if (m_link)
        m_link->tune(freq);
    else
        LOG_CRITICAL << "mcu_radio_tune: no radio interface.";
}

void McuRadioInterface::mute(bool val)
{
    if (m_link)
        m_link->mute(val);
    else
        LOG_CRITICAL << "mcu_radio_tune: no radio interface."; // Kept: the text of tune(); log
                                                               // filters match it
}

void McuRadioInterface::setRdsOnOff(bool state)
{
    LOG_DEBUG << "=============="; // Kept: log filters match the text
    callOn(m_link, &McuSrv::setRdsOnOff, state);
}

void McuRadioInterface::seekForward() { callOn(m_link, &McuSrv::seekForward); }

void McuRadioInterface::seekBackward() { callOn(m_link, &McuSrv::seekBackward); }

void McuRadioInterface::autoScan() { callOn(m_link, &McuSrv::autoScan); }

void McuRadioInterface::terminate() { callOn(m_link, &McuSrv::terminate); }

void McuRadioInterface::searchPty(int type) { callOn(m_link, &McuSrv::searchPty, type); }

void McuRadioInterface::dismissTaAlarm() { callOn(m_link, &McuSrv::dismissTaAlarm); }

void McuRadioInterface::setFMRange(int lowFreq, int highFreq, int step)
{
    callOn(m_link, &McuSrv::setFMRange, lowFreq, highFreq, step);
}

void McuRadioInterface::setAMRange(int lowFreq, int highFreq, int step)
{
    callOn(m_link, &McuSrv::setAMRange, lowFreq, highFreq, step);
}

void McuRadioInterface::setTaOnOff(bool onoff) { callOn(m_link, &McuSrv::setTaOnOff, onoff); }

void McuRadioInterface::setAfOnOff(bool onoff) { callOn(m_link, &McuSrv::setAfOnOff, onoff); }

void McuRadioInterface::setCtOnOff(bool onoff) { callOn(m_link, &McuSrv::setCtOnOff, onoff); }

void McuRadioInterface::set_tuner_step(int step) { callOn(m_link, &McuSrv::set_tuner_step, step); }

// Notifications

void McuRadioInterface::onPsNameNotify(QString text)
{
    LOG_DEBUG << text;
    Q_EMIT psNameChanged(text);
}

void McuRadioInterface::onTunerStationNotify(int freq) { LOG_DEBUG << freq; }

void McuRadioInterface::onTunerPtyTypeNotify(int type)
{
    LOG_DEBUG << type;
    Q_EMIT ptyTypeChanged(type);
}

void McuRadioInterface::onAlarmState(int state)
{
    LOG_DEBUG << state;
    Q_EMIT alarmStatusChanged(state);
}

void McuRadioInterface::onTunerPtySearchResultNotify(int ret)
{
    LOG_DEBUG << ret;
    Q_EMIT ptySearchResult(ret);
}

void McuRadioInterface::onTunerRadioTextNotify(QString text)
{
    LOG_DEBUG << text;
    Q_EMIT radioTextUpdate(text);
}

void McuRadioInterface::onTunerStereoNotify(int stereo)
{
    LOG_DEBUG << stereo;
    Q_EMIT stereoChanged(stereo != 0);
}

void McuRadioInterface::onTunerTPStateNotify(int state)
{
    LOG_DEBUG << state;
    Q_EMIT tpStateChanged(state != 0);
}

void McuRadioInterface::onAsStationChanged(int freq) { Q_EMIT stationChanged(freq); }

void McuRadioInterface::onAsStationFound(int freq, int smeter)
{
    LOG_DEBUG << freq << smeter;
    // Kept: the parameter names of the signal are swapped; applications rely on the position.
    Q_EMIT asStationFound(freq, smeter);
}

void McuRadioInterface::onTunerStateChanged(int state)
{
    LOG_DEBUG << "1111111111111111111111111111111" << state; // Kept: log filters match the text
    Q_EMIT tunerStateChanged(state);
}

void McuRadioInterface::onSimulateNewsState(bool state)
{
    LOG_DEBUG << state;
    Q_EMIT simulateNewsStatusChanged(state);
}

} // namespace mcu
