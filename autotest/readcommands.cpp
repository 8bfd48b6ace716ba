// Read requests of the factory station: which DID becomes which signal.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

using wire::byteAt;

void AutoTestHandler::parseReadData(const QByteArray &packet)
{
    static constexpr AutoTestHandlerPrivate::Command table[]{
        {0x01, &AutoTestHandler::parse_ATR_SOUND_DID},
        {0x02, &AutoTestHandler::parse_ATR_MEDIA_DID},
        {0x03, &AutoTestHandler::parse_ATR_SCREEN_DID},
        {0x04, &AutoTestHandler::parse_ATR_TIME_DATE_DID},
        {0x05, &AutoTestHandler::parse_ATR_LANGUAGE_DID},
        {0x07, &AutoTestHandler::parse_ATR_RadioArea_DID},
        {0x08, &AutoTestHandler::parse_ATR_PowSta_DID},
        {0x09, &AutoTestHandler::parse_ATR_UI_DID},
        {0x20, &AutoTestHandler::parse_ATR_NaviDemo_DID},
        {0x21, &AutoTestHandler::parse_ATR_GPSFlag_DID},
        {0x22, &AutoTestHandler::parse_ATR_GPSTime_DID},
        {0x23, &AutoTestHandler::parse_ATR_SatelliteNUM_DID},
        {0x24, &AutoTestHandler::parse_ATR_Dirction_DID},
        {0x25, &AutoTestHandler::parse_ATR_TBOX_DID},
        {0x26, &AutoTestHandler::parse_ATR_MapSize_DID},
        {0x30, &AutoTestHandler::parse_ATR_BTAddress_DID},
        {0x31, &AutoTestHandler::parse_ATR_BTDev_DID},
        {0x41, &AutoTestHandler::parse_ATR_KeySta_DID},
        {0x42, &AutoTestHandler::parse_ATR_RadioFreq_DID},
        {0x43, &AutoTestHandler::parse_ATR_TPMS_DID},
        {0x44, &AutoTestHandler::parse_ATR_RDS_DID},
        {0x45, &AutoTestHandler::parse_ATR_DAB_DID},
        {0x46, &AutoTestHandler::parse_ATR_SXM_DID},
        {0x51, &AutoTestHandler::parse_ATR_CAN_DID},
        {0x81, &AutoTestHandler::parse_ATR_SoftWare_DID},
        {0x82, &AutoTestHandler::parse_ATR_HardWare_DID},
        {0x83, &AutoTestHandler::parse_ATR_MODEL_DID},
        {0x84, &AutoTestHandler::parse_ATR_SN_DID},
        {0x85, &AutoTestHandler::parse_ATR_UUID_DID},
        {0xa0, &AutoTestHandler::parse_ATR_VehicleName_DID},
        {0xa1, &AutoTestHandler::parse_ATR_VehicleNum_DID},
        {0xa2, &AutoTestHandler::parse_ATR_RSC_TSN_DID},
        {0xa4, &AutoTestHandler::parse_ATR_ECU_MDATE_DID},
        {0xa5, &AutoTestHandler::parse_ATR_ECU_PDATE_DID},
        {0xa6, &AutoTestHandler::parse_ATR_ECU_ADATE_DID},
        {0xa8, &AutoTestHandler::parse_ATR_MMI_FUNC_DID},
        {0xa9, &AutoTestHandler::parse_ATR_VEH_NET_DID},
        {0xb0, &AutoTestHandler::parse_ATR_WIFI_CONN_DID},
        {0xb0, &AutoTestHandler::parse_ATR_WIFI_SIG_DID},
        {0xc0, &AutoTestHandler::parse_ATR_DVR_DID},
        {0xd0, &AutoTestHandler::parse_ATR_DEST_DID},
        {0xd1, &AutoTestHandler::parse_ATR_GPS_DID},
        {0xd2, &AutoTestHandler::parse_ATR_WHEEL_KEY_DID},
        {0xd3, &AutoTestHandler::parse_ATR_SPEED_DID},
        {0xd4, &AutoTestHandler::parse_ATR_READ_SN},
    };
    m_data->dispatch(table, packet, CALL_SITE);
}

