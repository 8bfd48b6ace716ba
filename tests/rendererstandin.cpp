// The linker leads the library's calls of ftok and so on to __wrap_ftok and so on (see the CMake
// file). They know the renderer's names alone; all else fails as if it was not there.
#include "rendererstandin.h"

#include <array>
#include <cstring>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/sem.h>
#include <unistd.h>

namespace {

constexpr key_t releaseKey = 0x41564D;
constexpr int releaseSemaphore = 7;
bool isReleased = false;

std::array<int, 2> openPipe()
{
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_NONBLOCK | O_CLOEXEC) != 0)
        qFatal("no pipe for the renderer");
    return ends;
}
const auto [reader, writer] = openPipe();

bool isSame(const char *path, const char *known) { return std::strcmp(path, known) == 0; }

} // namespace

void renderer::release(bool released) { isReleased = released; }

QByteArray renderer::takeWritten()
{
    QByteArray bytes(4096, 0);
    bytes.truncate(qMax(0, int(read(reader, bytes.data(), size_t(bytes.size())))));
    return bytes;
}

// NOLINTBEGIN(bugprone-reserved-identifier): names that the linker gives
extern "C" {

key_t __wrap_ftok(const char *path, int id)
{
    return isSame(path, "/tmp/avmrenderserver_releaseuart") && id == 1 ? releaseKey : -1;
}

int __wrap_semget(key_t key, int count, int flags)
{
    return key == releaseKey && count == 1 && flags == (IPC_CREAT | 0777) ? releaseSemaphore : -1;
}

int __wrap_semctl(int semaphore, int number, int command)
{
    const bool isRead = semaphore == releaseSemaphore && number == 0 && command == GETVAL;
    return isRead ? int(isReleased) : -1;
}

int __wrap_access(const char *path, int)
{
    return isSame(path, "/tmp/avmrenderservice_rx") ? 0 : -1;
}

int __wrap_open(const char *path, int)
{
    return isSame(path, "/tmp/avmrenderservice_rx") ? dup(writer) : -1;
}
}
// NOLINTEND(bugprone-reserved-identifier)
