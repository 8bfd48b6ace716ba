// Functions that stand before those of the same name in the libraries behind. The program calls
// them because the probe is loaded first; they hand on to the real ones.
#pragma once

#include "handover.h"

#include <cstring>
#include <type_traits>

namespace mcusim::probe {

/// Loads the second library at the first call. Null when that has failed: then nothing is noted.
const Handover *handover();
/// The same without loading.
const Handover *loadedHandover();

/// The function that this library covers with one of its own.
class Covered {
public:
    /// Looked up at the first call. The program ends, as it would without the probe, when there is
    /// none.
    void *behind(const void *own)
    {
        void *found = m_found.load(std::memory_order_acquire);
        return found ? found : lookUp(own);
    }

private:
    void *lookUp(const void *own);

    std::atomic<void *> m_found = nullptr;
};

/// How a parameter is passed to a function by value: an object that cannot be copied byte by byte
/// as its address. So a command can be handed on without a copy, and without the functions of Qt,
/// which most programs do not have.
template <typename Parameter>
using AsPassed =
    std::conditional_t<std::is_trivially_copyable_v<Parameter>, Parameter, Parameter &>;

/// A command of the link.
template <typename... Parameters>
class Command {
public:
    constexpr Command(const char *name, void (mcu::McuSrv::*own)(Parameters...))
        : m_name(name), m_own(own)
    {
    }

    void pass(mcu::McuSrv *link, Parameters &...arguments)
    {
        const Handover *probe = loadedHandover();
        if (probe && probe->isHeard->load(std::memory_order_relaxed)) {
            const void *const addresses[]{&arguments..., nullptr};
            probe->note(m_name, addresses);
        }
        const void *own = nullptr; // begins the representation of a pointer to a member function
        std::memcpy(&own, &m_own, sizeof own);
        using Behind = void (*)(mcu::McuSrv *, AsPassed<Parameters>...);
        reinterpret_cast<Behind>(m_covered.behind(own))(link, arguments...);
    }

private:
    const char *m_name;
    void (mcu::McuSrv::*m_own)(Parameters...);
    Covered m_covered;
};

/// The function that gives applications the one object of a class.
template <typename Object>
class Access {
public:
    constexpr explicit Access(Object *(*own)()) : m_own(own) {}

    Object *get()
    {
        const void *own = reinterpret_cast<const void *>(m_own);
        Object *object = reinterpret_cast<Object *(*)()>(m_covered.behind(own))();
        if (!m_isMet.load(std::memory_order_relaxed) && !m_isMet.exchange(true)) {
            if (const Handover *probe = handover())
                probe->meet(object);
        }
        return object;
    }

private:
    Object *(*m_own)();
    Covered m_covered;
    std::atomic<bool> m_isMet = false;
};

} // namespace mcusim::probe
