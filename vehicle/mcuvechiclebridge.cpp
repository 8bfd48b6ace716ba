// The bridge stores the values that the facade reports and emits a signal for each change.
#include "mcuvechiclebridge.h"

#include "logline_p.h"
#include "radarframe_p.h"
#include "rendererhandover_p.h"
#include "steeringpercent_p.h"

#include <algorithm>

namespace {

// Kept: one name has "server", the other "service"; the renderer uses these names.
constexpr char releaseKeyFile[] = "/tmp/avmrenderserver_releaseuart";
constexpr char rendererNode[] = "/tmp/avmrenderservice_rx";

// Logs and stores a value that differs from the last one, with the caller's call site, and returns
// whether it differs. Without memory for the log line the change is neither stored nor lost: the
// next report has it again.
template <typename Value>
bool changes(Value &last, Value value, const CallSite &site)
{
    if (last == value)
        return false;
    if (isDebugLogged())
        mcu::LogLine(QtDebugMsg, site) << value;
    last = value;
    return true;
}

} // namespace

McuVechicleBridge *McuVechicleBridge::instance()
{
    static McuVechicleBridge bridge;
    return &bridge;
}

McuVechicleBridge::McuVechicleBridge() = default;

McuVechicleBridge::~McuVechicleBridge() = default;

bool McuVechicleBridge::headlight() { return m_headlight; }

bool McuVechicleBridge::parking() { return m_parking; }

bool McuVechicleBridge::reverse() { return m_reverse; }

int McuVechicleBridge::turnlight() { return m_turnlight; }

int McuVechicleBridge::carSpeed() { return m_carSpeed; }

int McuVechicleBridge::wheelAngle() { return m_wheelAngle; }

int McuVechicleBridge::doorState() { return m_doorState; }

void McuVechicleBridge::radarDistance(int *front, int *rear)
{
    std::copy(m_frontRadar.begin(), m_frontRadar.end(), front);
    std::copy(m_rearRadar.begin(), m_rearRadar.end(), rear);
}

void McuVechicleBridge::notifyHeadlightUpdate(bool onoff, int from)
{
    if (changes(m_headlight, onoff, CALL_SITE))
        Q_EMIT headlightChanged(onoff, from);
}

void McuVechicleBridge::notifyParkingUpdate(bool onoff, int from)
{
    if (changes(m_parking, onoff, CALL_SITE))
        Q_EMIT parkingChanged(onoff, from);
}

void McuVechicleBridge::notifyReverseUpdate(bool onoff, int from)
{
    if (changes(m_reverse, onoff, CALL_SITE))
        Q_EMIT reverseChanged(onoff, from);
}

void McuVechicleBridge::notifyTurnLightUpdate(int turnlight)
{
    if (changes(m_turnlight, turnlight, CALL_SITE))
        Q_EMIT turnlightChanged(turnlight);
}

void McuVechicleBridge::notifyCarSpeedUpdate(int kmh)
{
    if (changes(m_carSpeed, kmh, CALL_SITE))
        Q_EMIT carSpeedChanged(kmh);
}

void McuVechicleBridge::notifyDoorUpdate(int doorState)
{
    if (changes(m_doorState, doorState, CALL_SITE))
        Q_EMIT doorChanged(doorState);
}

void McuVechicleBridge::notifySteeringAngleUpdate(int angle)
{
    // Not logged: during a drive the angle changes with every report.
    const int percent = mcu::steeringPercent(angle);
    if (percent == m_wheelAngle)
        return;
    m_wheelAngle = percent;
    Q_EMIT steeringAngleChanged(percent);
}

void McuVechicleBridge::notifyRadarUpdate(int *front, int *rear, int /*pasSwitch*/,
                                          int /*pdcSystemStatus*/, int /*reverseAssistVideo*/)
{
    LOG_DEBUG << front[0] << front[1] << front[2] << front[3];
    LOG_DEBUG << rear[0] << rear[1] << rear[2] << rear[3];
    m_frontRadar = mcu::radarDistances(front);
    m_rearRadar = mcu::radarDistances(rear);
    mcu::handOverToRenderer(mcu::radarImage(m_frontRadar, m_rearRadar), releaseKeyFile,
                            rendererNode);
    Q_EMIT radarDistanceChanged();
}

bool is_avm_service_release_uart() { return mcu::isUartReleased(releaseKeyFile); }
