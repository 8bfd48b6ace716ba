// The private block of the facade: the state that getters return. Its fields have no lock; only the
// facade's thread uses them.
#pragma once

#include "logline_p.h"
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

    // Vehicle reports: the last of each, and the set of those that have been emitted.
    VehicleRecords records;
    quint32 carReadiness = 0;
    quint32 truckReadiness = 0;
    bool canDataReady = false;
    QByteArray featureCodePackage;

    // Ticks of the CAN check timer until the hold of a report ends; 0 without a hold.
    qint8 acDelay = 0;
    qint8 vehicleFaultDelay = 0;
    qint8 huDelay = 0;
    QTimer canCheckTimer;

    /// Whether a rate-limited report must be held back (1) or may be emitted now (0). Starts a hold
    /// if there is none, and restarts it if the hold is one that restarts. Returns 0 for a command
    /// without a rate limit.
    int checkCmdUpdateToApp(int cmd);
    /// A copy of the last stored record.
    template <const RecordDescription &Description>
    QByteArray image()
    {
        return records.of<Description>().bytes();
    }
    /// Stores a report, one value for each field, and publishes the record: rate limit, dump line,
    /// signal, readiness. The log line names the report's own slot.
    template <const RecordDescription &Description, typename... Values>
    void publish(CallSite slot, Values... values);

private:
    /// The same, and the dump line of it. One copy for both: a message handler may report again.
    template <const RecordDescription &Description>
    QByteArray loggedImage(CallSite slot)
    {
        QByteArray bytes = image<Description>();
        if constexpr (Description.dumpTag != nullptr) {
            if (isDebugLogged()) // in parts, so that nothing of the call site is stored before
                dump({slot.file, slot.line, slot.function}, Description.dumpTag, bytes);
        }
        return bytes;
    }
    /// Writes the dump line. Apart from the reports, so that they need no stack frame for it.
    static void dump(const CallSite &slot, const char *tag, const QByteArray &image);
    /// Stores that a report has been emitted. Emits CANDataReady() for the report that completes
    /// the first set.
    void markReady(const Readiness &readiness);
};

template <const RecordDescription &Description, typename... Values>
void McuServicePrivate::publish(CallSite slot, Values... values)
{
    records.of<Description>().store(values...);
    if constexpr (Description.hold.command != 0) {
        if (checkCmdUpdateToApp(Description.hold.command))
            return;
    }
    McuService *service = owner; // with a sanitizer GCC 12 does not read a member here
    Q_EMIT(service->*Description.signal)(loggedImage<Description>(slot));
    if constexpr (Description.readiness.set != Readiness::Set::None)
        markReady(Description.readiness);
}

} // namespace mcu
