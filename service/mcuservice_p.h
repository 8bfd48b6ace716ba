// The private block of the facade: everything it remembers between a report and a getter. No field
// is locked; all of them belong to the facade's thread.
#pragma once

#include "debug.h"
#include "qxprivate.h"
#include "setupinfo.h"
#include "vehiclerecords.h"

#include <QByteArray>
#include <QString>
#include <QTimer>

namespace mcu {

class McuService;

class McuServicePrivate : public QxPrivate<McuService> {
public:
    // System state
    QString testVersion;
    QString userVersion;
    int attState = 0;
    bool needSyncTime = true;
    int parking = 0;
    int reverse = 0;
    int headlight = 0;
    int muteLine = 0;
    int dsp = 0;
    int destCode = 0x100;
    int demo = 0;
    QString snIdName;
    int snIdChecksum = 0;
    bool btTest = false;
    bool usbOverCurrent = false;
    bool dateTimeReady = false;
    int tunerWorkStatus = 0;
    QByteArray autoTestPackage;
    int autoTestStatus = 0;
    QString serialNumber;
    quint8 gpsAntenna = 0;
    quint8 dabAntenna = 0;
    QString ampSwEdition;
    QString ampHwEdition;
    QString ecuSwEdition;
    QString ecuHwEdition;
    SetupInfo setupInfo;
    SetupInfo1 setupInfo1;

    // Vehicle reports: which have been emitted, and the last of each.
    quint32 carReadiness = 0;
    quint32 truckReadiness = 0;
    bool canDataReady = false;
    Record<record::ac> ac;
    Record<record::avm> avm;
    Record<record::vehicleSpeed> vehicleSpeed;
    Record<record::steeringAngle> steeringAngle;
    Record<record::featureCode> featureCode;
    Record<record::hu> hu;
    Record<record::amb> amb;
    Record<record::pdc> pdc;
    Record<record::tpms> tpms;
    Record<record::vehicleBody> vehicleBody;
    Record<record::meterSetting> meterSetting;
    Record<record::vehicleFault> vehicleFault;
    Record<record::ampStatus> ampStatus;
    Record<record::avmCalibrationCommand> avmCalibrationCommand;
    Record<record::dtcFlag> dtcFlag;
    Record<record::truckTpmsLearn> truckTpmsLearn;
    Record<record::truckDms> truckDms;
    Record<record::truckRsr1> truckRsr1;
    Record<record::truckSecurity> truckSecurity;
    Record<record::truckVehicleHealth> truckVehicleHealth;
    Record<record::truckRpas> truckRpas;
    Record<record::truckTpmsThreshold> truckTpmsThreshold;
    Record<record::truckTpmsCti> truckTpmsCti;
    Record<record::truckTpmsTemperature> truckTpmsTemperature;
    Record<record::truckTpmsPressure> truckTpmsPressure;
    Record<record::truckVehicleAlerts> truckVehicleAlerts;
    Record<record::truckPerformanceParameters> truckPerformanceParameters;
    Record<record::truckVehicleParameters> truckVehicleParameters;
    QByteArray featureCodePackage;

    // Ticks of the CAN check timer until a held-back report is emitted again. Nothing arms the AC
    // counter: its place in the walk is kept for the day a climate rate limit comes back.
    qint8 acDelay = 0;
    qint8 vehicleFaultDelay = 0;
    qint8 huDelay = 0;
    QTimer canCheckTimer;

    /// Whether a rate-limited report must be held back (1) or may be emitted now (0), and starts
    /// its hold period. Each vehicle fault restarts a hold of 6 ticks; an HU report starts one of 4
    /// and does not extend it. Commands that are not rate-limited give 0.
    int checkCmdUpdateToApp(int cmd);

    /// The one way of a stored record to applications: rate limit, dump line, signal, readiness.
    /// The log line names the report's own slot, whose place is passed along.
    template <const RecordDescription &Description>
    void publish(const Record<Description> &record, void (McuService::*updated)(QByteArray),
                 const CallSite &slot);
    /// Notes that a report has been emitted; the one that completes a set tells applications.
    void markReady(const Readiness &readiness);
};

} // namespace mcu
