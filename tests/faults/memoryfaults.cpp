// Memory runs out during a report or a packet of the factory station: at its first allocation, its
// second and so on, once or from there on. The exception arrives where the link emits. Then a
// record is the old one or the new one, and the next report and the next packet are whole.
#include "fault.h"

#include "failingmemory.h"

#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "mcuvechiclebridge.h"
#include "operations.h"
#include "packettext.h"
#include "recordcatalog_p.h"

#include <QFile>
#include <QLoggingCategory>

#include <array>
#include <cstdlib>
#include <new>
#include <thread>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace faults;

mcu::McuSrv *theLink() { return mcu::McuSrv::instance(); }
mcu::McuService *facade() { return mcu::McuService::instance(); }

constexpr FailingMemory::Fails bothWays[]{FailingMemory::Fails::Once,
                                          FailingMemory::Fails::FromThere};

/// Does something while the allocation with this number fails. Returns whether there was one.
template <typename Act>
bool failing(int number, FailingMemory::Fails fails, const Act &act)
{
    const FailingMemory memory(number, fails);
    try {
        act();
    } catch (const std::bad_alloc &) {
    }
    return memory.hasFailed();
}

/// Calls `attempt(number, fails)` for each allocation, until it returns that there is none with
/// this number. Returns how many there were.
template <typename Attempt>
int forEachAllocation(const Attempt &attempt)
{
    int count = 0;
    for (const FailingMemory::Fails fails : bothWays) {
        for (int number = 1; attempt(number, fails); ++number)
            ++count;
    }
    return count;
}

/// A report of integers, which is emitted without an allocation of its own.
class Report {
public:
    Report(const char *signal, int first)
    {
        const QMetaObject &link = mcu::McuSrv::staticMetaObject;
        for (int i = link.methodOffset(); i < link.methodCount(); ++i) {
            if (link.method(i).name() == signal)
                m_index = i;
        }
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            m_values[i] = first + int(i);
            m_arguments[i + 1] = &m_values[i];
        }
    }
    Report(const Report &) = delete;
    Report &operator=(const Report &) = delete;

    void send() const
    {
        auto arguments = m_arguments;
        theLink()->qt_metacall(QMetaObject::InvokeMetaMethod, m_index, arguments.data());
    }

private:
    int m_index = -1;
    std::array<int, mcu::RecordDescription::maximumFields> m_values{};
    std::array<void *, mcu::RecordDescription::maximumFields + 1> m_arguments{};
};

/// A kind of record, the last one that applications were told of, and what a getter returns.
class Told {
public:
    explicit Told(const mcu::RecordDescription &description)
    {
        for (const mcusim::Operation &operation : mcusim::operations()) {
            if (description.getter && operation.name == "McuService." + QString(description.getter))
                m_read = operation.call;
        }
        m_connection = QObject::connect(facade(), description.signal, [this](const QByteArray &is) {
            image = is;
            ++times;
        });
    }
    Told(const Told &) = delete;
    Told &operator=(const Told &) = delete;
    ~Told() { QObject::disconnect(m_connection); }

    bool isStored(const QByteArray &one, const QByteArray &other) const
    {
        const QByteArray now = m_read ? m_read(nullptr, {}).toByteArray() : one;
        return now == one || now == other;
    }

    QByteArray image;
    int times = 0;

private:
    std::function<QVariant(QObject *, const QVariantList &)> m_read;
    QMetaObject::Connection m_connection;
};

constexpr int afterEveryHold = 1000; ///< milliseconds

Outcome duringReports()
{
    const Application application;
    facade()->init();
    int failures = 0;
    int halves = 0;
    int lost = 0;
    for (const mcu::RecordDescription *description : mcu::recordCatalog) {
        Told told(*description);
        const Report former(description->linkSignal, 1);
        const Report latter(description->linkSignal, 0x1101);
        const auto send = [&](const Report &report) {
            report.send();
            application.clock->advance(afterEveryHold);
            return told.image;
        };
        const QByteArray one = send(former);
        const QByteArray other = send(latter);
        failures += forEachAllocation([&](int number, FailingMemory::Fails fails) {
            send(former);
            told.times = 0;
            const bool hasFailed = failing(number, fails, [&] { latter.send(); });
            const bool isWhole = told.times == 0 || told.image == other;
            halves += isWhole && told.isStored(one, other) ? 0 : 1;
            application.clock->advance(afterEveryHold);
            told.times = 0;
            lost += send(latter) == other && told.times > 0 && told.isStored(other, other) ? 0 : 1;
            return hasFailed;
        });
    }
    return {failures > 0 && halves == 0 && lost == 0,
            QString("%1 kinds, %2 failures: %3 records half stored, %4 next reports not whole")
                .arg(std::size(mcu::recordCatalog))
                .arg(failures)
                .arg(halves)
                .arg(lost)};
}

/// How a process ends that meets one failure.
enum Ending : int { Fine, FineAndOver, Wrong };

/// With debug lines, Qt formats them, also where no exception is permitted.
Ending reportLogged(int number, FailingMemory::Fails fails)
{
    const Report former("reportVehicleSpeedChangedSgl", 1);
    const Report latter("reportVehicleSpeedChangedSgl", 50);
    int speed = 0; // the change that applications know
    QObject::connect(McuVechicleBridge::instance(), &McuVechicleBridge::carSpeedChanged,
                     [&speed](int kmh) { speed = kmh; });
    former.send();
    const bool hasFailed = failing(number, fails, [&] { latter.send(); });
    const int stored = facade()->getVehicleSpeed();
    latter.send();
    const bool isTold = speed == 50 && facade()->getVehicleSpeed() == 50;
    return (stored != 1 && stored != 50) || !isTold ? Wrong : hasFailed ? Fine : FineAndOver;
}

