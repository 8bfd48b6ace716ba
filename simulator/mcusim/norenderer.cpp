// A simulator has no surround-view renderer. It must neither meet one that runs on the machine nor
// leave anything behind for one, so in this process the renderer's semaphore exists nowhere but
// here and is never released.
#include <sys/ipc.h>
#include <sys/sem.h>

#pragma GCC visibility push(default)

// These take the place of the system's for the library, too.
extern "C" key_t ftok(const char *, int) noexcept { return 1; }
extern "C" int semget(key_t, int, int) noexcept { return 0; }
extern "C" int semctl(int, int, int, ...) noexcept { return 0; }

#pragma GCC visibility pop
