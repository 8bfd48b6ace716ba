// Replaces the allocator of the process. Each call goes to the next one, the C library's or the
// address sanitizer's, unless it is to fail.
#include "failingmemory.h"

#include <cerrno>
#include <cstdlib>
#include <new>

#include <dlfcn.h>

namespace {

struct State {
    int untilFailure = 0; ///< 0 never fails
    bool failsFromThere = false;
    bool hasFailed = false;
};
thread_local State state;

/// Counts an allocation and returns whether it fails.
bool fails()
{
    if (state.untilFailure == 0 || --state.untilFailure > 0)
        return false;
    state.untilFailure = state.failsFromThere ? 1 : 0;
    state.hasFailed = true;
    errno = ENOMEM;
    return true;
}

template <typename Function>
Function next(const char *name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

} // namespace

namespace faults {

FailingMemory::FailingMemory(int number, Fails fails)
{
    state = {number, fails == Fails::FromThere, false};
}

FailingMemory::~FailingMemory() { state = {}; }

bool FailingMemory::hasFailed() const { return state.hasFailed; }

} // namespace faults

extern "C" {

void *malloc(std::size_t size)
{
    static const auto real = next<void *(*)(std::size_t)>("malloc");
    return fails() ? nullptr : real(size);
}

void *calloc(std::size_t count, std::size_t size)
{
    static const auto real = next<void *(*)(std::size_t, std::size_t)>("calloc");
    return fails() ? nullptr : real(count, size);
}

void *realloc(void *memory, std::size_t size)
{
    static const auto real = next<void *(*)(void *, std::size_t)>("realloc");
    return fails() ? nullptr : real(memory, size);
}
}

void *operator new(std::size_t size)
{
    void *memory = std::malloc(size == 0 ? 1 : size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void *operator new[](std::size_t size) { return operator new(size); }

void operator delete(void *memory) noexcept { std::free(memory); }

void operator delete[](void *memory) noexcept { std::free(memory); }

void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }

void operator delete[](void *memory, std::size_t) noexcept { std::free(memory); }
