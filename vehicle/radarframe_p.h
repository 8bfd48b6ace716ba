// Parking distances on their way to the surround-view renderer: from the MCU's sensor codes to
// distances, from distances to the bytes that the renderer reads. Plain values, no I/O.
#pragma once

#include <QtGlobal>

#include <array>

namespace mcu {

/// One value for each sensor of a bumper, from left to right.
using RadarDistances = std::array<int, 4>;

/// One write to the renderer: the 20 bytes of the frame, then zeros that the renderer skips.
using RadarImage = std::array<quint8, 50>;

/// Distance for a sensor code: 10000 (no obstacle) for code 0, else code * 5 + 25. A code too large
/// for that gives the nearest int.
int radarDistance(int code);

/// Distances for the four sensor codes of a bumper.
RadarDistances radarDistances(const int *codes);

/// The write that carries these distances. A frame has one byte for each and takes the low one.
RadarImage radarImage(const RadarDistances &front, const RadarDistances &rear);

} // namespace mcu
