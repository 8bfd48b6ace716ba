// Status of the DAB tuner, the antennas and the factory test: reports of the MCU and notifications
// of other components.
#include "mcuservice.h"

#include "factorytest_p.h"
#include "logline_p.h"
#include "mcuradiointerface.h"
#include "mcuservice_p.h"

namespace mcu {

namespace {

// Bits of an antenna state.
constexpr quint8 antennaConnected = 1;
constexpr quint8 antennaAbnormal = 2;

} // namespace

// DAB: emitted for applications, not stored

void McuService::notifyDabAntStatus(int status)
{
    LOG_DEBUG << status;
    Q_EMIT dabAntStatusChanged(status);
}

void McuService::notifyDabToFmLinkStatus(int status)
{
    LOG_DEBUG << status;
    Q_EMIT dabToFmLinkStatusChanged(status);
}

void McuService::notifyDabSelectFreq(int index)
{
    LOG_DEBUG << index;
    Q_EMIT dabSelectFreq(index);
}

void McuService::notifyDabSelectService(int index)
{
    LOG_DEBUG << index;
    Q_EMIT dabSelectService(index);
}

void McuService::notifyDabMcuRequest(int action, int arg)
{
    LOG_DEBUG << action << arg;
    Q_EMIT dabMcuRequestAction(action, arg);
}

// Tuner status

void McuService::onDabWorkStatus(int status)
{
    McuRadioInterface::instance()->onTunerStateChanged(status);
    m_data->tunerWorkStatus = status;
    // Kept: for 0, emits 0 and then 1; applications take the last value.
    if (status == 0)
        Q_EMIT radioStatusChanged(0);
    Q_EMIT radioStatusChanged(1);
}

bool McuService::radioIsIdle()
{
    // Kept: despite the name, true while the tuner works; applications rely on the value.
    return m_data->tunerWorkStatus != 0;
}

// Antennas

void McuService::onGpsAntennaChanged(int status)
{
    m_data->gpsAntenna = quint8(status);
    Q_EMIT gpsAntennaChanged(m_data->gpsAntenna);
}

void McuService::onDabAntennaChanged(int status)
{
    m_data->dabAntenna = quint8(status);
    Q_EMIT dabAntennaChanged(m_data->dabAntenna);
}

void McuService::notifyAntennaStatus(unsigned char gps, unsigned char dab)
{
    LOG_DEBUG << gps << dab;
    if (gps != m_data->gpsAntenna)
        onGpsAntennaChanged(gps);
    if (dab != m_data->dabAntenna)
        onDabAntennaChanged(dab);
}

void McuService::setGpsAntAttach() { m_data->gpsAntenna = antennaConnected; }

void McuService::setGpsAntShort() { onGpsAntennaChanged(antennaAbnormal); }

bool McuService::gpsAntennaIsConnected() { return (m_data->gpsAntenna & antennaConnected) != 0; }

bool McuService::gpsAntennaIsAbnormal() { return (m_data->gpsAntenna & antennaAbnormal) != 0; }

bool McuService::dabAntennaIsConnected() { return (m_data->dabAntenna & antennaConnected) != 0; }

bool McuService::dabAntennaIsAbnormal() { return (m_data->dabAntenna & antennaAbnormal) != 0; }

// Factory test

void McuService::onAutoTestPkgChanged(QByteArray pkg)
{
    m_data->autoTestPackage = pkg;
    Q_EMIT autoTestPkgChanged(m_data->autoTestPackage);
}

void McuService::notifyAutoTestPackage(int len, char *data)
{
    onAutoTestPkgChanged(QByteArray(data, qMax(len, 0)));
}

QByteArray McuService::autoTestPackage() const { return m_data->autoTestPackage; }

void McuService::onAutoTestStatusChanged(int status) { notifyAutoTestStatus(status); }

void McuService::notifyAutoTestStatus(int status)
{
    LOG_DEBUG << status;
    if (status == m_data->autoTestStatus)
        return;
    m_data->autoTestStatus = status;
    switchFactoryTest(this, status != 0);
    Q_EMIT autoTestStatusChanged(status);
}

int McuService::autoTestStatus() const { return m_data->autoTestStatus; }

} // namespace mcu
