// The vocabulary of the factory test and the wire format.
#include "stationpacket.h"

#include <QStringList>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace mcusim {

namespace {

constexpr quint8 Feedback = 0x21;
constexpr quint8 ReadRequest = 0x22;
constexpr quint8 WriteRequest = 0x2e;
constexpr quint8 answerOf = 0x40; ///< added to the type of a request by its answer

struct TypeName {
    quint8 type;
    const char *name;
};

constexpr TypeName types[]{{ReadRequest, "read"},
                           {WriteRequest, "write"},
                           {Feedback, "feedback"},
                           {ReadRequest + answerOf, "read-answer"},
                           {WriteRequest + answerOf, "write-answer"}};

struct DidName {
    quint8 type;
    quint8 did;
    const char *name;
};

// clang-format off
constexpr DidName dids[]{
    {ReadRequest, 0x01, "SOUND"},
    {ReadRequest, 0x02, "MEDIA"},
    {ReadRequest, 0x03, "SCREEN"},
    {ReadRequest, 0x04, "TIME_DATE"},
    {ReadRequest, 0x05, "LANGUAGE"},
    {ReadRequest, 0x07, "RadioArea"},
    {ReadRequest, 0x08, "PowSta"},
    {ReadRequest, 0x09, "UI"},
    {ReadRequest, 0x20, "NaviDemo"},
    {ReadRequest, 0x21, "GPSFlag"},
    {ReadRequest, 0x22, "GPSTime"},
    {ReadRequest, 0x23, "SatelliteNUM"},
    {ReadRequest, 0x24, "Dirction"},
    {ReadRequest, 0x25, "TBOX"},
    {ReadRequest, 0x26, "MapSize"},
    {ReadRequest, 0x30, "BTAddress"},
    {ReadRequest, 0x31, "BTDev"},
    {ReadRequest, 0x41, "KeySta"},
    {ReadRequest, 0x42, "RadioFreq"},
    {ReadRequest, 0x43, "TPMS"},
    {ReadRequest, 0x44, "RDS"},
    {ReadRequest, 0x45, "DAB"},
    {ReadRequest, 0x46, "SXM"},
    {ReadRequest, 0x51, "CAN"},
    {ReadRequest, 0x81, "SoftWare"},
    {ReadRequest, 0x82, "HardWare"},
    {ReadRequest, 0x83, "MODEL"},
    {ReadRequest, 0x84, "SN"},
    {ReadRequest, 0x85, "UUID"},
    {ReadRequest, 0xa0, "VehicleName"},
    {ReadRequest, 0xa1, "VehicleNum"},
    {ReadRequest, 0xa2, "RSC_TSN"},
    {ReadRequest, 0xa4, "ECU_MDATE"},
    {ReadRequest, 0xa5, "ECU_PDATE"},
    {ReadRequest, 0xa6, "ECU_ADATE"},
    {ReadRequest, 0xa8, "MMI_FUNC"},
    {ReadRequest, 0xa9, "VEH_NET"},
    {ReadRequest, 0xb0, "WIFI_CONN"},
    {ReadRequest, 0xb0, "WIFI_SIG"},
    {ReadRequest, 0xc0, "DVR"},
    {ReadRequest, 0xd0, "DEST"},
    {ReadRequest, 0xd1, "GPS"},
    {ReadRequest, 0xd2, "WHEEL_KEY"},
    {ReadRequest, 0xd3, "SPEED"},
    {ReadRequest, 0xd4, "READ_SN"},
    {WriteRequest, 0x01, "SOUND"},
    {WriteRequest, 0x02, "MEDIA"},
    {WriteRequest, 0x03, "SCREEN"},
    {WriteRequest, 0x04, "TIME_DATE"},
    {WriteRequest, 0x05, "LANGUAGE"},
    {WriteRequest, 0x06, "FACTORY"},
    {WriteRequest, 0x07, "RadioArea"},
    {WriteRequest, 0x08, "PowSta"},
    {WriteRequest, 0x09, "UI"},
    {WriteRequest, 0x0a, "RESET"},
    {WriteRequest, 0x0b, "SEEK"},
    {WriteRequest, 0x0c, "CAMERA"},
    {WriteRequest, 0x0d, "SCRCOLOR"},
    {WriteRequest, 0x10, "SETRDS"},
    {WriteRequest, 0x21, "NAVI"},
    {WriteRequest, 0x23, "ExitNAVI"},
    {WriteRequest, 0x30, "BTSearch"},
    {WriteRequest, 0x31, "BTConnect"},
    {WriteRequest, 0x32, "DLPhone"},
    {WriteRequest, 0x33, "BTMusic"},
    {WriteRequest, 0x34, "CALL"},
    {WriteRequest, 0x35, "MIC"},
    {WriteRequest, 0x37, "BTState"},
    {WriteRequest, 0x38, "BTTest"},
    {WriteRequest, 0x39, "BTADDRTest"},
    {WriteRequest, 0x3a, "BTPHONE"},
    {WriteRequest, 0x3b, "TBOX"},
    {WriteRequest, 0x3c, "DKey"},
    {WriteRequest, 0x3d, "CONNECTION"},
    {WriteRequest, 0x3e, "REVERSE"},
    {WriteRequest, 0x46, "SETSWCKEY"},
    {WriteRequest, 0x50, "BUZZER"},
    {WriteRequest, 0x84, "SN"},
    {WriteRequest, 0x85, "MES"},
    {WriteRequest, 0x90, "FASTSLEEP"},
    {WriteRequest, 0xa0, "vEHNAME"},
    {WriteRequest, 0xa1, "vEHVIN"},
    {WriteRequest, 0xb0, "ConnectionStatus"},
    {WriteRequest, 0xb1, "ConnectionWifi"},
    {WriteRequest, 0xe0, "WARN_SCREEN"},
    {WriteRequest, 0xf0, "ENTER_DEST"},
    {WriteRequest, 0xf1, "SET_DEST"},
    {WriteRequest, 0xf2, "DEST_OK"},
    {WriteRequest, 0xf3, "SET_DAY_NIGHT"},
    {WriteRequest, 0xf4, "SET_SWC_ADAPTER"},
    {WriteRequest, 0xf5, "SET_CAMARA"},
    {WriteRequest, 0xf6, "SET_SN"},
    {WriteRequest, 0xf7, "SETTING_STATUS"},
    {Feedback, 0x01, "PWUP"},
    {Feedback, 0x25, "NAVISET"},
    {Feedback, 0x30, "BTSH"},
    {Feedback, 0x31, "BTConnect"},
    {Feedback, 0x32, "BTDisconnect"},
    {Feedback, 0x33, "BTDNBK"},
    {Feedback, 0x34, "BTCALL"},
    // Milestones that the unit reports
    {Feedback, 0x01, "BOOT_DONE"},
    {Feedback, 0x30, "BT_SEARCHED"},
    {Feedback, 0x31, "BT_CONNECTED"},
    {Feedback, 0x33, "BT_PHONEBOOK"},
    {Feedback, 0x34, "BT_CALLED"},
};
// clang-format on

/// An answer has the names of its request.
quint8 requestOf(quint8 type) { return type > answerOf ? quint8(type - answerOf) : type; }

QString hex(const QByteArray &bytes) { return QString::fromLatin1(bytes.toHex(' ').toUpper()); }

} // namespace

