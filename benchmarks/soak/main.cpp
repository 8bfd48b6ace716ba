// Drives the library for long, checks that nothing is lost and that nothing grows, and prints a
// table.
//
//     soak day HOURS ROUNDS               virtual time, in so many rounds
//     soak live SECONDS ROUNDS MCUSIM     real time, with threads and other programs; with the
//     probe soak renderer FIFO KEY              the renderer of such a run
#include "live.h"
#include "renderer.h"

#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

void runDay(soak::Traffic &traffic, soak::Vitals &vitals, substitute::VirtualClock &clock,
            int hours, int rounds)
{
    constexpr qint64 hour = 3'600'000;
    constexpr int tick = 50;
    constexpr int longestHold = 1000;
    soak::replaceRenderer({}); // there is none
    for (int round = 1; round <= rounds; ++round) {
        traffic.switchFactoryTest();
        while (clock.now() < hours * hour * round / rounds - longestHold) {
            clock.advance(tick);
            traffic.advanceTo(clock.now());
        }
        traffic.switchFactoryTest();
        clock.advance(longestHold);
        vitals.sample();
    }
}

} // namespace

int main(int argc, char **argv)
{
    const std::string_view mode = argc > 3 ? argv[1] : "";
    if (mode == "renderer" && argc == 4)
        return soak::runRenderer(argv[2], std::atoi(argv[3]));
    const bool isDay = mode == "day" && argc == 4;
    const int length = isDay || argc == 5 ? std::atoi(argv[2]) : 0;
    const int rounds = length > 0 ? std::atoi(argv[3]) : 0;
    if (!(isDay || mode == "live") || rounds <= soak::Vitals::warm) {
        std::fputs("soak: expected day HOURS ROUNDS or live SECONDS ROUNDS MCUSIM; ROUNDS >= 10\n",
                   stderr);
        return 2;
    }
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    substitute::VirtualClock *clock = isDay ? substitute::VirtualClock::install() : nullptr;
    const QCoreApplication application(argc, argv);
    soak::Traffic traffic(isDay ? soak::Traffic::Emitter::Caller
                                : soak::Traffic::Emitter::LinkThread);
    // The library writes factory packets there.
    if (!std::freopen("/dev/null", "we", stderr))
        return 2;
    soak::Vitals vitals;
    bool isGood = true;
    if (isDay)
        runDay(traffic, vitals, *clock, length, rounds);
    else
        isGood = soak::runLive(traffic, vitals, length, rounds,
                               QCoreApplication::applicationFilePath(), argv[4]);
    isGood &= traffic.print();
    isGood &= vitals.print();
    std::puts(isGood ? "HELD" : "NOT HELD");
    return isGood ? 0 : 1;
}
