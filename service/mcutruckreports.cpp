// Truck reports. Each slot stores and publishes its record. None is rate-limited, and
// none is passed to the surround-view bridge.
#include "mcuservice.h"

#include "mcuservice_p.h"

namespace mcu {

void McuService::onReportTruckTpmsLearnChanged(
    int TPMS_Learn_ResponseFeatureID, int TPMS_Learn_ResponseStatus, int TPMS_Learn_TireStatusData2,
    int TPMS_Learn_TireStatusData3, int TPMS_Learn_TireStatusData4, int TPMS_Learn_TireStatusData5,
    int TPMS_Learn_TireStatusData6, int TPMS_Learn_TireStatusData7, int TPMS_Learn_TireStatusData8,
    int TPMS_Learn_Reserve1, int TPMS_Learn_Reserve2)
{
    m_data->publish<record::truckTpmsLearn>(
        CALL_SITE, TPMS_Learn_ResponseFeatureID, TPMS_Learn_ResponseStatus,
        TPMS_Learn_TireStatusData2, TPMS_Learn_TireStatusData3, TPMS_Learn_TireStatusData4,
        TPMS_Learn_TireStatusData5, TPMS_Learn_TireStatusData6, TPMS_Learn_TireStatusData7,
        TPMS_Learn_TireStatusData8, TPMS_Learn_Reserve1, TPMS_Learn_Reserve2);
}

void McuService::onReportTruckDmsChanged(int DMS_DistractionWarning, int DMS_CanData2,
                                         int DMS_CanData3, int DMS_Reserve1, int DMS_Reserve2,
                                         int DMS_Reserve3, int DMS_Reserve4)
{
    m_data->publish<record::truckDms>(CALL_SITE, DMS_DistractionWarning, DMS_CanData2, DMS_CanData3,
                                      DMS_Reserve1, DMS_Reserve2, DMS_Reserve3, DMS_Reserve4);
}

void McuService::onReportTruckRsr1Changed(int RSR1_MenAtWorkSign, int RSR1_StopSign,
                                          int RSR1_RSRSystemState, int RSR1_TSRSpeedSignDetected,
                                          int RSR1_SpeedLimitIconCommand, int RSR1_NarrowRoadSign,
                                          int RSR1_SlipperyRoadSignDetected, int RSR1_Reserve1,
                                          int RSR1_Reserve2, int RSR1_Reserve3, int RSR1_Reserve4)
{
    m_data->publish<record::truckRsr1>(
        CALL_SITE, RSR1_MenAtWorkSign, RSR1_StopSign, RSR1_RSRSystemState,
        RSR1_TSRSpeedSignDetected, RSR1_SpeedLimitIconCommand, RSR1_NarrowRoadSign,
        RSR1_SlipperyRoadSignDetected, RSR1_Reserve1, RSR1_Reserve2, RSR1_Reserve3, RSR1_Reserve4);
}

void McuService::onReportTruckSecurityChanged(
    int Security_LDW_Lamp_Status, int Security_ACC_Lamp_Status, int Security_AEBS_Lamp_Status,
    int Security_AEBS_System_Status, int Security_FLI_Right_Side, int Security_FLI_Left_Side,
    int Security_ACC_Mode, int Security_ACC_Distance_Mode, int Security_ACC_Shutoff_Warning,
    int Security_ACC_Alert_Signal, int Security_TPMS_warning_Lamp, int Security_Reserve1,
    int Security_Reserve2, int Security_Reserve3, int Security_Reserve4)
{
    m_data->publish<record::truckSecurity>(
        CALL_SITE, Security_LDW_Lamp_Status, Security_ACC_Lamp_Status, Security_AEBS_Lamp_Status,
        Security_AEBS_System_Status, Security_FLI_Right_Side, Security_FLI_Left_Side,
        Security_ACC_Mode, Security_ACC_Distance_Mode, Security_ACC_Shutoff_Warning,
        Security_ACC_Alert_Signal, Security_TPMS_warning_Lamp, Security_Reserve1, Security_Reserve2,
        Security_Reserve3, Security_Reserve4);
}

void McuService::onReportTruckVehicleHealthChanged(
    int Vehicle_Battery_Potential, int Vehicle_Fluid_Tank_Level, int Vehicle_Engine_Coolant_Temp,
    int Vehicle_Coolant_Level, int Vehicle_Transmission_Mode1, int Vehicle_Transmission_Mode2,
    int Vehicle_FuelLevel1, int Vehicle_FuelLevel2, int Vehicle_EngOilLevel, int Vehicle_Reserve1,
    int Vehicle_Reserve2, int Vehicle_Reserve3, int Vehicle_Reserve4)
{
    m_data->publish<record::truckVehicleHealth>(
        CALL_SITE, Vehicle_Battery_Potential, Vehicle_Fluid_Tank_Level, Vehicle_Engine_Coolant_Temp,
        Vehicle_Coolant_Level, Vehicle_Transmission_Mode1, Vehicle_Transmission_Mode2,
        Vehicle_FuelLevel1, Vehicle_FuelLevel2, Vehicle_EngOilLevel, Vehicle_Reserve1,
        Vehicle_Reserve2, Vehicle_Reserve3, Vehicle_Reserve4);
}

void McuService::onReportTruckRpasChanged(int RPAS_Active_Sensor_Status, int RPAS_Sensor1_Distance,
                                          int RPAS_Sensor2_Distance, int RPAS_Sensor3_Distance,
                                          int RPAS_Sensor4_Distance, int RPAS_Sensor5_Distance,
                                          int RPAS_Shortest_Distance, int RPAS_Warning_Levels,
                                          int RPAS_Reserve1, int RPAS_Reserve2, int RPAS_Reserve3)
{
    m_data->publish<record::truckRpas>(
        CALL_SITE, RPAS_Active_Sensor_Status, RPAS_Sensor1_Distance, RPAS_Sensor2_Distance,
        RPAS_Sensor3_Distance, RPAS_Sensor4_Distance, RPAS_Sensor5_Distance, RPAS_Shortest_Distance,
        RPAS_Warning_Levels, RPAS_Reserve1, RPAS_Reserve2, RPAS_Reserve3);
}

void McuService::onReportTruckTpmsThresholdChanged(
    int Axle1_Left_Threshold, int Axle1_Right_Threshold, int Axle2_Left_Threshold,
    int Axle2_Right_Threshold, int Axle3_Left_Threshold, int Axle3_Right_Threshold,
    int Axle4_Left_Outside_Threshold, int Axle4_Left_Inside_Threshold,
    int Axle4_Right_Inside_Threshold, int Axle4_Right_Outside_Threshold,
    int Axle5_Left_Outside_Threshold, int Axle5_Left_Inside_Threshold,
    int Axle5_Right_Inside_Threshold, int Axle5_Right_Outside_Threshold, int Axle6_Left_Threshold,
    int Axle6_Right_Threshold, int First_Spare_Threshold)
{
    m_data->publish<record::truckTpmsThreshold>(
        CALL_SITE, Axle1_Left_Threshold, Axle1_Right_Threshold, Axle2_Left_Threshold,
        Axle2_Right_Threshold, Axle3_Left_Threshold, Axle3_Right_Threshold,
        Axle4_Left_Outside_Threshold, Axle4_Left_Inside_Threshold, Axle4_Right_Inside_Threshold,
        Axle4_Right_Outside_Threshold, Axle5_Left_Outside_Threshold, Axle5_Left_Inside_Threshold,
        Axle5_Right_Inside_Threshold, Axle5_Right_Outside_Threshold, Axle6_Left_Threshold,
        Axle6_Right_Threshold, First_Spare_Threshold);
}

void McuService::onReportTruckTpmsCtiChanged(
    int Axle1_Left_CTIInfor, int Axle1_Right_CTIInfor, int Axle2_Left_CTIInfor,
    int Axle2_Right_CTIInfor, int Axle3_Left_CTIInfor, int Axle3_Right_CTIInfor,
    int Axle4_Left_Outside_CTIInfor, int Axle4_Left_Inside_CTIInfor,
    int Axle4_Right_Inside_CTIInfor, int Axle4_Right_Outside_CTIInfor,
    int Axle5_Left_Outside_CTIInfor, int Axle5_Left_Inside_CTIInfor,
    int Axle5_Right_Inside_CTIInfor, int Axle5_Right_Outside_CTIInfor, int Axle6_Left_CTIInfor,
    int Axle6_Right_CTIInfor, int First_Spare_CTIInfor)
{
    m_data->publish<record::truckTpmsCti>(
        CALL_SITE, Axle1_Left_CTIInfor, Axle1_Right_CTIInfor, Axle2_Left_CTIInfor,
        Axle2_Right_CTIInfor, Axle3_Left_CTIInfor, Axle3_Right_CTIInfor,
        Axle4_Left_Outside_CTIInfor, Axle4_Left_Inside_CTIInfor, Axle4_Right_Inside_CTIInfor,
        Axle4_Right_Outside_CTIInfor, Axle5_Left_Outside_CTIInfor, Axle5_Left_Inside_CTIInfor,
        Axle5_Right_Inside_CTIInfor, Axle5_Right_Outside_CTIInfor, Axle6_Left_CTIInfor,
        Axle6_Right_CTIInfor, First_Spare_CTIInfor);
}

void McuService::onReportTruckTpmsTemperatureChanged(
    int Axle1_Left_Temp, int Axle1_Right_Temp, int Axle2_Left_Temp, int Axle2_Right_Temp,
    int Axle3_Left_Temp, int Axle3_Right_Temp, int Axle4_Left_Outside_Temp,
    int Axle4_Left_Inside_Temp, int Axle4_Right_Inside_Temp, int Axle4_Right_Outside_Temp,
    int Axle5_Left_Outside_Temp, int Axle5_Left_Inside_Temp, int Axle5_Right_Inside_Temp,
    int Axle5_Right_Outside_Temp, int Axle6_Left_Temp, int Axle6_Right_Temp, int First_Spare_Temp)
{
    m_data->publish<record::truckTpmsTemperature>(
        CALL_SITE, Axle1_Left_Temp, Axle1_Right_Temp, Axle2_Left_Temp, Axle2_Right_Temp,
        Axle3_Left_Temp, Axle3_Right_Temp, Axle4_Left_Outside_Temp, Axle4_Left_Inside_Temp,
        Axle4_Right_Inside_Temp, Axle4_Right_Outside_Temp, Axle5_Left_Outside_Temp,
        Axle5_Left_Inside_Temp, Axle5_Right_Inside_Temp, Axle5_Right_Outside_Temp, Axle6_Left_Temp,
        Axle6_Right_Temp, First_Spare_Temp);
}

void McuService::onReportTruckTpmsPressureChanged(
    int Axle1_Left_Pressure, int Axle1_Right_Pressure, int Axle2_Left_Pressure,
    int Axle2_Right_Pressure, int Axle3_Left_Pressure, int Axle3_Right_Pressure,
    int Axle4_Left_Outside_Pressure, int Axle4_Left_Inside_Pressure,
    int Axle4_Right_Inside_Pressure, int Axle4_Right_Outside_Pressure,
    int Axle5_Left_Outside_Pressure, int Axle5_Left_Inside_Pressure,
    int Axle5_Right_Inside_Pressure, int Axle5_Right_Outside_Pressure, int Axle6_Left_Pressure,
    int Axle6_Right_Pressure, int First_Spare_Pressure)
{
    m_data->publish<record::truckTpmsPressure>(
        CALL_SITE, Axle1_Left_Pressure, Axle1_Right_Pressure, Axle2_Left_Pressure,
        Axle2_Right_Pressure, Axle3_Left_Pressure, Axle3_Right_Pressure,
        Axle4_Left_Outside_Pressure, Axle4_Left_Inside_Pressure, Axle4_Right_Inside_Pressure,
        Axle4_Right_Outside_Pressure, Axle5_Left_Outside_Pressure, Axle5_Left_Inside_Pressure,
        Axle5_Right_Inside_Pressure, Axle5_Right_Outside_Pressure, Axle6_Left_Pressure,
        Axle6_Right_Pressure, First_Spare_Pressure);
}

void McuService::onReportTruckVehicleAlertsChanged(int Vehicle_Gear_Change,
                                                   int Vehicle_VehicleOverspeed,
                                                   int Vehicle_MSA_Signal, int Vehicle_Reserve1,
                                                   int Vehicle_Reserve2, int Vehicle_Reserve3,
                                                   int Vehicle_Reserve4)
{
    m_data->publish<record::truckVehicleAlerts>(
        CALL_SITE, Vehicle_Gear_Change, Vehicle_VehicleOverspeed, Vehicle_MSA_Signal,
        Vehicle_Reserve1, Vehicle_Reserve2, Vehicle_Reserve3, Vehicle_Reserve4);
}

void McuService::onReportTruckPerformanceParametersChanged(
    int Vehicle_IC_Total_Distance, int Vehicle_IC_Run_Time, int Vehicle_TripA_DistanceL,
    int Vehicle_TripA_DistanceH, int Vehicle_TripA_FuelEffKm, int Vehicle_TripA_FuelEffHrs,
    int Vehicle_TripA_HoursL, int Vehicle_TripA_HoursH, int Vehicle_TripB_DistanceL,
    int Vehicle_TripB_DistanceH, int Vehicle_TripB_FuelEffKm, int Vehicle_TripB_FuelEffHrs,
    int Vehicle_TripB_HoursL, int Vehicle_TripB_HoursH)
{
    m_data->publish<record::truckPerformanceParameters>(
        CALL_SITE, Vehicle_IC_Total_Distance, Vehicle_IC_Run_Time, Vehicle_TripA_DistanceL,
        Vehicle_TripA_DistanceH, Vehicle_TripA_FuelEffKm, Vehicle_TripA_FuelEffHrs,
        Vehicle_TripA_HoursL, Vehicle_TripA_HoursH, Vehicle_TripB_DistanceL,
        Vehicle_TripB_DistanceH, Vehicle_TripB_FuelEffKm, Vehicle_TripB_FuelEffHrs,
        Vehicle_TripB_HoursL, Vehicle_TripB_HoursH);
}

void McuService::onReportTruckVehicleParametersChanged(
    int Vehicle_EngFuelTemp1, int Vehicle_EngOilTemp1, int Vehicle_DPFLampCmd,
    int Vehicle_EngOilTemp2, int Vehicle_EngECUTemp, int Vehicle_CabInteriorTemp,
    int Vehicle_AmbientAirTemp, int Vehicle_EngAirIntakeTemp, int Vehicle_Reserve1,
    int Vehicle_Reserve2, int Vehicle_Reserve3, int Vehicle_Reserve4)
{
    m_data->publish<record::truckVehicleParameters>(
        CALL_SITE, Vehicle_EngFuelTemp1, Vehicle_EngOilTemp1, Vehicle_DPFLampCmd,
        Vehicle_EngOilTemp2, Vehicle_EngECUTemp, Vehicle_CabInteriorTemp, Vehicle_AmbientAirTemp,
        Vehicle_EngAirIntakeTemp, Vehicle_Reserve1, Vehicle_Reserve2, Vehicle_Reserve3,
        Vehicle_Reserve4);
}

QByteArray McuService::getTruckTpmsLearnData() { return m_data->image<record::truckTpmsLearn>(); }

QByteArray McuService::getTruckDmsData() { return m_data->image<record::truckDms>(); }

QByteArray McuService::getTruckRsr1Data() { return m_data->image<record::truckRsr1>(); }

QByteArray McuService::getTruckSecurityData() { return m_data->image<record::truckSecurity>(); }

QByteArray McuService::getTruckVehicleHealthData()
{
    return m_data->image<record::truckVehicleHealth>();
}

QByteArray McuService::getTruckRpasData() { return m_data->image<record::truckRpas>(); }

QByteArray McuService::getTruckTpmsThresholdData()
{
    return m_data->image<record::truckTpmsThreshold>();
}

QByteArray McuService::getTruckTpmsCtiData() { return m_data->image<record::truckTpmsCti>(); }

QByteArray McuService::getTruckTpmsTemperatureData()
{
    return m_data->image<record::truckTpmsTemperature>();
}

QByteArray McuService::getTruckTpmsPressureData()
{
    return m_data->image<record::truckTpmsPressure>();
}

QByteArray McuService::getTruckVehicleAlertsData()
{
    return m_data->image<record::truckVehicleAlerts>();
}

QByteArray McuService::getTruckPerformanceParametersData()
{
    return m_data->image<record::truckPerformanceParameters>();
}

QByteArray McuService::getTruckVehicleParametersData()
{
    return m_data->image<record::truckVehicleParameters>();
}

} // namespace mcu
