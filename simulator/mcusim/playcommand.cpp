// mcusim play: plays scenarios and says whether what was expected came back.
#include "commandline.h"
#include "process.h"
#include "verdicts.h"

#include "counters.h"
#include "filter.h"
#include "player.h"
#include "printer.h"
#include "recorder.h"
#include "substituteplatform.h"
#include "values.h"

#include <QCoreApplication>

#include <limits>

#include <unistd.h>

namespace mcusim {

namespace {

constexpr qint64 noEnd = std::numeric_limits<qint64>::max() / 2;
/// How long the library's timers go on after the last input.
constexpr qint64 afterLastInput = 1000;

const CommandLine::Usage usage{
    "play",
    "FILE...",
    "Plays scenarios and says whether what they expect comes back. \"-\" is standard input.",
    {{"speed", "X", "Play at X times real time (1)."},
     {"fast", nullptr, "Play without waiting."},
     {"only", "GLOB", "Show only names, classes or kinds like this; repeats.", true},
     {"except", "GLOB", "Do not show names, classes or kinds like this; repeats.", true},
     {"wide", nullptr, "Show all fields, in lines of any length."},
     {"quiet", nullptr, "Show the summary alone."},
     {"json", nullptr, "Write all events as a scenario: a recording that can be played again."},
     {"from", "SECONDS", "Begin to show, and to wait, at this moment of the scenario."},
     {"to", "SECONDS", "End at this moment."},
     {"loop", "N", "Play N times; 0 until Ctrl-C. What is expected counts the first time."},
     {"junit", "FILE", "Write the verdicts as JUnit XML."},
     {"check", nullptr, "Only read the files."},
     {"reader-thread", nullptr, "Report from the link's own thread; everything comes the same."},
     {"log", nullptr, "Show what the library logs on standard error."}}};

/// A line on the terminal that tells how far a quiet play is.
class Progress {
public:
    explicit Progress(bool isShown) : m_isShown(isShown && isatty(fileno(console()))) {}
    ~Progress() { clear(); }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void clear()
    {
        if (m_sinceShown.isValid())
            std::fputs("\r\033[K", console());
        m_sinceShown.invalidate();
    }

