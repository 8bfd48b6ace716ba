// mcusim station: single packets by name or by bytes, or whole sequences with a verdict.
#include "commandline.h"
#include "process.h"
#include "verdicts.h"

#include "station.h"
#include "substituteplatform.h"
#include "values.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <limits>

namespace mcusim {

namespace {

const CommandLine::Usage usage{
    "station",
    "SEQUENCE... | --send PACKET...",
    "A factory test station.\n\n"
    "  mcusim station SEQUENCE                       runs a test sequence; \"-\" is standard "
    "input\n"
    "  mcusim station --send 'read SOUND 02'         sends a packet by name\n"
    "  mcusim station --send 'FF 55 02 21 01 DC'     sends bytes as they are",
    {{"list", nullptr, "Show all types and DIDs by name."},
     {"send", nullptr, "Send packets by name or chunks by bytes instead of a sequence."},
     {"junit", "FILE", "Write the verdicts as JUnit XML."},
     {"check", nullptr, "Only read the sequences."},
     {"quiet", nullptr, "Show the verdicts alone."},
     {"raw", nullptr, "Keep the library's raw lines on standard error."}}};

void put(const QString &line) { std::fputs((line + '\n').toUtf8().constData(), stdout); }

/// Shows packets in bytes and in words, and what applications receive.
class Traffic : public Sink {
public:
    void hear(const Event &event) override
    {
        const QString &name = event.what->name;
        const QString time = seconds(event.time).rightJustified(9);
        if (name == QLatin1String("autoTestPkgChanged"))
            put(time + "  station  " + packet(event, Sender::Station));
        else if (name == QLatin1String("sendAutoTestPkgToMcu"))
            put(time + "  unit     " + packet(event, Sender::Unit));
        else if (event.what->kind == Kind::Signal &&
                 name.startsWith(QLatin1String("AutoTestHandler.")))
            put(time + "    apps   " + event.text().section('.', 1));
    }

private:
    static QString packet(const Event &event, Sender sender)
    {
        const QByteArray bytes = event.values.last().toByteArray();
        StationPacket packet;
        bool good = false;
        const bool isPacket = takeApart(bytes, &packet, &good);
        return QString::fromLatin1(bytes.toHex(' ').toUpper()).leftJustified(36) + "  " +
               (isPacket ? packet.text(sender) : QStringLiteral("(no single whole packet)")) +
               (isPacket && !good ? "  BAD CHECKSUM" : "");
    }
};

/// The factory station on the library, from start to end of a process.
struct Bench {
    explicit Bench(bool quiet)
    {
        if (!quiet)
            simulation.addSink(&traffic);
    }

    int argc = 1;
    char name[7] = "mcusim";
    char *argv[2] = {name, nullptr};
    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    QCoreApplication application{argc, argv};
    SubstitutePlatform platform;
    Catalogue names{platform};
    VirtualTime time{clock, [](qint64) { return !wasInterrupted() && std::ferror(stdout) == 0; }};
    Simulation simulation{names, platform, time};
    Traffic traffic;
};

/// The packets of the command line as a test that expects nothing in particular.
int sendPackets(const QStringList &texts)
{
    StationTest test;
    test.status = 1;
    for (const QString &text : texts) {
        QByteArray bytes;
        test.chunks.append(readHex(text, &bytes) && !bytes.isEmpty() ? bytes
                                                                     : readPacket(text).bytes());
    }
    Bench bench(false);
    Station station(bench.simulation);
    bench.simulation.start();
    station.run(test);
    return Passed;
}

/// Reads a sequence to its end; a fault in it must not show when half of it has run.
int check(SequenceFile &file)
{
    int tests = 0;
    while (file.next())
        ++tests;
    return tests;
}

QVector<Verdict> checkSequence(const QString &path)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    SequenceFile file(names, path);
    const int tests = check(file);
    put(path + ": " + QString::number(tests) + (tests == 1 ? " test" : " tests"));
    return {};
}

/// The verdicts of a sequence; without `all` those of failed tests alone.
QVector<Verdict> runSequence(const QString &path, bool quiet, bool all)
{
    Bench bench(quiet);
    SequenceFile file(bench.names, path, [] { return !wasInterrupted(); });
    if (file.file().isRegular()) {
        check(file);
        file.rewind();
    } else {
        std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    }
    Station station(bench.simulation);
    bench.simulation.start();
    QVector<Verdict> verdicts;
    int passed = 0;
    int failed = 0;
    while (const std::optional<StationTest> test = file.next()) {
        const StationResult result = station.run(*test);
        if (wasInterrupted())
            break;
        const bool isGood = result.faults.isEmpty();
        ++(isGood ? passed : failed);
        put((isGood ? "PASS  " : "FAIL  ") + printable(test->name));
        QStringList faults;
        for (const QString &fault : result.faults) {
            faults.append("line " + QString::number(test->line) + ": " + fault);
            put("      " + faults.last());
        }
        if (all || !isGood)
            verdicts.append({test->name, isGood ? Passed : Failed, result.duration, faults});
    }
    put('\n' + printable(file.description()) + ": " + QString::number(passed) + " passed, " +
        QString::number(failed) + " failed" + (wasInterrupted() ? ", interrupted" : ""));
    return verdicts;
}

} // namespace

int stationCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, usage);
    line.exclude({"list", "send", "check", "junit"});
    line.exclude({"list", "quiet"});
    line.exclude({"list", "raw"});
    line.exclude({"check", "quiet"});
    line.exclude({"check", "raw"});
    line.exclude({"send", "quiet"});
    if (line.isSet("list")) {
        line.expectOperands(0, 0, "nothing beside --list");
        for (const QString &did : didList())
            put(did);
        return Passed;
    }
    line.expectOperands(1, std::numeric_limits<int>::max(), "a sequence, or --send and packets");
    noteInterrupts();
    if (line.isSet("check"))
        return worst(runEach(line.operands(), checkSequence));
    if (!line.isSet("raw"))
        silenceLibrary();
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    if (line.isSet("send"))
        return sendPackets(line.operands());
    JUnitFile junit(line.value("junit"));
    const QVector<Verdict> verdicts = runEach(line.operands(), [&line](const QString &path) {
        return runSequence(path, line.isSet("quiet"), line.isSet("junit"));
    });
    junit.write(QStringLiteral("mcusim station"), verdicts);
    return worst(verdicts);
}

} // namespace mcusim
