// Fuzz target: a test sequence of the factory station, read and then run against the library. The
// packets of a test, shown in words, read as the same packets.
#include "stationsequence.h"

#include "memoryfile.h"
#include "simulation.h"
#include "station.h"
#include "substituteplatform.h"
#include "target.h"
#include "values.h"

#include <QCoreApplication>

namespace {

using namespace mcusim;
using fuzz::expect;

struct Unit {
    Unit()
    {
        fuzz::silence();
        simulation.start();
    }

    int argc = 0;
    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    QCoreApplication application{argc, nullptr};
    SubstitutePlatform platform;
    Catalogue names{platform};
    VirtualTime time{clock, [](qint64) { return true; }};
    Simulation simulation{names, platform, time};
    Station station{simulation};
};

void check(const StationTest &test)
{
    for (const QByteArray &chunk : test.chunks) {
        StationPacket packet;
        bool isGood = false;
        if (takeApart(chunk, &packet, &isGood) && isGood)
            expect(packet.bytes() == chunk, "packet put together again",
                   packet.text(Sender::Station));
    }
    for (const StationPacket &answer : test.answers) {
        const QString text = answer.text(Sender::Unit);
        expect(readPacket(text).bytes() == answer.bytes(), "packet in words", text);
    }
}

void run(const QByteArray &text)
{
    static Unit unit;
    unit.simulation.play({0, unit.names.find(Kind::Report, "autoTestStatusChanged", {0}), {0}, 0});
    SequenceFile file(unit.names, fuzz::fileWith(text));
    while (const std::optional<StationTest> test = file.next()) {
        check(*test);
        for (const QString &fault : unit.station.run(*test).faults)
            expect(printable(fault) == fault, "one line says what is wrong", fault);
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    try {
        run(fuzz::bytesOf(data, size));
    } catch (const Refusal &refusal) {
        const QString why = refusal.text();
        expect(!why.isEmpty() && printable(why) == why, "one line says why", why);
    }
    return 0;
}
