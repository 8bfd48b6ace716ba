// Read requests of the factory station: the signal for each DID.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

namespace {

using wire::payloadByte;

/// The handlers of the read requests. Each gets the whole packet.
struct ReadRequests {
    AutoTestHandler *test;

    void parse_ATR_SOUND_DID(const QByteArray &packet)
    {
        Q_EMIT test->readSoundInfo(payloadByte(packet, 0));
    }
    void parse_ATR_MEDIA_DID(const QByteArray &) { Q_EMIT test->readMediaSource(); }
    void parse_ATR_SCREEN_DID(const QByteArray &packet)
    {
        Q_EMIT test->readScreenInfo(payloadByte(packet, 0));
    }
    void parse_ATR_TIME_DATE_DID(const QByteArray &packet)
    {
        Q_EMIT test->readDataTime(payloadByte(packet, 0));
    }
    void parse_ATR_LANGUAGE_DID(const QByteArray &) { Q_EMIT test->readLaguage(); }
    void parse_ATR_RadioArea_DID(const QByteArray &) { Q_EMIT test->readRadioArea(); }
    void parse_ATR_PowSta_DID(const QByteArray &) { Q_EMIT test->readPwrStatus(); }
    void parse_ATR_UI_DID(const QByteArray &) { Q_EMIT test->readCurrentUI(); }
    void parse_ATR_SatelliteNUM_DID(const QByteArray &packet)
    {
        Q_EMIT test->readStatelliteNum(payloadByte(packet, 0));
    }
    void parse_ATR_BTAddress_DID(const QByteArray &) { Q_EMIT test->readBTAddr(); }
    void parse_ATR_BTDev_DID(const QByteArray &) { Q_EMIT test->readBTName(); }
    void parse_ATR_KeySta_DID(const QByteArray &) { Q_EMIT test->readPanelKeyStatus(); }
    void parse_ATR_RadioFreq_DID(const QByteArray &packet)
    {
        Q_EMIT test->readRadioFreqInfo(payloadByte(packet, 0));
    }
    void parse_ATR_RDS_DID(const QByteArray &packet)
    {
        Q_EMIT test->readRadioRDSInfo(payloadByte(packet, 0));
    }
    void parse_ATR_DAB_DID(const QByteArray &packet)
    {
        Q_EMIT test->readDABInfo(payloadByte(packet, 0));
    }
    void parse_ATR_SXM_DID(const QByteArray &packet)
    {
        Q_EMIT test->readSXMInfo(payloadByte(packet, 0));
    }
    void parse_ATR_CAN_DID(const QByteArray &packet)
    {
        Q_EMIT test->readCANInfo(payloadByte(packet, 0));
    }
    void parse_ATR_SoftWare_DID(const QByteArray &packet)
    {
        Q_EMIT test->readSoftVersion(payloadByte(packet, 0));
    }
    void parse_ATR_HardWare_DID(const QByteArray &packet)
    {
        Q_EMIT test->readHardVersion(payloadByte(packet, 0));
    }
    void parse_ATR_MODEL_DID(const QByteArray &) { Q_EMIT test->readTestModel(); }
    void parse_ATR_UUID_DID(const QByteArray &) { Q_EMIT test->readUUID(); }
    void parse_ATR_VehicleName_DID(const QByteArray &) { Q_EMIT test->readVehName(); }
    void parse_ATR_VehicleNum_DID(const QByteArray &) { Q_EMIT test->readVehVIN(); }
    void parse_ATR_DEST_DID(const QByteArray &) { Q_EMIT test->readDestCode(); }
    void parse_ATR_GPS_DID(const QByteArray &) { Q_EMIT test->readGpsInfo(); }
    void parse_ATR_WHEEL_KEY_DID(const QByteArray &) { Q_EMIT test->readWheelKey(); }
    void parse_ATR_SPEED_DID(const QByteArray &) { Q_EMIT test->readSpeed(); }
    void parse_ATR_READ_SN(const QByteArray &) { Q_EMIT test->readSN(); }

