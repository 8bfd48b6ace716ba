// What the two libraries of the probe have in common. The first is loaded into every program and
// consists of little but functions that stand before those of the link; the second is loaded by it
// in a program that uses the library, and does all the work.
#pragma once

#include <atomic>
#include <cstdlib>
#include <cstring>

#include <unistd.h>

class QObject;

namespace mcu {
class McuSrv;
}

namespace mcusim::probe {

/// What the first library tells the second.
struct Handover {
    /// An object that applications connect to, when it is first asked for.
    void (*meet)(QObject *object);
    /// The link, each time before it is started.
    void (*wake)(mcu::McuSrv *link);
    /// A command with the addresses of its arguments, before the link gets it.
    void (*note)(const char *command, const void *const *arguments);
    /// Whether commands need to be noted.
    const std::atomic<bool> *isHeard;
};

/// The function by which the second library gives it, and its name.
extern "C" const Handover *mcuprobe();
constexpr char handoverName[] = "mcuprobe";

/// After a complaint that there will be no socket: without one, a program that was started to be
/// driven would run in vain and never be ended.
inline void endIfNeeded()
{
    constexpr int unusable = 2;
    const char *socket = std::getenv("MCUPROBE_SOCKET");
    if (socket && std::strcmp(socket, "needed") == 0)
        _exit(unusable);
}

} // namespace mcusim::probe
