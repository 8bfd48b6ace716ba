// The hand-over to the renderer: the release semaphore, and a write that never blocks, whatever
// stands in the place of the FIFO.
#include "rendererhandover_p.h"

#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/sem.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace mcu;

namespace {

key_t askedKey = 0;
int semaphore = -1; // of the renderer

// A renderer in a folder of its own; its semaphore goes with it.
struct Renderer {
    Renderer() { QVERIFY(QFile(keyFile).open(QFile::WriteOnly)); }
    ~Renderer()
    {
        close(reader);
        semctl(semaphore, 0, IPC_RMID);
        semaphore = -1;
    }
    void setSemaphore(int value) { semctl(semget(0, 1, IPC_CREAT | 0777), 0, SETVAL, value); }
    void readFifo()
    {
        QCOMPARE(mkfifo(node, 0600), 0);
        reader = open(node, O_RDONLY | O_NONBLOCK);
    }
    void fillFifo()
    {
        const int writer = open(node, O_WRONLY | O_NONBLOCK);
        while (write(writer, "x", 1) == 1)
            ++filled;
        close(writer);
    }
    QByteArray received()
    {
        QByteArray bytes(1 << 20, 0);
        bytes.truncate(qMax(0, int(read(reader, bytes.data(), size_t(bytes.size())))));
        return bytes.mid(filled);
    }

    QTemporaryDir folder;
    QByteArray keyFile = QFile::encodeName(folder.filePath("key"));
    QByteArray node = QFile::encodeName(folder.filePath("rx"));
    int reader = -1;
    int filled = 0;
};

using Prepare = void (*)(Renderer &renderer);

int openFile(const Renderer &renderer, int flags) { return open(renderer.node, flags, 0600); }

int openDescriptors()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

} // namespace

// Keys belong to the whole machine, and two files may have the same one: whatever the key, which is
// noted, the semaphore is a private one. The key -1 is refused.
// NOLINTBEGIN(bugprone-reserved-identifier): names that the linker gives
extern "C" int __real_semget(key_t key, int count, int flags);
extern "C" int __wrap_semget(key_t key, int count, int flags)
{
    askedKey = key;
    if (key == -1) {
        errno = EACCES;
        return -1;
    }
    if (semaphore == -1 && (flags & IPC_CREAT) != 0)
        semaphore = __real_semget(IPC_PRIVATE, count, flags);
    return semaphore;
}
// NOLINTEND(bugprone-reserved-identifier)

Q_DECLARE_METATYPE(Prepare)

class tst_RendererHandover : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void releaseFollowsTheSemaphore()
    {
        Renderer renderer;
        QVERIFY(!isUartReleased(renderer.keyFile));
        QCOMPARE(askedKey, ftok(renderer.keyFile, 1));
        semid_ds made{};
        QCOMPARE(semctl(semaphore, 0, IPC_STAT, &made), 0);
        QCOMPARE(made.sem_perm.mode & 0777, 0777);
        for (int value : {1, 2, 0}) {
            renderer.setSemaphore(value);
            QCOMPARE(isUartReleased(renderer.keyFile), value > 0);
            QCOMPARE(semctl(semaphore, 0, GETVAL), value);
        }
    }

    void missingKeyFileIsToldAndGoesOn()
    {
        Renderer renderer;
        QVERIFY(QFile::remove(renderer.keyFile));
        renderer.reader = openFile(renderer, O_RDWR | O_CREAT | O_APPEND);
        const int standardError = dup(STDERR_FILENO);
        dup2(renderer.reader, STDERR_FILENO);
        const bool released = isUartReleased(renderer.keyFile);
        dup2(standardError, STDERR_FILENO);
        close(standardError);
        lseek(renderer.reader, 0, SEEK_SET);

        QVERIFY(!released);
        QCOMPARE(askedKey, key_t(-1));
        QCOMPARE(renderer.received(),
                 QByteArray("do_notify_release_uart (ftok): No such file or directory\n"
                            "do_notify_release_uart (semget): Permission denied\n"));
    }

    void writesOneImageOrNothing_data()
    {
        QTest::addColumn<Prepare>("prepare");
        QTest::addColumn<int>("bytes");
        const auto row = [](const char *name, int bytes, Prepare prepare) {
            QTest::newRow(name) << prepare << bytes;
        };
        row("FIFO with reader", 50, [](Renderer &r) { r.readFifo(); });
        row("FIFO without reader", 0, [](Renderer &r) { mkfifo(r.node, 0600); });
        row("full", 0, [](Renderer &r) { r.readFifo(), r.fillFifo(); });
        row("UART not released", 0, [](Renderer &r) { r.readFifo(), r.setSemaphore(0); });
        row("missing", 0, [](Renderer &) {});
        row("folder", 0, [](Renderer &r) { QDir().mkdir(r.node); });
        row("regular file", 50, [](Renderer &r) { r.reader = openFile(r, O_RDONLY | O_CREAT); });
        // Nobody may write there, root neither.
        row("no permission", 0,
            [](Renderer &r) { QFile::link("/proc/sys/kernel/ostype", r.node); });
        // Last, for the number of the standard input stays free.
        row("descriptor 0", 0, [](Renderer &r) { r.readFifo(), close(STDIN_FILENO); });
    }

    void writesOneImageOrNothing()
    {
        QFETCH(Prepare, prepare);
        QFETCH(int, bytes);
        Renderer renderer;
        renderer.setSemaphore(1);
        prepare(renderer);
        const int descriptors = openDescriptors();
        RadarImage image;
        image.fill(0xA5);
        handOverToRenderer(image, renderer.keyFile, renderer.node);
        QCOMPARE(openDescriptors(), descriptors);
        QCOMPARE(renderer.received(), QByteArray(bytes, '\xA5'));
    }

    void brokenPipeLeavesSignalsAlone()
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
            int ends[2];
            QCOMPARE(pipe(ends), 0);
            close(ends[0]);
            writeWithoutSignal(ends[1], RadarImage{});
            close(ends[1]);
            sigset_t set;
            sigpending(&set);
            QCOMPARE(sigismember(&set, SIGPIPE), int(pending));
            pthread_sigmask(SIG_SETMASK, nullptr, &set);
            QCOMPARE(sigismember(&set, SIGPIPE), int(blocked));
            QVERIFY(std::signal(SIGPIPE, SIG_IGN) == SIG_DFL); // and drops what is pending
        }
    }
};

QTEST_APPLESS_MAIN(tst_RendererHandover)
#include "tst_rendererhandover.moc"