    // Known DIDs without an action.
    void parse_ATR_NaviDemo_DID(const QByteArray &) {}
    void parse_ATR_GPSFlag_DID(const QByteArray &) {}
    void parse_ATR_GPSTime_DID(const QByteArray &) {}
    void parse_ATR_Dirction_DID(const QByteArray &) {}
    void parse_ATR_TBOX_DID(const QByteArray &) {}
    void parse_ATR_MapSize_DID(const QByteArray &) {}
    void parse_ATR_TPMS_DID(const QByteArray &) {}
    void parse_ATR_SN_DID(const QByteArray &) {}
    void parse_ATR_RSC_TSN_DID(const QByteArray &) {}
    void parse_ATR_ECU_MDATE_DID(const QByteArray &) {}
    void parse_ATR_ECU_PDATE_DID(const QByteArray &) {}
    void parse_ATR_ECU_ADATE_DID(const QByteArray &) {}
    void parse_ATR_MMI_FUNC_DID(const QByteArray &) {}
    void parse_ATR_VEH_NET_DID(const QByteArray &) {}
    void parse_ATR_WIFI_CONN_DID(const QByteArray &) {}
    void parse_ATR_WIFI_SIG_DID(const QByteArray &) {}
    void parse_ATR_DVR_DID(const QByteArray &) {}
};

} // namespace

void AutoTestHandler::parseReadData(const QByteArray &packet)
{
    static constexpr Command<ReadRequests> table[]{
        {0x01, &ReadRequests::parse_ATR_SOUND_DID},
        {0x02, &ReadRequests::parse_ATR_MEDIA_DID},
        {0x03, &ReadRequests::parse_ATR_SCREEN_DID},
        {0x04, &ReadRequests::parse_ATR_TIME_DATE_DID},
        {0x05, &ReadRequests::parse_ATR_LANGUAGE_DID},
        {0x07, &ReadRequests::parse_ATR_RadioArea_DID},
        {0x08, &ReadRequests::parse_ATR_PowSta_DID},
        {0x09, &ReadRequests::parse_ATR_UI_DID},
        {0x20, &ReadRequests::parse_ATR_NaviDemo_DID},
        {0x21, &ReadRequests::parse_ATR_GPSFlag_DID},
        {0x22, &ReadRequests::parse_ATR_GPSTime_DID},
        {0x23, &ReadRequests::parse_ATR_SatelliteNUM_DID},
        {0x24, &ReadRequests::parse_ATR_Dirction_DID},
        {0x25, &ReadRequests::parse_ATR_TBOX_DID},
        {0x26, &ReadRequests::parse_ATR_MapSize_DID},
        {0x30, &ReadRequests::parse_ATR_BTAddress_DID},
        {0x31, &ReadRequests::parse_ATR_BTDev_DID},
        {0x41, &ReadRequests::parse_ATR_KeySta_DID},
        {0x42, &ReadRequests::parse_ATR_RadioFreq_DID},
        {0x43, &ReadRequests::parse_ATR_TPMS_DID},
        {0x44, &ReadRequests::parse_ATR_RDS_DID},
        {0x45, &ReadRequests::parse_ATR_DAB_DID},
        {0x46, &ReadRequests::parse_ATR_SXM_DID},
        {0x51, &ReadRequests::parse_ATR_CAN_DID},
        {0x81, &ReadRequests::parse_ATR_SoftWare_DID},
        {0x82, &ReadRequests::parse_ATR_HardWare_DID},
        {0x83, &ReadRequests::parse_ATR_MODEL_DID},
        {0x84, &ReadRequests::parse_ATR_SN_DID},
        {0x85, &ReadRequests::parse_ATR_UUID_DID},
        {0xa0, &ReadRequests::parse_ATR_VehicleName_DID},
        {0xa1, &ReadRequests::parse_ATR_VehicleNum_DID},
        {0xa2, &ReadRequests::parse_ATR_RSC_TSN_DID},
        {0xa4, &ReadRequests::parse_ATR_ECU_MDATE_DID},
        {0xa5, &ReadRequests::parse_ATR_ECU_PDATE_DID},
        {0xa6, &ReadRequests::parse_ATR_ECU_ADATE_DID},
        {0xa8, &ReadRequests::parse_ATR_MMI_FUNC_DID},
        {0xa9, &ReadRequests::parse_ATR_VEH_NET_DID},
        {0xb0, &ReadRequests::parse_ATR_WIFI_CONN_DID},
        {0xb0, &ReadRequests::parse_ATR_WIFI_SIG_DID}, // Kept: second row of this DID, never called
        {0xc0, &ReadRequests::parse_ATR_DVR_DID},
        {0xd0, &ReadRequests::parse_ATR_DEST_DID},
        {0xd1, &ReadRequests::parse_ATR_GPS_DID},
        {0xd2, &ReadRequests::parse_ATR_WHEEL_KEY_DID},
        {0xd3, &ReadRequests::parse_ATR_SPEED_DID},
        {0xd4, &ReadRequests::parse_ATR_READ_SN},
    };
    dispatch(table, ReadRequests{this}, packet, CALL_SITE);
}

} // namespace mcu
