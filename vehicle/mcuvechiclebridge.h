/// \file
/// The bridge to the surround-view (AVM) renderer. The facade passes it the tail line and the
/// vehicle reports. The renderer reads the getters, connects to the signals and receives parking
/// distances as frames.
#pragma once

#include "mcuserviceexport.h"

#include <QObject>

#include <array>

/// Vehicle signals for the surround-view renderer; one object in the process.
///
/// Stores the last value of each signal and emits the signal only when the value changes, except
/// for parking distances, which are emitted with every report. Call everything from the thread of
/// mcu::McuService; signals are emitted there. Nothing throws or blocks; a failure is at most
/// written to standard error.
///
/// Kept: the name is misspelled and getters and pointers are not const, because applications are
/// linked against these names.
class MCUSERVICE_EXPORT McuVechicleBridge : public QObject {
    Q_OBJECT

public:
    /// \name Life cycle
    ///@{

    /// The object: created on first use (thread-safe), destroyed at process exit, never null.
    static McuVechicleBridge *instance();
    /// An object with start values, for tests; the facade and the renderer use instance().
    McuVechicleBridge();
    /// Does not change the renderer's semaphore.
    ~McuVechicleBridge() override;
    ///@}

    /// \name State
    /// The last reported values; before the first report, the values at start.
    ///@{

    /// Whether the headlight is on; false at start.
    bool headlight();
    /// Whether the parking lamp is on; false at start.
    bool parking();
    /// Whether reverse gear is engaged; false at start.
    bool reverse();
    /// Turn switch, a code of the MCU; 0 at start.
    int turnlight();
    /// Vehicle speed in the unit of the MCU's reports; 0 at start.
    int carSpeed();
    /// Steering position in percent, 0 to 100; 50 is straight ahead and the value at start.
    int wheelAngle();
    /// Door status, a code of the MCU; 0 at start.
    int doorState();
    /// Copies the parking distances, four to each array: front FL, FSL, FSR, FR and rear RL, RSL,
    /// RSR, RR. 10000 is no obstacle, other values are the sensor's code * 5 + 25; zeros at start.
    /// Neither pointer may be null.
    void radarDistance(int *front, int *rear);
    ///@}

    /// \name Updates
    /// For the facade alone. Each stores and logs a value that differs from the stored one and
    /// emits its signal, and does nothing with an equal one. `from` only passes through to the
    /// signal; the facade passes 0.
    ///@{

    /// Emits headlightChanged().
    void notifyHeadlightUpdate(bool onoff, int from);
    /// Emits parkingChanged().
    void notifyParkingUpdate(bool onoff, int from);
    /// Emits reverseChanged().
    void notifyReverseUpdate(bool onoff, int from);
    /// Emits turnlightChanged().
    void notifyTurnLightUpdate(int turnlight);
    /// Emits carSpeedChanged().
    void notifyCarSpeedUpdate(int kmh);
    /// Emits doorChanged().
    void notifyDoorUpdate(int doorState);
    /// Converts a steering angle, in tenths of the MCU's unit, to percent of the range 0 to 1476
    /// units; an angle outside counts as the nearer limit. Emits steeringAngleChanged() if the
    /// percentage differs from the stored one. Not logged.
    void notifySteeringAngleUpdate(int angle);
    /// Takes four sensor codes from each pointer, changed or not: logs them, stores them as
    /// distances, writes a frame to the renderer if it has released the UART, and emits
    /// radarDistanceChanged(). A frame that cannot be written is dropped.
    /// Kept: the last three values are not used; the facade passes the whole report.
    void notifyRadarUpdate(int *front, int *rear, int pasSwitch, int pdcSystemStatus,
                           int reverseAssistVideo);
    ///@}

Q_SIGNALS:
    /// \name Changes
    /// All but radarDistanceChanged() are emitted only when their value differs from the stored
    /// one; the getter already returns the new value.
    ///@{

    /// The headlight was switched on (true) or off.
    void headlightChanged(bool onoff, int from);
    /// The parking lamp was switched on (true) or off.
    void parkingChanged(bool onoff, int from);
    /// Reverse gear was engaged (true) or disengaged.
    void reverseChanged(bool onoff, int from);
    /// Steering position in percent, 0 to 100.
    void steeringAngleChanged(int percent);
    /// Vehicle speed in the unit of the MCU's reports; the parameter name assumes km/h.
    void carSpeedChanged(int kmh);
    /// Turn switch, a code of the MCU.
    void turnlightChanged(int);
    /// Door status, a code of the MCU.
    void doorChanged(int);
    /// A parking-distance report arrived, changed or not; read it with radarDistance().
    void radarDistanceChanged();
    ///@}

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

/// Whether the renderer has released the UART to this side: its release semaphore is above 0.
/// Creates the semaphore if it is missing and never changes its value. Failures are written to
/// standard error: without a semaphore the result is false, without the renderer's key file the
/// semaphore of key -1 is queried. Thread-safe.
MCUSERVICE_EXPORT bool is_avm_service_release_uart();