QByteArray StationPacket::bytes(Fault fault) const
{
    QByteArray packet("\xff\x55");
    packet.append(char(payload.size() + 2));
    packet.append(char(type));
    packet.append(char(did));
    packet.append(payload);
    const int sum = std::accumulate(packet.cbegin() + 2, packet.cend(), 0);
    packet.append(char(-sum));
    switch (fault) {
    case Fault::None:
        break;
    case Fault::Sync:
        packet[1] = 0x54;
        break;
    case Fault::Length:
        packet[2] = char(packet[2] + 2); // by 1 the next packet's 0xFF would be a good checksum
        break;
    case Fault::Checksum:
        packet[packet.size() - 1] = char(packet.back() ^ 1);
        break;
    }
    return packet;
}

QString StationPacket::text() const
{
    const auto typeName = std::find_if(std::begin(types), std::end(types),
                                       [this](const TypeName &row) { return row.type == type; });
    const auto didName = std::find_if(std::begin(dids), std::end(dids), [this](const DidName &row) {
        return row.type == requestOf(type) && row.did == did;
    });
    const auto number = [](quint8 value) {
        return QStringLiteral("0x%1").arg(value, 2, 16, QLatin1Char('0'));
    };
    return QStringLiteral("%1 %2 %3")
        .arg(typeName == std::end(types) ? number(type) : QString::fromLatin1(typeName->name),
             didName == std::end(dids) ? number(did) : QString::fromLatin1(didName->name),
             hex(payload))
        .trimmed();
}

bool readPacket(const QString &text, StationPacket *packet, QString *error)
{
    const QStringList words = text.simplified().split(QLatin1Char(' '));
    const auto type =
        std::find_if(std::begin(types), std::end(types),
                     [&words](const TypeName &row) { return words[0] == QLatin1String(row.name); });
    if (type == std::end(types) || words.size() < 2) {
        *error =
            QStringLiteral("\"%1\": expected read, write, feedback, read-answer or write-answer, "
                           "a DID and payload bytes")
                .arg(text);
        return false;
    }
    packet->type = type->type;

    bool isNumber = false;
    const int number = words[1].toInt(&isNumber, 16);
    const auto did = std::find_if(std::begin(dids), std::end(dids), [&](const DidName &row) {
        return row.type == requestOf(type->type) && words[1] == QLatin1String(row.name);
    });
    if (did != std::end(dids)) {
        packet->did = did->did;
    } else if (isNumber && number >= 0 && number <= 0xff) {
        packet->did = quint8(number);
    } else {
        *error =
            QStringLiteral("\"%1\": unknown DID \"%2\"; `mcusim station --list` shows them all")
                .arg(text, words[1]);
        return false;
    }
    constexpr int longestPayload = 253;
    if (!readHex(words.mid(2).join(QString()), &packet->payload) ||
        packet->payload.size() > longestPayload) {
        *error =
            QStringLiteral("\"%1\": expected at most 253 payload bytes in hexadecimal").arg(text);
        return false;
    }
    return true;
}

bool takeApart(const QByteArray &bytes, StationPacket *packet, bool *goodChecksum)
{
    constexpr int shortest = 6;
    if (bytes.size() < shortest || !bytes.startsWith("\xff\x55") ||
        quint8(bytes[2]) + 4 != bytes.size())
        return false;
    packet->type = quint8(bytes[3]);
    packet->did = quint8(bytes[4]);
    packet->payload = bytes.mid(5, bytes.size() - shortest);
    *goodChecksum = quint8(std::accumulate(bytes.cbegin() + 2, bytes.cend(), 0)) == 0;
    return true;
}

bool readHex(const QString &text, QByteArray *bytes)
{
    QByteArray digits = text.toLatin1().replace("0x", "").replace(" ", "").toLower();
    *bytes = QByteArray::fromHex(digits);
    return bytes->toHex() == digits;
}

QStringList didList()
{
    QStringList lines;
    for (const DidName &row : dids)
        lines.append(StationPacket{row.type, row.did, {}}.text() +
                     QStringLiteral(" 0x%1").arg(row.did, 2, 16, QLatin1Char('0')));
    return lines;
}

} // namespace mcusim
