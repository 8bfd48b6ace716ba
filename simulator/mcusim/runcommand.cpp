// mcusim run: starts an application with the probe, and plays a scenario into it.
#include "commandline.h"
#include "liveplay.h"
#include "process.h"

#include "linksubstitute.h"
#include "printer.h"
#include "substituteplatform.h"
#include "values.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <csignal>
#include <limits>

#include <dlfcn.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace mcusim {

namespace {

/// The folder of the substitute platform that mcusim itself has; no other program finds it.
QString platformFolder()
{
    Dl_info about{};
    dladdr(reinterpret_cast<const void *>(&substitute::link::reset), &about);
    return QFileInfo(QFile::decodeName(about.dli_fname)).absolutePath();
}

/// The probe is installed beside the platform and built beside mcusim.
QString probe()
{
    const QString file = "/libmcuprobe.so";
    const QString built =
        QFileInfo("/proc/self/exe").symLinkTarget().section('/', 0, -2) + "/probe";
    for (const QString &folder : {platformFolder(), built}) {
        if (!QFile::exists(folder + file))
            continue;
        if (folder.contains(' ') || folder.contains(':'))
            throw Refusal(folder + file + ": expected a path without blanks and colons");
        return folder + file;
    }
    throw Refusal("cannot find libmcuprobe.so beside mcusim");
}

/// Sets a variable that is a list to itself with one more item.
void extend(const char *variable, const QString &first, const QString &last)
{
    const QByteArray items[]{QFile::encodeName(first), qgetenv(variable), QFile::encodeName(last)};
    QByteArray list;
    for (const QByteArray &item : items)
        list += (list.isEmpty() || item.isEmpty() ? "" : ":") + item;
    qputenv(variable, list);
}

void setEnvironment(const CommandLine &line)
{
    extend("LD_PRELOAD", {}, probe());
    if (line.value("platform") != "own")
        extend("LD_LIBRARY_PATH", platformFolder(), {});
    if (line.isSet("name"))
        qputenv("MCUPROBE_NAME", line.value("name").toLatin1());
    if (line.isSet("play"))
        qputenv("MCUPROBE_SOCKET", "needed");
    if (line.isSet("record"))
        qputenv("MCUPROBE_RECORD",
                QFile::encodeName(QDir::current().absoluteFilePath(line.value("record"))));
}

/// The process of a program into which a scenario is played. It gets the signals that this process
/// gets.
class Program {
public:
    explicit Program(char *const *arguments)
    {
        std::signal(SIGPIPE, SIG_DFL);
        const int error = posix_spawnp(&m_pid, arguments[0], nullptr, nullptr, arguments, environ);
        std::signal(SIGPIPE, SIG_IGN);
        if (error != 0)
            throw Refusal("cannot start " + QString::fromLocal8Bit(arguments[0]) + ": " +
                          qt_error_string(error));
        m_application = m_pid;
    }
    ~Program() { end(); }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    /// The process to end in place of the program itself, which may be its launcher.
    void setApplication(int pid) { m_application = pid; }
    int pid() const { return m_pid; }
    /// As a shell shows it.
    int status() const { return m_status; }

    bool goesOn()
    {
        int status = 0;
        if (m_status < 0 && waitpid(m_pid, &status, WNOHANG) == m_pid)
            m_status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
        const int signal = std::exchange(m_isTold, wasInterrupted()) ? 0 : interruptToHandOn();
        if (m_status < 0 && signal != 0)
            kill(m_pid, signal);
        return m_status < 0;
    }

    /// Waits for its end, so many milliseconds at most.
    void wait(qint64 milliseconds = std::numeric_limits<qint64>::max())
    {
        for (; goesOn() && milliseconds > 0; milliseconds -= interval)
            poll(nullptr, 0, interval);
    }

    void end()
    {
        constexpr int patience = 5000;
        if (!goesOn())
            return;
        kill(m_application, SIGTERM);
        wait(patience);
        if (!goesOn())
            return;
        complain("the application does not end and is killed");
        kill(m_application, SIGKILL);
        kill(m_pid, SIGKILL);
        wait();
    }