    void update(qint64 now, double portion)
    {
        constexpr qint64 interval = 200;
        if (!m_isShown || (m_sinceShown.isValid() && m_sinceShown.elapsed() < interval))
            return;
        m_sinceShown.start();
        QString text = '\r' + QString::number(double(now) / 1000, 'f', 1) + " s";
        if (portion > 0)
            text += ", " + QString::number(100 * portion, 'f', 0) + " % read";
        std::fputs((text + "\033[K").toLatin1().constData(), console());
    }

private:
    bool m_isShown;
    QElapsedTimer m_sinceShown;
};

/// What the command line asks for.
struct Options {
    double speed = 1; ///< 0 does not wait
    qint64 from = 0;
    qint64 to = noEnd;
    int loops = 1; ///< 0 for no end
    bool json = false;
    bool quiet = false;
    QStringList only;
    QStringList except;
    Printer::Look look;
    bool isOneOfMany = false;
    SubstitutePlatform::Reports reports = SubstitutePlatform::Reports::MainThread;
};

/// Reads a file to its end; a fault in it must not show when half of it is played.
void check(ScenarioFile &file)
{
    while (file.next()) {
    }
    if (file.isCut())
        complain("warning: " + file.warning());
}

/// The events of a file, over and over if asked for, each time a second after the last.
Player::Source looped(ScenarioFile &file, int loops)
{
    return [&file, loops, pass = 1, shift = qint64(0)]() mutable {
        std::optional<Event> event = file.next();
        while (event ? pass > 1 && !event->isInput() : pass != loops && !wasInterrupted()) {
            if (!event) {
                ++pass;
                shift += file.reader().time() + afterLastInput;
                file.rewind();
            }
            event = file.next();
        }
        if (event)
            event->time += shift;
        return event;
    };
}

/// Plays a scenario between two of its moments. False when it was stopped before its end.
bool play(Player &player, ScenarioFile &file, VirtualTime &time, Filter &filter,
          const Options &options)
{
    if (options.from > 0) {
        filter.setOpen(false);
        if (!player.seek(options.from) || !time.advanceTo(options.from - 1))
            return false;
        filter.setOpen(true);
    }
    time.setSpeed(options.speed);
    if (!player.run(options.to))
        return false;
    qint64 end = options.to;
    if (!player.next()) {
        const ScenarioReader &reader = file.reader();
        qint64 last = std::max(player.position(), player.lastInput() + afterLastInput);
        if (reader.metadata().recording && (file.isCut() || reader.hasEnded()))
            last = std::max(player.position(), reader.time());
        end = std::min(end, last);
    }
    return time.advanceTo(end);
}

void printSummary(Printer &printer, const Counters &counters, const Judge &judge, qint64 duration,
                  double elapsed)
{
    const auto number = [&counters](Kind kind, const char *thing) {
        const qint64 count = counters.count(kind);
        return QString::number(count) + ' ' + thing + (count == 1 ? "" : "s");
    };
    const auto tenths = [](double value) { return QString::number(value, 'f', 1) + " s"; };
    constexpr int indent = 10;
    printer.print({});
    printer.print("Played    " + number(Kind::Report, "report") + " and " +
                      number(Kind::Call, "call") + ", " + tenths(double(duration) / 1000) +
                      " of driving in " + tenths(elapsed),
                  indent);
    printer.print("Received  " + number(Kind::Signal, "signal") + " by applications, " +
                      number(Kind::Command, "command") + " by the link, " +
                      number(Kind::Platform, "call") + " by the platform",
                  indent);
    const QMap<QString, qint64> unanswered = counters.unanswered();
    QStringList names;
    for (auto report = unanswered.begin(); report != unanswered.end(); ++report)
        names.append(report.key() + " (" + QString::number(report.value()) + ')');
    if (!names.isEmpty())
        printer.print("Unanswered reports, from which nothing left the library at once: " +
                          names.join(QStringLiteral(", ")),
                      indent);
    if (printer.wasCut())
        printer.print(
            QStringLiteral("Lines are cut to the width of the terminal; --wide shows all."));
    if (judge.met() > 0 || !judge.passed())
        printer.print("Expected  " + QString::number(judge.met()) +
                          (judge.met() == 1 ? " line" : " lines") + " came back",
                      indent);
    for (const QString &fault : judge.faults())
        printer.print("FAILED    " + fault, indent, "31");
    if (wasInterrupted())
        printer.print(QStringLiteral("Interrupted"));
    else if (judge.passed() && judge.met() > 0)
        printer.print(QStringLiteral("Passed"), 0, "32");
}

Verdict playFile(const QString &path, const Options &options)
{
    int argc = 1;
    char name[] = "mcusim";
    char *argv[] = {name, nullptr};
    auto *clock = substitute::VirtualClock::install();
    const QCoreApplication application(argc, argv);

    SubstitutePlatform platform(options.reports);
    const Catalogue names(platform);
    Progress progress(options.quiet || (options.json && !isatty(STDOUT_FILENO)));
    ScenarioFile file(names, path, [&] {
        progress.update(clock->now(), 0);
        return !wasInterrupted();
    });
    if (file.file().isRegular()) {
        check(file);
        file.rewind();
    } else if (options.loops != 1) {
        throw Refusal(file.file().name() + ": --loop expects a file that can be read again");
    }

    VirtualTime time(clock, [&](qint64 now) {
        progress.update(now, file.file().portion());
        return !wasInterrupted() && std::ferror(stdout) == 0;
    });
    Simulation simulation(names, platform, time);
    Counters counters;
    simulation.addSink(&counters);
    const ScenarioReader &reader = file.reader();
    // Played again and again it no longer comes back whole.
    Judge judge(reader.metadata().recording && options.loops == 1);
    simulation.addSink(&judge);

    // In a recording the summary stands beside it, on standard error.
    Printer printer(options.json ? console() : stdout, options.look);
    std::optional<Recorder> recorder;
    const bool isWhole = options.only.isEmpty() && options.except.isEmpty() && options.from == 0;
    if (options.json)
        recorder.emplace(stdout, Metadata{reader.metadata().description, isWhole, isWhole});
    Filter filter(names, options.only, options.except,
                  recorder ? static_cast<Sink &>(*recorder) : printer);
    if (!options.quiet)
        simulation.addSink(&filter);

    if (options.speed > 0 || !file.file().isRegular())
        std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    if (options.isOneOfMany)
        printer.print('\n' + path);
    QElapsedTimer elapsed;
    elapsed.start();
    simulation.start();
    Player player(looped(file, options.loops), simulation, &judge);
    const bool isWholly = play(player, file, time, filter, options);
    progress.clear();
    judge.finish(!isWholly || player.next() || !reader.hasEnded());
    if (recorder && isWholly)
        recorder->finish(time.now());
    if (!file.file().isRegular() && isWholly && !player.next() && file.isCut())
        complain("warning: " + file.warning());
    else if (judge.isSurplus() && isWholly && !player.next() && !file.isCut())
        complain("warning: " + path +
                 ": the recording ends before what comes next; the end may be missing");
    printSummary(printer, counters, judge, time.now(), double(elapsed.elapsed()) / 1000);
    const int status = judge.passed() ? Passed : Failed;
    return {path, wasInterrupted() ? int(Interrupted) : status, time.now(), judge.faults()};
}

Verdict checkFile(const QString &path)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    ScenarioFile file(names, path);
    check(file);
    const qint64 events = file.reader().events();
    std::fputs((path + ": " + QString::number(events) + (events == 1 ? " event, " : " events, ") +
                seconds(file.reader().time()) + " s\n")
                   .toUtf8()
                   .constData(),
               stdout);
    return {path, Passed, 0, {}};
}

Options read(const CommandLine &line)
{
    line.expectOperands(1, std::numeric_limits<int>::max(), "at least one file");
    line.exclude({"speed", "fast"});
    line.exclude({"quiet", "json", "wide"});
    for (const char *option : {"only", "except"})
        line.exclude({"quiet", option});
    for (const char *option : {"speed", "fast", "only", "except", "wide", "quiet", "json", "from",
                               "to", "loop", "junit", "reader-thread", "log"})
        line.exclude({"check", option});
    Options options;
    options.speed = line.isSet("fast") ? 0 : line.number("speed", 1);
    options.from = line.moment("from", 0);
    options.to = line.moment("to", noEnd);
    if (options.to < options.from)
        line.refuse(QStringLiteral("--to expects a moment after --from"));
    options.loops = line.count("loop", 1);
    options.json = line.isSet("json");
    options.quiet = line.isSet("quiet");
    options.only = line.values("only");
    options.except = line.values("except");
    options.isOneOfMany = line.operands().size() > 1;
    if (options.isOneOfMany && (options.json || line.isSet("loop")))
        line.refuse(QStringLiteral("--json and --loop take one file"));
    options.look.width = line.isSet("wide") ? 0 : terminalWidth(stdout);
    options.look.colour = showsColour(options.json ? console() : stdout);
    if (line.isSet("reader-thread"))
        options.reports = SubstitutePlatform::Reports::ReaderThread;
    return options;
}

} // namespace

int playCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, usage);
    const Options options = read(line);
    noteInterrupts();
    if (line.isSet("check")) {
        return worst(runEach(line.operands(), [](const QString &path) {
            return QVector<Verdict>{checkFile(path)};
        }));
    }
    if (!line.isSet("log"))
        silenceLibrary();
    JUnitFile junit(line.value("junit"));
    const QVector<Verdict> verdicts = runEach(line.operands(), [&options](const QString &path) {
        return QVector<Verdict>{playFile(path, options)};
    });
    junit.write(QStringLiteral("mcusim play"), verdicts);
    return worst(verdicts);
}

} // namespace mcusim
