#include "server.h"

#include "probedplatform.h"
#include "scenario.h"
#include "values.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <QJsonArray>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

constexpr int protocol = 1;

QByteArray greeting()
{
    const QString program = QFile::decodeName(program_invocation_short_name);
    return R"({"metadata":{"version":1,"program":)" + writtenValue({program}) + R"(,"pid":)" +
           QByteArray::number(getpid()) + R"(,"link":")" + linkName + R"(","library":")" +
           MCUSIM_VERSION + R"(","protocol":)" + QByteArray::number(protocol) + "}}\n";
}

QByteArray refused(int number, const QString &why)
{
    return "{\"refused\":" + QByteArray::number(number) + ",\"why\":" + writtenValue({why}) + "}\n";
}

QStringList readGlobs(const QJsonObject &filter, const char *key)
{
    QStringList globs;
    const QJsonValue value = filter.value(QLatin1String(key));
    const QJsonArray array = value.toArray();
    for (const QJsonValue &glob : array) {
        if (glob.isString())
            globs.append(glob.toString());
    }
    if (!value.isUndefined() && (!value.isArray() || globs.size() != array.size()))
        refuseValue(filter, key, "an array of texts");
    return globs;
}

} // namespace

Server::Client::Client(int connection)
    : socket(connection), readable(connection, QSocketNotifier::Read),
      writable(connection, QSocketNotifier::Write)
{
    writable.setEnabled(false);
}

Server::Client::~Client()
{
    readable.setEnabled(false);
    writable.setEnabled(false);
    close(socket);
}

Server::Server(Simulation &simulation, const QByteArray &name, std::function<void()> endRecordings)
    : m_simulation(simulation), m_endRecordings(std::move(endRecordings)), m_file(name)
{
}

Server::~Server()
{
    m_simulation.removeSink(this);
    flush();
}

void Server::open()
{
    if (QThread::currentThread() != thread())
        return workSoon();
    m_waiting.emplace(m_file.descriptor(), QSocketNotifier::Read);
    connect(&*m_waiting, &QSocketNotifier::activated, this, [this] { accept(); });
    m_pause.setSingleShot(true);
    connect(&m_pause, &QTimer::timeout, this, [this] { m_waiting->setEnabled(true); });
}

void Server::hear(const Event &event)
{
    QByteArray line; // written once for all
    const std::lock_guard lock(m_mutex);
    for (const ClientPointer &client : m_clients) {
        if (client->isEnding || (client->filter && !client->filter->has(event)))
            continue;
        if (line.isEmpty())
            line = writtenEvent(event) + '\n';
        client->backlog.addEvent(line);
        if (client->backlog.isLong() && !client->backlog.send(client->socket))
            client->isGone = true;
    }
    if (!line.isEmpty())
        workSoon();
}

void Server::abandon()
{
    const std::lock_guard lock(m_mutex);
    for (const ClientPointer &client : m_clients) {
        client->backlog.unblock();
        client->backlog.send(client->socket);
    }
    m_file.remove();
}

void Server::beChild(int replacement)
{
    m_isChild = true;
    dup3(replacement, m_file.descriptor(), O_CLOEXEC);
    for (const ClientPointer &client : m_clients)
        dup3(replacement, client->socket, O_CLOEXEC);
}

bool Server::event(QEvent *event)
{
    if (event->type() != QEvent::User)
        return QObject::event(event);
    m_willWork = false;
    if (!m_waiting)
        open();
    if (!m_isChild)
        flush();
    return true;
}

