// Packets of the factory station as texts: "2e:05:02" is type, DID and payload.
#pragma once

#include <QByteArray>
#include <QStringList>

namespace testkit {

/// A packet as the station builds it: the sum of all bytes from the length byte on is 0.
inline QByteArray packet(int type, int did, const QByteArray &payload = {})
{
    const QByteArray body = char(payload.size() + 2) + (char(type) + (char(did) + payload));
    int checksum = 0;
    for (const char byte : body)
        checksum -= byte;
    return "\xff\x55" + body + char(checksum);
}

/// The text of a packet; empty for all other bytes.
inline QByteArray packetText(const QByteArray &data)
{
    const QByteArray payload = data.mid(5, data.size() - 6);
    if (data.size() < 6 || data != packet(data[3], data[4], payload))
        return {};
    return data.mid(3, 1).toHex() + ':' + data.mid(4, 1).toHex() + ':' + payload.toHex();
}

/// The packet for such a text; empty for all other texts.
inline QByteArray packetOf(const QString &text)
{
    const QStringList parts = text.split(':');
    bool isNumber[2]{};
    const int type = parts[0].toInt(&isNumber[0], 16), did = parts.value(1).toInt(&isNumber[1], 16);
    if (parts.size() != 3 || !isNumber[0] || !isNumber[1])
        return {};
    return packet(type, did, QByteArray::fromHex(parts[2].toLatin1()));
}

} // namespace testkit
