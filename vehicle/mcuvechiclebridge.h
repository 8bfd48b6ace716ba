// What the surround-view (AVM) renderer sees of the car. The facade feeds it from the tail line and
// the vehicle reports; the renderer reads the getters, connects to the signals and receives parking
// distances as frames.
#pragma once

#include "mcuserviceexport.h"

#include <QObject>

#include <array>

/// Vehicle signals for the surround-view renderer, the one object of the process.
///
/// Keeps the last state of each signal and emits only when it changes; the parking distances are
/// the exception and are emitted with every report. Lives in the thread of mcu::McuService, where
/// the notify operations run and the signals are emitted. Nothing here fails or blocks.
///
/// Getters and pointers carry no const: applications are linked against the names without it.
class MCUSERVICE_EXPORT McuVechicleBridge : public QObject {
    Q_OBJECT

public:
    /// The object, built on first use and destroyed at process exit.
    static McuVechicleBridge *instance();

    McuVechicleBridge();
    ~McuVechicleBridge() override;

    /// Headlight on; false before the first report.
    bool headlight();
    /// Parking lamp on; false before the first report.
    bool parking();
    /// Reverse gear engaged; false before the first report.
    bool reverse();
    /// Turn switch, a code of the MCU; 0 before the first report.
    int turnlight();
    /// Vehicle speed as the MCU reports it; 0 before the first report.
    int carSpeed();
    /// Steering position in percent, 0 to 100; 50 is straight ahead and the value at start.
    int wheelAngle();
    /// Door status, a code of the MCU; 0 before the first report.
    int doorState();
    /// Copies the converted parking distances, four into each array: front FL, FSL, FSR, FR and
    /// rear RL, RSL, RSR, RR. 10000 is no obstacle; zeros before the first report.
    void radarDistance(int *front, int *rear);

    // Updates from the facade: each stores, logs and emits only when the value changes. `from` is
    // handed on to the signal; the facade gives 0.
    void notifyHeadlightUpdate(bool onoff, int from);
    void notifyParkingUpdate(bool onoff, int from);
    void notifyReverseUpdate(bool onoff, int from);
    void notifyTurnLightUpdate(int turnlight);
    void notifyCarSpeedUpdate(int kmh);
    void notifyDoorUpdate(int doorState);
    /// Takes a steering angle in the MCU's tenths and keeps it as percent of the full range 0 to
    /// 1476; angles outside count as its ends. Not logged.
    void notifySteeringAngleUpdate(int angle);
    /// Reads four front and four rear sensor codes, always stores them converted, hands a frame to
    /// the renderer when it has released the UART, and emits radarDistanceChanged(). The last three
    /// values are accepted and not used.
    void notifyRadarUpdate(int *front, int *rear, int pasSwitch, int pdcSystemStatus,
                           int reverseAssistVideo);

Q_SIGNALS:
    // Each but the last fires when the value differs from the one kept, at first the start value.
    void headlightChanged(bool onoff, int from);
    void parkingChanged(bool onoff, int from);
    void reverseChanged(bool onoff, int from);
    void steeringAngleChanged(int percent);
    void carSpeedChanged(int kmh);
    void turnlightChanged(int);
    void doorChanged(int);
    /// A parking-distance report arrived, changed or not.
    void radarDistanceChanged();

private:
    bool m_parking = false;
    bool m_headlight = false;
    bool m_reverse = false;
    int m_turnlight = 0;
    int m_carSpeed = 0;
    int m_doorState = 0;
    int m_wheelAngle = 50;
    std::array<int, 4> m_frontRadar{};
    std::array<int, 4> m_rearRadar{};
};

/// True while the renderer has released the UART to this side: its release semaphore is above 0.
/// Creates the semaphore if it is missing, never changes its value. What fails is told on standard
/// error; without the renderer's key file the semaphore of key -1 is asked.
MCUSERVICE_EXPORT bool is_avm_service_release_uart();
