// Measures the cost of a report, a command, a text and a log line in the library and in the floor,
// in one run.
//
//     mcubench            measures times with Google Benchmark and takes its options
//     mcubench --count    writes one callgrind dump per row, named SERVICE/ROW
//     mcubench --count-application NAME
//                         the same for the one service of an application, with its receivers and
//                         what else listens to it, named NAME/ROW
//     mcubench --soak N   sends N mixed reports and prints the growth of the resident memory
#include "counting.h"
#include "floor.h"

#include "linksubstitute.h"
#include "logline_p.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "radiostringconnver.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <string>
#include <vector>

using mcu::McuService;
using mcu::McuSrv;

namespace {

constexpr int countedActs = 1000;

/// An application that does nothing with what it receives.
class Receiver : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void takeRecord(QByteArray record) { benchmark::DoNotOptimize(record.constData()); }
    void takeNumber(int number) { benchmark::DoNotOptimize(number); }
};

/// A service that is connected to the link, with receivers for all signals that are measured.
template <typename Service>
class Stand {
public:
    Stand(Service &service, int receivers) : m_service(service), m_receivers(std::size_t(receivers))
    {
        m_service.init();
        for (const Receiver &receiver : m_receivers) {
            for (const char *record :
                 {SIGNAL(syncACInforUpdate(QByteArray)),
                  SIGNAL(syncTruckPerformanceParametersInforUpdate(QByteArray))})
                QObject::connect(&m_service, record, &receiver, SLOT(takeRecord(QByteArray)));
            QObject::connect(&m_service, SIGNAL(eqTypeChanged(int)), &receiver,
                             SLOT(takeNumber(int)));
        }
    }

    Service &service() { return m_service; }

private:
    Service &m_service;
    std::vector<Receiver> m_receivers;
};

/// One operation to measure, in the floor and in the library.
struct Row {
    const char *name;
    void (*floor)(Floor &);
    void (*library)(McuService &);
    int receivers;
    bool isLogged = false; ///< with debug output on

    void operator()(Floor &service) const { floor(service); }
    void operator()(McuService &service) const { library(service); }
};

/// A row with the same call for the floor and the library.
template <typename Act>
constexpr Row alike(const char *name, Act act, int receivers)
{
    return {name, act, act, receivers};
}

/// A row of one log line, with the same items for the floor and the library.
template <typename Act>
constexpr Row logged(const char *name, Act act)
{
    return {name, act, act, 0, true};
}

constexpr CallSite site{"service/mcustate.cpp", 175,
                        "void mcu::McuService::onStwAdcValueChanged(int)"};
QDebug line(Floor &) { return Floor::debugLine(site); }
mcu::LogLine line(McuService &) { return mcu::LogLine(QtDebugMsg, site); }

McuSrv *link() { return McuSrv::instance(); }

/// Clears the link's log of commands, so that memory does not grow from call to call.
void forget() { substitute::link::log().clear(); }

const QString version = QStringLiteral("APP 5.3.1");
const QByteArray record(15, '\x4a');
const QByteArray broadcast = QByteArray("Radio \x82ire 102,4").repeated(256);

template <int Length>
constexpr Row text(const char *name)
{
    return {name,
            [](Floor &) {
                benchmark::DoNotOptimize(Floor::convertFromEBU(broadcast.constData(), Length));
            },
            [](McuService &) {
                benchmark::DoNotOptimize(
                    radioStringConnver::convertFromEBU(broadcast.constData(), Length));
            },
            0};
}

