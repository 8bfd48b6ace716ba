// The private block of the facade: everything it remembers between a report and a getter. No field
// is locked; all of them belong to the facade's thread.
#pragma once

#include "debug.h"
#include "qxprivate_p.h"
#include "setupinfo.h"
#include "vehiclerecords_p.h"

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

    // Vehicle reports: the last of each, and which have been emitted.
    VehicleRecords records;
    quint32 carReadiness = 0;
    quint32 truckReadiness = 0;
    bool canDataReady = false;
    QByteArray featureCodePackage;

    // Ticks of the CAN check timer until a held-back report is emitted again.
    qint8 acDelay = 0;
    qint8 vehicleFaultDelay = 0;
    qint8 huDelay = 0;
    QTimer canCheckTimer;

    /// Whether a rate-limited report must be held back (1) or may be emitted now (0); starts its
    /// hold period. Commands that are not rate-limited give 0.
    int checkCmdUpdateToApp(int cmd);
    /// A copy of the record last stored.
    template <const RecordDescription &Description>
    QByteArray image()
    {
        return records.of<Description>().bytes();
    }
    /// Stores a report, one value for each field, and publishes the record: rate limit, dump line,
    /// signal, readiness. The log line names the report's own slot.
    template <const RecordDescription &Description, typename... Values>
    void publish(const CallSite &slot, Values... values);

private:
    /// Notes that a report has been emitted; the one that completes a set tells applications.
    void markReady(const Readiness &readiness);
};

template <const RecordDescription &Description, typename... Values>
void McuServicePrivate::publish(const CallSite &slot, Values... values)
{
    records.of<Description>().store(values...);
    if constexpr (Description.hold.command != 0) {
        if (checkCmdUpdateToApp(Description.hold.command))
            return;
    }
    if constexpr (Description.dumpTag != nullptr) {
        if (isDebugLogged())
            debugLine(slot) << Description.dumpTag << image<Description>().toHex();
    }
    McuService *service = owner; // GCC 12's sanitizer leaves a member unread in this kind of call
    Q_EMIT(service->*Description.signal)(image<Description>());
    if constexpr (Description.readiness.set != Readiness::Set::None)
        markReady(Description.readiness);
}

} // namespace mcu
