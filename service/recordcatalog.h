// All kinds of vehicle reports in one list, for whoever shows a record to people: the desk tool and
// the tables of docs/vehicle-records.md.
#pragma once

#include "vehiclerecords.h"

#include <QtGlobal>

#include <vector>

namespace mcu {

inline constexpr const RecordDescription *recordCatalog[]{
    &record::ac,
    &record::avm,
    &record::vehicleSpeed,
    &record::steeringAngle,
    &record::featureCode,
    &record::hu,
    &record::amb,
    &record::pdc,
    &record::tpms,
    &record::vehicleBody,
    &record::meterSetting,
    &record::vehicleFault,
    &record::ampStatus,
    &record::avmCalibrationCommand,
    &record::dtcFlag,
    &record::truckTpmsLearn,
    &record::truckDms,
    &record::truckRsr1,
    &record::truckSecurity,
    &record::truckVehicleHealth,
    &record::truckRpas,
    &record::truckTpmsThreshold,
    &record::truckTpmsCti,
    &record::truckTpmsTemperature,
    &record::truckTpmsPressure,
    &record::truckVehicleAlerts,
    &record::truckPerformanceParameters,
    &record::truckVehicleParameters,
};

/// The kind of report that a signal of the facade carries, by the signal's name; null for none.
inline const RecordDescription *describeRecord(const char *signalName)
{
    for (const RecordDescription *description : recordCatalog) {
        if (qstrcmp(description->signal, signalName) == 0)
            return description;
    }
    return nullptr;
}

struct FieldValue {
    const char *name;
    int value;
};

/// The fields of an image by name; none when it has not the length of the record, as the extended
/// feature code package.
inline std::vector<FieldValue> fieldValues(const RecordDescription &description,
                                           const QByteArray &image)
{
    std::vector<FieldValue> values;
    if (image.size() != int(description.size()))
        return values;
    const char *at = image.constData();
    for (const Field &field : description.fields) {
        if (!field.isGap())
            values.push_back({field.name, field.read(at)});
        at += field.width;
    }
    return values;
}

} // namespace mcu
