// The tables of the audio arbitration.
#include "audioarbitration_p.h"

#include <algorithm>
#include <array>

namespace mcu::arbitration {

namespace {

constexpr std::array eventOn{1, 2, 3, 5, 7, 13, 21, 23, 25, 27};
constexpr std::array eventOff{0, 4, 6, 8, 14, 22, 24, 26, 28};
constexpr std::array phoneEnd{12};

/// Codes of the platform audio service for events that interrupt the main audio.
constexpr std::array interrupts{6, 8, 10, 14, 16, 23, 25, 29, 31, 33, 58, 59, 60};

template <typename Values>
bool contains(const Values &values, int value)
{
    return std::find(values.begin(), values.end(), value) != values.end();
}

} // namespace

StatusGroup groupOf(int status)
{
    if (contains(eventOn, status))
        return StatusGroup::EventOn;
    if (contains(eventOff, status))
        return StatusGroup::EventOff;
    if (contains(phoneEnd, status))
        return StatusGroup::PhoneEnd;
    return StatusGroup::PassThrough;
}

bool containsInterrupt(const QList<int> &activeEvents)
{
    return std::any_of(interrupts.begin(), interrupts.end(),
                       [&](int code) { return activeEvents.contains(code); });
}

} // namespace mcu::arbitration
