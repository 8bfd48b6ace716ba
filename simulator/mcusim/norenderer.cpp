// A simulator has no surround-view renderer, must not affect one that runs on the machine and must
// leave no semaphore behind. So in this process the renderer's semaphore is only simulated, and
// never released.
#include <sys/ipc.h>
#include <sys/sem.h>

#pragma GCC visibility push(default)

// These replace the system's functions for the library, too.
extern "C" key_t ftok(const char *, int) noexcept { return 1; }
extern "C" int semget(key_t, int, int) noexcept { return 0; }
extern "C" int semctl(int, int, int, ...) noexcept { return 0; }

#pragma GCC visibility pop
