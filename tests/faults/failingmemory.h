// An allocator that fails when it is told to: malloc and operator new of the whole process.
#pragma once

namespace faults {

/// While it exists, one allocation of this thread fails: the one with this number, from 1 on. Or
/// that and all later ones.
class FailingMemory {
public:
    enum class Fails { Once, FromThere };

    FailingMemory(int number, Fails fails);
    ~FailingMemory();
    FailingMemory(const FailingMemory &) = delete;
    FailingMemory &operator=(const FailingMemory &) = delete;

    /// Whether there were so many allocations.
    bool hasFailed() const;
};

} // namespace faults
