// Media and phone information as the MCU's own display takes it: small typed records. Plain values;
// McuManager sends them.
#pragma once

#include <QByteArray>
#include <QString>

#include <array>

namespace mcu::mediarecords {

/// A type code of the MCU and the bytes that go with it; their number travels as well.
struct MediaRecord {
    int type;
    QByteArray data;
};

// Texts are UTF-8 without terminator and limit. Numbers are cut to their low bytes, never clamped.

/// The low byte of the source, then three zeros.
MediaRecord sourceState(int source);
/// 32 bits, little-endian.
MediaRecord radioFrequency(int frequency);
/// Three texts about a track, one record each, in the order in which they are sent.
std::array<MediaRecord, 3> trackTexts(const QString &first, const QString &second,
                                      const QString &third);

/// One byte, 1 or 0.
MediaRecord bluetoothState(bool connected);
MediaRecord bluetoothDevice(const QString &name);
/// One byte.
MediaRecord callState(int state);
MediaRecord callNumber(const QString &number);
MediaRecord callName(const QString &name);
/// One byte each.
MediaRecord callTime(int first, int second, int third);

} // namespace mcu::mediarecords
