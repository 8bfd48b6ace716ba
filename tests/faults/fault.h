// A row of the table of faults, and what all of them use.
#pragma once

#include "virtualclock.h"

#include <QCoreApplication>
#include <QString>

#include <functional>
#include <vector>

namespace faults {

/// What a fault did.
struct Outcome {
    bool isExpected;
    QString seen;
};

struct Fault {
    const char *what;
    const char *expected;
    Outcome (*happen)(); ///< in a process and an empty working folder of its own
};

/// Thrown by happen() where the machine does not permit the fault.
struct NotHere {
    const char *why;
};

extern const std::vector<Fault> storageFaults;
extern const std::vector<Fault> rendererFaults;
extern const std::vector<Fault> mediumFaults;
extern const std::vector<Fault> linkFaults;
extern const std::vector<Fault> memoryFaults;

/// An application on a virtual clock, with the settings in the working folder.
struct Application {
    Application();

    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    int argc = 0;
    QCoreApplication application{argc, nullptr};
};

/// Gives the process mounts of its own, which end with it.
void useOwnMounts();
/// Mounts an empty disk of this size, such as "64k", on a folder. Needs own mounts.
void mountDisk(const char *folder, const char *size);

int openDescriptors();

/// The largest file that the process may write from now on; -1 is without limit.
void limitFileSize(qint64 bytes);

/// Does something while no file can be opened.
void withoutFreeDescriptor(const std::function<void()> &act);

} // namespace faults
