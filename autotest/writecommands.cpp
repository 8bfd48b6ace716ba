// Write requests of the factory station: the signal for each DID, and the acknowledgement.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

namespace {

using wire::payloadByte;
using wire::wrappedPayloadByte;

bool hasPayload(const QByteArray &packet) { return wire::byteAt(packet, wire::lengthOffset) >= 3; }

/// The payload after its first byte, without the checksum.
QByteArray afterFirstByte(const QByteArray &packet)
{
    return packet.mid(wire::payloadOffset + 1, wire::byteAt(packet, wire::lengthOffset) - 3);
}

/// The handlers of the write requests. Each gets the whole packet.
struct WriteRequests {
    AutoTestHandler *test;
    AutoTestHandlerPrivate *data;

    // Kept: these three take bytes after the end from the start of the packet; stations send short
    // packets.
    void parse_ATW_SOUND_DID(const QByteArray &packet)
    {
        Q_EMIT test->setSoundInfo(payloadByte(packet, 0), wrappedPayloadByte(packet, 1));
    }
    void parse_ATW_MEDIA_DID(const QByteArray &packet)
    {
        Q_EMIT test->setMedisSource(wrappedPayloadByte(packet, 0), wrappedPayloadByte(packet, 1),
                                    wrappedPayloadByte(packet, 2));
    }
    void parse_ATW_SCREEN_DID(const QByteArray &packet)
    {
        Q_EMIT test->setScreenInfo(wrappedPayloadByte(packet, 0), wrappedPayloadByte(packet, 1));
    }
    void parse_ATW_TIME_DATE_DID(const QByteArray &packet)
    {
        if (hasPayload(packet))
            Q_EMIT test->setTimeDataInfo(payloadByte(packet, 0), afterFirstByte(packet));
    }
    void parse_ATW_LANGUAGE_DID(const QByteArray &packet)
    {
        Q_EMIT test->setLanguage(payloadByte(packet, 0));
    }
    void parse_ATW_FACTORY_DID(const QByteArray &) { Q_EMIT test->setFactoryReset(); }
    void parse_ATW_RadioArea_DID(const QByteArray &packet)
    {
        Q_EMIT test->setRadioArea(payloadByte(packet, 0));
    }
    void parse_ATW_UI_DID(const QByteArray &packet) { Q_EMIT test->setUI(payloadByte(packet, 0)); }
    void parse_ATW_SEEK_DID(const QByteArray &packet)
    {
        Q_EMIT test->setTunerSeek(payloadByte(packet, 0));
    }
    void parse_ATW_SCRCOLOR_DID(const QByteArray &packet)
    {
        Q_EMIT test->setScreenColor(payloadByte(packet, 0));
    }
    void parse_ATW_SETRDS_DID(const QByteArray &packet)
    {
        Q_EMIT test->setRadioRds(payloadByte(packet, 0), payloadByte(packet, 1));
    }
    void parse_ATW_BTSearch_DID(const QByteArray &packet)
    {
        Q_EMIT test->setSearCh(payloadByte(packet, 0));
    }
    void parse_ATW_BTConnect_DID(const QByteArray &packet)
    {
        Q_EMIT test->setConnect(payloadByte(packet, 0));
    }
    void parse_ATW_DLPhone_DID(const QByteArray &) { Q_EMIT test->setDownloadPhonebook(); }
    void parse_ATW_BTMusic_DID(const QByteArray &) { Q_EMIT test->setPlayBTMusic(); }
    void parse_ATW_CALL_DID(const QByteArray &packet)
    {
        if (hasPayload(packet))
            Q_EMIT test->setCallPhone(afterFirstByte(packet));
    }
    void parse_ATW_MIC_DID(const QByteArray &packet)
    {
        Q_EMIT test->setEnterMicTest(payloadByte(packet, 0));
    }
    void parse_ATW_BTState_DID(const QByteArray &packet)
    {
        Q_EMIT test->setOpenBT(payloadByte(packet, 0));
    }
    void parse_ATW_BTTest_DID(const QByteArray &packet)
    {
        Q_EMIT test->setEnterBTTestMode(payloadByte(packet, 0));
    }
    void parse_ATW_BTADDRTest_DID(const QByteArray &) { Q_EMIT test->detectBTAddr(); }
    void parse_ATW_BTPHONE_DID(const QByteArray &) { Q_EMIT test->btMatchPhone(); }
    void parse_ATW_DKey_DID(const QByteArray &packet)
    {
        data->setKeyTest(payloadByte(packet, 0) == 1);
    }
    void parse_ATW_CONNECTION_DID(const QByteArray &packet)
    {
        Q_EMIT test->phoneConnected(payloadByte(packet, 0));
    }
    void parse_ATW_REVERSE_DID(const QByteArray &packet)
    {
        Q_EMIT test->setReverse(payloadByte(packet, 0));
    }
    void parse_ATW_SETSWCKEY(const QByteArray &packet)
    {
        Q_EMIT test->setSWCKey(payloadByte(packet, 0));
    }
    void parse_ATW_BUZZER_DID(const QByteArray &) { Q_EMIT test->setBuzzerSound(); }
    void parse_ATW_WARN_SCREEN_DID(const QByteArray &packet)
    {
        Q_EMIT test->setBootWarnScreen(payloadByte(packet, 0));
    }
    void parse_ATW_ENTER_DEST_DID(const QByteArray &) { Q_EMIT test->setDestCodeUi(); }
    void parse_ATW_SET_DEST_DID(const QByteArray &packet)
    {
        Q_EMIT test->setDestCode(payloadByte(packet, 0));
    }
    void parse_ATW_DEST_OK_DID(const QByteArray &) { Q_EMIT test->setDestCodeOK(); }
    void parse_ATW_SET_DAY_NIGHT_DID(const QByteArray &packet)
    {
        data->service->setDayNightModeFromAutoTst(payloadByte(packet, 0));
    }
    void parse_ATW_SET_SWC_ADAPTER(const QByteArray &packet)
    {
        // Kept: log filters match the line by this name.
        if (isDebugLogged())
            LogLine(QtDebugMsg,
                    {__FILE__, __LINE__,
                     "void mcu::AutoTestHandler::parse_ATW_SET_SWC_ADAPTER(const QByteArray&)"})
                << payloadByte(packet, 0);
        Q_EMIT test->setSWCAdapter(payloadByte(packet, 0));
    }
    void parse_ATW_SET_CAMARA(const QByteArray &packet)
    {
        Q_EMIT test->setCamera(payloadByte(packet, 0));
    }
    void parse_ATW_SETTING_STATUS(const QByteArray &packet) { data->testAudioSettings(packet); }

