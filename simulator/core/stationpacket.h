// Factory packets as a test station uses them: by type and name, in words and in bytes. The wire
// format is implemented here again, so that faults in the library's implementation are found.
#pragma once

#include <QByteArray>
#include <QString>

namespace mcusim {

/// Who sends a packet: some bytes have another name on their way back.
enum class Sender { Station, Unit };

/// Ways to break a packet on purpose.
enum class Fault { None, Sync, Length, Checksum };

/// The type of the packet by which a read request is answered.
constexpr quint8 readAnswer = 0x62;

struct StationPacket {
    quint8 type = 0;
    quint8 did = 0;
    QByteArray payload;

    /// As it goes over the wire, whole or broken.
    QByteArray bytes(Fault fault = Fault::None) const;
    /// "read SOUND 02".
    QString text(Sender sender) const;
};

/// Reads "read SOUND 02" or "write 0xF7 01 02 03". Throws a Refusal.
StationPacket readPacket(const QString &text);

/// Takes apart what the unit sent. False when it is no packet; *goodChecksum is set.
bool takeApart(const QByteArray &bytes, StationPacket *packet, bool *goodChecksum);

/// All types and DIDs with their names, one per line.
QStringList didList();

} // namespace mcusim
