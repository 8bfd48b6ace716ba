// The position of the steering wheel in percent, for the surround-view renderer.
#pragma once

#include <QtGlobal>

namespace mcu {

/// Percent of the full range, 0 to 100, for a steering angle in tenths of the MCU's unit. The range
/// is 0 to 1476 units, and its middle is straight ahead; an angle outside counts as the nearer
/// limit. Whole numbers: in floating point the middle and the end come out one too low.
constexpr int steeringPercent(int angle)
{
    constexpr int fullRange = 1476;
    return qBound(0, angle / 10, fullRange) * 100 / fullRange;
}

} // namespace mcu
