// mcusim play and mcusim verify: play scenarios and compare the outputs with what they expect.
#include "bench.h"
#include "commandline.h"
#include "liveplay.h"
#include "verdicts.h"

#include "livejudge.h"
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
/// Below the heads of a summary.
constexpr int indent = 10;

const CommandLine::Usage playUsage{
    "play",
    "FILE...",
    "Plays scenarios and compares what they expect. \"-\" is standard input.",
    {{"on", "NAME", "Play into a running application."},
     {"speed", "X", "Play at X times real time (1)."},
     {"fast", nullptr, "Play without waiting."},
     {"only", "GLOB", "Show only names, classes or kinds like this; repeats.", true},
     {"except", "GLOB", "Do not show names, classes or kinds like this; repeats.", true},
     {"wide", nullptr, "Show all fields, in lines of any length."},
     {"quiet", nullptr, "Show the summary alone."},
     {"json", nullptr, "Write all events as a scenario: a recording that can be played again."},
     {"from", "SECONDS", "Begin to show, and to wait, at this moment of the scenario."},
     {"to", "SECONDS", "End at this moment."},
     {"loop", "N", "Play N times; 0 until Ctrl-C. What is expected counts the first time."},
     {"tolerance", "SECONDS", "How far off what a live application does may be (0.5)."},
     {"junit", "FILE", "Write the verdicts as JUnit XML."},
     {"check", nullptr, "Only read the files."},
     {"reader-thread", nullptr, "Report from the link's own thread; the output is the same."},
     {"log", nullptr, "Show what the library logs on standard error."}}};

const CommandLine::Usage verifyUsage{
    "verify",
    "FILE...",
    "Plays recordings without waiting and compares what comes. \"-\" is standard input.",
    {{"tolerance", "SECONDS", "How far off a moment of a live recording may be (0.5)."},
     {"except", "GLOB", "Do not compare names, classes or kinds like this; repeats.", true},
     {"junit", "FILE", "Write the verdicts as JUnit XML."},
     {"log", nullptr, "Show what the library logs on standard error."}}};

/// How a file is played, and what is shown of it.
struct Settings {
    double speed = 0; ///< 0 does not wait
    qint64 from = 0;
    qint64 to = noEnd;
    int loops = 1;
    SubstitutePlatform::Reports reports = SubstitutePlatform::Reports::MainThread;
    enum { Lines, Json, Summary, Verdict } output = Verdict;
    bool isWide = false;
    bool isAlone = true; ///< without other files
    QStringList only;
    QStringList except;
    qint64 tolerance = LiveJudge::usualTolerance;
    QStringList notCompared;
};

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
    Play(const Settings &settings, const QString &path);

    int run(JUnitFile &junit);

private:
    bool isWhole() const
    {
        return m_settings.only.isEmpty() && m_settings.except.isEmpty() && m_settings.from == 0;
    }
    std::unique_ptr<Judge> makeJudge() const;
    std::optional<Event> next();
    bool playAll();
    qint64 lastMoment() const;
    void printVerdict();
    void printSummary(qint64 elapsed);
    void printFaults();

    Settings m_settings;
    bool m_isJson;
    Progress m_progress;
    Bench m_bench;
    ScenarioFile m_file;
    Counters m_counters;
    std::unique_ptr<Judge> m_judge;
    Filter m_compared;
    Printer m_printer;
    std::optional<Recorder> m_recorder;
    Filter m_filter;
    Sink *m_shown = nullptr;
    Player m_player;
    int m_pass = 1;
    qint64 m_passBegan = 0;
};

