// Vehicle reports in: each slot stores its record, hands on what others need of it and publishes
// it. The HU and vehicle fault reports are rate-limited by the CAN check timer.
#include "callon.h"
#include "mcuvechiclebridge.h"
#include "report.h"

#include "mcusrv.h"

#include <QStringList>

namespace mcu {

namespace {

/// What the MCU sends while it does not know the steering angle.
constexpr int invalidSteeringAngle = 0xffff;

// Either set, complete, makes CAN data ready.
constexpr quint32 allCarReports = 0x7f;
constexpr quint32 allTruckReports = 0x1fff;

// Ticks of the CAN check timer for which a report of the kind is held back.
constexpr qint8 vehicleFaultHold = 6;
constexpr qint8 huHold = 4;

} // namespace

void McuService::onReportAcChanged(int KeyState, int AcType, int Templevel, int ModeDisp,
                                   int HVAC_diagnosis_req, int SetTemDisp, int BlowerLvl,
                                   int ExtTemp, int IndicatorAutoFront, int IndicatorDefrostFront,
                                   int IndicatorACFront, int IndicatorOFFFront, int IndicatorACMAX,
                                   int InternalRecycle, int DefrostRear)
{
    m_data->ac.store(KeyState, AcType, Templevel, ModeDisp, HVAC_diagnosis_req, SetTemDisp,
                     BlowerLvl, ExtTemp, IndicatorAutoFront, IndicatorDefrostFront,
                     IndicatorACFront, IndicatorOFFFront, IndicatorACMAX, InternalRecycle,
                     DefrostRear);
    m_data->publish(m_data->ac, &McuService::syncACInforUpdate, CALL_SITE);
}

void McuService::onReportAVMChanged(int WorkModeFeedback, int ViewSideFeedback, int WorkState,
                                    int SpeedSetResp, int VideoType, int WarnType)
{
    // The view at work (bit 0) means reverse is on (2), otherwise it is off (1). A view that
    // warning kind 4 has opened says nothing of the gear.
    if ((WorkState & 1) == 0)
        Q_EMIT reverseChanged(1);
    else if (WarnType != 4)
        Q_EMIT reverseChanged(2);

    m_data->avm.store(WorkModeFeedback, ViewSideFeedback, WorkState, SpeedSetResp, VideoType,
                      WarnType);
    m_data->publish(m_data->avm, &McuService::syncAVMInforUpdate, CALL_SITE);
}

void McuService::onReportVehicleSpeedChanged(int vehicle_speed, int vehicle_speed_valid,
                                             int Reserve, int Reserve1)
{
    McuVechicleBridge::instance()->notifyCarSpeedUpdate(vehicle_speed);
    m_data->vehicleSpeed.store(vehicle_speed, vehicle_speed_valid, Reserve, Reserve1);
    m_data->publish(m_data->vehicleSpeed, &McuService::syncVehicleSpeedInforUpdate, CALL_SITE);
    Q_EMIT syncSpeedUpdate(vehicle_speed);
}

void McuService::onReportSteeringAngleChanged(int steering_angle, int steering_angle_dir,
                                              int Reserve, int Reserve1)
{
    m_data->steeringAngle.store(steering_angle, steering_angle_dir, Reserve, Reserve1);
    m_data->publish(m_data->steeringAngle, &McuService::syncSteeringAngleInforUpdate, CALL_SITE);
    if (steering_angle != invalidSteeringAngle)
        McuVechicleBridge::instance()->notifySteeringAngleUpdate(steering_angle);
}

void McuService::onReportFeatureCodeChanged(int code0, int code1, int code2, int code3, int code4)
{
    m_data->featureCode.store(code0, code1, code2, code3, code4);
    m_data->publish(m_data->featureCode, &McuService::syncFeatureCodeInforUpdate, CALL_SITE);
}

void McuService::onReportFeatureVelroCodeChanged(QByteArray pkg)
{
    m_data->featureCodePackage = pkg;
    MCU_DEBUG << "TTTTTTTTT111111111---------------------------";
    Q_EMIT syncFeatureCodeInforUpdate(m_data->featureCodePackage);
}

void McuService::onReportHuChanged(int HU_Date0, int HU_Date1, int HU_Date2, int HU_Date3,
                                   int HU_Date4, int HU_Date5, int HU_Date6, int HU_Date7,
                                   int HU_Date8, int HU_Date9, int HU_Date10, int HU_Date11)
{
    m_data->hu.store(HU_Date0, HU_Date1, HU_Date2, HU_Date3, HU_Date4, HU_Date5, HU_Date6, HU_Date7,
                     HU_Date8, HU_Date9, HU_Date10, HU_Date11);
    m_data->publish(m_data->hu, &McuService::syncHuInforUpdate, CALL_SITE);
}

void McuService::onReportAmbChanged(int State, int ShowModelStatus, int ShowFrequency,
                                    int SafeModelSW, int ColorModelSelect,
                                    int SynchronizeWithBackLight)
{
    m_data->amb.store(State, ShowModelStatus, ShowFrequency, SafeModelSW, ColorModelSelect,
                      SynchronizeWithBackLight);
    m_data->publish(m_data->amb, &McuService::syncAmbInforUpdate, CALL_SITE);
}

void McuService::onReportPdcChanged(int FFLPDCDistance, int FSLPDCDistance, int FSRPDCDistance,
                                    int FFRPDCDistance, int RFLPDCDistance, int RSLPDCDistance,
                                    int RSRPDCDistance, int RFRPDCDistance, int PAS_SW,
                                    int PDCSysSts, int ReverseAssisVideo)
{
    m_data->pdc.store(FFLPDCDistance, FSLPDCDistance, FSRPDCDistance, FFRPDCDistance,
                      RFLPDCDistance, RSLPDCDistance, RSRPDCDistance, RFRPDCDistance, PAS_SW,
                      PDCSysSts, ReverseAssisVideo);
    m_data->publish(m_data->pdc, &McuService::syncPdcInforUpdate, CALL_SITE);
    // The bridge converts the whole values, not the bytes of the record.
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
    m_data->tpms.store(FLTirePres, FRTirePres, RLTirePres, RRTirePres, FLPressureWarning,
                       FRPressureWarning, RLPressureWarning, RRPressureWarning, FLTempHigh,
                       FRTempHigh, RLTempHigh, RRTempHigh, SystemWarning, StudyFailureWarning,
                       FLTireTemp, FRTireTemp, RLTireTemp, RRTireTemp);
    m_data->publish(m_data->tpms, &McuService::syncTpmsInforUpdate, CALL_SITE);
}

void McuService::onReportVehicleBodyChanged(int TurnSwitch, int DoorStatus, int KeyState, int data3,
                                            int data4, int data5, int data6, int data7)
{
    McuVechicleBridge::instance()->notifyTurnLightUpdate(TurnSwitch);
    McuVechicleBridge::instance()->notifyDoorUpdate(DoorStatus);
    m_data->vehicleBody.store(TurnSwitch, DoorStatus, KeyState, data3, data4, data5, data6, data7);
    m_data->publish(m_data->vehicleBody, &McuService::syncVehicleBodyInforUpdate, CALL_SITE);
}

void McuService::onReportMeterSettingChanged(int data0, int data1, int data2, int data3, int data4,
                                             int data5, int data6, int data7)
{
    m_data->meterSetting.store(data0, data1, data2, data3, data4, data5, data6, data7);
    m_data->publish(m_data->meterSetting, &McuService::syncMeterSettingInforUpdate, CALL_SITE);
}

void McuService::onReportVehicleFaultChanged(int data0, int data1, int data2, int data3, int data4,
                                             int data5, int data6, int data7)
{
    m_data->vehicleFault.store(data0, data1, data2, data3, data4, data5, data6, data7);
    m_data->publish(m_data->vehicleFault, &McuService::syncVehicleFaultInforUpdate, CALL_SITE);
}

void McuService::onAmpStatusChanged(int AMP_Date0, int AMP_Date1, int AMP_Date2, int AMP_Date3,
                                    int AMP_Date4, int AMP_Date5, int AMP_Date6, int AMP_Date7,
                                    int AMP_Date8)
{
    m_data->ampStatus.store(AMP_Date0, AMP_Date1, AMP_Date2, AMP_Date3, AMP_Date4, AMP_Date5,
                            AMP_Date6, AMP_Date7, AMP_Date8);
    m_data->publish(m_data->ampStatus, &McuService::syncAmpStatusUpdate, CALL_SITE);
}

void McuService::onAvmCalibrationCmdChanged(int calibration_start, int reserve0, int reserve1,
                                            int reserve2)
{
    m_data->avmCalibrationCommand.store(calibration_start, reserve0, reserve1, reserve2);
    m_data->publish(m_data->avmCalibrationCommand, &McuService::syncAvmCalibrationCmdUpdate,
                    CALL_SITE);
}

void McuService::onReportDtcFlagChanged(int dtc_flag1, int dtc_flag2, int dtc_flag3, int dtc_flag4)
{
    m_data->dtcFlag.store(dtc_flag1, dtc_flag2, dtc_flag3, dtc_flag4);
    m_data->publish(m_data->dtcFlag, &McuService::syncDtcFlagInforUpdate, CALL_SITE);
}

void McuService::onSetAmpEdition(QString sw_edition, QString hw_edition)
{
    m_data->ampSwEdition = sw_edition;
    m_data->ampHwEdition = hw_edition;
}

void McuService::onsetEcuEdition(QString sw_edition, QString hw_edition)
{
    m_data->ecuSwEdition = sw_edition;
    m_data->ecuHwEdition = hw_edition;
    Q_EMIT syncEcuEdition();
}

void McuServicePrivate::markReady(const Readiness &readiness)
{
    const bool car = readiness.set == Readiness::Car;
    quint32 &mask = car ? carReadiness : truckReadiness;
    mask |= readiness.bit;
    if (mask == (car ? allCarReports : allTruckReports) && !canDataReady) {
        canDataReady = true;
        Q_EMIT owner->CANDataReady();
    }
}

int McuServicePrivate::checkCmdUpdateToApp(int cmd)
{
    switch (cmd) {
    case int(RateLimit::VehicleFault): {
        // Every fault report restarts the hold period, so a stream of them is emitted at its end.
        const bool held = vehicleFaultDelay > 0;
        vehicleFaultDelay = vehicleFaultHold;
        if (held)
            MCU_DEBUG << cmd;
        return held;
    }
    case int(RateLimit::Hu):
        // An HU report does not extend a running hold period.
        if (huDelay > 0) {
            MCU_DEBUG << cmd;
            return 1;
        }
        huDelay = huHold;
        return 0;
    default:
        return 0;
    }
}

void McuService::onCheckCanbusTmrDelay()
{
    const auto expires = [](qint8 &delay) { return delay != 0 && --delay == 0; };

    if (expires(m_data->acDelay)) {
        MCU_DEBUG << "syncACInforUpdate";
        Q_EMIT syncACInforUpdate(m_data->ac.bytes());
    }
    if (expires(m_data->vehicleFaultDelay)) {
        MCU_DEBUG << "syncVehicleFaultInforUpdate";
        Q_EMIT syncVehicleFaultInforUpdate(m_data->vehicleFault.bytes());
    }
    if (expires(m_data->huDelay)) {
        const QByteArray image = m_data->hu.bytes();
        MCU_DEBUG << record::hu.dumpTag << image.toHex();
        Q_EMIT syncHuInforUpdate(image);
    }
}

QByteArray McuService::getReportAVMDate()
{
    constexpr std::size_t workState = 2; // its place among the fields
    MCU_DEBUG << "\n " << m_data->avm.value<workState>();
    return m_data->avm.bytes();
}

int McuService::getVehicleSpeed() { return m_data->vehicleSpeed.value<0>(); }

int McuService::getAmpStatus() { return m_data->ampStatus.value<0>(); }

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

QByteArray McuService::getReportACDate() { return m_data->ac.bytes(); }

QByteArray McuService::getSteeringAngleChanged() { return m_data->steeringAngle.bytes(); }

QByteArray McuService::getReportHuDate() { return m_data->hu.bytes(); }

QByteArray McuService::getReportPdcDate() { return m_data->pdc.bytes(); }

QByteArray McuService::getReportTpmsDate() { return m_data->tpms.bytes(); }

QByteArray McuService::getReportVehicleBodyDate() { return m_data->vehicleBody.bytes(); }

QByteArray McuService::getReportMeterSetting() { return m_data->meterSetting.bytes(); }

QByteArray McuService::getReportVehicleFaultData() { return m_data->vehicleFault.bytes(); }

QByteArray McuService::getReportAmpStatusDate() { return m_data->ampStatus.bytes(); }

QByteArray McuService::getAvmCalibrationCmdData() { return m_data->avmCalibrationCommand.bytes(); }

} // namespace mcu
