// The radio applications' facade over the analogue tuner that the MCU drives.
#pragma once

#include "mcuserviceexport.h"

#include <QObject>
#include <QString>

namespace mcu {

class McuSrv;

/// Tuner commands out, RDS and tuner notifications in; the one object of the process.
///
/// Keeps no radio state: every value passes straight through, in the units and codes of the MCU.
/// Before setMcuSrv() commands do nothing and no notification arrives. Lives in the thread that
/// first called instance(); a link that emits from its own thread is queued into it.
class MCUSERVICE_EXPORT McuRadioInterface : public QObject {
    Q_OBJECT

public:
    /// The object, built on first use and destroyed at process exit.
    static McuRadioInterface *instance();

    McuRadioInterface();
    ~McuRadioInterface() override;

    /// Takes the link, which stays its owner's, and connects its notifications. Called once, by
    /// McuService::connectService().
    void setMcuSrv(McuSrv *link);
    /// Connects the link's ten tuner notifications; called by setMcuSrv() alone.
    void serviceConnectedSignals();

Q_SIGNALS:
    /// A station was found and taken by the auto-store run.
    void stationChanged(int freq);
    /// Stereo reception or not.
    void stereoChanged(bool);
    /// Traffic programme flag.
    void tpStateChanged(bool);
    /// Programme service name.
    void psNameChanged(QString text);
    /// Tuner state, also from the DAB tuner's work status.
    void tunerStateChanged(int);
    /// Programme type of the station.
    void ptyTypeChanged(int type);
    /// Result of a programme type search.
    void ptySearchResult(int);
    /// RDS radio text.
    void radioTextUpdate(QString text);
    /// A station of the auto-store run. The parameter names are crossed: the first argument is the
    /// frequency, the second the field strength. Go by position.
    void asStationFound(int smeter, int freq);
    /// RDS alarm state.
    void alarmStatusChanged(int state);
    /// News simulation switched.
    void simulateNewsStatusChanged(bool state);

public Q_SLOTS:
    // Commands to the tuner; without a link they do nothing. tune() and mute() then log an error.
    void tune(int freq);
    void mute(bool val);
    void setRdsOnOff(bool state);
    void seekForward();
    void seekBackward();
    void autoScan();
    void terminate();
    void searchPty(int type);
    void dismissTaAlarm();
    void setFMRange(int lowFreq, int highFreq, int step);
    void setAMRange(int lowFreq, int highFreq, int step);
    void setTaOnOff(bool onoff);
    void setAfOnOff(bool onoff);
    void setCtOnOff(bool onoff);
    void set_tuner_step(int step);

    // Targets of the link's notifications. onTunerStateChanged() is called by the facade with the
    // DAB work status, onSimulateNewsState() by whoever simulates news.
    void onPsNameNotify(QString text);
    /// Logged only: stationChanged() comes from the auto-store run alone.
    void onTunerStationNotify(int freq);
    void onTunerPtyTypeNotify(int type);
    void onAlarmState(int state);
    void onTunerPtySearchResultNotify(int ret);
    void onTunerRadioTextNotify(QString text);
    void onTunerStereoNotify(int stereo);
    void onTunerTPStateNotify(int state);
    void onAsStationChanged(int freq);
    void onAsStationFound(int freq, int smeter);
    void onTunerStateChanged(int state);
    void onSimulateNewsState(bool state);

private:
    McuSrv *m_link = nullptr; ///< not owned
};

} // namespace mcu
