#include "socketfile.h"

#include "refusal.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <cstring>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

[[noreturn]] void refuse(const QByteArray &path, const QString &why)
{
    throw Refusal(QFile::decodeName(path) + ": " + why + "; there is no socket");
}

[[noreturn]] void refuseByError(const QByteArray &path) { refuse(path, qt_error_string()); }

/// Throws a Refusal when others could put a socket of their own there.
QByteArray madeFolder()
{
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    QByteArray folder =
        runtime.isEmpty() ? "/tmp/mcusim-" + QByteArray::number(geteuid()) : runtime + "/mcusim";
    struct stat about {};
    if ((mkdir(folder.constData(), S_IRWXU) != 0 && errno != EEXIST) ||
        lstat(folder.constData(), &about) != 0)
        refuseByError(folder);
    if (!S_ISDIR(about.st_mode) || about.st_uid != geteuid() ||
        (about.st_mode & (S_IRWXG | S_IRWXO)) != 0)
        refuse(folder, "expected a folder of this user alone");
    return folder;
}

} // namespace

SocketFile::SocketFile(const QByteArray &name)
{
    const QByteArray folder = madeFolder();
    const QByteArray file = name + '.' + QByteArray::number(getpid());
    const QByteArray hidden = folder + "/." + file;
    m_path = folder + '/' + file;

    sockaddr_un address{};
    if (hidden.size() >= int(sizeof address.sun_path))
        refuse(m_path, "expected a shorter path of a socket");
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, hidden.constData(), std::size_t(hidden.size()));
    unlink(hidden.constData()); // of a program that this process was before
    m_descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    // It gets its name once it listens: whoever sees it can connect.
    if (m_descriptor < 0 ||
        bind(m_descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) != 0 ||
        listen(m_descriptor, SOMAXCONN) != 0 ||
        std::rename(hidden.constData(), m_path.constData()) != 0) {
        const int error = errno;
        if (m_descriptor >= 0)
            close(m_descriptor);
        unlink(hidden.constData());
        errno = error;
        refuseByError(m_path);
    }
}

SocketFile::~SocketFile()
{
    remove();
    close(m_descriptor);
}

int SocketFile::accept() const
{
    for (;;) {
        const int client = accept4(m_descriptor, nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC);
        if (client < 0 && (errno == EINTR || errno == ECONNABORTED))
            continue;
        ucred peer{};
        socklen_t size = sizeof peer;
        if (client < 0 || (getsockopt(client, SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 &&
                           peer.uid == geteuid()))
            return client;
        close(client);
    }
}

void SocketFile::remove() const { unlink(m_path.constData()); }

} // namespace mcusim::probe