const Row rows[] = {
    alike(
        "car report",
        [](auto &) {
            link()->reportAcChangedSgl(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15);
        },
        1),
    alike(
        "truck report",
        [](auto &) {
            link()->reportTruckPerformanceParametersChangedSgl(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11,
                                                               12, 13, 14);
        },
        1),
    alike(
        "relay to 0", [](auto &) { link()->eqTypeChangedSgl(1); }, 0),
    alike(
        "relay to 1", [](auto &) { link()->eqTypeChangedSgl(1); }, 1),
    alike(
        "relay to 4", [](auto &) { link()->eqTypeChangedSgl(1); }, 4),
    alike(
        "SetVolume", [](auto &service) { service.SetVolume(5), forget(); }, 0),
    alike(
        "setAudioMute", [](auto &service) { service.setAudioMute(1, 2, 3), forget(); }, 0),
    alike(
        "updateAppVersion", [](auto &service) { service.updateAppVersion(version), forget(); }, 0),
    alike(
        "set_amb_data",
        [](auto &service) {
            service.set_amb_data(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14), forget();
        },
        0),
    text<8>("text of 8"),
    text<64>("text of 64"),
    text<128>("text of 128"),
    text<4096>("text of 4096"),
    logged("line", [](auto &service) { line(service); }),
    logged("line, int", [](auto &service) { line(service) << 42; }),
    logged("line, text, int", [](auto &service) { line(service) << "channel=" << 42; }),
    logged("line, record",
           [](auto &service) { line(service) << "!qrk#---ac_infor---" << record.toHex(); }),
};

constexpr Row silencedLogs[]{
    alike(
        "silenced log", [](auto &) { LOG_DEBUG << "level" << 5; }, 0),
    alike(
        "silenced logs",
        [](auto &) {
            LOG_DEBUG << "level" << 5;
            LOG_DEBUG << "level" << 6;
        },
        0),
};

/// Switches debug output off, or on for a row that logs, into the handler.
void setLogging(const Row &row, QtMessageHandler handler)
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, row.isLogged);
    qInstallMessageHandler(row.isLogged ? handler : nullptr);
}

void dropLine(QtMsgType, const QMessageLogContext &, const QString &) {}

/// The log line of a row with all of its context.
template <typename Service>
QString writtenLine(const Row &row)
{
    static QString written;
    qSetMessagePattern(
        QStringLiteral("%{type} %{category} %{file} %{line} %{function} %{threadid} %{message}"));
    Service service;
    setLogging(row, [](QtMsgType type, const QMessageLogContext &context, const QString &text) {
        written = qFormatLogMessage(type, context, text);
    });
    row(service);
    setLogging(row, dropLine);
    return written;
}

/// Says for which rows the floor and the library log different lines, and returns their number.
int differentLines()
{
    int different = 0;
    for (const Row &row : rows) {
        if (row.isLogged && (writtenLine<Floor>(row) != writtenLine<McuService>(row) ||
                             writtenLine<Floor>(row).isEmpty())) {
            std::fprintf(stderr, "different lines: %s\n", row.name);
            ++different;
        }
    }
    return different;
}

/// Calls the function for each row and service, with the name "SERVICE/ROW".
template <typename Measure>
void forEachRow(Measure measure)
{
    for (const Row &row : rows) {
        measure.template operator()<Floor>(std::string("floor/") + row.name, row);
        measure.template operator()<McuService>(std::string("library/") + row.name, row);
    }
    for (const Row &row : silencedLogs)
        measure.template operator()<McuService>(std::string("library/") + row.name, row);
}

struct Time {
    template <typename Service>
    void operator()(const std::string &name, const Row &row) const
    {
        benchmark::RegisterBenchmark(name.c_str(), [row](benchmark::State &state) {
            Service service;
            Stand stand(service, row.receivers);
            setLogging(row, dropLine);
            for (auto iteration : state) {
                benchmark::DoNotOptimize(iteration);
                row(stand.service());
            }
        });
    }
};

struct Count {
    template <typename Service>
    void operator()(const std::string &name, const Row &row) const
    {
        Service service;
        Stand stand(service, row.receivers);
        setLogging(row, dropLine);
        countActs(name, countedActs, [&] { row(stand.service()); });
    }
};

/// An application with the one service, which a probe that is loaded listens to.
void countApplication(const std::string &name)
{
    Stand stand(*McuService::instance(), 1);
    for (const Row &row : rows)
        countActs(name + '/' + row.name, countedActs, [&] { row(stand.service()); });
}