void Server::accept()
{
    constexpr int patience = 1000;
    int connection = m_file.accept();
    for (; connection >= 0; connection = m_file.accept()) {
        const auto client = std::make_shared<Client>(connection);
        const auto locked = [weak = std::weak_ptr(client)] { return weak.lock(); };
        connect(&client->readable, &QSocketNotifier::activated, this, [this, locked] {
            if (const ClientPointer readable = locked())
                read(readable);
        });
        connect(&client->writable, &QSocketNotifier::activated, this, [this, locked] {
            if (const ClientPointer writable = locked()) {
                writable->writable.setEnabled(false);
                const std::lock_guard lock(m_mutex);
                writable->backlog.unblock();
            }
            workSoon();
        });
        client->backlog.addAnswer(greeting());
        const std::lock_guard lock(m_mutex);
        m_clients.push_back(client);
    }
    if (errno != EAGAIN) {
        // No descriptor is free. Until one is, the client that waits would wake this at once.
        m_waiting->setEnabled(false);
        m_pause.start(patience);
    }
    if (!std::exchange(m_isSink, true))
        m_simulation.addSink(this);
    workSoon();
}

/// What a client wants may keep the application busy in an event loop of its own. Further lines are
/// then done there, and the client may go there.
void Server::read(const ClientPointer &client)
{
    char bytes[1 << 14];
    const ssize_t size = recv(client->socket, bytes, sizeof bytes, 0);
    if (size < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    client->lines.feed(bytes, std::max(0, int(size)));
    if (size <= 0) {
        client->readable.setEnabled(false);
        client->isGone = size < 0;
        const std::lock_guard lock(m_mutex);
        client->isEnding = true;
    }
    for (bool isWhole = size > 0; isWhole && !client->isGone;) {
        QByteArray line;
        QByteArray answer;
        try {
            isWhole = client->lines.next(&line);
            if (isWhole)
                answer = take(*client, line);
        } catch (const Refusal &tooLong) {
            answer = refused(client->lines.number(), tooLong.text());
        }
        const std::lock_guard lock(m_mutex);
        if (!answer.isEmpty())
            client->backlog.addAnswer(answer);
    }
    workSoon();
}

/// Does a line and returns the answer.
QByteArray Server::take(Client &client, const QByteArray &line)
{
    const int number = client.lines.number();
    try {
        QJsonObject object = readObject(line);
        if (object.contains(QLatin1String("filter"))) {
            setFilter(client, object);
        } else if (object == QJsonObject{{"end", true}}) {
            m_endRecordings();
        } else {
            object.insert(QLatin1String("timestamp"), 0); // whatever it says: now
            const QString why = m_simulation.play(readEvent(m_simulation.names(), object));
            if (!why.isEmpty())
                throw Refusal(why);
        }
    } catch (const Refusal &refusal) {
        return refused(number, refusal.text());
    }
    return "{\"ok\":" + QByteArray::number(number) + "}\n";
}

void Server::setFilter(Client &client, const QJsonObject &line)
{
    allowKeys(line, {"filter"});
    const QJsonValue value = line.value(QLatin1String("filter"));
    if (!value.isObject())
        refuseValue(line, "filter", "an object");
    const QJsonObject globs = value.toObject();
    allowKeys(globs, {"only", "except"});
    const Filter filter(m_simulation.names(), readGlobs(globs, "only"), readGlobs(globs, "except"));
    const std::lock_guard lock(m_mutex);
    client.filter = filter;
}

void Server::workSoon()
{
    if (!m_willWork.exchange(true))
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

/// Sends to all what they take, and parts with those that are gone.
void Server::flush()
{
    std::vector<ClientPointer> gone; // destroyed when nothing is locked any more
    {
        const std::lock_guard lock(m_mutex);
        for (const ClientPointer &client : m_clients) {
            Backlog &backlog = client->backlog;
            if (!backlog.send(client->socket) || backlog.isHopeless() ||
                (client->isEnding && backlog.isEmpty()))
                client->isGone = true;
            client->writable.setEnabled(backlog.isBlocked() && !client->isGone);
        }
        const auto first =
            std::partition(m_clients.begin(), m_clients.end(),
                           [](const ClientPointer &client) { return !client->isGone; });
        gone.assign(first, m_clients.end());
        m_clients.erase(first, m_clients.end());
        if (!m_clients.empty())
            return;
    }
    if (std::exchange(m_isSink, false))
        m_simulation.removeSink(this);
}

} // namespace mcusim::probe
