// All vehicle records as tables: signals, getter, dump tag, readiness bit and hold of each, and its
// fields in argument order with their widths and the gap bytes between them.
#pragma once

#include "mcuservice.h"
#include "recordlayout_p.h"

namespace mcu::record {

/// Fields of 8, 16 and 32 bits; narrow fields keep the low bits of their value.
constexpr Field byte(const char *name) { return {name, 1}; }

constexpr Field le16(const char *name) { return {name, 2}; }

constexpr Field le32(const char *name) { return {name, 4}; }

constexpr Field gap() { return {nullptr, 1}; }

constexpr Readiness carBit(quint32 bit) { return {Readiness::Set::Car, bit}; }

constexpr Readiness truckBit(quint32 bit) { return {Readiness::Set::Truck, bit}; }

inline constexpr RecordDescription ac{
    "Air conditioning",
    "reportAcChangedSgl",
    &McuService::syncACInforUpdate,
    "getReportACDate",
    "!qrk#---ac_infor---",
    {byte("KeyState"), byte("AcType"), byte("Templevel"), byte("ModeDisp"),
     byte("HVAC_diagnosis_req"), byte("SetTemDisp"), byte("BlowerLvl"), byte("ExtTemp"),
     byte("IndicatorAutoFront"), byte("IndicatorDefrostFront"), byte("IndicatorACFront"),
     byte("IndicatorOFFFront"), byte("IndicatorACMAX"), byte("InternalRecycle"),
     byte("DefrostRear")},
    carBit(4),
};

inline constexpr RecordDescription avm{
    "Surround view",
    "reportAVMChangedSgl",
    &McuService::syncAVMInforUpdate,
    "getReportAVMDate",
    nullptr,
    {byte("WorkModeFeedback"), byte("ViewSideFeedback"), byte("WorkState"), byte("SpeedSetResp"),
     byte("VideoType"), byte("WarnType")},
};

inline constexpr RecordDescription vehicleSpeed{
    "Vehicle speed",
    "reportVehicleSpeedChangedSgl",
    &McuService::syncVehicleSpeedInforUpdate,
    nullptr,
    "!qrk#---vehicle_speed_infor---",
    {le32("vehicle_speed"), le32("vehicle_speed_valid"), le32("Reserve"), le32("Reserve1")},
};

inline constexpr RecordDescription steeringAngle{
    "Steering angle",
    "reportSteeringAngleChangedSgl",
    &McuService::syncSteeringAngleInforUpdate,
    "getSteeringAngleChanged",
    nullptr,
    {le32("steering_angle"), le32("steering_angle_dir"), le32("Reserve"), le32("Reserve1")},
};

inline constexpr RecordDescription featureCode{
    "Feature code",
    "reportFeatureCodeChangedSgl",
    &McuService::syncFeatureCodeInforUpdate,
    nullptr,
    "!qrk#---feature_code_infor---",
    {byte("code0"), byte("code1"), byte("code2"), byte("code3"), byte("code4")},
    carBit(1),
};

inline constexpr RecordDescription hu{
    "Head unit",
    "reportHuChangedSgl",
    &McuService::syncHuInforUpdate,
    "getReportHuDate",
    "!qrk#---hu_infor---",
    {byte("HU_Date0"), byte("HU_Date1"), byte("HU_Date2"), byte("HU_Date3"), byte("HU_Date4"),
     byte("HU_Date5"), byte("HU_Date6"), byte("HU_Date7"), byte("HU_Date8"), byte("HU_Date9"),
     byte("HU_Date10"), byte("HU_Date11")},
    carBit(2),
    Hold{2, 4, false}, // Kept: unlike fault reports, these do not restart the hold
};

inline constexpr RecordDescription amb{
    "Ambient light",
    "reportAmbChangedSgl",
    &McuService::syncAmbInforUpdate,
    nullptr,
    "!qrk#---amb_infor---",
    {byte("State"), byte("ShowModelStatus"), byte("ShowFrequency"), byte("SafeModelSW"),
     byte("ColorModelSelect"), byte("SynchronizeWithBackLight")},
};

inline constexpr RecordDescription pdc{
    "Parking distances",
    "reportPdcChangedSgl",
    &McuService::syncPdcInforUpdate,
    "getReportPdcDate",
    nullptr,
    {byte("FFLPDCDistance"), byte("FSLPDCDistance"), byte("FSRPDCDistance"), byte("FFRPDCDistance"),
     byte("RFLPDCDistance"), byte("RSLPDCDistance"), byte("RSRPDCDistance"), byte("RFRPDCDistance"),
     byte("PAS_SW"), byte("PDCSysSts"), byte("ReverseAssisVideo")},
};

inline constexpr RecordDescription tpms{
    "Tyre pressure monitoring",
    "reportTpmsChangedSgl",
    &McuService::syncTpmsInforUpdate,
    "getReportTpmsDate",
    "!qrk#---tpms_infor---",
    {byte("FLTirePres"), byte("FRTirePres"), byte("RLTirePres"), byte("RRTirePres"),
     byte("FLPressureWarning"), byte("FRPressureWarning"), byte("RLPressureWarning"),
     byte("RRPressureWarning"), byte("FLTempHigh"), byte("FRTempHigh"), byte("RLTempHigh"),
     byte("RRTempHigh"), byte("SystemWarning"), byte("StudyFailureWarning"), byte("FLTireTemp"),
     byte("FRTireTemp"), byte("RLTireTemp"), byte("RRTireTemp")},
    carBit(8),
};

inline constexpr RecordDescription vehicleBody{
    "Vehicle body",
    "reportVehicleBodyChangedSgl",
    &McuService::syncVehicleBodyInforUpdate,
    "getReportVehicleBodyDate",
    "!qrk#---vehicle_body_infor---",
    {byte("TurnSwitch"), byte("DoorStatus"), byte("KeyState"), byte("data3"), byte("data4"),
     byte("data5"), byte("data6"), byte("data7")},
    carBit(64),
};

inline constexpr RecordDescription meterSetting{
    "Meter settings",
    "reportMeterSettingChangedSgl",
    &McuService::syncMeterSettingInforUpdate,
    "getReportMeterSetting",
    "!qrk#---meter_setting_infor---",
    {byte("data0"), byte("data1"), byte("data2"), byte("data3"), byte("data4"), byte("data5"),
     byte("data6"), byte("data7")},
    carBit(16),
};

inline constexpr RecordDescription vehicleFault{
    "Vehicle faults",
    "reportVehicleFaultChangedSgl",
    &McuService::syncVehicleFaultInforUpdate,
    "getReportVehicleFaultData",
    "!qrk#---vehicle_fault_infor---",
    {byte("data0"), byte("data1"), byte("data2"), byte("data3"), byte("data4"), byte("data5"),
     byte("data6"), byte("data7")},
    carBit(32),
    Hold{1, 6, true}, // a continuous stream of faults is emitted at its end
};

inline constexpr RecordDescription ampStatus{
    "Amplifier status",
    "ampStatusChangedSgl",
    &McuService::syncAmpStatusUpdate,
    "getReportAmpStatusDate",
    "!qrk#---amp_status---",
    {byte("AMP_Date0"), byte("AMP_Date1"), byte("AMP_Date2"), byte("AMP_Date3"), byte("AMP_Date4"),
     byte("AMP_Date5"), byte("AMP_Date6"), byte("AMP_Date7"), byte("AMP_Date8")},
};

inline constexpr RecordDescription avmCalibrationCommand{
    "Surround-view calibration command",
    "avmCalibrationCmdChangedSgl",
    &McuService::syncAvmCalibrationCmdUpdate,
    "getAvmCalibrationCmdData",
    "!qrk#---avm_calibration_cmd---",
    {byte("calibration_start"), byte("reserve0"), byte("reserve1"), byte("reserve2")},
};

inline constexpr RecordDescription dtcFlag{
    "Diagnostic trouble code flags",
    "reportDtcFlagChangedSgl",
    &McuService::syncDtcFlagInforUpdate,
    nullptr,
    "!qrk#---dtc_flag_infor---",
    {le32("dtc_flag1"), le32("dtc_flag2"), le32("dtc_flag3"), le32("dtc_flag4")},
};

// Truck reports

inline constexpr RecordDescription truckTpmsLearn{
    "Truck: learning of tyre sensors",
    "reportTruckTpmsLearnChangedSgl",
    &McuService::syncTruckTpmsLearnInforUpdate,
    "getTruckTpmsLearnData",
    "!qrk#---truck_tpms_learn_infor---",
    {byte("TPMS_Learn_ResponseFeatureID"), byte("TPMS_Learn_ResponseStatus"),
     byte("TPMS_Learn_TireStatusData2"), byte("TPMS_Learn_TireStatusData3"),
     byte("TPMS_Learn_TireStatusData4"), byte("TPMS_Learn_TireStatusData5"),
     byte("TPMS_Learn_TireStatusData6"), byte("TPMS_Learn_TireStatusData7"),
     byte("TPMS_Learn_TireStatusData8"), byte("TPMS_Learn_Reserve1"), byte("TPMS_Learn_Reserve2")},
    truckBit(0x200),
};

inline constexpr RecordDescription truckDms{
    "Truck: driver monitoring",
    "reportTruckDmsChangedSgl",
    &McuService::syncTruckDmsInforUpdate,
    "getTruckDmsData",
    "!qrk#---truck_dms_infor---",
    {byte("DMS_DistractionWarning"), byte("DMS_CanData2"), byte("DMS_CanData3"),
     byte("DMS_Reserve1"), byte("DMS_Reserve2"), byte("DMS_Reserve3"), byte("DMS_Reserve4")},
    truckBit(0x100),
};

inline constexpr RecordDescription truckRsr1{
    "Truck: road-sign recognition",
    "reportTruckRsr1ChangedSgl",
    &McuService::syncTruckRsr1InforUpdate,
    "getTruckRsr1Data",
    "!qrk#---truck_rsr1_infor---",
    {byte("RSR1_MenAtWorkSign"), byte("RSR1_StopSign"), byte("RSR1_RSRSystemState"),
     byte("RSR1_TSRSpeedSignDetected"), byte("RSR1_SpeedLimitIconCommand"),
     byte("RSR1_NarrowRoadSign"), byte("RSR1_SlipperyRoadSignDetected"), byte("RSR1_Reserve1"),
     byte("RSR1_Reserve2"), byte("RSR1_Reserve3"), byte("RSR1_Reserve4")},
    truckBit(0x80),
};

inline constexpr RecordDescription truckSecurity{
    "Truck: driver-assistance lamps",
    "reportTruckSecurityChangedSgl",
    &McuService::syncTruckSecurityInforUpdate,
    "getTruckSecurityData",
    "!qrk#---truck_security_infor---",
    {byte("Security_LDW_Lamp_Status"), byte("Security_ACC_Lamp_Status"),
     byte("Security_AEBS_Lamp_Status"), byte("Security_AEBS_System_Status"),
     byte("Security_FLI_Right_Side"), byte("Security_FLI_Left_Side"), byte("Security_ACC_Mode"),
     byte("Security_ACC_Distance_Mode"), byte("Security_ACC_Shutoff_Warning"),
     byte("Security_ACC_Alert_Signal"), byte("Security_TPMS_warning_Lamp"),
     byte("Security_Reserve1"), byte("Security_Reserve2"), byte("Security_Reserve3"),
     byte("Security_Reserve4")},
    truckBit(0x40),
};

// Kept: the dump tag has no "health"; log filters match it.
inline constexpr RecordDescription truckVehicleHealth{
    "Truck: vehicle health",
    "reportTruckVehicleHealthChangedSgl",
    &McuService::syncTruckVehicleHealthInforUpdate,
    "getTruckVehicleHealthData",
    "!qrk#---truck_vehicle_infor---",
    {le16("Vehicle_Battery_Potential"), byte("Vehicle_Fluid_Tank_Level"),
     byte("Vehicle_Engine_Coolant_Temp"), byte("Vehicle_Coolant_Level"),
     byte("Vehicle_Transmission_Mode1"), byte("Vehicle_Transmission_Mode2"),
     byte("Vehicle_FuelLevel1"), byte("Vehicle_FuelLevel2"), byte("Vehicle_EngOilLevel"),
     byte("Vehicle_Reserve1"), byte("Vehicle_Reserve2"), byte("Vehicle_Reserve3"),
     byte("Vehicle_Reserve4")},
    truckBit(0x20),
};

inline constexpr RecordDescription truckRpas{
    "Truck: rear parking sensors",
    "reportTruckRpasChangedSgl",
    &McuService::syncTruckRpasInforUpdate,
    "getTruckRpasData",
    "!qrk#---truck_rpas_infor---",
    {byte("RPAS_Active_Sensor_Status"), byte("RPAS_Sensor1_Distance"),
     byte("RPAS_Sensor2_Distance"), byte("RPAS_Sensor3_Distance"), byte("RPAS_Sensor4_Distance"),
     byte("RPAS_Sensor5_Distance"), byte("RPAS_Shortest_Distance"), byte("RPAS_Warning_Levels"),
     byte("RPAS_Reserve1"), byte("RPAS_Reserve2"), byte("RPAS_Reserve3")},
    truckBit(0x10),
};

inline constexpr RecordDescription truckTpmsThreshold{
    "Truck: tyre pressure thresholds",
    "reportTruckTpmsThresholdChangedSgl",
    &McuService::syncTruckTpmsThresholdUpdate,
    "getTruckTpmsThresholdData",
    "!qrk#---truck_tpms_threshold---",
    {byte("Axle1_Left_Threshold"), byte("Axle1_Right_Threshold"), byte("Axle2_Left_Threshold"),
     byte("Axle2_Right_Threshold"), byte("Axle3_Left_Threshold"), byte("Axle3_Right_Threshold"),
     byte("Axle4_Left_Outside_Threshold"), byte("Axle4_Left_Inside_Threshold"),
     byte("Axle4_Right_Inside_Threshold"), byte("Axle4_Right_Outside_Threshold"),
     byte("Axle5_Left_Outside_Threshold"), byte("Axle5_Left_Inside_Threshold"),
     byte("Axle5_Right_Inside_Threshold"), byte("Axle5_Right_Outside_Threshold"),
     byte("Axle6_Left_Threshold"), byte("Axle6_Right_Threshold"), byte("First_Spare_Threshold")},
    truckBit(0x08),
};

inline constexpr RecordDescription truckTpmsCti{
    "Truck: central tyre inflation",
    "reportTruckTpmsCtiChangedSgl",
    &McuService::syncTruckTpmsCtiInforUpdate,
    "getTruckTpmsCtiData",
    "!qrk#---truck_tpms_cti_infor---",
    {byte("Axle1_Left_CTIInfor"), byte("Axle1_Right_CTIInfor"), byte("Axle2_Left_CTIInfor"),
     byte("Axle2_Right_CTIInfor"), byte("Axle3_Left_CTIInfor"), byte("Axle3_Right_CTIInfor"),
     byte("Axle4_Left_Outside_CTIInfor"), byte("Axle4_Left_Inside_CTIInfor"),
     byte("Axle4_Right_Inside_CTIInfor"), byte("Axle4_Right_Outside_CTIInfor"),
     byte("Axle5_Left_Outside_CTIInfor"), byte("Axle5_Left_Inside_CTIInfor"),
     byte("Axle5_Right_Inside_CTIInfor"), byte("Axle5_Right_Outside_CTIInfor"),
     byte("Axle6_Left_CTIInfor"), byte("Axle6_Right_CTIInfor"), byte("First_Spare_CTIInfor")},
    truckBit(0x04),
};

inline constexpr RecordDescription truckTpmsTemperature{
    "Truck: tyre temperatures",
    "reportTruckTpmsTemperatureChangedSgl",
    &McuService::syncTruckTpmsTemperatureUpdate,
    "getTruckTpmsTemperatureData",
    "!qrk#---truck_tpms_temperature---",
    {le16("Axle1_Left_Temp"), le16("Axle1_Right_Temp"), le16("Axle2_Left_Temp"),
     le16("Axle2_Right_Temp"), le16("Axle3_Left_Temp"), le16("Axle3_Right_Temp"),
     le16("Axle4_Left_Outside_Temp"), le16("Axle4_Left_Inside_Temp"),
     le16("Axle4_Right_Inside_Temp"), le16("Axle4_Right_Outside_Temp"),
     le16("Axle5_Left_Outside_Temp"), le16("Axle5_Left_Inside_Temp"),
     le16("Axle5_Right_Inside_Temp"), le16("Axle5_Right_Outside_Temp"), le16("Axle6_Left_Temp"),
     le16("Axle6_Right_Temp"), le16("First_Spare_Temp")},
    truckBit(0x02),
};

inline constexpr RecordDescription truckTpmsPressure{
    "Truck: tyre pressures",
    "reportTruckTpmsPressureChangedSgl",
    &McuService::syncTruckTpmsPressureUpdate,
    "getTruckTpmsPressureData",
    "!qrk#---truck_tpms_pressure---",
    {byte("Axle1_Left_Pressure"), byte("Axle1_Right_Pressure"), byte("Axle2_Left_Pressure"),
     byte("Axle2_Right_Pressure"), byte("Axle3_Left_Pressure"), byte("Axle3_Right_Pressure"),
     byte("Axle4_Left_Outside_Pressure"), byte("Axle4_Left_Inside_Pressure"),
     byte("Axle4_Right_Inside_Pressure"), byte("Axle4_Right_Outside_Pressure"),
     byte("Axle5_Left_Outside_Pressure"), byte("Axle5_Left_Inside_Pressure"),
     byte("Axle5_Right_Inside_Pressure"), byte("Axle5_Right_Outside_Pressure"),
     byte("Axle6_Left_Pressure"), byte("Axle6_Right_Pressure"), byte("First_Spare_Pressure")},
    truckBit(0x01),
};

inline constexpr RecordDescription truckVehicleAlerts{
    "Truck: alerts",
    "reportTruckVehicleAlertsChangedSgl",
    &McuService::syncTruckVehicleAlertsInforUpdate,
    "getTruckVehicleAlertsData",
    "!qrk#---truck_vehicle_alerts_infor---",
    {byte("Vehicle_Gear_Change"), byte("Vehicle_VehicleOverspeed"), byte("Vehicle_MSA_Signal"),
     byte("Vehicle_Reserve1"), byte("Vehicle_Reserve2"), byte("Vehicle_Reserve3"),
     byte("Vehicle_Reserve4")},
    truckBit(0x1000),
};

// Distances and hours have 24 bits: a low word and a high byte.
inline constexpr RecordDescription truckPerformanceParameters{
    "Truck: trip computer",
    "reportTruckPerformanceParametersChangedSgl",
    &McuService::syncTruckPerformanceParametersInforUpdate,
    "getTruckPerformanceParametersData",
    "!qrk#---truck_performance_parameters_infor---",
    {le32("Vehicle_IC_Total_Distance"), le32("Vehicle_IC_Run_Time"),
     le16("Vehicle_TripA_DistanceL"), byte("Vehicle_TripA_DistanceH"),
     byte("Vehicle_TripA_FuelEffKm"), le16("Vehicle_TripA_FuelEffHrs"),
     le16("Vehicle_TripA_HoursL"), byte("Vehicle_TripA_HoursH"), gap(),
     le16("Vehicle_TripB_DistanceL"), byte("Vehicle_TripB_DistanceH"),
     byte("Vehicle_TripB_FuelEffKm"), le16("Vehicle_TripB_FuelEffHrs"),
     le16("Vehicle_TripB_HoursL"), byte("Vehicle_TripB_HoursH"), gap()},
    truckBit(0x800),
};

inline constexpr RecordDescription truckVehicleParameters{
    "Truck: engine and cab temperatures",
    "reportTruckVehicleParametersChanged",
    &McuService::syncTruckVehicleParametersInforUpdate,
    "getTruckVehicleParametersData",
    "!qrk#---truck_vehicle_parameters_infor---",
    {byte("Vehicle_EngFuelTemp1"), gap(), le16("Vehicle_EngOilTemp1"), byte("Vehicle_DPFLampCmd"),
     gap(), le16("Vehicle_EngOilTemp2"), le16("Vehicle_EngECUTemp"),
     le16("Vehicle_CabInteriorTemp"), le16("Vehicle_AmbientAirTemp"),
     byte("Vehicle_EngAirIntakeTemp"), byte("Vehicle_Reserve1"), byte("Vehicle_Reserve2"),
     byte("Vehicle_Reserve3"), byte("Vehicle_Reserve4"), gap()},
    truckBit(0x400),
};

} // namespace mcu::record

namespace mcu {

/// All kinds of records: the facade stores them, tools and pages show them.
using VehicleRecords = RecordSet<
    record::ac, record::avm, record::vehicleSpeed, record::steeringAngle, record::featureCode,
    record::hu, record::amb, record::pdc, record::tpms, record::vehicleBody, record::meterSetting,
    record::vehicleFault, record::ampStatus, record::avmCalibrationCommand, record::dtcFlag,
    record::truckTpmsLearn, record::truckDms, record::truckRsr1, record::truckSecurity,
    record::truckVehicleHealth, record::truckRpas, record::truckTpmsThreshold, record::truckTpmsCti,
    record::truckTpmsTemperature, record::truckTpmsPressure, record::truckVehicleAlerts,
    record::truckPerformanceParameters, record::truckVehicleParameters>;

} // namespace mcu
