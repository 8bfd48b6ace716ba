// The process of a fault has the places of a head unit in its working folder: the renderer's names
// (the linker redirects the library's calls of ftok and so on, see the CMake file), settings,
// mounts.
#include "fault.h"

#include "platformsubstitute.h"

#include <QDir>
#include <QLoggingCategory>

#include <cstring>
#include <string>

#include <fcntl.h>
#include <sched.h>
#include <sys/ipc.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

/// The renderer's names in the working folder, all others as they are.
const char *own(const char *path)
{
    constexpr char renderer[] = "/tmp/avmrender";
    const bool isRenderer = std::strncmp(path, renderer, sizeof renderer - 1) == 0;
    return isRenderer ? path + std::strlen("/tmp/") : path;
}

bool writes(const char *file, const std::string &text)
{
    const int descriptor = openat(AT_FDCWD, file, O_WRONLY | O_CLOEXEC);
    const bool isWritten = write(descriptor, text.data(), text.size()) == ssize_t(text.size());
    close(descriptor);
    return isWritten;
}

/// Root of a name space of users, for those who are not root of the machine.
bool becomeRoot()
{
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    return unshare(CLONE_NEWUSER | CLONE_NEWNS) == 0 && writes("/proc/self/setgroups", "deny") &&
           writes("/proc/self/uid_map", "0 " + user + " 1") &&
           writes("/proc/self/gid_map", "0 " + group + " 1");
}

} // namespace

namespace faults {

Application::Application()
{
    substitute::platform::setSettingsRoot(QDir::currentPath());
    QFile("avmrenderserver_releaseuart").open(QFile::WriteOnly); // the key of the semaphore
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
}

void useOwnMounts()
{
    if ((unshare(CLONE_NEWNS) != 0 && !becomeRoot()) ||
        mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        throw NotHere{"this machine does not permit mounts"};
}

void mountDisk(const char *folder, const char *size)
{
    QDir().mkpath(folder);
    if (mount("none", folder, "tmpfs", 0, ("size=" + std::string(size)).c_str()) != 0)
        throw NotHere{"this machine does not permit mounts"};
}

int openDescriptors()
{
    return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System).size();
}

void limitFileSize(qint64 bytes)
{
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = bytes < 0 ? limit.rlim_max : rlim_t(bytes);
    setrlimit(RLIMIT_FSIZE, &limit);
}

void withoutFreeDescriptor(const std::function<void()> &act)
{
#ifdef __SANITIZE_ADDRESS__
    throw NotHere{"the sanitizers need descriptors themselves"};
#endif
    rlimit before{};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none{0, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    act();
    setrlimit(RLIMIT_NOFILE, &before);
}

} // namespace faults

// NOLINTBEGIN(bugprone-reserved-identifier): names that the linker requires
extern "C" {

key_t __real_ftok(const char *path, int id);
int __real_access(const char *path, int mode);
int __real_open(const char *path, int flags, ...);

key_t __wrap_ftok(const char *path, int id) { return __real_ftok(own(path), id); }

int __wrap_access(const char *path, int mode) { return __real_access(own(path), mode); }

int __wrap_open(const char *path, int flags, ...) { return __real_open(own(path), flags); }
}
// NOLINTEND(bugprone-reserved-identifier)
