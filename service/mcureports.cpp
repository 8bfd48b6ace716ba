// Car reports. Each slot stores and publishes its record; some also pass values to the
// surround-view bridge. The CAN check timer limits the rate of HU and vehicle fault reports.
#include "mcuservice.h"

#include "callon_p.h"
#include "mcuservice_p.h"
#include "mcuvechiclebridge.h"

#include "mcusrv.h"

#include <QStringList>

namespace mcu {

namespace {

/// The value that the MCU sends for an invalid steering angle.
constexpr int invalidSteeringAngle = 0xffff;

// CAN data is ready when one of the two sets is complete.
constexpr quint32 allCarReports = 0x7f;
constexpr quint32 allTruckReports = 0x1fff;

} // namespace

void McuService::onReportAcChanged(int KeyState, int AcType, int Templevel, int ModeDisp,
                                   int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl,
                                   int ExtTemp, int IndicatorAutoFront, int IndicatorDefrostFront,
                                   int IndicatorACFront, int IndicatorOFFFront, int IndicatorACMAX,
                                   int InternalRecycle, int DefrostRear)
{
    m_data->publish<record::ac>(CALL_SITE, KeyState, AcType, Templevel, ModeDisp,
                                HVAC_diagnosis_req, SetTemDisp, BlowerLvl, ExtTemp,
                                IndicatorAutoFront, IndicatorDefrostFront, IndicatorACFront,
                                IndicatorOFFFront, IndicatorACMAX, InternalRecycle, DefrostRear);
}

void McuService::onReportAVMChanged(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                                    int SpeedSetResp, int VideoType, int WarnType)
{
    // An active view (bit 0) means that reverse is on (2), otherwise it is off (1). A view that
    // warning type 4 has opened does not depend on the gear.
    if ((WorkState & 1) == 0)
        Q_EMIT reverseChanged(1);
    else if (WarnType != 4)
        Q_EMIT reverseChanged(2);

    m_data->publish<record::avm>(CALL_SITE, WorkModeFeedback, ViewSideFeedback, WorkState,
                                 SpeedSetResp, VideoType, WarnType);
}

void McuService::onReportVehicleSpeedChanged(int vehicle_speed, int vehicle_speed_valid,
                                             int Reserve, int Reserve1)
{
    McuVechicleBridge::instance()->notifyCarSpeedUpdate(vehicle_speed);
    m_data->publish<record::vehicleSpeed>(CALL_SITE, vehicle_speed, vehicle_speed_valid, Reserve,
                                          Reserve1);
    Q_EMIT syncSpeedUpdate(vehicle_speed);
}

void McuService::onReportSteeringAngleChanged(int steering_angle, int steering_angle_dir,
                                              int Reserve, int Reserve1)
{
    m_data->publish<record::steeringAngle>(CALL_SITE, steering_angle, steering_angle_dir, Reserve,
                                           Reserve1);
    if (steering_angle != invalidSteeringAngle)
        McuVechicleBridge::instance()->notifySteeringAngleUpdate(steering_angle);
}

void McuService::onReportFeatureCodeChanged(int code0, int code1, int code2, int code3, int code4)
{
    m_data->publish<record::featureCode>(CALL_SITE, code0, code1, code2, code3, code4);
}

void McuService::onReportFeatureVelroCodeChanged(QByteArray pkg)
{
    m_data->featureCodePackage = pkg;
    // Kept: log filters match this text.
    LOG_DEBUG << "TTTTTTTTT111111111---------------------------";
    Q_EMIT syncFeatureCodeInforUpdate(m_data->featureCodePackage);
}

void McuService::onReportHuChanged(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3,
                                   int HU_Date4, int HU_Date5, int HU_Date6, int HU_Date7,
                                   int HU_Date8, int HU_Date9, int HU_Date10, int HU_Date11)
{
    m_data->publish<record::hu>(CALL_SITE, HU_Date0, HU_Date1, HU_Date2, HU_Date3, HU_Date4,
                                HU_Date5, HU_Date6, HU_Date7, HU_Date8, HU_Date9, HU_Date10,
                                HU_Date11);
}

void McuService::onReportAmbChanged(int State, int ShowModelStatus, int ShowFrequency,
                                    int SafeModelSW, int ColorModelSelect,
                                    int SynchronizeWithBackLight)
{
    m_data->publish<record::amb>(CALL_SITE, State, ShowModelStatus, ShowFrequency, SafeModelSW,
                                 ColorModelSelect, SynchronizeWithBackLight);
}

void McuService::onReportPdcChanged(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                                    int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                                    int RSRPDCDistance, int RFRPDCDistance, int PAS_SW,
                                    int PDCSysSts, int ReverseAssisVideo)
{
    m_data->publish<record::pdc>(CALL_SITE, FFLPDCDistance, FSLPDCDistance, FSRPDCDistance,
                                 FFRPDCDistance, RFLPDCDistance, RSLPDCDistance, RSRPDCDistance,
                                 RFRPDCDistance, PAS_SW, PDCSysSts, ReverseAssisVideo);
    // The bridge gets the reported values, not the bytes of the record.
    int front[]{FFLPDCDistance, FSLPDCDistance, FSRPDCDistance, FFRPDCDistance};
    int rear[]{RFLPDCDistance, RSLPDCDistance, RSRPDCDistance, RFRPDCDistance};
    McuVechicleBridge::instance()->notifyRadarUpdate(front, rear, PAS_SW, PDCSysSts,
                                                     ReverseAssisVideo);
}

void McuService::onReportTpmsChanged(int FLTirePres, int FRTirePres, int RLTirePres, int RRTirePres,
                                     int FLPressureWarning, int FRPressureWarning,
                                     int RLPressureWarning, int RRPressureWarning, int FLTempHigh,
                                     int FRTempHigh, int RLTempHigh, int RRTempHigh,
                                     int SystemWarning, int StudyFailureWarning, int FLTireTemp,
                                     int FRTireTemp, int RLTireTemp, int RRTireTemp)
{
    m_data->publish<record::tpms>(CALL_SITE, FLTirePres, FRTirePres, RLTirePres, RRTirePres,
                                  FLPressureWarning, FRPressureWarning, RLPressureWarning,
                                  RRPressureWarning, FLTempHigh, FRTempHigh, RLTempHigh, RRTempHigh,
                                  SystemWarning, StudyFailureWarning, FLTireTemp, FRTireTemp,
                                  RLTireTemp, RRTireTemp);
}

void McuService::onReportVehicleBodyChanged(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                            int data4, int data5, int data6, int data7)
{
    McuVechicleBridge::instance()->notifyTurnLightUpdate(TurnSwitch);
    McuVechicleBridge::instance()->notifyDoorUpdate(DoorStatus);
    m_data->publish<record::vehicleBody>(CALL_SITE, TurnSwitch, DoorStatus, KeyState, data3, data4,
                                         data5, data6, data7);
}

void McuService::onReportMeterSettingChanged(int data0, int data1, int data2, int data3, int data4,
                                             int data5, int data6, int data7)
{
    m_data->publish<record::meterSetting>(CALL_SITE, data0, data1, data2, data3, data4, data5,
                                          data6, data7);
}

void McuService::onReportVehicleFaultChanged(int data0, int data1, int data2, int data3, int data4,
                                             int data5, int data6, int data7)
{
    m_data->publish<record::vehicleFault>(CALL_SITE, data0, data1, data2, data3, data4, data5,
                                          data6, data7);
}

void McuService::onAmpStatusChanged(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                                    int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                                    int AMP_Date8)
{
    m_data->publish<record::ampStatus>(CALL_SITE, AMP_Date0, AMP_Date1, AMP_Date2, AMP_Date3,
                                       AMP_Date4, AMP_Date5, AMP_Date6, AMP_Date7, AMP_Date8);
}

void McuService::onAvmCalibrationCmdChanged(int calibration_start, int reserve0, int reserve1,
                                            int reserve2)
{
    m_data->publish<record::avmCalibrationCommand>(CALL_SITE, calibration_start, reserve0, reserve1,
                                                   reserve2);
}

void McuService::onReportDtcFlagChanged(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4)
{
    m_data->publish<record::dtcFlag>(CALL_SITE, dtc_flag1, dtc_flag2, dtc_flag3, dtc_flag4);
}

void McuService::onSetAmpEdition(QString sw_edition, QString hw_edition)
{
    m_data->ampSwEdition = sw_edition;
    m_data->ampHwEdition = hw_edition;
}

// Kept: the lower-case s; connections use this name of the slot.
void McuService::onsetEcuEdition(QString sw_edition, QString hw_edition)
{
    m_data->ecuSwEdition = sw_edition;
    m_data->ecuHwEdition = hw_edition;
    Q_EMIT syncEcuEdition();
}

void McuServicePrivate::dump(const CallSite &slot, const char *tag, const QByteArray &image)
{
    LogLine(QtDebugMsg, slot) << tag << image.toHex();
}

void McuServicePrivate::markReady(const Readiness &readiness)
{
    const bool car = readiness.set == Readiness::Set::Car;
    quint32 &mask = car ? carReadiness : truckReadiness;
    mask |= readiness.bit;
    if (mask == (car ? allCarReports : allTruckReports) && !canDataReady) {
        canDataReady = true;
        Q_EMIT owner->CANDataReady();
    }
}

int McuServicePrivate::checkCmdUpdateToApp(int cmd)
{
    const bool isFault = cmd == record::vehicleFault.hold.command;
    if (!isFault && cmd != record::hu.hold.command)
        return 0;
    const Hold &hold = isFault ? record::vehicleFault.hold : record::hu.hold;
    qint8 &delay = isFault ? vehicleFaultDelay : huDelay;
    const bool held = delay > 0;
    if (!held || hold.restarts)
        delay = hold.ticks;
    if (held)
        LOG_DEBUG << cmd;
    return held;
}

void McuService::onCheckCanbusTmrDelay()
{
    const auto expires = [](qint8 &delay) { return delay != 0 && --delay == 0; };

    // Kept: the AC counter is never set; it is for a rate limit of climate reports.
    if (expires(m_data->acDelay)) {
        LOG_DEBUG << "syncACInforUpdate";
        Q_EMIT syncACInforUpdate(m_data->image<record::ac>());
    }
    if (expires(m_data->vehicleFaultDelay)) {
        LOG_DEBUG << "syncVehicleFaultInforUpdate";
        Q_EMIT syncVehicleFaultInforUpdate(m_data->image<record::vehicleFault>());
    }
    if (expires(m_data->huDelay)) {
        const QByteArray image = m_data->image<record::hu>();
        LOG_DEBUG << record::hu.dumpTag << image.toHex();
        Q_EMIT syncHuInforUpdate(image);
    }
}

QByteArray McuService::getReportAVMDate()
{
    // Kept: log filters read the work state from this line.
    constexpr std::size_t workState = 2; // number of the field
    LOG_DEBUG << "\n " << m_data->records.of<record::avm>().value<workState>();
    return m_data->image<record::avm>();
}

int McuService::getVehicleSpeed() { return m_data->records.of<record::vehicleSpeed>().value<0>(); }

int McuService::getAmpStatus() { return m_data->records.of<record::ampStatus>().value<0>(); }

QByteArray McuService::getReportFeatureCodeChanged()
{
    if (!m_link)
        return {};
    QByteArray code;
    const QStringList numbers = m_link->getCarFeatureCode().split(QLatin1Char(';'));
    for (const QString &number : numbers)
        code.append(char(number.toInt()));
    return code;
}

QByteArray McuService::getVelroReportFeatureCodeChanged()
{
    return callOn(m_link, &McuSrv::getVelroCarFeatureCode);
}

int McuService::getFeatureDataStatus() { return callOn(m_link, &McuSrv::getFeatureDataStatus); }

QString McuService::getAmpSwEdition() { return m_data->ampSwEdition; }

QString McuService::getAmpHwEdition() { return m_data->ampHwEdition; }

QString McuService::getEcuSwEdition() { return m_data->ecuSwEdition; }

QString McuService::getEcuHwEdition() { return m_data->ecuHwEdition; }

bool McuService::getCANDataReady() { return m_data->canDataReady; }

int McuService::getCANDataSignal() { return int(m_data->carReadiness); }

QByteArray McuService::getReportACDate() { return m_data->image<record::ac>(); }

QByteArray McuService::getSteeringAngleChanged() { return m_data->image<record::steeringAngle>(); }

QByteArray McuService::getReportHuDate() { return m_data->image<record::hu>(); }

QByteArray McuService::getReportPdcDate() { return m_data->image<record::pdc>(); }

QByteArray McuService::getReportTpmsDate() { return m_data->image<record::tpms>(); }

QByteArray McuService::getReportVehicleBodyDate() { return m_data->image<record::vehicleBody>(); }

QByteArray McuService::getReportMeterSetting() { return m_data->image<record::meterSetting>(); }

QByteArray McuService::getReportVehicleFaultData() { return m_data->image<record::vehicleFault>(); }

QByteArray McuService::getReportAmpStatusDate() { return m_data->image<record::ampStatus>(); }

QByteArray McuService::getAvmCalibrationCmdData()
{
    return m_data->image<record::avmCalibrationCommand>();
}

} // namespace mcu
