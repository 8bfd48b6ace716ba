// Fuzz target: a client of the probe that sends anything, in pieces. Each line is answered once and
// in order, all else that comes back is a line of a scenario, and the probe goes on.
//
// The first byte of the input is the length of the pieces; above 127 the client goes without
// reading what comes back.
#include "mcuservice.h"
#include "mcusrv.h"
#include "probedplatform.h"
#include "scenario.h"
#include "server.h"
#include "target.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

using namespace mcusim;
using fuzz::expect;

/// An application with the probe.
struct Unit {
    Unit()
    {
        fuzz::silence();
        qputenv("XDG_RUNTIME_DIR", QFile::encodeName(folder.path()));
        server.emplace(simulation, "fuzz", [] {});
        server->open();
        simulation.attach(mcu::McuSrv::instance());
        mcu::McuService::instance()->init();
        for (const ApplicationObject &object : applicationObjects())
            simulation.attach(object.instance());
    }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
    QTemporaryDir folder;
    probe::ProbedPlatform platform{probe::makePlatform()};
    Catalogue names{platform};
    RealTime time;
    Simulation simulation{names, platform, time};
    std::optional<probe::Server> server;
};

/// One connection; the application runs whenever the client has done something.
class Client {
public:
    explicit Client(const Unit &unit) : m_socket(socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0))
    {
        const QByteArray path =
            QFile::encodeName(unit.folder.path()) + "/mcusim/fuzz." + QByteArray::number(getpid());
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        qstrncpy(address.sun_path, path.constData(), sizeof address.sun_path);
        const auto *general = reinterpret_cast<const sockaddr *>(&address);
        expect(connect(m_socket, general, sizeof address) == 0, "probe accepts", strerror(errno));
    }
    ~Client() { close(m_socket); }
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    void send(const QByteArray &bytes)
    {
        for (int sent = 0; sent < bytes.size(); receive()) {
            const auto rest = std::size_t(bytes.size() - sent);
            const ssize_t size = ::send(m_socket, bytes.constData() + sent, rest, MSG_NOSIGNAL);
            expect(size >= 0 || errno == EAGAIN, "probe listens", strerror(errno));
            sent += int(std::max(size, ssize_t(0)));
        }
    }
    /// All lines that came, up to the end of the connection.
    QByteArrayList finish()
    {
        shutdown(m_socket, SHUT_WR);
        while (receive()) {
        }
        return m_received.split('\n');
    }

private:
    /// False at the end of the connection.
    bool receive()
    {
        QCoreApplication::processEvents();
        char bytes[1 << 14];
        ssize_t size = 0;
        while ((size = recv(m_socket, bytes, sizeof bytes, 0)) > 0)
            m_received.append(bytes, int(size));
        return size < 0;
    }

    int m_socket;
    QByteArray m_received;
};

/// Checks what came back for so many lines.
void check(const Unit &unit, const QByteArrayList &received, int lines)
{
    int answered = 0;
    for (const QByteArray &line : received.mid(1, received.size() - 2)) {
        const QJsonObject object = readObject(line);
        const QJsonValue number = object.contains("ok") ? object["ok"] : object["refused"];
        if (number.isUndefined())
            expect(writtenEvent(readEvent(unit.names, object)) == line, "line of a scenario", line);
        else
            expect(number == QJsonValue(++answered), "answers in order", line);
    }
    expect(received.first().startsWith("{\"metadata\":") && received.last().isEmpty() &&
               answered == lines,
           "every line is answered", received.join('\n'));
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static Unit unit;
    const QByteArray input = fuzz::bytesOf(data, size);
    if (input.isEmpty())
        return 0;
    constexpr int longest = 128;
    const int length = quint8(input[0]) % longest + 1;
    const QByteArray text = input.mid(1);
    Client client(unit);
    for (int next = 0; next < text.size(); next += length)
        client.send(text.mid(next, length));
    if (quint8(input[0]) >= longest)
        return 0;
    try {
        check(unit, client.finish(), text.count('\n'));
    } catch (const Refusal &refusal) {
        expect(false, "what comes back can be read", refusal.text());
    }
    return 0;
}
