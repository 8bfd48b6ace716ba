// mcusim play: plays scenarios and compares the outputs with what they expect.
#include "bench.h"
#include "commandline.h"
#include "verdicts.h"

#include "player.h"
#include "printer.h"
#include "scenario.h"
#include "sinks.h"
#include "values.h"

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
    "Plays scenarios and compares what they expect. \"-\" is standard input.",
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
     {"reader-thread", nullptr, "Report from the link's own thread; the output is the same."},
     {"log", nullptr, "Show what the library logs on standard error."}}};

/// Shows the progress of a quiet play on the terminal.
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

    void show(qint64 now, double portion)
    {
        constexpr qint64 interval = 200;
        if (!m_isShown || (m_sinceShown.isValid() && m_sinceShown.elapsed() < interval))
            return;
        m_sinceShown.start();
        QString text = '\r' + QString::number(double(now) / 1000, 'f', 1) + " s";
        if (portion > 0 && portion < 1)
            text += ", " + QString::number(int(100 * portion)) + " % read";
        std::fputs((text + "\033[K").toLatin1().constData(), console());
    }

private:
    bool m_isShown;
    QElapsedTimer m_sinceShown;
};

/// One file, played in a process that has played nothing before.
class Play {
public:
    Play(const CommandLine &line, const QString &path);

    int run(JUnitFile &junit);

private:
    bool isWhole() const { return !m_line.isSet("only") && !m_line.isSet("except") && m_from == 0; }
    std::optional<Event> next();
    bool playAll();
    qint64 lastMoment() const;
    void printSummary(qint64 elapsed);

    const CommandLine &m_line;
    qint64 m_from;
    qint64 m_to;
    int m_loops;
    bool m_isJson;
    Progress m_progress;
    Bench m_bench;
    ScenarioFile m_file;
    Counters m_counters;
    Judge m_judge;
    Printer m_printer;
    std::optional<Recorder> m_recorder;
    Filter m_filter;
    Sink *m_shown = nullptr;
    Player m_player;
    int m_pass = 1;
    qint64 m_passBegan = 0;
};

Play::Play(const CommandLine &line, const QString &path)
    : m_line(line), m_from(line.moment("from", 0)), m_to(line.moment("to", noEnd)),
      m_loops(line.count("loop", 1)), m_isJson(line.isSet("json")),
      m_progress(line.isSet("quiet") || (m_isJson && !isatty(STDOUT_FILENO))),
      m_bench(line.isSet("reader-thread") ? SubstitutePlatform::Reports::ReaderThread
                                          : SubstitutePlatform::Reports::MainThread,
              [this](qint64 now) { m_progress.show(now, m_file.portion()); }),
      m_file(m_bench.names, path, [] { return !wasInterrupted(); }),
      // Played several times, a recording does not come back complete.
      m_judge(m_file.metadata().recording && m_loops == 1),
      // With --json, standard output has the recording alone.
      m_printer(m_isJson ? console() : stdout, {line.isSet("wide") ? 0 : terminalWidth(),
                                                showsColour(m_isJson ? console() : stdout)}),
      m_filter(m_bench.names, line.values("only"), line.values("except")),
      m_player([this] { return next(); }, m_bench.simulation, &m_judge)
{
    if (!m_file.isRegular() && m_loops != 1)
        throw Refusal(m_file.name() + ": --loop expects a file that can be read again");
    readAhead(m_file);
}

int Play::run(JUnitFile &junit)
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (!m_line.isSet("fast"))
        std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    if (m_line.operands().size() > 1)
        m_printer.print('\n' + m_file.name());
    if (m_isJson)
        m_shown = &m_recorder.emplace(
            stdout, JsonLinesFile::Metadata{m_file.metadata().description, isWhole(), isWhole()});
    else if (!m_line.isSet("quiet"))
        m_shown = &m_printer;
    m_filter.setSink(m_from > 0 ? nullptr : m_shown);
    for (Sink *sink : std::initializer_list<Sink *>{&m_counters, &m_judge, &m_filter})
        m_bench.simulation.addSink(sink);

    m_bench.simulation.start();
    const bool isAll = playAll();
    Bench::expectOutput();
    const bool isAtEnd = isAll && !m_player.next();
    m_judge.finish(!isAtEnd || !m_file.hasEnded());
    if (m_recorder && isAll)
        m_recorder->finish(m_bench.time.now());
    m_progress.clear();
    if (isAtEnd && m_file.isCut() && !m_file.isRegular())
        complain("warning: " + m_file.warning());
    if (isAtEnd && !m_file.isCut() && m_judge.isSurplus())
        complain("warning: " + m_file.name() +
                 ": more comes than is recorded; its end may be missing");
    printSummary(elapsed.elapsed());
    junit.write(m_file.name(), {{m_file.name(), m_bench.time.now(), m_judge.faults()}});
    return wasInterrupted() ? Interrupted : m_judge.passed() ? Passed : Failed;
}

