// Nothing here runs before the library is used: the probe is loaded into shells and tools, too,
// where it must do nothing.
#include "interposer.h"

#include "autotesthandler.h"
#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "mcuvechiclebridge.h"

#include <climits>
#include <cstdio>

#include <dlfcn.h>
#include <pthread.h>
#include <unistd.h>

using mcusim::probe::Access;
using mcusim::probe::Command;

namespace mcusim::probe {

namespace {

std::atomic<const Handover *> loaded = nullptr;

/// The definition behind this library. A plugin may have brought the library, and then only its own
/// handle finds it.
void *find(const char *symbol)
{
    if (void *found = dlsym(RTLD_NEXT, symbol))
        return found;
    void *library = dlopen("libmcuservice.so.1", RTLD_LAZY | RTLD_NOLOAD);
    return library ? dlsym(library, symbol) : nullptr;
}

void load()
{
    // Both halves of it: an integrator may have a link already and nothing else.
    const bool isSubstitute =
        find("_ZN10substitute4link3logEv") && find("_ZN10substitute8platform3logEv");
    // Beside this library, wherever the process has gone since that was loaded.
    Dl_info about{};
    void *self = nullptr;
    char folder[PATH_MAX] = "";
    char path[PATH_MAX + 64];
    dladdr1(reinterpret_cast<const void *>(&load), &about, &self, RTLD_DL_LINKMAP);
    dlinfo(self, RTLD_DI_ORIGIN, folder);
    std::snprintf(path, sizeof path, "%s/libmcuprobe-%s.so", folder,
                  isSubstitute ? "substitute" : "own");
    void *library = dlopen(path, RTLD_NOW);
    void *give = library ? dlsym(library, handoverName) : nullptr;
    if (give) {
        loaded = reinterpret_cast<const Handover *(*)()>(give)();
    } else {
        std::fprintf(stderr, "mcuprobe: %s\n", dlerror());
        endIfNeeded();
    }
}

} // namespace

const Handover *handover()
{
    static pthread_once_t once = PTHREAD_ONCE_INIT; // not std::call_once: without libstdc++
    pthread_once(&once, load);
    return loadedHandover();
}

const Handover *loadedHandover() { return loaded.load(std::memory_order_acquire); }

void *Covered::lookUp(const void *own)
{
    Dl_info about{};
    dladdr(own, &about);
    void *found = about.dli_sname ? find(about.dli_sname) : nullptr;
    if (!found) {
        constexpr int notFound = 127;
        std::fprintf(stderr, "mcuprobe: cannot find %s\n", about.dli_sname);
        _exit(notFound);
    }
    m_found.store(found, std::memory_order_release);
    return found;
}

} // namespace mcusim::probe

namespace mcu {

void McuSrv::init()
{
    static Command command("init", &McuSrv::init);
    if (const auto *probe = mcusim::probe::handover())
        probe->wake(this);
    command.pass(this);
}

McuService *McuService::instance()
{
    static Access access(&McuService::instance);
    return access.get();
}

McuRadioInterface *McuRadioInterface::instance()
{
    static Access access(&McuRadioInterface::instance);
    return access.get();
}

AutoTestHandler *AutoTestHandler::instance()
{
    static Access access(&AutoTestHandler::instance);
    return access.get();
}

} // namespace mcu

McuVechicleBridge *McuVechicleBridge::instance()
{
    static Access access(&McuVechicleBridge::instance);
    return access.get();
}

McuManager *McuManager::instance()
{
    static Access access(&McuManager::instance);
    return access.get();
}
