// The folder and the lines of the socket are those of the probe; see there.
#include "liveclient.h"

#include "process.h"
#include "scenario.h"
#include "values.h"

#include <QDir>
#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>

#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace mcusim {

namespace {

constexpr int protocol = 1;
constexpr int interval = 200; ///< between looks at what interrupts

QString socketFolder()
{
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? "/tmp/mcusim-" + QString::number(geteuid()) : runtime + "/mcusim";
}

QString listed(const QVector<LiveProcess> &processes)
{
    QStringList names;
    for (const LiveProcess &process : processes)
        names.append(process.text());
    return names.join(", ");
}

QByteArray written(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

} // namespace

QVector<LiveProcess> liveProcesses(Leftovers leftovers)
{
    const QString folder = socketFolder();
    struct stat about {};
    if (lstat(QFile::encodeName(folder).constData(), &about) < 0 && errno == ENOENT)
        return {};
    if (!S_ISDIR(about.st_mode) || about.st_uid != geteuid() || (about.st_mode & 077) != 0)
        throw Refusal(folder + ": expected a folder of this user alone");
    QVector<LiveProcess> found;
    const QStringList files = QDir(folder).entryList(QDir::System | QDir::Files, QDir::Name);
    for (const QString &file : files) {
        const LiveProcess process{file.section('.', 0, -2), file.section('.', -1).toInt(),
                                  folder + '/' + file};
        if (process.pid <= 0 || process.text() != file)
            continue;
        if (kill(process.pid, 0) == 0 || errno == EPERM)
            found.append(process);
        else if (leftovers == Leftovers::Remove)
            unlink(QFile::encodeName(process.path).constData());
    }
    return found;
}

QVector<LiveProcess> processesNamed(const QString &name)
{
    QVector<LiveProcess> found;
    const QVector<LiveProcess> all = liveProcesses();
    for (const LiveProcess &process : all) {
        if (name.isEmpty() || name == process.name || name == process.text() ||
            name == QString::number(process.pid))
            found.append(process);
    }
    return found;
}

LiveProcess findProcess(const QString &name)
{
    const QVector<LiveProcess> found = processesNamed(name);
    if (found.size() == 1)
        return found.first();
    if (found.size() > 1)
        throw Refusal("expected one of several applications: " + listed(found));
    const QVector<LiveProcess> all = liveProcesses();
    if (all.isEmpty())
        throw Refusal("no application runs with the probe; `mcusim run -- PROGRAM` starts one");
    throw Refusal("no application " + excerpt(name) + " runs with the probe; there is " +
                  listed(all));
}

LiveClient::LiveClient(const Catalogue &names, const LiveProcess &process, int patience)
    : m_names(names), m_process(process)
{
    QElapsedTimer since;
    since.start();
    connectTo(process.path);
    while (m_metadata.isEmpty() && since.elapsed() < patience && receive(patience)) {
    }
    const QJsonValue spoken = m_metadata.value("protocol");
    if (m_metadata.isEmpty())
        throw Refusal(process.text() + " does not answer");
    if (spoken != QJsonValue(protocol))
        throw Refusal(process.text() + " has another probe: expected protocol " +
                      QString::number(protocol) + ", got " + excerpt(spoken));
}

LiveClient::~LiveClient() { close(m_descriptor); }

void LiveClient::connectTo(const QString &path)
{
    constexpr int attempts = 100;
    constexpr int pause = 10;
    sockaddr_un address{};
    const QByteArray name = QFile::encodeName(path);
    if (name.size() >= int(sizeof address.sun_path))
        throw Refusal(path + ": expected a shorter path of a socket");
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, name.constData(), std::size_t(name.size()));
    m_descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    int error = ECONNREFUSED;
    // The file is there a moment before its process listens, and others may be connecting, too.
    for (int i = 0; i < attempts && (error == ECONNREFUSED || error == EAGAIN); ++i) {
        if (i > 0)
            poll(nullptr, 0, pause);
        error =
            connect(m_descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0
                ? 0
                : errno;
    }
    if (error == 0)
        return;
    close(m_descriptor);
    throw Refusal(m_process.text() + " does not answer: " + qt_error_string(error));
}

int LiveClient::send(const QByteArray &line)
{
    m_unsent += line + '\n';
    while (!m_unsent.isEmpty() && !m_hasEnded && !wasInterrupted()) {
        const ssize_t sent =
            ::send(m_descriptor, m_unsent.constData(), std::size_t(m_unsent.size()), MSG_NOSIGNAL);
        if (sent > 0)
            m_unsent.remove(0, int(sent));
        else if (errno != EAGAIN && errno != EINTR)
            break; // reading tells that it has ended
        else if (waitFor(POLLIN | POLLOUT, interval))
            fill(); // so that neither side waits for the other
    }
    return ++m_sent;
}

QString LiveClient::ask(const QByteArray &line)
{
    const int number = send(line);
    while (m_answered < number && !wasInterrupted()) {
        if (!receive(interval))
            throw Refusal(m_process.text() + " has ended");
    }
    return m_why;
}

void LiveClient::limitTo(const QStringList &only, const QStringList &except)
{
    if (only.isEmpty() && except.isEmpty())
        return;
    const QJsonObject filter{{"only", QJsonArray::fromStringList(only)},
                             {"except", QJsonArray::fromStringList(except)}};
    m_isMuted = true;
    const QString why = ask(written({{"filter", filter}}));
    m_isMuted = false;
    if (!why.isEmpty())
        throw Refusal(why);
}

bool LiveClient::receive(int milliseconds)
{
    QByteArray line;
    // What came while a line was sent has waited.
    bool isTold = m_lines.next(&line);
    if (!isTold && !m_hasEnded && waitFor(POLLIN, milliseconds) && fill())
        isTold = m_lines.next(&line);
    for (; isTold; isTold = m_lines.next(&line))
        take(line);
    return !m_hasEnded;
}

bool LiveClient::waitFor(short events, int milliseconds) const
{
    pollfd socket{m_descriptor, events, 0};
    return poll(&socket, 1, milliseconds) > 0 && (socket.revents & ~POLLOUT) != 0;
}

bool LiveClient::fill()
{
    char bytes[1 << 16];
    const ssize_t size = recv(m_descriptor, bytes, sizeof bytes, 0);
    if (size > 0)
        m_lines.feed(bytes, int(size));
    else if (size == 0 || (errno != EAGAIN && errno != EINTR))
        m_hasEnded = true;
    return size > 0;
}

void LiveClient::take(const QByteArray &line)
{
    const QJsonObject object = QJsonDocument::fromJson(line).object();
    if (m_metadata.isEmpty()) {
        m_metadata = object.value(QLatin1String("metadata")).toObject();
    } else if (object.contains(QLatin1String("missed"))) {
        if (onMissed)
            onMissed(qint64(object.value(QLatin1String("missed")).toDouble()));
    } else if (object.contains(QLatin1String("ok")) || object.contains(QLatin1String("refused"))) {
        m_answered = object.value(QLatin1String("ok")).toInt(object.value("refused").toInt());
        m_why = object.value(QLatin1String("why")).toString();
        if (onAnswer)
            onAnswer(m_answered, m_why);
    } else if (!m_isMuted) {
        Event event;
        try {
            event = readEvent(m_names, object);
        } catch (const Refusal &) {
            event = readUnlisted(object);
        }
        for (Sink *sink : m_sinks)
            sink->hear(event);
    }
}

/// What another version of the library has.
Event LiveClient::readUnlisted(const QJsonObject &line)
{
    const auto *kind = std::find_if(std::begin(kinds), std::end(kinds), [&line](const auto &known) {
        return line.contains(QLatin1String(known.key));
    });
    if (kind == std::end(kinds))
        throw Refusal(m_process.text() + ": expected an event, got " + excerpt(QJsonValue(line)));
    const QJsonValue value = line.value(QLatin1String("value"));
    Signature signature{
        Kind(kind - kinds), line.value(QLatin1String(kind->key)).toString(), {}, {}, {}, {}, {}};
    QVariantList values;
    const QJsonArray arguments = value.isArray()       ? value.toArray()
                                 : value.isUndefined() ? QJsonArray()
                                                       : QJsonArray{value};
    for (const QJsonValue &argument : arguments) {
        signature.parameters.append({QMetaType::QVariant, QString()});
        const QVariant simple = fitted(argument, signature.parameters.first());
        values.append(simple.isValid() ? simple : argument.toVariant());
    }
    const auto known = std::find_if(m_unlisted.begin(), m_unlisted.end(), [&](const auto &other) {
        return other.kind == signature.kind && other.name == signature.name &&
               other.parameters.size() == signature.parameters.size();
    });
    const Signature *what =
        known == m_unlisted.end() ? &m_unlisted.emplace_back(std::move(signature)) : &*known;
    return {std::llround(line.value(QLatin1String("timestamp")).toDouble() * 1000), what, values,
            0};
}

} // namespace mcusim
