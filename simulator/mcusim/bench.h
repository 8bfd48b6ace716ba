// The library on a virtual clock, from start to end of a process.
#pragma once

#include "process.h"

#include "clock.h"
#include "simulation.h"
#include "substituteplatform.h"

#include <QCoreApplication>

namespace mcusim {

struct Bench {
    /// Called with the present moment, several times per second.
    using Progress = std::function<void(qint64 now)>;

    explicit Bench(SubstitutePlatform::Reports reports = SubstitutePlatform::Reports::MainThread,
                   Progress showProgress = {})
        : progress(std::move(showProgress)), platform(reports)
    {
    }

    /// False after Ctrl-C, and when standard output cannot be written.
    bool goesOn(qint64 now) const
    {
        if (progress)
            progress(now);
        return !wasInterrupted() && std::ferror(stdout) == 0;
    }

    /// Throws a Refusal for a run that ended because output was lost: it has no verdict.
    static void expectOutput()
    {
        if (std::ferror(stdout) != 0)
            throw Refusal("cannot write standard output");
    }

    Progress progress;
    int argc = 1;
    char name[7] = "mcusim";
    char *argv[2] = {name, nullptr};
    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    QCoreApplication application{argc, argv};
    SubstitutePlatform platform;
    Catalogue names{platform};
    VirtualTime time{clock, [this](qint64 now) { return goesOn(now); }};
    Simulation simulation{names, platform, time};
};

/// Reads a file to its end and warns of an end that is missing.
template <typename File>
void readAll(File &file)
{
    while (file.next()) {
    }
    if (file.isCut())
        complain("warning: " + file.warning());
}

/// Reads a regular file once before it is played, so that a fault in it is reported before anything
/// is played. Events from a pipe are shown line by line instead.
template <typename File>
void readAhead(File &file)
{
    if (file.isRegular()) {
        readAll(file);
        file.rewind();
    } else {
        std::setvbuf(stdout, nullptr, _IOLBF, 0);
    }
}

} // namespace mcusim
