// The second library: one simulation around the library of the application, from the moment in
// which it is first used to the end of the process.
#include "complain.h"
#include "handover.h"
#include "probedplatform.h"
#include "recordingfiles.h"
#include "server.h"

#include "mcusrv.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>

#include <cerrno>
#include <cstdlib>
#include <list>

#include <fcntl.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace mcusim::probe {

namespace {

/// As clients name it and its file is named.
QByteArray programName()
{
    QByteArray name = qgetenv("MCUPROBE_NAME");
    if (name.isEmpty())
        name = program_invocation_short_name;
    for (char &c : name) {
        const bool isKept =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
        c = isKept ? c : '-';
    }
    return name;
}

/// Lives as long as the process, since the application's own objects may outlive any other.
class Probe {
public:
    static Probe &instance()
    {
        static auto *probe = new Probe;
        return *probe;
    }

    void meet(QObject *object)
    {
        if (!m_isOver)
            m_simulation.attach(object);
    }

    void wake(mcu::McuSrv *link);
    const ProbedPlatform &platform() const { return m_platform; }
    const std::atomic<bool> &isHeard() const { return m_simulation.isHeard(); }

private:
    Probe() = default;

    void serve();
    void stopServing();
    void endRecordings();
    void end();
    void prepareFork();
    void goOnAsParent();
    void goOnAsChild();

    ProbedPlatform m_platform{makePlatform()};
    const Catalogue m_names{m_platform};
    RealTime m_time;
    Simulation m_simulation{m_names, m_platform, m_time};
    const QByteArray m_name = programName();
    std::atomic<bool> m_isAwake = false;
    std::atomic<bool> m_isOver = false;
    std::list<LiveRecorder> m_recorders;
    std::atomic<Server *> m_server = nullptr;
};

void Probe::wake(mcu::McuSrv *link)
{
    // On virtual time it is a simulator itself, which has no real moments and serves no sockets.
    const QObject *time = QAbstractEventDispatcher::instance();
    if ((time && time->inherits("substitute::VirtualClock")) || m_isAwake.exchange(true))
        return;
    m_time = {};
    m_simulation.attach(link);
    const bool isInField = !qEnvironmentVariableIsEmpty("MCUPROBE_FOLDER");
    try {
        const QString name = QString::fromLatin1(m_name);
        const QByteArray file = qgetenv("MCUPROBE_RECORD");
        if (!file.isEmpty())
            m_recorders.emplace_back(oneFile(file, name), 0);
        if (isInField) {
            const Ring ring(name);
            m_recorders.emplace_back([ring] { return ring.open(); }, ring.fileSize());
        }
    } catch (const Refusal &refusal) {
        complain(refusal);
    }
    for (LiveRecorder &recorder : m_recorders)
        m_simulation.addSink(&recorder);
    std::atexit([] { instance().end(); });
    pthread_atfork([] { instance().prepareFork(); }, [] { instance().goOnAsParent(); },
                   [] { instance().goOnAsChild(); });
    const QByteArray socket = qgetenv("MCUPROBE_SOCKET");
    if (socket.isEmpty() ? !isInField : socket != "0")
        qAddPreRoutine([] { instance().serve(); }); // at once when the application object is there
}

void Probe::serve()
{
    if (m_isOver || m_server)
        return;
    try {
        auto server = std::make_unique<Server>(m_simulation, m_name, [this] { endRecordings(); });
        server->moveToThread(QCoreApplication::instance()->thread());
        server->open();
        m_server = server.release();
        qAddPostRoutine([] { instance().stopServing(); });
    } catch (const Refusal &refusal) {
        complain(refusal);
        endIfNeeded();
    }
}

/// The application object goes.
void Probe::stopServing()
{
    if (!m_isOver)
        delete m_server.exchange(nullptr);
}

void Probe::endRecordings()
{
    for (LiveRecorder &recorder : m_recorders) {
        m_simulation.removeSink(&recorder);
        recorder.finish(m_time.now());
    }
}

/// The process ends, perhaps with an application object and threads that are at work.
void Probe::end()
{
    if (m_isOver.exchange(true))
        return;
    endRecordings();
    m_simulation.silence();
    if (Server *server = m_server)
        server->abandon();
}

void Probe::prepareFork()
{
    for (LiveRecorder &recorder : m_recorders)
        recorder.holdStill();
    if (Server *server = m_server)
        server->holdStill();
}

void Probe::goOnAsParent()
{
    if (Server *server = m_server)
        server->goOn();
    for (LiveRecorder &recorder : m_recorders)
        recorder.goOn();
}

/// Does only what can be done although the other threads have vanished in the middle of something.
/// The descriptors stay valid for the notifiers of an event loop, but nothing ever comes.
void Probe::goOnAsChild()
{
    m_isOver = true;
    m_simulation.silence();
    const int nothing = eventfd(0, EFD_CLOEXEC);
    for (LiveRecorder &recorder : m_recorders)
        recorder.beChild(nothing);
    if (Server *server = m_server)
        server->beChild(nothing);
    goOnAsParent();
}

} // namespace

extern "C" Q_DECL_EXPORT const Handover *mcuprobe()
{
    static const Handover handover{[](QObject *object) { Probe::instance().meet(object); },
                                   [](mcu::McuSrv *link) { Probe::instance().wake(link); },
                                   [](const char *command, const void *const *arguments) {
                                       Probe::instance().platform().note(command, arguments);
                                   },
                                   &Probe::instance().isHeard()};
    return &handover;
}

} // namespace mcusim::probe