    static constexpr int interval = 20;

private:
    pid_t m_pid = 0;
    pid_t m_application = 0;
    int m_status = -1;
    bool m_isTold = false; ///< of the signal that came
};

int parentOf(int pid)
{
    QFile file("/proc/" + QString::number(pid) + "/stat");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return QString::fromLatin1(file.readAll()).section(')', -1).section(' ', 2, 2).toInt();
}

/// The application, once it has started the link: the program, or what a launcher has started.
std::optional<LiveProcess> findApplication(int pid)
{
    const QVector<LiveProcess> processes = liveProcesses(Leftovers::Remove);
    for (const LiveProcess &process : processes) {
        int ancestor = process.pid;
        while (ancestor > 1 && ancestor != pid)
            ancestor = parentOf(ancestor);
        if (ancestor == pid)
            return process;
    }
    return std::nullopt;
}

/// Gives the recording that the application makes of itself its end, before a signal ends both.
void endRecording(const Catalogue &names, const LiveProcess &application)
{
    constexpr int patience = 5000;
    try {
        LiveClient client(names, application, patience);
        QElapsedTimer since;
        since.start();
        bool isDone = false;
        client.onAnswer = [&isDone](int, const QString &) { isDone = true; };
        client.send(R"({"end":true})");
        while (!isDone && since.elapsed() < patience && client.receive(Program::interval)) {
        }
    } catch (const Refusal &) {
        // It ends already, or does nothing any more.
    }
}

/// Starts the program and plays into it; returns the exit status.
int runAndPlay(const CommandLine &line, char *const *arguments)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    noteInterrupts();
    LivePlay play(names, line, line.value("play"), [] { return !wasInterrupted(); });
    JUnitFile junit(line.value("junit"));
    Program program(arguments);
    std::optional<LiveProcess> application = findApplication(program.pid());
    constexpr int patience = 10'000;
    for (int waited = 0; !application && program.goesOn(); waited += Program::interval) {
        if (waited == patience)
            complain("still waiting for " + line.operands().constFirst() + " to start the link");
        poll(nullptr, 0, Program::interval);
        application = findApplication(program.pid());
    }
    if (!application && !wasInterrupted())
        complain(line.operands().constFirst() + " ended before it started the link");
    if (!application)
        return std::max<int>(program.status(), Failed);

    program.setApplication(application->pid);
    constexpr int slowStart = 60'000;
    LiveClient client(names, *application, slowStart);
    play.run(client);
    const bool isEnded = program.goesOn() && !wasInterrupted() && !line.isSet("keep");
    if (isEnded && line.isSet("record"))
        endRecording(names, *application);
    if (isEnded)
        program.end();
    program.wait();
    liveProcesses(Leftovers::Remove); // the signal has left its socket
    if (wasInterrupted())
        return program.status();

    Printer printer(console(), {0, showsColour(console())});
    if (!line.isSet("quiet") || !play.faults().isEmpty())
        play.print(printer);
    junit.write(play.file().name(), {{play.file().name(), play.now(), play.faults()}});
    junit.frame("\n</testsuites>\n");
    const bool isFine = program.status() == 0 || (isEnded && program.status() == 128 + SIGTERM);
    return !isFine ? program.status() : play.faults().isEmpty() ? Passed : Failed;
}

const CommandLine::Usage usage{
    "run",
    "-- PROGRAM [ARGUMENT...]",
    "Starts a program with the probe and ends with its status.",
    {{"play", "FILE", "Play a scenario into it, then end it; 1 if the scenario fails."},
     {"speed", "X", "Play at X times real time (1)."},
     {"tolerance", "SECONDS", "How far what comes may be from its moment (0.5)."},
     {"keep", nullptr, "Do not end it after the play."},
     {"quiet", nullptr, "Show the summary only if it fails."},
     {"junit", "FILE", "Write the verdict as JUnit XML."},
     {"record", "FILE", "Record all that goes in and comes out."},
     {"name", "NAME", "Name of the application for other commands (that of the program)."},
     {"platform", "own", "Leave it on the platform that it finds, not on the substitute."}}};

} // namespace

int runCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, usage);
    line.expectOperands(1, std::numeric_limits<int>::max(), "a program");
    if (line.isSet("platform") && line.value("platform") != "own")
        line.refuse("--platform expects own, got " + excerpt(line.value("platform")));
    static const QRegularExpression otherLetters("[^A-Za-z0-9_-]");
    if (line.value("name").contains(otherLetters))
        line.refuse("--name expects letters, digits, - and _, got " + excerpt(line.value("name")));
    for (const char *option : {"speed", "tolerance", "keep", "quiet", "junit"}) {
        if (line.isSet(option) && !line.isSet("play"))
            line.refuse(QString("--%1 expects --play").arg(option));
    }
    liveProcesses(Leftovers::Remove);
    setEnvironment(line);
    QVector<QByteArray> texts;
    std::vector<char *> pointers;
    const QStringList operands = line.operands();
    for (const QString &operand : operands)
        texts.append(operand.toLocal8Bit());
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    if (line.isSet("play"))
        return runAndPlay(line, pointers.data());
    std::signal(SIGPIPE, SIG_DFL);
    execvp(pointers[0], pointers.data());
    throw Refusal("cannot start " + line.operands().constFirst() + ": " + qt_error_string());
}

} // namespace mcusim
