// mcusim run: starts an application with the probe, and plays a scenario into it.
#include "commandline.h"
#include "liveplay.h"
#include "process.h"

#include "linksubstitute.h"
#include "printer.h"
#include "substituteplatform.h"
#include "values.h"

#include <QDir>
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
    if (line.isSet("record"))
        qputenv("MCUPROBE_RECORD",
                QFile::encodeName(QDir::current().absoluteFilePath(line.value("record"))));
}

/// The process of the program, while a scenario is played into it. It gets the signals that this
/// process gets.
class Program {
public:
    explicit Program(char *const *arguments)
    {
        sigemptyset(&m_signals);
        for (const int signal : {SIGCHLD, SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2})
            sigaddset(&m_signals, signal);
        sigset_t none{};
        sigset_t usual{};
        sigemptyset(&usual);
        sigaddset(&usual, SIGPIPE);
        posix_spawnattr_t attributes{};
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
        posix_spawnattr_setsigdefault(&attributes, &usual);
        sigprocmask(SIG_BLOCK, &m_signals, &none);
        posix_spawnattr_setsigmask(&attributes, &none);
        const int error =
            posix_spawnp(&m_pid, arguments[0], nullptr, &attributes, arguments, environ);
        posix_spawnattr_destroy(&attributes);
        if (error != 0)
            throw Refusal("cannot start " + QFile::decodeName(arguments[0]) + ": " +
                          qt_error_string(error));
        m_application = m_pid;
    }

    ~Program()
    {
        if (!hasEnded())
            end();
    }
    Program(const Program &) = delete;
    Program &operator=(const Program &) = delete;

    int pid() const { return m_pid; }
    /// The process to end in place of the program itself, which may be its launcher.
    void setApplication(int pid) { m_application = pid; }
    /// Whether a signal from outside was to end it.
    bool wasStopped() const { return m_wasStopped; }
    bool hasEnded() const { return m_status >= 0; }
    /// As a shell shows it.
    int status() const { return m_status; }

    /// Hands on what signals have come. False when the program has ended.
    bool goesOn()
    {
        while (!hasEnded() && take(0)) {
        }
        return !hasEnded();
    }

    void wait()
    {
        constexpr int aDay = 86'400;
        while (!hasEnded())
            take(aDay);
    }

    void end()
    {
        constexpr int patience = 5;
        kill(m_application, SIGTERM);
        while (!hasEnded() && take(patience)) {
        }
        if (hasEnded())
            return;
        complain("the application does not end and is killed");
        kill(m_application, SIGKILL);
        kill(m_pid, SIGKILL);
        wait();
    }

private:
    /// Takes one signal; false when none comes in this time.
    bool take(int seconds)
    {
        const timespec time{seconds, 0};
        siginfo_t about{};
        const int signal = sigtimedwait(&m_signals, &about, &time);
        if (signal < 0)
            return errno == EINTR;
        int status = 0;
        if (signal != SIGCHLD) {
            m_wasStopped = m_wasStopped || (signal != SIGUSR1 && signal != SIGUSR2);
            if (about.si_code != SI_KERNEL) // else the terminal has sent it to the program, too
                kill(m_pid, signal);
        } else if (waitpid(m_pid, &status, WNOHANG) == m_pid) {
            m_status = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
        }
        return true;
    }

    sigset_t m_signals{};
    pid_t m_pid = 0;
    pid_t m_application = 0;
    int m_status = -1;
    bool m_wasStopped = false;
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
    for (const LiveProcess &process : liveProcesses(Leftovers::Remove)) {
        int ancestor = process.pid;
        while (ancestor > 1 && ancestor != pid)
            ancestor = parentOf(ancestor);
        if (ancestor == pid)
            return process;
    }
    return std::nullopt;
}

/// Starts the program and plays into it; returns the exit status.
int runAndPlay(const CommandLine &line, char *const *arguments)
{
    constexpr int interval = 20;
    SubstitutePlatform platform;
    const Catalogue names(platform);
    std::optional<Program> program;
    LivePlay play(names, line, line.value("play"), [&program] {
        // The end of the application shows when all that it sent is read.
        return !program || program->goesOn() || !program->wasStopped();
    });
    JUnitFile junit(line.value("junit"));
    program.emplace(arguments);
    std::optional<LiveProcess> application;
    while (!application && program->goesOn()) {
        application = findApplication(program->pid());
        poll(nullptr, 0, application ? 0 : interval);
    }
    if (!application && !program->wasStopped())
        complain(line.operands().first() + " ended before it started the link");
    if (!application)
        return std::max<int>(program->status(), Failed);

    program->setApplication(application->pid);
    LiveClient client(names, *application);
    play.run(client);
    const bool isEnded = program->goesOn() && !program->wasStopped() && !line.isSet("keep");
    if (isEnded)
        program->end();
    program->wait();
    if (program->wasStopped())
        return program->status();

    Printer printer(console(), {0, showsColour(console())});
    if (!line.isSet("quiet") || !play.faults().isEmpty())
        play.print(printer);
    junit.write(play.file().name(), {{play.file().name(), play.now(), play.faults()}});
    junit.frame("\n</testsuites>\n");
    const bool isFine = program->status() == 0 || (isEnded && program->status() == 128 + SIGTERM);
    return !isFine ? program->status() : play.faults().isEmpty() ? Passed : Failed;
}

const CommandLine::Usage usage{
    "run",
    "-- PROGRAM [ARGUMENT...]",
    "Starts a program with the probe and ends with its status.",
    {{"play", "FILE", "Play a scenario into it, then end it; 1 if the scenario fails."},
     {"speed", "X", "Play at X times real time (1)."},
     {"tolerance", "SECONDS", "How far what comes may be from its moment (0.5)."},
     {"keep", nullptr, "Do not end it after the play."},
     {"quiet", nullptr, "Show only what fails of the play."},
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
    if (line.value("name").contains(QRegularExpression("[^A-Za-z0-9_-]")))
        line.refuse("--name expects letters, digits, - and _, got " + excerpt(line.value("name")));
    for (const char *option : {"speed", "tolerance", "keep", "quiet", "junit"}) {
        if (line.isSet(option) && !line.isSet("play"))
            line.refuse(QString("--%1 expects --play").arg(option));
    }
    liveProcesses(Leftovers::Remove);
    setEnvironment(line);
    QVector<QByteArray> texts;
    std::vector<char *> pointers;
    for (const QString &operand : line.operands())
        texts.append(operand.toLocal8Bit());
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    if (line.isSet("play"))
        return runAndPlay(line, pointers.data());
    std::signal(SIGPIPE, SIG_DFL);
    execvp(pointers[0], pointers.data());
    throw Refusal("cannot start " + line.operands().first() + ": " + qt_error_string());
}

} // namespace mcusim