    // Known DIDs without an action.
    void parse_ATW_PowSta_DID(const QByteArray &) {}
    void parse_ATW_RESET_DID(const QByteArray &) {}
    void parse_ATW_CAMERA_DID(const QByteArray &) {}
    void parse_ATW_NAVI_DID(const QByteArray &) {}
    void parse_ATW_ExitNAVI_DID(const QByteArray &) {}
    void parse_ATW_TBOX_DID(const QByteArray &) {}
    void parse_ATW_SN_DID(const QByteArray &) {}
    void parse_ATW_MES_DID(const QByteArray &) {}
    void parse_ATW_FASTSLEEP_DID(const QByteArray &) {}
    void parse_ATW_vEHNAME_DID(const QByteArray &) {}
    void parse_ATW_vEHVIN_DID(const QByteArray &) {}
    void parse_ATW_ConnectionStatus_DID(const QByteArray &) {}
    void parse_ATW_ConnectionWifi_DID(const QByteArray &) {}
    void parse_ATW_SET_SN(const QByteArray &) {}
};

} // namespace

void AutoTestHandler::parseWriteData(const QByteArray &packet)
{
    static constexpr Command<WriteRequests> table[]{
        {0x01, &WriteRequests::parse_ATW_SOUND_DID},
        {0x02, &WriteRequests::parse_ATW_MEDIA_DID},
        {0x03, &WriteRequests::parse_ATW_SCREEN_DID},
        {0x04, &WriteRequests::parse_ATW_TIME_DATE_DID},
        {0x05, &WriteRequests::parse_ATW_LANGUAGE_DID},
        {0x06, &WriteRequests::parse_ATW_FACTORY_DID},
        {0x07, &WriteRequests::parse_ATW_RadioArea_DID},
        {0x08, &WriteRequests::parse_ATW_PowSta_DID},
        {0x09, &WriteRequests::parse_ATW_UI_DID},
        {0x0a, &WriteRequests::parse_ATW_RESET_DID},
        {0x0b, &WriteRequests::parse_ATW_SEEK_DID},
        {0x0c, &WriteRequests::parse_ATW_CAMERA_DID},
        {0x0d, &WriteRequests::parse_ATW_SCRCOLOR_DID},
        {0x10, &WriteRequests::parse_ATW_SETRDS_DID},
        {0x21, &WriteRequests::parse_ATW_NAVI_DID},
        {0x23, &WriteRequests::parse_ATW_ExitNAVI_DID},
        {0x30, &WriteRequests::parse_ATW_BTSearch_DID},
        {0x31, &WriteRequests::parse_ATW_BTConnect_DID},
        {0x32, &WriteRequests::parse_ATW_DLPhone_DID},
        {0x33, &WriteRequests::parse_ATW_BTMusic_DID},
        {0x34, &WriteRequests::parse_ATW_CALL_DID},
        {0x35, &WriteRequests::parse_ATW_MIC_DID},
        {0x37, &WriteRequests::parse_ATW_BTState_DID},
        {0x38, &WriteRequests::parse_ATW_BTTest_DID},
        {0x39, &WriteRequests::parse_ATW_BTADDRTest_DID},
        {0x3a, &WriteRequests::parse_ATW_BTPHONE_DID},
        {0x3b, &WriteRequests::parse_ATW_TBOX_DID},
        {0x3c, &WriteRequests::parse_ATW_DKey_DID},
        {0x3d, &WriteRequests::parse_ATW_CONNECTION_DID},
        {0x3e, &WriteRequests::parse_ATW_REVERSE_DID},
        {0x46, &WriteRequests::parse_ATW_SETSWCKEY},
        {0x50, &WriteRequests::parse_ATW_BUZZER_DID},
        {0x84, &WriteRequests::parse_ATW_SN_DID},
        {0x85, &WriteRequests::parse_ATW_MES_DID},
        {0x90, &WriteRequests::parse_ATW_FASTSLEEP_DID},
        {0xa0, &WriteRequests::parse_ATW_vEHNAME_DID},
        {0xa1, &WriteRequests::parse_ATW_vEHVIN_DID},
        {0xb0, &WriteRequests::parse_ATW_ConnectionStatus_DID},
        {0xb1, &WriteRequests::parse_ATW_ConnectionWifi_DID},
        {0xe0, &WriteRequests::parse_ATW_WARN_SCREEN_DID},
        {0xf0, &WriteRequests::parse_ATW_ENTER_DEST_DID},
        {0xf1, &WriteRequests::parse_ATW_SET_DEST_DID},
        {0xf2, &WriteRequests::parse_ATW_DEST_OK_DID},
        {0xf3, &WriteRequests::parse_ATW_SET_DAY_NIGHT_DID},
        {0xf4, &WriteRequests::parse_ATW_SET_SWC_ADAPTER},
        {0xf5, &WriteRequests::parse_ATW_SET_CAMARA},
        {0xf6, &WriteRequests::parse_ATW_SET_SN},
        {0xf7, &WriteRequests::parse_ATW_SETTING_STATUS},
    };
    if (dispatch(table, WriteRequests{this, m_data.get()}, packet, CALL_SITE))
        m_data->acknowledge(packet);
}

void AutoTestHandlerPrivate::acknowledge(const QByteArray &request)
{
    constexpr int setSerialNumber = 0xf6; // Kept: never acknowledged, the station expects silence
    constexpr int audioSettings = 0xf7;
    const int did = wire::byteAt(request, wire::didOffset);
    if (did == audioSettings)
        sendWriteInfo(audioSettings, QByteArray("\0\1", 2));
    else if (did != setSerialNumber)
        sendWriteInfo(quint8(did), request.mid(wire::payloadOffset, request.size() - 6));
}

} // namespace mcu
