// What is made with new lies in memory full of a pattern: a member that nothing initialises is not
// 0 by chance.
#include <cstdlib>
#include <cstring>
#include <new>

void *operator new(std::size_t size)
{
    void *memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return std::memset(memory, 0xa5, size);
}
void operator delete(void *memory) noexcept { std::free(memory); }
void operator delete(void *memory, std::size_t) noexcept { std::free(memory); }
