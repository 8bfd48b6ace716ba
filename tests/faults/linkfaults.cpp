// The MCU link does what it should not: it reports before its init() returns, from many threads,
// after the application object, and it answers late.
#include "fault.h"

#include "linksubstitute.h"
#include "mcuservice.h"
#include "mcusrv.h"

#include <atomic>
#include <numeric>
#include <thread>

namespace {

using namespace faults;

mcu::McuSrv *theLink() { return mcu::McuSrv::instance(); }
mcu::McuService *facade() { return mcu::McuService::instance(); }

/// The numbers that the facade's volumeTurn() had, in order.
struct Turns {
    Turns()
    {
        QObject::connect(facade(), &mcu::McuService::volumeTurn,
                         [this](int number) { numbers.push_back(number); });
    }
    int count() const { return int(numbers.size()); }
    bool areFrom(int first, int end) const
    {
        std::vector<int> wanted(std::size_t(end - first));
        std::iota(wanted.begin(), wanted.end(), first);
        return numbers == wanted;
    }

    std::vector<int> numbers;
};

/// The link's thread: reports 0, 1, 2 ... until stopped.
class LinkThread {
public:
    ~LinkThread() { stop(); }

    void start()
    {
        m_thread = std::thread([this] {
            for (; !m_isOver; ++m_count)
                Q_EMIT theLink()->volumeTurnSgl(m_count);
        });
    }
    void waitForMore(int count) const
    {
        for (const int end = m_count + count; m_count < end;)
            std::this_thread::yield();
    }
    int stop()
    {
        m_isOver = true;
        if (m_thread.joinable())
            m_thread.join();
        return m_count;
    }

private:
    std::atomic<int> m_count{0};
    std::atomic<bool> m_isOver{false};
    std::thread m_thread;
};

Outcome reportsInsideInit()
{
    constexpr int atLeast = 2000;
    const Application application;
    const Turns turns;
    LinkThread thread;
    substitute::link::log().setListener([&](const substitute::Call &) {
        Q_EMIT theLink()->volumeTurnSgl(-1);
        thread.start();
        thread.waitForMore(atLeast); // init() takes its time
    });
    facade()->init();
    thread.waitForMore(atLeast);
    const int end = thread.stop();
    application.clock->settle();
    const int first = turns.numbers.empty() ? -1 : turns.numbers.front();
    return {first >= atLeast && turns.areFrom(first, end),
            QString("none of the %1 inside; from then on every one in order, once").arg(atLeast)};
}

Outcome reportsFromManyThreads()
{
    constexpr int threads = 8;
    constexpr int each = 5000;
    const Application application;
    facade()->init();
    std::vector<int> next(threads, 0);
    int strays = 0;
    QObject::connect(facade(), &mcu::McuService::wheelStudyState, [&](int thread, int number) {
        strays += next[std::size_t(thread)]++ == number ? 0 : 1;
    });
    std::atomic<int> running{threads};
    std::vector<std::thread> all;
    all.reserve(threads);
    for (int thread = 0; thread < threads; ++thread) {
        all.emplace_back([thread, &running] {
            for (int number = 0; number < each; ++number) {
                Q_EMIT theLink()->wheelStudyStateSgl(thread, number);
                Q_EMIT theLink()->reportVehicleSpeedChangedSgl(number, thread, 0, 0);
            }
            --running;
        });
    }
    while (running > 0)
        application.clock->settle();
    for (std::thread &thread : all)
        thread.join();
    application.clock->settle();
    int received = 0;
    for (const int count : next)
        received += count;
    const bool isLast = facade()->getVehicleSpeed() == each - 1;
    return {received == threads * each && strays == 0 && isLast,
            QString("%1 of %2 received, %3 out of their thread's order")
                .arg(received)
                .arg(threads * each)
                .arg(strays)};
}

Outcome reportsAfterTheApplication()
{
    constexpr int each = 100;
    const Turns turns;
    {
        const Application application;
        facade()->init();
    }
    for (int number = 0; number < each; ++number)
        Q_EMIT theLink()->volumeTurnSgl(number);
    const bool areTold = turns.areFrom(0, each);
    std::thread([] {
        for (int number = 0; number < each; ++number)
            Q_EMIT theLink()->volumeTurnSgl(number);
    }).join();
    const int waiting = 2 * each - turns.count();
    return {areTold && waiting == each,
            QString("%1 of the main thread told at once, %2 of the link's thread wait; the process "
                    "ends as usual")
                .arg(turns.count())
                .arg(waiting)};
}

Outcome answersLate()
{
    constexpr int meanwhile = 1000;
    const Application application;
    facade()->init();
    const Turns turns;
    LinkThread thread;
    int inside = -1;
    substitute::link::log().setListener([&](const substitute::Call &call) {
        if (call.name != "SetVolume")
            return;
        thread.start(); // it is not held up by the command
        thread.waitForMore(meanwhile);
        inside = turns.count();
        Q_EMIT theLink()->factoryResetSgl(); // an answer of its own inside the command
    });
    int resets = 0;
    QObject::connect(facade(), &mcu::McuService::reset, [&resets] { ++resets; });
    facade()->SetVolume(5);
    const int end = thread.stop();
    application.clock->settle();
    return {inside == 0 && resets == 1 && turns.areFrom(0, end) && end >= meanwhile,
            QString("at least %1 reports meanwhile, all told after it, in order").arg(meanwhile)};
}

} // namespace

const std::vector<Fault> faults::linkFaults{
    {"The link reports inside its own init(), which is slow, and its thread all through it",
     "Nothing is told before init() returns; from some report on all are", reportsInsideInit},
    {"The link reports from 8 threads at once", "All are told, in the order of each thread",
     reportsFromManyThreads},
    {"The link reports after the application object is gone",
     "What needs no event loop is told; no crash, no leak, also at the end of the process",
     reportsAfterTheApplication},
    {"The link returns late from a command and reports meanwhile",
     "The caller waits, and no report is lost", answersLate},
};
