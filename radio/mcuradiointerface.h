/// \file
/// The radio applications' facade over the analogue tuner that the MCU drives.
#pragma once

#include "mcuserviceexport.h"

#include <QObject>
#include <QString>

namespace mcu {

class McuSrv;

/// Tuner commands to the MCU, RDS and tuner notifications from it; one object in the process.
///
/// Stores no radio state: every value passes through unchanged, in the units and codes of the MCU;
/// texts are complete QStrings. Before setMcuSrv() commands do nothing, unless their comment says
/// otherwise, and no notification arrives.
///
/// The object belongs to the thread that first calls instance(). Call all operations from this
/// thread. Notifications that the link emits in another thread are queued to it.
class MCUSERVICE_EXPORT McuRadioInterface : public QObject {
    Q_OBJECT

public:
    /// \name Life cycle
    ///@{

    /// The object: created on first use (thread-safe), destroyed at process exit, never null.
    static McuRadioInterface *instance();
    /// An object without a link, for tests; applications use instance().
    McuRadioInterface();
    /// Does not delete the link object, which belongs to its own library.
    ~McuRadioInterface() override;
    /// Stores the link, which must not be null, and connects its notifications. Called once, by
    /// McuService::connectService().
    void setMcuSrv(McuSrv *link);
    /// Connects the link's ten tuner notifications; called by setMcuSrv() alone.
    void serviceConnectedSignals();
    ///@}

Q_SIGNALS:
    /// \name Tuner and RDS signals
    /// Each is emitted for every notification, changed or not.
    ///@{

    /// Frequency of a station that the auto-store run has taken. Other stations that the tuner
    /// reports are only logged.
    void stationChanged(int freq);
    /// Whether reception is stereo.
    void stereoChanged(bool);
    /// Whether the station carries the traffic programme flag.
    void tpStateChanged(bool);
    /// Programme service name of the station.
    void psNameChanged(QString text);
    /// Tuner work status; see onTunerStateChanged().
    void tunerStateChanged(int);
    /// Programme type of the station.
    void ptyTypeChanged(int type);
    /// Result of searchPty().
    void ptySearchResult(int);
    /// RDS radio text.
    void radioTextUpdate(QString text);
    /// A station that the auto-store run has found. Kept: the parameter names are swapped: the
    /// first argument is the frequency, the second the field strength; applications rely on the
    /// position.
    void asStationFound(int smeter, int freq);
    /// RDS alarm state.
    void alarmStatusChanged(int state);
    /// The simulation of news was switched on (true) or off.
    void simulateNewsStatusChanged(bool state);
    ///@}

public Q_SLOTS:
    /// \name Commands to the tuner
    ///@{

    /// Tunes to a frequency. Without a link, logs an error.
    void tune(int freq);
    /// Mutes (true) or unmutes the tuner. Without a link, logs an error. Kept: the error has the
    /// text of tune(); log filters match both by it.
    void mute(bool val);
    /// RDS on or off. Logs "==============" with and without a link.
    void setRdsOnOff(bool state);
    /// Seeks the next station forward.
    void seekForward();
    /// Seeks the next station backward.
    void seekBackward();
    /// Starts an automatic scan.
    void autoScan();
    /// Sends the terminate command of the tuner.
    void terminate();
    /// Searches a station of a programme type; ptySearchResult() reports the result.
    void searchPty(int type);
    /// Dismisses the alarm of a traffic announcement.
    void dismissTaAlarm();
    /// Lowest and highest frequency and step of FM.
    void setFMRange(int lowFreq, int highFreq, int step);
    /// Lowest and highest frequency and step of AM.
    void setAMRange(int lowFreq, int highFreq, int step);
    /// Traffic announcements on or off.
    void setTaOnOff(bool onoff);
    /// Alternative frequencies on or off.
    void setAfOnOff(bool onoff);
    /// RDS clock time on or off.
    void setCtOnOff(bool onoff);
    /// Frequency step of the tuner.
    void set_tuner_step(int step);
    ///@}

    /// \name Targets of the link's notifications
    /// For the link alone, unless a line says otherwise: applications connect to the signals that
    /// they emit. All but onAsStationChanged() log their values.
    ///@{

    /// Emits psNameChanged().
    void onPsNameNotify(QString text);
    /// Kept: logs and emits nothing; applications take stations from stationChanged().
    void onTunerStationNotify(int freq);
    /// Emits ptyTypeChanged().
    void onTunerPtyTypeNotify(int type);
    /// Emits alarmStatusChanged().
    void onAlarmState(int state);
    /// Emits ptySearchResult().
    void onTunerPtySearchResultNotify(int ret);
    /// Emits radioTextUpdate().
    void onTunerRadioTextNotify(QString text);
    /// Emits stereoChanged(), true for any value but 0.
    void onTunerStereoNotify(int stereo);
    /// Emits tpStateChanged(), true for any value but 0.
    void onTunerTPStateNotify(int state);
    /// Emits stationChanged().
    void onAsStationChanged(int freq);
    /// Emits asStationFound() with the arguments in this order.
    void onAsStationFound(int freq, int smeter);
    /// Emits tunerStateChanged(). Called by McuService::onDabWorkStatus() with the work status.
    void onTunerStateChanged(int state);
    /// Emits simulateNewsStatusChanged(). For components that simulate news.
    void onSimulateNewsState(bool state);
    ///@}

private:
    McuSrv *m_link = nullptr; ///< not owned
};

} // namespace mcu
