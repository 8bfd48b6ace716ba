// Writes to the renderer, with System V semaphores and POSIX file calls.
#include "rendererhandover_p.h"

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <unistd.h>

namespace mcu {

bool isUartReleased(const char *keyFile)
{
    // Kept: without the key file the semaphore of key -1 is queried, and the messages on standard
    // error name a function of the renderer; its tools rely on both.
    const key_t key = ftok(keyFile, 1);
    if (key == -1)
        std::perror("do_notify_release_uart (ftok)");
    const int semaphore = semget(key, 1, IPC_CREAT | 0777);
    if (semaphore == -1) {
        std::perror("do_notify_release_uart (semget)");
        return false;
    }
    return semctl(semaphore, 0, GETVAL) > 0;
}

void handOverToRenderer(const RadarImage &image, const char *keyFile, const char *node)
{
    if (!isUartReleased(keyFile) || access(node, F_OK) != 0)
        return;
    const int descriptor = open(node, O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor > 0)
        writeWithoutSignal(descriptor, image);
    close(descriptor); // in every case: 0 must not stay open, and closing -1 has no effect
}

void writeWithoutSignal(int descriptor, const RadarImage &image)
{
    // What a write can raise: without a reader, or beyond the largest file that is permitted.
    sigset_t signalsOfWrite;
    sigemptyset(&signalsOfWrite);
    sigaddset(&signalsOfWrite, SIGPIPE);
    sigaddset(&signalsOfWrite, SIGXFSZ);
    sigset_t maskBefore;
    pthread_sigmask(SIG_BLOCK, &signalsOfWrite, &maskBefore);
    sigset_t pendingBefore;
    sigpending(&pendingBefore);

    const int error = write(descriptor, image.data(), image.size()) == -1 ? errno : 0;

    // Removes the signal of this write, but not one that was pending before.
    const int raised = error == EPIPE ? SIGPIPE : error == EFBIG ? SIGXFSZ : 0;
    if (raised != 0 && sigismember(&pendingBefore, raised) == 0) {
        sigset_t own;
        sigemptyset(&own);
        sigaddset(&own, raised);
        const timespec noWait{};
        sigtimedwait(&own, nullptr, &noWait);
    }
    pthread_sigmask(SIG_SETMASK, &maskBefore, nullptr);
}

} // namespace mcu
