// Measures the way of a report from the link's own thread into the application's, in the library,
// in the floor (a bare queued connection to a receiver that does the floor's work) and against a
// thread that wakes another one through an eventfd.
//
//     threadbench            measures times in turn, in several rounds, and prints the medians of
//                            the ratios of a round
//     threadbench --count    writes one callgrind dump per row, named SERVICE/queued ROW
#include "counting.h"
#include "floor.h"

#include "mcuservice.h"
#include "mcusrv.h"
#include "readerthread.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLoggingCategory>

#include <benchmark/benchmark.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <iterator>
#include <string>
#include <thread>
#include <utility>
#include <vector>

using mcu::McuService;
using mcu::McuSrv;
using substitute::ReaderThread;

namespace {

using Clock = std::chrono::steady_clock;

constexpr int countedReports = 1000; // emitted first, handled afterwards
constexpr int rounds = 11;
constexpr int burst = 20000; // reports for one time per report
constexpr int wakeUps = 400; // reports or wake-ups for one latency
constexpr std::chrono::microseconds pauseBetween(100);

McuSrv *link() { return McuSrv::instance(); }

struct Row {
    const char *name;
    void (*emitReport)();
};

constexpr Row rows[] = {
    {"car", [] { link()->reportAcChangedSgl(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15); }},
    {"truck",
     [] {
         link()->reportTruckPerformanceParametersChangedSgl(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12,
                                                            13, 14);
     }},
    {"relay", [] { link()->eqTypeChangedSgl(1); }},
};

/// Emits reports in the link's thread, one after the other.
void emitInThread(const Row &row, int count)
{
    ReaderThread::instance().post([row, count] {
        for (int i = 0; i < count; ++i)
            row.emitReport();
    });
}

/// A service and an application in this thread that receives from it.
template <typename Service>
class Stand {
public:
    explicit Stand(std::function<void()> received)
    {
        m_service.init();
        const auto take = [received = std::move(received)](const auto &value) {
            benchmark::DoNotOptimize(value);
            received();
        };
        QObject::connect(&m_service, &Service::syncACInforUpdate, &m_application, take);
        QObject::connect(&m_service, &Service::syncTruckPerformanceParametersInforUpdate,
                         &m_application, take);
        QObject::connect(&m_service, &Service::eqTypeChanged, &m_application, take);
    }

private:
    Service m_service;
    QObject m_application;
};

/// The cost of reports that the thread emits before this one handles them: so the count does not
/// depend on how the threads are scheduled.
template <typename Service>
void count(const char *service)
{
    const Stand<Service> stand([] {});
    for (const Row &row : rows) {
        countActs(std::string(service) + "/queued " + row.name, 1, [&] {
            emitInThread(row, countedReports);
            ReaderThread::instance().drain();
            QCoreApplication::sendPostedEvents();
        });
    }
}

/// Seconds per report while the link's thread emits as fast as it can.
template <typename Service>
double timePerReport()
{
    int received = 0;
    const Stand<Service> stand([&] { ++received; });
    const auto start = Clock::now();
    emitInThread(rows[0], burst);
    while (received < burst)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    const std::chrono::duration<double> time = Clock::now() - start;
    ReaderThread::instance().drain();
    return time.count() / burst;
}

/// Seconds of a thread's wake-ups of another one; the thread that wakes waits between them.
class Latencies {
public:
    void wakeInThread(const std::function<void()> &wake)
    {
        ReaderThread::instance().post([this, wake] {
            for (int i = 1; i <= wakeUps; ++i) {
                std::this_thread::sleep_for(pauseBetween);
                m_woken = Clock::now();
                wake();
                while (m_received < i)
                    std::this_thread::sleep_for(pauseBetween);
            }
        });
    }
    void receive()
    {
        const std::chrono::duration<double> latency = Clock::now() - m_woken.load();
        m_latencies.push_back(latency.count());
        ++m_received;
    }
    bool complete() const { return m_received == wakeUps; }
    double percentile(int percent)
    {
        ReaderThread::instance().drain();
        std::sort(m_latencies.begin(), m_latencies.end());
        return m_latencies[m_latencies.size() * std::size_t(percent) / 100];
    }

private:
    std::atomic<Clock::time_point> m_woken;
    std::atomic<int> m_received = 0;
    std::vector<double> m_latencies;
};

struct Latency {
    double median;
    double percentile99;
};

template <typename Service>
Latency latencyOfReport()
{
    Latencies latencies;
    const Stand<Service> stand([&] { latencies.receive(); });
    latencies.wakeInThread(rows[0].emitReport);
    while (!latencies.complete())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return {latencies.percentile(50), latencies.percentile(99)};
}

Latency latencyOfEventfd()
{
    Latencies latencies;
    const int descriptor = eventfd(0, 0);
    latencies.wakeInThread([descriptor] { eventfd_write(descriptor, 1); });
    while (!latencies.complete()) {
        eventfd_t value = 0;
        eventfd_read(descriptor, &value);
        latencies.receive();
    }
    close(descriptor);
    return {latencies.percentile(50), latencies.percentile(99)};
}

struct Ratio {
    const char *name;
    std::vector<double> ofRounds;
};

/// Measures library, floor and eventfd in turn, so that all have the same load of the machine.
void compareTimes()
{
    Ratio ratios[] = {{"time per report, to the floor", {}},
                      {"median latency, to the floor", {}},
                      {"99th percentile of it, to the floor", {}},
                      {"median latency, to an eventfd", {}},
                      {"99th percentile of it, to an eventfd", {}}};
    for (int round = 0; round < rounds; ++round) {
        const double bareTime = timePerReport<Floor>();
        const double time = timePerReport<McuService>();
        const Latency wakeUp = latencyOfEventfd();
        const Latency bare = latencyOfReport<Floor>();
        const Latency report = latencyOfReport<McuService>();
        const double values[] = {
            time / bareTime, report.median / bare.median, report.percentile99 / bare.percentile99,
            report.median / wakeUp.median, report.percentile99 / wakeUp.percentile99};
        for (std::size_t i = 0; i < std::size(ratios); ++i)
            ratios[i].ofRounds.push_back(values[i]);
    }
    for (Ratio &ratio : ratios) {
        std::sort(ratio.ofRounds.begin(), ratio.ofRounds.end());
        std::printf("%s: %.3f\n", ratio.name, ratio.ofRounds[rounds / 2]);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    if (argc > 1 && std::string(argv[1]) == "--count") {
        count<Floor>("floor");
        count<McuService>("library");
    } else {
        compareTimes();
    }
    return 0;
}