Play::Play(const Settings &settings, const QString &path)
    : m_settings(settings), m_isJson(settings.output == Settings::Json),
      m_progress(settings.output >= Settings::Summary || (m_isJson && !isatty(STDOUT_FILENO))),
      m_bench(settings.reports, [this](qint64 now) { m_progress.show(now, m_file.portion()); }),
      m_file(m_bench.names, path, [] { return !wasInterrupted(); }), m_judge(makeJudge()),
      m_compared(m_bench.names, {}, settings.notCompared),
      // With --json, standard output has the recording alone.
      m_printer(m_isJson ? console() : stdout, {settings.isWide ? 0 : terminalWidth(),
                                                showsColour(m_isJson ? console() : stdout)}),
      m_filter(m_bench.names, settings.only, settings.except),
      m_player([this] { return next(); }, m_bench.simulation, m_judge.get())
{
    if (!m_file.isRegular() && m_settings.loops != 1)
        throw Refusal(m_file.name() + ": --loop expects a file that can be read again");
    readAhead(m_file);
}

std::unique_ptr<Judge> Play::makeJudge() const
{
    const bool isOnce = m_settings.loops == 1;
    if (m_file.metadata().live)
        return std::make_unique<LiveJudge>(LiveJudge::Rules{m_settings.tolerance, isOnce, false});
    // Played again and again a recording no longer comes back whole.
    return std::make_unique<Judge>(m_file.metadata().recording && isOnce);
}

int Play::run(JUnitFile &junit)
{
    QElapsedTimer elapsed;
    elapsed.start();
    if (m_settings.speed > 0)
        std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    if (!m_settings.isAlone && m_settings.output != Settings::Verdict)
        m_printer.print('\n' + m_file.name());
    if (m_isJson)
        m_shown = &m_recorder.emplace(
            stdout, JsonLinesFile::Metadata{m_file.metadata().description, isWhole(), isWhole()});
    else if (m_settings.output == Settings::Lines)
        m_shown = &m_printer;
    m_filter.setSink(m_settings.from > 0 ? nullptr : m_shown);
    m_compared.setSink(m_judge.get());
    for (Sink *sink : std::initializer_list<Sink *>{&m_counters, &m_compared, &m_filter})
        m_bench.simulation.addSink(sink);

    m_bench.simulation.start();
    const bool isAll = playAll();
    Bench::expectOutput();
    const bool isAtEnd = isAll && !m_player.next();
    m_judge->finish(m_bench.time.now() - m_judge->tolerance(), !isAtEnd || !m_file.hasEnded());
    if (m_recorder && isAll)
        m_recorder->finish(m_bench.time.now());
    m_progress.clear();
    if (isAtEnd && m_file.isCut() && !m_file.isRegular())
        complain("warning: " + m_file.warning());
    if (isAtEnd && !m_file.isCut() && m_judge->isSurplus())
        complain("warning: " + m_file.name() +
                 ": more comes than is recorded; its end may be missing");
    if (m_settings.output == Settings::Verdict)
        printVerdict();
    else
        printSummary(elapsed.elapsed());
    junit.write(m_file.name(), {{m_file.name(), m_bench.time.now(), m_judge->faults()}});
    return wasInterrupted() ? Interrupted : m_judge->passed() ? Passed : Failed;
}

