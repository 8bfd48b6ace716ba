// mcusim play: reads a scenario, plays it and says whether what was expected came back.
#include "commands.h"
#include "eventprinter.h"
#include "player.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QLoggingCategory>

#include <sys/ioctl.h>
#include <unistd.h>

namespace mcusim {

namespace {

int terminalWidth()
{
    winsize size{};
    return ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 132;
}

/// A line on the terminal that tells how far a quiet play is.
class Progress {
public:
    explicit Progress(qint64 end) : m_end(end) {}
    ~Progress()
    {
        if (m_shown)
            std::fputs("\r\033[K", stderr);
    }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void update(qint64 now)
    {
        constexpr qint64 interval = 200;
        if (m_end <= 0 || !isatty(STDERR_FILENO) || (m_shown && m_sinceShown.elapsed() < interval))
            return;
        std::fprintf(stderr, "\r%lld of %lld s", static_cast<long long>(now / 1000),
                     static_cast<long long>(m_end / 1000));
        m_sinceShown.start();
        m_shown = true;
    }

private:
    qint64 m_end;
    bool m_shown = false;
    QElapsedTimer m_sinceShown;
};

} // namespace

int playCommand(const QStringList &arguments, substitute::VirtualClock *clock)
{
    const QCommandLineOption speedOption(QStringLiteral("speed"),
                                         QStringLiteral("Play at X times the speed of life (1)."),
                                         QStringLiteral("X"), QStringLiteral("1"));
    const QCommandLineOption fastOption(QStringLiteral("fast"),
                                        QStringLiteral("Play without waiting at all."));
    const QCommandLineOption quietOption(QStringLiteral("quiet"),
                                         QStringLiteral("Show the summary alone."));
    const QCommandLineOption jsonOption(
        QStringLiteral("json"),
        QStringLiteral("Write all events as a scenario: a recording that can be played again."));
    const QCommandLineOption threadOption(
        QStringLiteral("reader-thread"),
        QStringLiteral("Report from the link's own thread; everything must come out the same."));
    const QCommandLineOption logOption(
        QStringLiteral("log"), QStringLiteral("Show the library's debug lines on standard error."));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Plays a scenario."));
    parser.addOption(helpOption());
    parser.addOptions({speedOption, fastOption, quietOption, jsonOption, threadOption, logOption});
    parser.addPositionalArgument(QStringLiteral("play"), QString());
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("the scenario"));
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return unusable(parser.errorText() + QStringLiteral("; see mcusim play --help"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(Passed);
    const QStringList files = parser.positionalArguments().mid(1);
    if (files.size() != 1)
        return unusable(QStringLiteral("play expects one file; see mcusim play --help"));
    bool isNumber = false;
    double speed = parser.value(speedOption).toDouble(&isNumber);
    if (!isNumber || !(speed > 0)) {
        return unusable(QStringLiteral("--speed expects a number above 0, got \"%1\"")
                            .arg(parser.value(speedOption)));
    }
    if (parser.isSet(fastOption))
        speed = 0;

    QFile file(files.first());
    if (!file.open(QIODevice::ReadOnly)) {
        return unusable(
            QStringLiteral("cannot read %1: %2").arg(file.fileName(), file.errorString()));
    }
    Scenario scenario;
    QString error;
    if (!readScenario(file.readAll(), &scenario, &error))
        return unusable(QStringLiteral("%1: %2").arg(file.fileName(), error));
    if (!scenario.warning.isEmpty())
        std::fprintf(stderr, "mcusim: warning: %s: %s\n", qUtf8Printable(file.fileName()),
                     qUtf8Printable(scenario.warning));

    const bool json = parser.isSet(jsonOption);
    const bool quiet = parser.isSet(quietOption);
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, parser.isSet(logOption));
    // In a recording the summary stands beside it, on standard error.
    std::FILE *summary = json ? stderr : stdout;
    const bool colour = isatty(fileno(summary)) && qEnvironmentVariableIsEmpty("NO_COLOR");
    EventPrinter printer(summary, colour, terminalWidth());
    Progress progress((quiet || (json && !isatty(STDOUT_FILENO))) && !scenario.events.isEmpty()
                          ? scenario.events.last().time
                          : 0);

    if (json)
        std::printf("%s\n", writtenMetadata(scenario.description).constData());
    QElapsedTimer elapsed;
    elapsed.start();
    Player player(clock,
                  parser.isSet(threadOption) ? Desk::Link::ReaderThread : Desk::Link::MainThread,
                  [&](const Event &event) {
                      progress.update(event.time);
                      if (json) {
                          std::printf("%s\n", writtenEvent(event).constData());
                          std::fflush(stdout);
                      } else if (!quiet)
                          printer.print(event);
                  });
    const Outcome outcome = player.play(scenario, speed);
    const Verdict verdict = judge(scenario, outcome.outputs);
    printer.printSummary(outcome, verdict, double(elapsed.elapsed()) / 1000);
    return written(verdict.passed() ? Passed : Failed);
}

} // namespace mcusim