void AutoTestHandler::parse_ATR_SOUND_DID(const QByteArray &packet)
{
    Q_EMIT readSoundInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_MEDIA_DID(const QByteArray &) { Q_EMIT readMediaSource(); }

void AutoTestHandler::parse_ATR_SCREEN_DID(const QByteArray &packet)
{
    Q_EMIT readScreenInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_TIME_DATE_DID(const QByteArray &packet)
{
    Q_EMIT readDataTime(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_LANGUAGE_DID(const QByteArray &) { Q_EMIT readLaguage(); }

void AutoTestHandler::parse_ATR_RadioArea_DID(const QByteArray &) { Q_EMIT readRadioArea(); }

void AutoTestHandler::parse_ATR_PowSta_DID(const QByteArray &) { Q_EMIT readPwrStatus(); }

void AutoTestHandler::parse_ATR_UI_DID(const QByteArray &) { Q_EMIT readCurrentUI(); }

void AutoTestHandler::parse_ATR_SatelliteNUM_DID(const QByteArray &packet)
{
    Q_EMIT readStatelliteNum(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_BTAddress_DID(const QByteArray &) { Q_EMIT readBTAddr(); }

void AutoTestHandler::parse_ATR_BTDev_DID(const QByteArray &) { Q_EMIT readBTName(); }

void AutoTestHandler::parse_ATR_KeySta_DID(const QByteArray &) { Q_EMIT readPanelKeyStatus(); }

void AutoTestHandler::parse_ATR_RadioFreq_DID(const QByteArray &packet)
{
    Q_EMIT readRadioFreqInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_RDS_DID(const QByteArray &packet)
{
    Q_EMIT readRadioRDSInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_DAB_DID(const QByteArray &packet)
{
    Q_EMIT readDABInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_SXM_DID(const QByteArray &packet)
{
    Q_EMIT readSXMInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_CAN_DID(const QByteArray &packet)
{
    Q_EMIT readCANInfo(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_SoftWare_DID(const QByteArray &packet)
{
    Q_EMIT readSoftVersion(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_HardWare_DID(const QByteArray &packet)
{
    Q_EMIT readHardVersion(byteAt(packet, 5));
}

void AutoTestHandler::parse_ATR_MODEL_DID(const QByteArray &) { Q_EMIT readTestModel(); }

void AutoTestHandler::parse_ATR_UUID_DID(const QByteArray &) { Q_EMIT readUUID(); }

void AutoTestHandler::parse_ATR_VehicleName_DID(const QByteArray &) { Q_EMIT readVehName(); }

void AutoTestHandler::parse_ATR_VehicleNum_DID(const QByteArray &) { Q_EMIT readVehVIN(); }

void AutoTestHandler::parse_ATR_DEST_DID(const QByteArray &) { Q_EMIT readDestCode(); }

void AutoTestHandler::parse_ATR_GPS_DID(const QByteArray &) { Q_EMIT readGpsInfo(); }

void AutoTestHandler::parse_ATR_WHEEL_KEY_DID(const QByteArray &) { Q_EMIT readWheelKey(); }

void AutoTestHandler::parse_ATR_SPEED_DID(const QByteArray &) { Q_EMIT readSpeed(); }

void AutoTestHandler::parse_ATR_READ_SN(const QByteArray &) { Q_EMIT readSN(); }

// Known to the station and without an answer here: the rows keep their place in its vocabulary.
void AutoTestHandler::parse_ATR_NaviDemo_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_GPSFlag_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_GPSTime_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_Dirction_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_TBOX_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_MapSize_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_TPMS_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_SN_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_RSC_TSN_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_ECU_MDATE_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_ECU_PDATE_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_ECU_ADATE_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_MMI_FUNC_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_VEH_NET_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_WIFI_CONN_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_WIFI_SIG_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATR_DVR_DID(const QByteArray &) {}

} // namespace mcu