/// The events of the file, over and over if asked for, each time a second after the last.
std::optional<Event> Play::next()
{
    std::optional<Event> event = m_file.next();
    const auto isLeftOut = [this](const Event &read) {
        return !read.isInput() && (m_pass > 1 || !m_compared.has(read));
    };
    while (event ? isLeftOut(*event) : m_pass != m_settings.loops && !wasInterrupted()) {
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
    if (m_settings.from > 0) {
        if (!m_player.seek(m_settings.from) || !m_bench.time.advanceTo(m_settings.from - 1))
            return false;
        m_filter.setSink(m_shown);
    }
    m_bench.time.setSpeed(m_settings.speed);
    if (!m_player.run(m_settings.to))
        return false;
    return m_bench.time.advanceTo(m_player.next() ? m_settings.to
                                                  : std::min(m_settings.to, lastMoment()));
}

qint64 Play::lastMoment() const
{
    if (m_file.metadata().recording && (m_file.isCut() || m_file.hasEnded()))
        return m_file.time() + m_passBegan + m_judge->tolerance();
    return std::max(m_player.position(), m_player.lastInput() + afterLastInput);
}

/// One line and, below it, what is to be said of it.
void Play::printVerdict()
{
    const bool isEmpty = m_judge->met() == 0 && m_judge->passed();
    if (isEmpty && !m_file.metadata().recording && !m_file.isCut() && !wasInterrupted())
        throw Refusal(m_file.name() + ": expected lines to verify, such as those of a recording");
    m_printer.print(m_file.name() + ": " +
                        (wasInterrupted()    ? "interrupted, "
                         : m_judge->passed() ? "passed, "
                                             : "failed, ") +
                        (isEmpty ? "nothing" : counted(m_judge->met(), "line")) + " came back",
                    2, m_judge->passed() ? "32" : "31");
    const QStringList notes = m_judge->notes();
    for (const QString &note : notes)
        m_printer.print("  " + note, 4);
    printFaults();
}

void Play::printFaults()
{
    const QStringList faults = m_judge->faults();
    for (const QString &fault : faults)
        m_printer.print("FAILED    " + fault, indent, "31");
}

void Play::printSummary(qint64 elapsed)
{
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
    if (m_judge->met() > 0 || !m_judge->passed())
        print("Expected  " + counted(m_judge->met(), "line") + " came back");
    const QStringList notes = m_judge->notes();
    for (const QString &note : notes)
        print(note);
    printFaults();
    if (wasInterrupted())
        print("Interrupted");
    else if (m_judge->passed() && m_judge->met() > 0)
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
Settings readPlaySettings(const CommandLine &line)
{
    line.expectOperands(1, std::numeric_limits<int>::max(), "at least one file");
    line.exclude({"speed", "fast"});
    line.exclude({"quiet", "json", "wide"});
    for (const char *option : {"only", "except"})
        line.exclude({"quiet", option});
    for (const CommandLine::Option &option : playUsage.options) {
        if (qstrcmp(option.name, "check") != 0)
            line.exclude({"check", option.name});
    }
    for (const char *option : {"fast", "from", "to", "loop", "reader-thread", "log"})
        line.exclude({"on", option});
    Settings settings;
    settings.tolerance = line.moment("tolerance", settings.tolerance);
    const double speed = line.number("speed", 1);
    settings.speed = line.isSet("fast") ? 0 : speed;
    settings.from = line.moment("from", 0);
    settings.to = line.moment("to", noEnd);
    settings.loops = line.count("loop", 1);
    if (line.isSet("reader-thread"))
        settings.reports = SubstitutePlatform::Reports::ReaderThread;
    settings.output = line.isSet("json")    ? Settings::Json
                      : line.isSet("quiet") ? Settings::Summary
                                            : Settings::Lines;
    settings.isWide = line.isSet("wide");
    settings.isAlone = line.operands().size() == 1;
    settings.only = line.values("only");
    settings.except = line.values("except");
    if (settings.to < settings.from)
        line.refuse("--to expects a moment after --from");
    if (!settings.isAlone && (line.isSet("json") || line.isSet("loop")))
        line.refuse("--json and --loop take one file");
    return settings;
}

int playEach(const CommandLine &line, const Settings &settings, JUnitFile &junit)
{
    if (!line.isSet("log"))
        silenceLibrary();
    return runEach(line.operands(), junit,
                   [&](const QString &path) { return Play(settings, path).run(junit); });
}

} // namespace

int playCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, playUsage);
    const Settings settings = readPlaySettings(line);
    JUnitFile junit(line.value("junit"));
    if (line.isSet("check"))
        return runEach(line.operands(), junit, checkFile);
    noteInterrupts();
    if (line.isSet("on"))
        return runEach(line.operands(), junit,
                       [&](const QString &path) { return playLive(line, path, junit); });
    return playEach(line, settings, junit);
}

int verifyCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, verifyUsage);
    line.expectOperands(1, std::numeric_limits<int>::max(), "at least one file");
    Settings settings;
    settings.tolerance = line.moment("tolerance", settings.tolerance);
    settings.notCompared = line.values("except");
    JUnitFile junit(line.value("junit"));
    noteInterrupts();
    return playEach(line, settings, junit);
}

} // namespace mcusim
