// The vocabulary of the factory test and the wire format.
#include "stationpacket.h"

#include "refusal.h"
#include "values.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace mcusim {

namespace {

struct DidName {
    quint8 did;
    const char *name;
};

constexpr DidName reads[]{
    {0x01, "SOUND"},     {0x02, "MEDIA"},       {0x03, "SCREEN"},     {0x04, "TIME_DATE"},
    {0x05, "LANGUAGE"},  {0x07, "RadioArea"},   {0x08, "PowSta"},     {0x09, "UI"},
    {0x20, "NaviDemo"},  {0x21, "GPSFlag"},     {0x22, "GPSTime"},    {0x23, "SatelliteNUM"},
    {0x24, "Dirction"},  {0x25, "TBOX"},        {0x26, "MapSize"},    {0x30, "BTAddress"},
    {0x31, "BTDev"},     {0x41, "KeySta"},      {0x42, "RadioFreq"},  {0x43, "TPMS"},
    {0x44, "RDS"},       {0x45, "DAB"},         {0x46, "SXM"},        {0x51, "CAN"},
    {0x81, "SoftWare"},  {0x82, "HardWare"},    {0x83, "MODEL"},      {0x84, "SN"},
    {0x85, "UUID"},      {0xa0, "VehicleName"}, {0xa1, "VehicleNum"}, {0xa2, "RSC_TSN"},
    {0xa4, "ECU_MDATE"}, {0xa5, "ECU_PDATE"},   {0xa6, "ECU_ADATE"},  {0xa8, "MMI_FUNC"},
    {0xa9, "VEH_NET"},   {0xb0, "WIFI_CONN"},   {0xb0, "WIFI_SIG"},   {0xc0, "DVR"},
    {0xd0, "DEST"},      {0xd1, "GPS"},         {0xd2, "WHEEL_KEY"},  {0xd3, "SPEED"},
    {0xd4, "READ_SN"}};
// clang-format off
constexpr DidName writes[]{
    {0x01, "SOUND"},          {0x02, "MEDIA"},          {0x03, "SCREEN"},         {0x04, "TIME_DATE"},
    {0x05, "LANGUAGE"},       {0x06, "FACTORY"},        {0x07, "RadioArea"},      {0x08, "PowSta"},
    {0x09, "UI"},             {0x0a, "RESET"},          {0x0b, "SEEK"},           {0x0c, "CAMERA"},
    {0x0d, "SCRCOLOR"},       {0x10, "SETRDS"},         {0x21, "NAVI"},           {0x23, "ExitNAVI"},
    {0x30, "BTSearch"},       {0x31, "BTConnect"},      {0x32, "DLPhone"},        {0x33, "BTMusic"},
    {0x34, "CALL"},           {0x35, "MIC"},            {0x37, "BTState"},        {0x38, "BTTest"},
    {0x39, "BTADDRTest"},     {0x3a, "BTPHONE"},        {0x3b, "TBOX"},           {0x3c, "DKey"},
    {0x3d, "CONNECTION"},     {0x3e, "REVERSE"},        {0x46, "SETSWCKEY"},      {0x50, "BUZZER"},
    {0x84, "SN"},             {0x85, "MES"},            {0x90, "FASTSLEEP"},      {0xa0, "vEHNAME"},
    {0xa1, "vEHVIN"},         {0xb0, "ConnectionStatus"}, {0xb1, "ConnectionWifi"}, {0xe0, "WARN_SCREEN"},
    {0xf0, "ENTER_DEST"},     {0xf1, "SET_DEST"},       {0xf2, "DEST_OK"},        {0xf3, "SET_DAY_NIGHT"},
    {0xf4, "SET_SWC_ADAPTER"}, {0xf5, "SET_CAMARA"},     {0xf6, "SET_SN"},         {0xf7, "SETTING_STATUS"},
};
// clang-format on
constexpr DidName stationFeedback[]{{0x01, "PWUP"},      {0x25, "NAVISET"},      {0x30, "BTSH"},
                                    {0x31, "BTConnect"}, {0x32, "BTDisconnect"}, {0x33, "BTDNBK"},
                                    {0x34, "BTCALL"}};
/// Milestones that the unit reports.
constexpr DidName unitFeedback[]{{0x01, "BOOT_DONE"},
                                 {0x30, "BT_SEARCHED"},
                                 {0x31, "BT_CONNECTED"},
                                 {0x33, "BT_PHONEBOOK"},
                                 {0x34, "BT_CALLED"}};

/// A type of packet with its names, as one side sends it.
struct PacketType {
    const char *name;
    const DidName *begin;
    const DidName *end;
    quint8 type;
    Sender sender;
};

template <std::size_t Size>
constexpr PacketType named(quint8 type, const char *name, Sender sender,
                           const DidName (&dids)[Size])
{
    return {name, std::begin(dids), std::end(dids), type, sender};
}

constexpr PacketType types[]{
    named(0x22, "read", Sender::Station, reads),
    named(0x2e, "write", Sender::Station, writes),
    named(0x21, "feedback", Sender::Station, stationFeedback),
    named(0x21, "feedback", Sender::Unit, unitFeedback),
    named(readAnswer, "read-answer", Sender::Unit, reads),
    named(0x6e, "write-answer", Sender::Unit, writes),
};

QString number(quint8 value) { return QString("0x%1").arg(value, 2, 16, QLatin1Char('0')); }

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

QString StationPacket::text(Sender sender) const
{
    QString typeName = number(type);
    QString didName = number(did);
    for (const PacketType &row : types) {
        if (row.type != type)
            continue;
        typeName = QString(row.name);
        const auto *name = std::find_if(row.begin, row.end,
                                        [this](const DidName &known) { return known.did == did; });
        if (name == row.end)
            continue;
        didName = QString(name->name);
        if (row.sender == sender)
            break;
    }
    return (typeName + ' ' + didName + ' ' + QString::fromLatin1(payload.toHex(' ').toUpper()))
        .trimmed();
}

StationPacket readPacket(const QString &text)
{
    const QStringList words = text.simplified().split(' ');
    StationPacket packet;
    bool hasType = false;
    bool hasDid = false;
    for (const PacketType &row : types) {
        if (words[0] != QLatin1String(row.name))
            continue;
        hasType = true;
        packet.type = row.type;
        for (const auto *known = row.begin; known != row.end && !hasDid; ++known) {
            hasDid = words.value(1) == QLatin1String(known->name);
            packet.did = known->did;
        }
    }
    if (!hasType || words.size() < 2) {
        throw Refusal(excerpt(text) + ": expected read, write, feedback, read-answer or "
                                      "write-answer, a DID and payload bytes");
    }
    if (!hasDid) {
        bool isNumber = false;
        const uint did = words[1].toUInt(&isNumber, 16);
        if (!isNumber || did > 0xff) {
            throw Refusal(excerpt(text) + ": unknown DID " + excerpt(words[1]) +
                          "; `mcusim station --list` shows them all");
        }
        packet.did = quint8(did);
    }
    constexpr int longestPayload = 253;
    if (!readHex(QStringList(words.mid(2)).join(' '), &packet.payload))
        throw Refusal(excerpt(text) + ": expected payload bytes as pairs of hexadecimal digits");
    if (packet.payload.size() > longestPayload) {
        throw Refusal(excerpt(text) + ": expected at most 253 payload bytes, got " +
                      QString::number(packet.payload.size()));
    }
    return packet;
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

QStringList didList()
{
    QStringList lines;
    for (const PacketType &row : types) {
        for (const auto *did = row.begin; did != row.end; ++did) {
            lines.append(QString(row.name).leftJustified(14) + number(did->did) + ' ' +
                         QLatin1String(did->name) +
                         (row.sender == Sender::Unit ? "  (from the unit)" : ""));
        }
    }
    return lines;
}

} // namespace mcusim
