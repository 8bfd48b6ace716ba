// The frames that the renderer receives for parking distances, with all kinds of files in place of
// its node, and the query whether it has released the UART.
#include "mcuvechiclebridge.h"
#include "rendererstandin.h"
#include "standarderror.h"
#include "testkit.h"

#include <QDir>

#include <array>
#include <climits>
#include <csignal>
#include <new>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using renderer::node;
using Values = QVector<int>;

namespace {

/// The whole write of a frame.
QByteArray image(const char *frame) { return QByteArray::fromHex(frame) + QByteArray(30, '\0'); }

Values distancesOf(McuVechicleBridge &bridge)
{
    Values distances(8, 1);
    bridge.radarDistance(distances.data(), distances.data() + 4);
    return distances;
}

int openDescriptors()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

/// A renderer that has released the UART, with its own bridge.
struct Renderer {
    Renderer() { renderer::state() = {true, true, 1, {}}; }
    Renderer(const Renderer &) = delete;
    Renderer &operator=(const Renderer &) = delete;
    ~Renderer()
    {
        close(reader);
        QFile::remove(node());
        QDir().rmdir(node());
    }
    void readNode() { reader = openat(AT_FDCWD, node(), O_RDONLY | O_NONBLOCK); }
    void readFifo()
    {
        QCOMPARE(mkfifo(node(), 0600), 0);
        readNode();
    }
    QByteArray received() const
    {
        QByteArray bytes(1 << 20, '\0');
        return bytes.left(qMax(0, int(read(reader, bytes.data(), size_t(bytes.size())))));
    }
    /// Reports distances. Returns what can be read from the node during each
    /// radarDistanceChanged().
    QByteArrayList report(Values codes = Values(8, 0))
    {
        QByteArrayList told;
        const QMetaObject::Connection listener = QObject::connect(
            &bridge, &McuVechicleBridge::radarDistanceChanged, [&] { told += received(); });
        bridge.notifyRadarUpdate(codes.data(), codes.data() + 4, 1, 2, 3);
        QObject::disconnect(listener);
        return told;
    }

    McuVechicleBridge bridge;
    int reader = -1;
};

} // namespace

