// Write requests of the factory station: which DID becomes which signal, and the acknowledgement.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

using wire::byteAt;
using wire::wrappedByteAt;

namespace {

bool hasPayload(const QByteArray &packet) { return byteAt(packet, wire::lengthOffset) >= 3; }

/// The payload behind its first byte, without the checksum.
QByteArray afterFirstByte(const QByteArray &packet)
{
    return packet.mid(wire::payloadOffset + 1, byteAt(packet, wire::lengthOffset) - 3);
}

} // namespace

void AutoTestHandler::parseWriteData(const QByteArray &packet)
{
    static constexpr AutoTestHandlerPrivate::Command table[]{
        {0x01, &AutoTestHandler::parse_ATW_SOUND_DID},
        {0x02, &AutoTestHandler::parse_ATW_MEDIA_DID},
        {0x03, &AutoTestHandler::parse_ATW_SCREEN_DID},
        {0x04, &AutoTestHandler::parse_ATW_TIME_DATE_DID},
        {0x05, &AutoTestHandler::parse_ATW_LANGUAGE_DID},
        {0x06, &AutoTestHandler::parse_ATW_FACTORY_DID},
        {0x07, &AutoTestHandler::parse_ATW_RadioArea_DID},
        {0x08, &AutoTestHandler::parse_ATW_PowSta_DID},
        {0x09, &AutoTestHandler::parse_ATW_UI_DID},
        {0x0a, &AutoTestHandler::parse_ATW_RESET_DID},
        {0x0b, &AutoTestHandler::parse_ATW_SEEK_DID},
        {0x0c, &AutoTestHandler::parse_ATW_CAMERA_DID},
        {0x0d, &AutoTestHandler::parse_ATW_SCRCOLOR_DID},
        {0x10, &AutoTestHandler::parse_ATW_SETRDS_DID},
        {0x21, &AutoTestHandler::parse_ATW_NAVI_DID},
        {0x23, &AutoTestHandler::parse_ATW_ExitNAVI_DID},
        {0x30, &AutoTestHandler::parse_ATW_BTSearch_DID},
        {0x31, &AutoTestHandler::parse_ATW_BTConnect_DID},
        {0x32, &AutoTestHandler::parse_ATW_DLPhone_DID},
        {0x33, &AutoTestHandler::parse_ATW_BTMusic_DID},
        {0x34, &AutoTestHandler::parse_ATW_CALL_DID},
        {0x35, &AutoTestHandler::parse_ATW_MIC_DID},
        {0x37, &AutoTestHandler::parse_ATW_BTState_DID},
        {0x38, &AutoTestHandler::parse_ATW_BTTest_DID},
        {0x39, &AutoTestHandler::parse_ATW_BTADDRTest_DID},
        {0x3a, &AutoTestHandler::parse_ATW_BTPHONE_DID},
        {0x3b, &AutoTestHandler::parse_ATW_TBOX_DID},
        {0x3c, &AutoTestHandler::parse_ATW_DKey_DID},
        {0x3d, &AutoTestHandler::parse_ATW_CONNECTION_DID},
        {0x3e, &AutoTestHandler::parse_ATW_REVERSE_DID},
        {0x46, &AutoTestHandler::parse_ATW_SETSWCKEY},
        {0x50, &AutoTestHandler::parse_ATW_BUZZER_DID},
        {0x84, &AutoTestHandler::parse_ATW_SN_DID},
        {0x85, &AutoTestHandler::parse_ATW_MES_DID},
        {0x90, &AutoTestHandler::parse_ATW_FASTSLEEP_DID},
        {0xa0, &AutoTestHandler::parse_ATW_vEHNAME_DID},
        {0xa1, &AutoTestHandler::parse_ATW_vEHVIN_DID},
        {0xb0, &AutoTestHandler::parse_ATW_ConnectionStatus_DID},
        {0xb1, &AutoTestHandler::parse_ATW_ConnectionWifi_DID},
        {0xe0, &AutoTestHandler::parse_ATW_WARN_SCREEN_DID},
        {0xf0, &AutoTestHandler::parse_ATW_ENTER_DEST_DID},
        {0xf1, &AutoTestHandler::parse_ATW_SET_DEST_DID},
        {0xf2, &AutoTestHandler::parse_ATW_DEST_OK_DID},
        {0xf3, &AutoTestHandler::parse_ATW_SET_DAY_NIGHT_DID},
        {0xf4, &AutoTestHandler::parse_ATW_SET_SWC_ADAPTER},
        {0xf5, &AutoTestHandler::parse_ATW_SET_CAMARA},
        {0xf6, &AutoTestHandler::parse_ATW_SET_SN},
        {0xf7, &AutoTestHandler::parse_ATW_SETTING_STATUS},
    };
    if (m_data->dispatch(table, packet, CALL_SITE))
        acknowledge(packet);
}

void AutoTestHandler::acknowledge(const QByteArray &packet)
{
    constexpr int setSerialNumber = 0xf6; // answered by nobody: the station expects silence
    constexpr int audioSettings = 0xf7;
    const int did = wire::byteAt(packet, wire::didOffset);
    if (did == audioSettings)
        m_data->sendWriteInfo(audioSettings, QByteArray("\0\1", 2));
    else if (did != setSerialNumber)
        m_data->sendWriteInfo(quint8(did), packet.mid(wire::payloadOffset, packet.size() - 6));
}

