// Vehicle records by name, with their fields and values: for the simulator and for the tables of
// docs/vehicle-records.md.
#pragma once

#include "vehiclerecords_p.h"

#include <QHash>
#include <QMetaMethod>

#include <vector>

namespace mcu {

inline constexpr auto &recordCatalog = VehicleRecords::descriptions;

/// The name of the facade's signal with the record.
inline QByteArray signalName(const RecordDescription &description)
{
    return QMetaMethod::fromSignal(description.signal).name();
}

/// The kind of report that a signal of the facade, given by its name, emits; null for none.
inline const RecordDescription *describeRecord(const QByteArray &signal)
{
    static const auto bySignal = [] {
        QHash<QByteArray, const RecordDescription *> descriptions;
        for (const RecordDescription *description : recordCatalog)
            descriptions.insert(signalName(*description), description);
        return descriptions;
    }();
    return bySignal.value(signal);
}

struct FieldValue {
    const char *name;
    int value;
};

/// The fields of an image with their values; none if its length is not that of the record, as for
/// the extended feature code package.
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
