#include "live.h"

#include "renderer.h"

#include "debug.h"
#include "linksubstitute.h"
#include "mcumanager.h"
#include "platformsubstitute.h"
#include "updatefiles_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTimer>

#include <condition_variable>
#include <cstdio>
#include <thread>

#include <unistd.h>

namespace soak {

namespace {

/// A program that comes, shows by lines that it is at work, and then goes or is killed, in turn. It
/// comes again until the round ends.
class Visitor : public QProcess {
public:
    Visitor(const QString &program, const QStringList &arguments, int lines) : m_lines(lines)
    {
        setProgram(program);
        setArguments(arguments);
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove("LD_PRELOAD"); // the probe is for the application alone
        setProcessEnvironment(environment);
        connect(this, &QProcess::readyReadStandardOutput, this, &Visitor::readLines);
        connect(this, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                &Visitor::leave);
    }

    void come()
    {
        m_isInvited = true;
        m_seen = 0;
        start();
    }
    /// Ends with this visit.
    void finish() { m_isInvited = false; }
    bool isHere() const { return state() != NotRunning; }

    int visits() const { return m_visits; }
    int failures() const { return m_failures; }

private:
    void readLines()
    {
        m_seen += readAllStandardOutput().count('\n');
        if (m_seen < m_lines || m_isSentAway)
            return;
        m_isSentAway = true;
        m_visits % 2 == 0 ? terminate() : kill();
    }
    void leave()
    {
        ++m_visits;
        m_failures += m_isSentAway ? 0 : 1;
        m_isSentAway = false;
        if (m_isInvited)
            come();
    }

    int m_lines;
    int m_seen = 0;
    bool m_isInvited = false;
    bool m_isSentAway = false;
    int m_visits = 0;
    int m_failures = 0;
};

/// The second thread: reports the audio status while the audio events of the platform change, and
/// puts a medium in and takes it out.
class Hand {
public:
    Hand(Flow &statuses, const QString &media) : m_statuses(statuses), m_media(media) {}

    void start()
    {
        m_isStopping = false;
        m_thread = std::thread(&Hand::run, this);
    }
    void stop()
    {
        {
            const std::lock_guard lock(m_mutex);
            m_isStopping = true;
        }
        m_stopped.notify_one();
        m_thread.join();
    }

private:
    void run()
    {
        constexpr std::chrono::milliseconds interval(20);
        std::unique_lock lock(m_mutex);
        for (int turn = 0; !m_stopped.wait_for(lock, interval, [this] { return m_isStopping; });
             ++turn) {
            constexpr int interrupting = 6;
            substitute::platform::setAudioEvents(turn % 50 < 20 ? QList<int>{interrupting}
                                                                : QList<int>());
            McuManager::instance()->updateAudioStatus(
                McuManager::AudioStatus(m_statuses.next().first().toInt()));
            const QDir medium(m_media + "/sda1");
            if (turn % 6 == 0) {
                medium.mkpath("update");
                QFile(medium.filePath("update/st26mcu.bin")).open(QFile::WriteOnly);
            } else if (turn % 6 == 3) {
                QDir(medium).removeRecursively();
            }
        }
    }

    Flow &m_statuses;
    QString m_media;
    std::thread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_stopped;
    bool m_isStopping = false;
};

/// Searches of the update application on a medium that comes and goes.
struct Searches {
    void search(const QString &media)
    {
        using namespace mcu::updatefiles;
        const mcu::updatefiles::Image image = imageOf(0);
        const QString wanted = media + "/sda1/update/" + image.name;
        for (const QString &path :
             {findOnFirstMount(media, image.folder, image.name, CALL_SITE),
              findOnAllMounts(media, image.folder, image.name, QString(), false)})
            ++(path.isEmpty() ? missed : path == wanted ? found : wrong);
    }

    int found = 0;
    int missed = 0;
    int wrong = 0;
};

} // namespace

bool runLive(Traffic &traffic, Vitals &vitals, int seconds, int rounds, const QString &program,
             const QString &mcusim)
{
    const QTemporaryDir folder;
    const QString fifo = folder.filePath("rx"), process = QString::number(getpid());
    replaceRenderer(QFile::encodeName(fifo));
    const auto status = [](qint64 number) { return QVariantList{int(number % 29)}; };
    Hand hand(traffic.add(mcusim::Kind::Command, "updateAudioStatus",
                          {"audio statuses", "audio status", status}),
              folder.path());
    Visitor renderer(program, {"renderer", fifo, process}, 2);
    Visitor client(mcusim, {"monitor", "--wide", process}, 50);
    Searches searches;

    constexpr int tick = 10;
    const auto runUntil = [](auto isOver) {
        while (!isOver())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    qint64 before = 0; // moment of the traffic at which the round begins
    for (int round = 0; round < rounds; ++round) {
        QElapsedTimer time;
        time.start();
        QTimer reports, search;
        QObject::connect(&reports, &QTimer::timeout,
                         [&] { traffic.advanceTo(before + time.elapsed()); });
        QObject::connect(&search, &QTimer::timeout, [&] { searches.search(folder.path()); });
        traffic.switchFactoryTest();
        reports.start(tick);
        search.start(tick);
        hand.start();
        renderer.come();
        client.come();
        runUntil([&] { return time.hasExpired(qint64(seconds) * 1000 / rounds); });
        renderer.finish();
        client.finish();
        runUntil([&] { return !renderer.isHere() && !client.isHere(); });
        hand.stop();
        search.stop();
        reports.stop();
        before += time.elapsed();
        traffic.switchFactoryTest();
        substitute::link::drainReaderThread();
        // What is held back comes soon; what does not come is lost.
        constexpr int longest = 1000;
        time.start();
        runUntil([&] { return traffic.isComplete() || time.hasExpired(longest); });
        vitals.sample();
    }

    const auto print = [](const char *name, int count, bool isGood) {
        std::printf("%-40s %9d%s\n", name, count, isGood ? "" : "  WRONG");
        return isGood;
    };
    bool isGood = print("visits of the renderer", renderer.visits(), renderer.visits() >= rounds);
    isGood &= print("visits of the probe's clients", client.visits(), client.visits() >= rounds);
    const int failed = renderer.failures() + client.failures();
    isGood &= print("visits that failed", failed, failed == 0);
    isGood &= print("searches with a file", searches.found, searches.found > 0);
    isGood &= print("searches without", searches.missed, searches.missed > 0);
    isGood &= print("searches with another file", searches.wrong, searches.wrong == 0);
    return isGood;
}

} // namespace soak
