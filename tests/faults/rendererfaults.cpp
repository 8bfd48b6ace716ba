// The surround-view renderer ends, or something else stands in its place, while parking distances
// are reported. The renderer is a process of its own; its semaphore is a real one.
#include "fault.h"

#include "mcuservice.h"
#include "mcusrv.h"

#include <QFile>

#include <array>
#include <csignal>
#include <cstdlib>
#include <functional>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/prctl.h>
#include <sys/sem.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace faults;

constexpr char keyFile[] = "avmrenderserver_releaseuart";
constexpr char node[] = "avmrenderservice_rx";
constexpr int frameSize = 50;

int semaphore() { return semget(ftok(keyFile, 1), 1, IPC_CREAT | 0777); }

void release() { semctl(semaphore(), 0, SETVAL, 1); }

int openNode(int flags) { return openat(AT_FDCWD, node, flags | O_CLOEXEC); }

/// The unit with a renderer's FIFO, and with a renderer that has released the UART.
struct Unit : Application {
    Unit()
    {
        std::signal(SIGPIPE, SIG_DFL); // as in an application that does not care
        service->init();
        mkfifo(node, 0600);
        release();
    }

    /// Reports a sensor code, which is in the frame as code * 5 + 25.
    void report(int code) const
    {
        Q_EMIT mcu::McuSrv::instance()->reportPdcChangedSgl(code, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
        unstored += service->getReportPdcDate().at(0) == char(code) ? 0 : 1;
    }

    mcu::McuService *service = mcu::McuService::instance();
    mutable int unstored = 0; ///< reports that are not in the record
};

/// What a reader of the FIFO gets: whole frames and other bytes.
struct Received {
    int frames = 0;
    int others = 0;
    int lastCode = 0;

    explicit Received(const QByteArray &bytes)
    {
        for (int at = 0; at < bytes.size(); at += frameSize) {
            const QByteArray frame = bytes.mid(at, frameSize);
            const bool isWhole = frame.size() == frameSize && frame.startsWith("\x55\x11") &&
                                 frame.endsWith(QByteArray(30, '\0')) && frame[19] == '\xff';
            (isWhole ? frames : others) += 1;
            lastCode = isWhole ? (quint8(frame[2]) - 25) / 5 : lastCode;
        }
    }
};

/// A renderer in this process.
class Reader {
public:
    Reader() : m_descriptor(openNode(O_RDONLY | O_NONBLOCK)) {}
    Reader(const Reader &) = delete;
    Reader &operator=(const Reader &) = delete;
    ~Reader() { close(m_descriptor); }

