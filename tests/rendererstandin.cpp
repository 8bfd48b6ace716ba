// The linker redirects the library's calls of ftok and so on to __wrap_ftok and so on (see the
// CMake file). These accept only the renderer's names; for all others they fail as if nothing was
// there.
#include "rendererstandin.h"

#include <QTemporaryDir>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/ipc.h>
#include <sys/sem.h>

namespace {

constexpr key_t releaseKey = 0x41564D;
constexpr int releaseSemaphore = 7;

bool isNode(const char *path) { return std::strcmp(path, "/tmp/avmrenderservice_rx") == 0; }

/// Whether a build for coverage counts in this file. Its runtime opens the files through the same
/// call.
bool isCounter(const char *path) { return QByteArray(path).endsWith(".gcda"); }

int fail(int error)
{
    errno = error;
    return -1;
}

} // namespace

renderer::State &renderer::state()
{
    static State state;
    return state;
}

QByteArray renderer::node()
{
    static const QTemporaryDir folder;
    return QFile::encodeName(folder.filePath(QStringLiteral("rx")));
}

// NOLINTBEGIN(bugprone-reserved-identifier): names that the linker requires
extern "C" {

int __real_access(const char *path, int mode);
int __real_open(const char *path, int flags, ...);

key_t __wrap_ftok(const char *path, int id)
{
    const bool isKey = std::strcmp(path, "/tmp/avmrenderserver_releaseuart") == 0 && id == 1;
    return isKey && renderer::state().hasKeyFile ? releaseKey : fail(ENOENT);
}

int __wrap_semget(key_t key, int count, int flags)
{
    const bool isKey = key == (renderer::state().hasKeyFile ? releaseKey : -1);
    const bool isAsked = isKey && count == 1 && flags == (IPC_CREAT | 0777);
    return isAsked && renderer::state().hasSemaphore ? releaseSemaphore : fail(EACCES);
}

int __wrap_semctl(int semaphore, int number, int command)
{
    const bool isRead = semaphore == releaseSemaphore && number == 0 && command == GETVAL;
    return isRead ? renderer::state().semaphore : -1;
}

int __wrap_access(const char *path, int mode)
{
    return isNode(path) ? __real_access(renderer::node(), mode) : -1;
}

int __wrap_open(const char *path, int flags, ...)
{
    if (isCounter(path)) // at the end of the process, when the state no longer exists
        return __real_open(path, flags, 0644);
    // A call that may block or read is refused, so that a test cannot hang.
    const bool isAsked =
        isNode(path) && (flags & (O_ACCMODE | O_NONBLOCK)) == (O_WRONLY | O_NONBLOCK);
    const int descriptor = isAsked ? __real_open(renderer::node(), flags) : -1;
    if (renderer::state().opened)
        renderer::state().opened();
    return descriptor;
}
}
// NOLINTEND(bugprone-reserved-identifier)
