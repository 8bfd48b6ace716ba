#include "process.h"

#include "values.h"

#include <QFile>
#include <QLoggingCategory>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace mcusim {

namespace {

std::FILE *const originalError = stderr;
volatile std::sig_atomic_t interrupt = 0;
volatile std::sig_atomic_t isFromTerminal = 0;

extern "C" void noteInterrupt(int signal, siginfo_t *about, void *)
{
    interrupt = signal;
    isFromTerminal = about->si_code == SI_KERNEL;
}

} // namespace

void secureStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0)
            open(stream == STDIN_FILENO ? "/dev/null" : "/dev/full", O_RDWR);
    }
    for (const int limit : {SIGPIPE, SIGXFSZ})
        std::signal(limit, SIG_IGN);
}

std::FILE *console() { return originalError; }

void complain(const QString &why)
{
    const QString line = QString(program_invocation_short_name) + ": " + printable(why) + '\n';
    std::fputs(line.toUtf8().constData(), console());
}

void put(const QString &line) { std::fputs((line + '\n').toUtf8().constData(), stdout); }

QByteArray contentOf(QFile &file, const QString &name)
{
    constexpr int longest = 1 << 20;
    QByteArray bytes = file.isOpen() ? file.read(longest + 1) : QByteArray();
    if (file.error() != QFileDevice::NoError)
        throw Refusal("cannot read " + name + ": " + file.errorString());
    if (bytes.size() > longest)
        throw Refusal(name + ": expected at most 1 MiB");
    return bytes;
}

QString counted(qint64 count, const char *thing)
{
    return QString::number(count) + ' ' + thing + (count == 1 ? "" : "s");
}

int written(int status)
{
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    if (status != Unusable) // which has its line
        complain("cannot write standard output");
    return Unusable;
}

void silenceLibrary()
{
    // The stream, not the descriptor: a sanitizer's report still comes through.
    static std::FILE *const nowhere = std::fopen("/dev/null", "we");
    if (nowhere)
        stderr = nowhere;
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
}

void noteInterrupts()
{
    struct sigaction action {};
    action.sa_sigaction = noteInterrupt;
    action.sa_flags = int(SA_SIGINFO | SA_RESETHAND); // and no restart: waiting must end
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaction(signal, &action, nullptr);
}

bool wasInterrupted() { return interrupt != 0; }

int interruptToHandOn() { return isFromTerminal ? 0 : interrupt; }

bool forgetInterrupt()
{
    if (interrupt != SIGINT)
        return false;
    interrupt = 0;
    noteInterrupts();
    return true;
}

int terminalWidth()
{
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0)
        return size.ws_col;
    return qEnvironmentVariableIntValue("COLUMNS");
}

int terminalHeight()
{
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_row : 0;
}

bool showsColour(std::FILE *stream)
{
    return isatty(fileno(stream)) && qEnvironmentVariableIsEmpty("NO_COLOR");
}

} // namespace mcusim
