// The steering wheel's position on the scale of the surround-view renderer.
#pragma once

#include <QtGlobal>

namespace mcu {

/// Percent of the full range, 0 to 100, for a steering angle in the MCU's tenths. The range is 0 to
/// 1476 whole units, its middle straight ahead; angles outside count as its ends.
constexpr int steeringPercent(int angle)
{
    constexpr int fullRange = 1476;
    return qBound(0, angle / 10, fullRange) * 100 / fullRange;
}

} // namespace mcu
