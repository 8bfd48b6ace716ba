// mcusim station: single packets by name or by bytes, or whole sequences with a verdict.
#include "bench.h"
#include "commandline.h"
#include "verdicts.h"

#include "station.h"
#include "values.h"

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

/// Shows packets in bytes and in words, and what applications receive.
class Traffic : public Sink {
public:
    void hear(const Event &event) override
    {
        const QString &name = event.what->name;
        QString line = seconds(event.time).rightJustified(9);
        if (name == "autoTestPkgChanged")
            line += "  station  " + packet(event, Sender::Station);
        else if (name == "sendAutoTestPkgToMcu")
            line += "  unit     " + packet(event, Sender::Unit);
        else if (event.what->kind == Kind::Signal && name.startsWith("AutoTestHandler."))
            line += "    apps   " + event.text().section('.', 1);
        else
            return;
        const int width = terminalWidth();
        put(width > 0 && line.size() > width ? line.left(width - 4) + " ..." : line);
    }

private:
    static QString packet(const Event &event, Sender sender)
    {
        const QByteArray bytes = event.values.last().toByteArray();
        StationPacket packet;
        bool good = false;
        const bool isPacket = takeApart(bytes, &packet, &good);
        return QString::fromLatin1(bytes.toHex(' ').toUpper()).leftJustified(36) + "  " +
               (isPacket ? packet.text(sender) : "(no single whole packet)") +
               (isPacket && !good ? "  BAD CHECKSUM" : "");
    }
};

/// Runs packets of the command line as a test that expects nothing in particular.
int sendPackets(const QStringList &texts)
{
    StationTest test;
    test.status = 1;
    for (const QString &text : texts) {
        QByteArray bytes;
        const bool isHex = readHex(text, &bytes) && !bytes.isEmpty();
        test.chunks.append(isHex ? bytes : readPacket(text).bytes());
    }
    Bench bench;
    Traffic traffic;
    bench.simulation.addSink(&traffic);
    Station station(bench.simulation);
    bench.simulation.start();
    station.run(test);
    return Passed;
}

int checkSequence(const QString &path)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    SequenceFile file(names, path);
    readAll(file);
    put(path + ": " + counted(file.count(), "test"));
    return Passed;
}

int runSequence(const QString &path, bool quiet, JUnitFile &junit)
{
    Bench bench;
    SequenceFile file(bench.names, path, [] { return !wasInterrupted(); });
    readAhead(file);
    Traffic traffic;
    if (!quiet)
        bench.simulation.addSink(&traffic);
    Station station(bench.simulation);
    bench.simulation.start();
    QVector<Verdict> verdicts;
    int failed = 0;
    while (const std::optional<StationTest> test = file.next()) {
        StationResult result = station.run(*test);
        if (!bench.goesOn(bench.time.now()))
            break;
        const bool isGood = result.faults.isEmpty();
        failed += isGood ? 0 : 1;
        put((isGood ? "PASS  " : "FAIL  ") + printable(test->name));
        for (QString &fault : result.faults) {
            fault = "line " + QString::number(test->line) + ": " + fault;
            put("      " + fault);
        }
        if (junit.isOpen())
            verdicts.append({test->name, result.duration, result.faults});
    }
    Bench::expectOutput();
    put('\n' + printable(file.metadata().description) + ": " +
        QString::number(file.count() - failed) + " passed, " + QString::number(failed) + " failed" +
        (wasInterrupted() ? ", interrupted" : ""));
    junit.write(file.metadata().description, verdicts);
    return wasInterrupted() ? Interrupted : failed == 0 ? Passed : Failed;
}

} // namespace

int stationCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, usage);
    line.exclude({"list", "send", "check", "junit"});
    for (const char *option : {"list", "check", "send"})
        line.exclude({option, "quiet"});
    for (const char *option : {"list", "check"})
        line.exclude({option, "raw"});
    if (line.isSet("list")) {
        line.expectOperands(0, 0, "nothing beside --list");
        const QStringList dids = didList();
        for (const QString &did : dids)
            put(did);
        return Passed;
    }
    line.expectOperands(1, std::numeric_limits<int>::max(), "a sequence, or --send and packets");
    JUnitFile junit(line.value("junit"));
    if (line.isSet("check"))
        return runEach(line.operands(), junit, checkSequence);
    noteInterrupts();
    if (!line.isSet("raw"))
        silenceLibrary();
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    if (line.isSet("send"))
        return sendPackets(line.operands());
    return runEach(line.operands(), junit, [&](const QString &path) {
        return runSequence(path, line.isSet("quiet"), junit);
    });
}

} // namespace mcusim