class tst_RendererHandover : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewBridgeKnowsNothing()
    {
        // In memory that is not 0 by chance.
        alignas(McuVechicleBridge) std::array<char, sizeof(McuVechicleBridge)> memory;
        memory.fill('\xa5');
        auto *bridge = new (memory.data()) McuVechicleBridge;
        QCOMPARE(distancesOf(*bridge), Values(8, 0));
        QVERIFY(!bridge->headlight() && !bridge->parking() && !bridge->reverse());
        QVERIFY(!bridge->turnlight() && !bridge->carSpeed() && !bridge->doorState());
        QCOMPARE(bridge->wheelAngle(), 50);
        bridge->~McuVechicleBridge();
    }

    void framesCarryDistances()
    {
        const auto verify = [](const Values &codes, const Values &distances, const char *frame) {
            Renderer renderer;
            renderer.readFifo();
            testkit::LogCapture log;
            QString lines;
            for (int i = 0; i < codes.size(); ++i)
                lines += QString::number(codes[i]) + (i % 4 == 3 ? '\n' : ' ');
            for (int times = 0; times < 2; ++times) { // changed or not
                QCOMPARE(renderer.report(codes), QByteArrayList{image(frame)});
                QCOMPARE(log.takeTexts().join('\n') + '\n', lines);
                QCOMPARE(distancesOf(renderer.bridge), distances);
            }
        };
        verify({0, 1, 2, 3, 10, 0, 0, 0}, {10000, 30, 35, 40, 75, 10000, 10000, 10000},
               "5511101e23284b1010100000000000000000fbff");
        verify({46, 47, 255, 1, -5, -6, 4, 5}, {255, 260, 1300, 30, 0, -5, 45, 50},
               "5511ff04141e00fb2d32000000000000000060ff");
        // Codes that no sensor has.
        verify({INT_MAX, INT_MIN, 429496724, 429496725, -429496734, -429496735, 1, 0},
               {INT_MAX, INT_MIN, 2147483645, INT_MAX, -2147483645, INT_MIN, 30, 10000},
               "5511ff00fdff03001e100000000000000000c3ff");
    }

    void writesOneImageOrNothing()
    {
        const auto verify = [](const char *node, const QByteArray &received, auto prepare) {
            Renderer renderer;
            prepare(renderer);
            const int descriptors = openDescriptors();
            QVERIFY2(renderer.report() == QByteArrayList{received}, node);
            QVERIFY2(openDescriptors() == descriptors, node);
        };
        const QByteArray written = image("5511101010101010101000000000000000006fff");
        verify("FIFO", written, [](Renderer &r) { r.readFifo(); });
        verify("FIFO without reader", "", [](Renderer &) { mkfifo(node(), 0600); });
        verify("full FIFO", written.repeated(81), [](Renderer &r) {
            r.readFifo();
            fcntl(r.reader, F_SETPIPE_SZ, 4096);
            Values codes(8, 0);
            for (int i = 0; i < 81; ++i)
                r.bridge.notifyRadarUpdate(codes.data(), codes.data() + 4, 0, 0, 0);
        });
        verify("UART not released", "", [](Renderer &r) {
            r.readFifo();
            renderer::state().semaphore = 0;
        });
        verify("missing", "", [](Renderer &) {});
        verify("folder", "", [](Renderer &) { QDir().mkdir(node()); });
        verify("dangling link", "", [](Renderer &) { QFile::link("gone", node()); });
        verify("longer file", written + "after", [](Renderer &r) {
            QFile file(node());
            QVERIFY(file.open(QFile::WriteOnly));
            file.write(QByteArray(50, 'x') + "after");
            r.readNode();
        });
        // A file that nobody may write, not even root.
        verify("no permission", "",
               [](Renderer &) { QFile::link("/proc/sys/kernel/ostype", node()); });
        // The last case, because standard input stays closed.
        verify("descriptor 0", "", [](Renderer &r) {
            r.readFifo();
            close(STDIN_FILENO);
        });
    }

    void releaseFollowsTheSemaphore()
    {
        const auto verify = [](const renderer::State &state, bool released, const char *error) {
            renderer::state() = state;
            bool isReleased = !released;
            const QByteArray written =
                testkit::standardErrorOf([&] { isReleased = is_avm_service_release_uart(); });
            QCOMPARE(written, QByteArray(error));
            QCOMPARE(isReleased, released);
        };
        verify({true, true, 0, {}}, false, "");
        verify({true, true, 1, {}}, true, "");
        verify({true, true, 2, {}}, true, "");
        verify({true, true, -1, {}}, false, "");
        // Without the key file the semaphore of key -1 is queried.
        verify({false, true, 1, {}}, true,
               "do_notify_release_uart (ftok): No such file or directory\n");
        verify({true, false, 1, {}}, false, "do_notify_release_uart (semget): Permission denied\n");
    }

    void aBrokenPipeLeavesSignalsAlone()
    {
        sigset_t brokenPipe;
        sigemptyset(&brokenPipe);
        sigaddset(&brokenPipe, SIGPIPE);
        const std::pair<bool, bool> cases[] = {{false, false}, {true, false}, {true, true}};
        for (const auto &[blocked, pending] : cases) {
            std::signal(SIGPIPE, SIG_DFL);
            pthread_sigmask(blocked ? SIG_BLOCK : SIG_UNBLOCK, &brokenPipe, nullptr);
            if (pending)
                std::raise(SIGPIPE);
            Renderer renderer;
            renderer.readFifo();
            renderer::state().opened = [&] { close(std::exchange(renderer.reader, -1)); };
            QCOMPARE(renderer.report(), QByteArrayList{""});
            sigset_t set;
            sigpending(&set);
            QCOMPARE(sigismember(&set, SIGPIPE), int(pending));
            pthread_sigmask(SIG_SETMASK, nullptr, &set);
            QCOMPARE(sigismember(&set, SIGPIPE), int(blocked));
            QVERIFY(std::signal(SIGPIPE, SIG_IGN) == SIG_DFL); // this also drops a pending signal
        }
    }
};

int main(int argc, char **argv) { return testkit::run<tst_RendererHandover>(argc, argv); }
#include "tst_rendererhandover.moc"