    Received received() const
    {
        QByteArray bytes(1 << 16, '\0');
        const auto size = read(m_descriptor, bytes.data(), std::size_t(bytes.size()));
        return Received(bytes.left(qMax(0, int(size))));
    }

private:
    int m_descriptor;
};

/// Starts a renderer, a process of its own, which is killed when it has read so many bytes.
pid_t startRenderer(int size)
{
    const int descriptor = openNode(O_RDWR); // waits for frames
    const pid_t process = fork();
    if (process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        std::array<char, frameSize> frame{};
        if (read(descriptor, frame.data(), std::size_t(size)) == size)
            std::raise(SIGKILL);
        _exit(0);
    }
    close(descriptor);
    return process;
}

Outcome killed()
{
    constexpr int renderers = 300;
    constexpr int most = 1'000'000; // reports to one
    const Unit unit;
    int died = 0;
    int frames = 0;
    int others = 0;
    const int before = openDescriptors();
    for (int number = 0; number < renderers; ++number) {
        const pid_t renderer = startRenderer(1 + number % frameSize);
        int status = 0;
        for (int sent = 0; waitpid(renderer, &status, WNOHANG) == 0; ++sent) {
            unit.report(1);
            if (sent == most)
                kill(renderer, SIGTERM); // it reads nothing
        }
        died += WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL ? 1 : 0;
        const Reader next;
        unit.report(2);
        const Received received = next.received();
        frames += received.frames == 1 && received.lastCode == 2 ? 1 : 0;
        others += received.others;
    }
    const int more = openDescriptors() - before;
    return {
        died == renderers && frames == renderers && others == 0 && more == 0 && !unit.unstored,
        QString("%1 killed; the next ones read %2 whole frames and %3 others; %4 descriptors more")
            .arg(died)
            .arg(frames)
            .arg(others)
            .arg(more)};
}

Outcome semaphoreRemoved()
{
    const Unit unit;
    const Reader reader;
    const auto written = [&](int code) {
        unit.report(code);
        return reader.received().frames;
    };
    const int before = written(1);
    semctl(semaphore(), 0, IPC_RMID);
    const int gone = written(2) + written(3);
    release();
    const int again = written(4);
    return {before == 1 && gone == 0 && again == 1 && !unit.unstored,
            QString("%1 frame before, %2 while it is gone, %3 after it is back")
                .arg(before)
                .arg(gone)
                .arg(again)};
}

/// Reports distances while each of these stands in the place of the FIFO, then while it is back.
Outcome replaced(const std::vector<std::function<void()>> &replacements)
{
    const Unit unit;
    const int before = openDescriptors();
    for (const auto &replace : replacements) {
        QFile::remove(node);
        replace();
        unit.report(1);
    }
    QFile::remove(node);
    mkfifo(node, 0600);
    Received received{QByteArray()};
    {
        const Reader reader;
        unit.report(2);
        received = reader.received();
    }
    const int more = openDescriptors() - before;
    return {received.frames == 1 && received.others == 0 && more == 0 && !unit.unstored,
            QString("%1 reports not stored, %2 frame in the next FIFO, %3 descriptors more")
                .arg(unit.unstored)
                .arg(received.frames)
                .arg(more)};
}

Outcome replacedByDevices()
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    grantpt(terminal);
    unlockpt(terminal);
    return replaced({[] { QFile::link("/dev/full", node); }, [] { QFile::link("/dev/null", node); },
                     [] { QFile::link("/dev/zero", node); },
                     [terminal] { QFile::link(ptsname(terminal), node); }});
}

Outcome replacedByOthers()
{
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const auto listening = [server] {
        sockaddr_un name{AF_UNIX, {}};
        std::copy_n(node, sizeof node, name.sun_path);
        if (bind(server, reinterpret_cast<sockaddr *>(&name), sizeof name) != 0 ||
            listen(server, 1) != 0)
            std::abort();
    };
    const auto circle = [] {
        QFile::link("a", node);
        QFile::link(node, "a");
    };
    return replaced({listening, circle});
}

Outcome replacedByForbiddenFile()
{
    limitFileSize(0);
    Outcome outcome = replaced({[] { QFile(node).open(QFile::WriteOnly); }});
    limitFileSize(-1);
    return outcome;
}

Outcome noDescriptor()
{
    const Unit unit;
    const Reader reader;
    withoutFreeDescriptor([&] { unit.report(1); });
    const int without = reader.received().frames;
    unit.report(2);
    const int with = reader.received().frames;
    return {without == 0 && with == 1 && !unit.unstored,
            QString("%1 frames without, %2 with the next report").arg(without).arg(with)};
}

} // namespace

const std::vector<Fault> faults::rendererFaults{
    {"The renderer is killed in the middle of a frame, 300 times, while frames are written",
     "No signal; the next renderer reads the next frame whole; no descriptor stays open", killed},
    {"The renderer's semaphore is removed while the unit runs",
     "Nothing is written until the renderer has released the UART again", semaphoreRemoved},
    {"The FIFO is replaced by a device: full, empty, endless, a terminal",
     "Reports are stored, no descriptor stays open; the next FIFO gets frames", replacedByDevices},
    {"The FIFO is replaced by a socket, by links in a circle", "The same", replacedByOthers},
    {"The FIFO is replaced by a file, and the process may write none (file size limit)", "The same",
     replacedByForbiddenFile},
    {"No descriptor is free for the FIFO", "The frame is dropped; the next one arrives",
     noDescriptor},
};