void AutoTestHandler::parse_ATW_SOUND_DID(const QByteArray &packet)
{
    Q_EMIT setSoundInfo(byteAt(packet, 5), wrappedByteAt(packet, 6));
}

void AutoTestHandler::parse_ATW_MEDIA_DID(const QByteArray &packet)
{
    Q_EMIT setMedisSource(wrappedByteAt(packet, 5), wrappedByteAt(packet, 6),
                          wrappedByteAt(packet, 7));
}

void AutoTestHandler::parse_ATW_SCREEN_DID(const QByteArray &packet)
{
    Q_EMIT setScreenInfo(wrappedByteAt(packet, 5), wrappedByteAt(packet, 6));
}

void AutoTestHandler::parse_ATW_LANGUAGE_DID(const QByteArray &packet)
{
    Q_EMIT setLanguage(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_FACTORY_DID(const QByteArray &) { Q_EMIT setFactoryReset(); }

void AutoTestHandler::parse_ATW_RadioArea_DID(const QByteArray &packet)
{
    Q_EMIT setRadioArea(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_UI_DID(const QByteArray &packet)
{
    Q_EMIT setUI(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_SEEK_DID(const QByteArray &packet)
{
    Q_EMIT setTunerSeek(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_SCRCOLOR_DID(const QByteArray &packet)
{
    Q_EMIT setScreenColor(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_SETRDS_DID(const QByteArray &packet)
{
    Q_EMIT setRadioRds(byteAt(packet, 5), byteAt(packet, 6));
}

void AutoTestHandler::parse_ATW_BTSearch_DID(const QByteArray &packet)
{
    Q_EMIT setSearCh(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_BTConnect_DID(const QByteArray &packet)
{
    Q_EMIT setConnect(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_DLPhone_DID(const QByteArray &) { Q_EMIT setDownloadPhonebook(); }

void AutoTestHandler::parse_ATW_BTMusic_DID(const QByteArray &) { Q_EMIT setPlayBTMusic(); }

void AutoTestHandler::parse_ATW_MIC_DID(const QByteArray &packet)
{
    Q_EMIT setEnterMicTest(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_BTState_DID(const QByteArray &packet)
{
    Q_EMIT setOpenBT(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_BTTest_DID(const QByteArray &packet)
{
    Q_EMIT setEnterBTTestMode(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_BTADDRTest_DID(const QByteArray &) { Q_EMIT detectBTAddr(); }

void AutoTestHandler::parse_ATW_BTPHONE_DID(const QByteArray &) { Q_EMIT btMatchPhone(); }

void AutoTestHandler::parse_ATW_CONNECTION_DID(const QByteArray &packet)
{
    Q_EMIT phoneConnected(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_REVERSE_DID(const QByteArray &packet)
{
    Q_EMIT setReverse(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_SETSWCKEY(const QByteArray &packet)
{
    Q_EMIT setSWCKey(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_BUZZER_DID(const QByteArray &) { Q_EMIT setBuzzerSound(); }

void AutoTestHandler::parse_ATW_WARN_SCREEN_DID(const QByteArray &packet)
{
    Q_EMIT setBootWarnScreen(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_ENTER_DEST_DID(const QByteArray &) { Q_EMIT setDestCodeUi(); }

void AutoTestHandler::parse_ATW_SET_DEST_DID(const QByteArray &packet)
{
    Q_EMIT setDestCode(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_DEST_OK_DID(const QByteArray &) { Q_EMIT setDestCodeOK(); }

void AutoTestHandler::parse_ATW_SET_CAMARA(const QByteArray &packet)
{
    Q_EMIT setCamera(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_TIME_DATE_DID(const QByteArray &packet)
{
    if (hasPayload(packet))
        Q_EMIT setTimeDataInfo(byteAt(packet, 5), afterFirstByte(packet));
}

void AutoTestHandler::parse_ATW_CALL_DID(const QByteArray &packet)
{
    if (hasPayload(packet))
        Q_EMIT setCallPhone(afterFirstByte(packet));
}

void AutoTestHandler::parse_ATW_SET_DAY_NIGHT_DID(const QByteArray &packet)
{
    m_data->service->setDayNightModeFromAutoTst(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATW_SET_SWC_ADAPTER(const QByteArray &packet)
{
    MCU_DEBUG << byteAt(packet, 5);
    Q_EMIT setSWCAdapter(byteAt(packet, 5));
}

// Accepted and acknowledged, nothing to do: the rows keep their place in the station's vocabulary.
void AutoTestHandler::parse_ATW_PowSta_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_RESET_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_CAMERA_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_NAVI_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_ExitNAVI_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_TBOX_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_SN_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_MES_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_FASTSLEEP_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_vEHNAME_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_vEHVIN_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_ConnectionStatus_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_ConnectionWifi_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATW_SET_SN(const QByteArray &) {}

} // namespace mcu