Outcome duringLoggedReports()
{
    const Application application;
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, true);
    facade()->init();
    int ended = 0;
    int wrong = 0;
    const int failures = forEachAllocation([&](int number, FailingMemory::Fails fails) {
        const pid_t process = fork();
        if (process == 0)
            _exit(reportLogged(number, fails));
        int status = 0;
        waitpid(process, &status, 0);
        const bool isEnded = WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
        const int ending = WIFEXITED(status) ? WEXITSTATUS(status) : Wrong;
        ended += isEnded ? 1 : 0;
        wrong += isEnded || ending == Fine || ending == FineAndOver ? 0 : 1;
        return ending != FineAndOver;
    });
    return {failures > 0 && wrong == 0,
            QString("%1 failures: %2 ended by Qt, %3 changes lost or records half stored")
                .arg(failures)
                .arg(ended)
                .arg(wrong)};
}

/// Sends a report from a thread for which an allocation fails. lsan.supp has this function, because
/// Qt leaks an event that it cannot complete.
bool queueWithoutMemory(const Report &report, int number, FailingMemory::Fails fails)
{
    bool hasFailed = false;
    std::thread([&] { hasFailed = failing(number, fails, [&] { report.send(); }); }).join();
    return hasFailed;
}

Outcome duringQueuedReports()
{
    const Application application;
    facade()->init();
    Told told(mcu::record::ac);
    const Report former(mcu::record::ac.linkSignal, 1);
    const Report latter(mcu::record::ac.linkSignal, 101);
    const auto send = [&](const Report &report) {
        std::thread([&report] { report.send(); }).join();
        application.clock->settle();
        return told.image;
    };
    const QByteArray one = send(former);
    const QByteArray other = send(latter);
    int wrong = 0;
    const auto check = [&](bool hasFailed) {
        wrong += told.isStored(one, other) && (told.times == 0 || told.image == other) ? 0 : 1;
        application.clock->settle();
        wrong += send(latter) == other && told.isStored(other, other) ? 0 : 1;
        return hasFailed;
    };
    const int inLink = forEachAllocation([&](int number, FailingMemory::Fails fails) {
        send(former);
        told.times = 0;
        const bool hasFailed = queueWithoutMemory(latter, number, fails);
        application.clock->settle();
        return check(hasFailed);
    });
    const int inLoop = forEachAllocation([&](int number, FailingMemory::Fails fails) {
        send(former);
        told.times = 0;
        std::thread([&] { latter.send(); }).join();
        return check(failing(number, fails, [&] { application.clock->settle(); }));
    });
    return {inLink > 0 && inLoop > 0 && wrong == 0,
            QString("%1 failures where the link emits, %2 where the report arrives: %3 otherwise")
                .arg(inLink)
                .arg(inLoop)
                .arg(wrong)};
}

/// Memory runs out during a packet of the station, in one chunk or in two, and the answer to it. No
/// memory of packets before is enough: each one is longer, and its last chunk has other bytes
/// behind.
Outcome duringPackets(int firstChunk)
{
    const Application application;
    facade()->init();
    const auto answerTo = [](const QByteArray &packet) {
        substitute::link::log().clear();
        Q_EMIT theLink()->autoTestPkgChanged(packet);
        QByteArray packets;
        for (const substitute::Call &call : substitute::link::log().take())
            packets += testkit::packetText(call.arguments.value(1).toByteArray()) + ' ';
        return packets;
    };
    mcu::AutoTestHandler *test = mcu::AutoTestHandler::instance();
    QObject::connect(test, &mcu::AutoTestHandler::readSoundInfo,
                     [test](int item) { test->sendReadInfo(0x01, item, "\x05"); });
    int wrong = 0;
    int size = 0;
    const int failures = forEachAllocation([&](int number, FailingMemory::Fails fails) {
        size += 5;
        const QByteArray packet = testkit::packet(0x22, 0x01, QByteArray(size, '\x01'));
        const QByteArray chunks[]{packet.left(firstChunk),
                                  packet.mid(firstChunk) + QByteArray(3000, '\0')};
        Q_EMIT theLink()->autoTestStatusChanged(0); // nothing waits from before
        Q_EMIT theLink()->autoTestStatusChanged(1);
        const bool hasFailed = failing(number, fails, [&] {
            for (const QByteArray &chunk : chunks) {
                try {
                    Q_EMIT theLink()->autoTestPkgChanged(chunk);
                } catch (const std::bad_alloc &) {
                }
            }
        });
        wrong += answerTo(testkit::packetOf("2e:05:02")) == "6e:05:02 " ? 0 : 1;
        wrong += answerTo(testkit::packetOf("22:01:02")) == "62:01:0205 " ? 0 : 1;
        return hasFailed;
    });
    return {failures > 0 && wrong == 0,
            QString("%1 failures, %2 packets answered otherwise").arg(failures).arg(wrong)};
}

Outcome duringPacket() { return duringPackets(0); }

Outcome duringPacketInHalves() { return duringPackets(4); }

} // namespace

const std::vector<Fault> faults::memoryFaults{
    {"Memory runs out at each allocation of each car and truck report",
     "The record is the old or the new one; the next report is whole, no change is lost",
     duringReports},
    {"The same with debug lines on",
     "The same, or Qt ends the process: it formats where no exception is permitted",
     duringLoggedReports},
    {"Memory runs out at each allocation of a report from the link's thread",
     "The report is lost or whole; the next one is whole", duringQueuedReports},
    {"Memory runs out at each allocation of a factory packet and its answer",
     "The packet can be lost; the next one is answered at once", duringPacket},
    {"The same for a packet in two chunks", "The same", duringPacketInHalves},
};