/// Emits a report with the same value in all fields.
template <typename... Ints>
void report(void (McuSrv::*signal)(Ints...), int value)
{
    (link()->*signal)(Ints(value)...);
}

/// Emits every vehicle report once and returns their number.
int reportAll(int value)
{
    link()->reportFeatureVelroCodeChangedSgl(QByteArray(value % 64, 'x'));
    report(&McuSrv::reportAcChangedSgl, value);
    report(&McuSrv::reportAVMChangedSgl, value);
    report(&McuSrv::reportVehicleSpeedChangedSgl, value);
    report(&McuSrv::reportSteeringAngleChangedSgl, value);
    report(&McuSrv::reportFeatureCodeChangedSgl, value);
    report(&McuSrv::reportHuChangedSgl, value);
    report(&McuSrv::reportAmbChangedSgl, value);
    report(&McuSrv::reportPdcChangedSgl, value);
    report(&McuSrv::reportTpmsChangedSgl, value);
    report(&McuSrv::reportVehicleBodyChangedSgl, value);
    report(&McuSrv::reportMeterSettingChangedSgl, value);
    report(&McuSrv::reportVehicleFaultChangedSgl, value);
    report(&McuSrv::ampStatusChangedSgl, value);
    report(&McuSrv::avmCalibrationCmdChangedSgl, value);
    report(&McuSrv::reportDtcFlagChangedSgl, value);
    report(&McuSrv::reportTruckTpmsLearnChangedSgl, value);
    report(&McuSrv::reportTruckDmsChangedSgl, value);
    report(&McuSrv::reportTruckRsr1ChangedSgl, value);
    report(&McuSrv::reportTruckSecurityChangedSgl, value);
    report(&McuSrv::reportTruckVehicleHealthChangedSgl, value);
    report(&McuSrv::reportTruckRpasChangedSgl, value);
    report(&McuSrv::reportTruckTpmsThresholdChangedSgl, value);
    report(&McuSrv::reportTruckTpmsCtiChangedSgl, value);
    report(&McuSrv::reportTruckTpmsTemperatureChangedSgl, value);
    report(&McuSrv::reportTruckTpmsPressureChangedSgl, value);
    report(&McuSrv::reportTruckVehicleAlertsChangedSgl, value);
    report(&McuSrv::reportTruckPerformanceParametersChangedSgl, value);
    report(&McuSrv::reportTruckVehicleParametersChanged, value);
    return 29;
}

long residentKib()
{
    QFile statm(QStringLiteral("/proc/self/statm"));
    return statm.open(QFile::ReadOnly)
               ? statm.readAll().split(' ').value(1).toLong() * (sysconf(_SC_PAGESIZE) / 1024)
               : -1;
}

void soak(long reports)
{
    McuService service;
    const Stand stand(service, 1);
    const auto send = [](long count) {
        int value = 0;
        for (long sent = 0; sent < count; sent += reportAll(++value)) {
            if (value % 1000 == 0)
                QCoreApplication::processEvents(); // lets the CAN check timer tick
        }
    };
    send(reports / 100);
    const long before = residentKib();
    QElapsedTimer timer;
    timer.start();
    send(reports);
    std::printf("%ld reports, %.1f s, resident KiB before, after and growth: %ld %ld %ld\n",
                reports, double(timer.elapsed()) / 1000, before, residentKib(),
                residentKib() - before);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    const QStringList arguments = application.arguments();
    if (arguments.value(1) == QLatin1String("--count")) {
        if (differentLines() != 0)
            return 1;
        forEachRow(Count());
    } else if (arguments.value(1) == QLatin1String("--count-application")) {
        countApplication(arguments.value(2).toStdString());
    } else if (arguments.value(1) == QLatin1String("--soak")) {
        soak(arguments.value(2).toLong());
    } else {
        forEachRow(Time());
        benchmark::Initialize(&argc, argv);
        benchmark::RunSpecifiedBenchmarks();
    }
    return 0;
}

#include "mcubench.moc"