/// The events of the file, over and over if asked for, each time a second after the last.
std::optional<Event> Play::next()
{
    std::optional<Event> event = m_file.next();
    while (event ? m_pass > 1 && !event->isInput() : m_pass != m_loops && !wasInterrupted()) {
        if (!event) {
            ++m_pass;
            m_passBegan += m_file.time() + afterLastInput;
            m_file.rewind();
        }
        event = m_file.next();
    }
    if (event)
        event->time += m_passBegan;
    return event;
}

/// False when it was stopped before its end.
bool Play::playAll()
{
    if (m_from > 0) {
        if (!m_player.seek(m_from) || !m_bench.time.advanceTo(m_from - 1))
            return false;
        m_filter.setSink(m_shown);
    }
    m_bench.time.setSpeed(m_line.isSet("fast") ? 0 : m_line.number("speed", 1));
    if (!m_player.run(m_to))
        return false;
    return m_bench.time.advanceTo(m_player.next() ? m_to : std::min(m_to, lastMoment()));
}

qint64 Play::lastMoment() const
{
    if (m_file.metadata().recording && (m_file.isCut() || m_file.hasEnded()))
        return m_file.time() + m_passBegan;
    return std::max(m_player.position(), m_player.lastInput() + afterLastInput);
}

void Play::printSummary(qint64 elapsed)
{
    constexpr int indent = 10;
    const auto print = [this](const QString &text) { m_printer.print(text, indent); };
    const auto count = [this](Kind kind, const char *thing) {
        return counted(m_counters.count(kind), thing);
    };
    const auto tenths = [](qint64 time) {
        return QString::number(double(time) / 1000, 'f', 1) + " s";
    };
    print({});
    print("Played    " + count(Kind::Report, "report") + " and " + count(Kind::Call, "call") +
          ", " + tenths(m_bench.time.now()) + " of driving in " + tenths(elapsed));
    print("Received  " + count(Kind::Signal, "signal") + " by applications, " +
          count(Kind::Command, "command") + " by the link, " + count(Kind::Platform, "call") +
          " by the platform");
    QStringList names;
    const QMap<QString, qint64> unanswered = m_counters.unanswered();
    for (auto report = unanswered.begin(); report != unanswered.end(); ++report)
        names.append(report.key() + " (" + QString::number(report.value()) + ')');
    if (!names.isEmpty())
        print("Unanswered reports, from which nothing left the library at once: " +
              names.join(", "));
    if (m_printer.wasCut())
        print("Lines are cut to the width of the terminal; --wide shows all.");
    if (m_judge.met() > 0 || !m_judge.passed())
        print("Expected  " + counted(m_judge.met(), "line") + " came back");
    for (const QString &fault : m_judge.faults())
        m_printer.print("FAILED    " + fault, indent, "31");
    if (wasInterrupted())
        print("Interrupted");
    else if (m_judge.passed() && m_judge.met() > 0)
        m_printer.print("Passed", indent, "32");
}

int checkFile(const QString &path)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    ScenarioFile file(names, path);
    readAll(file);
    put(path + ": " + counted(file.count(), "event") + ", " + seconds(file.time()) + " s");
    return Passed;
}

/// Refuses options that exclude each other.
void checkOptions(const CommandLine &line)
{
    line.expectOperands(1, std::numeric_limits<int>::max(), "at least one file");
    line.exclude({"speed", "fast"});
    line.exclude({"quiet", "json", "wide"});
    for (const char *option : {"only", "except"})
        line.exclude({"quiet", option});
    for (const CommandLine::Option &option : usage.options) {
        if (qstrcmp(option.name, "check") != 0)
            line.exclude({"check", option.name});
    }
    line.number("speed", 1);
    line.count("loop", 1);
    if (line.moment("to", noEnd) < line.moment("from", 0))
        line.refuse("--to expects a moment after --from");
    if (line.operands().size() > 1 && (line.isSet("json") || line.isSet("loop")))
        line.refuse("--json and --loop take one file");
}

} // namespace

int playCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, usage);
    checkOptions(line);
    JUnitFile junit(line.value("junit"));
    if (line.isSet("check"))
        return runEach(line.operands(), junit, checkFile);
    noteInterrupts();
    if (!line.isSet("log"))
        silenceLibrary();
    return runEach(line.operands(), junit,
                   [&](const QString &path) { return Play(line, path).run(junit); });
}

} // namespace mcusim
