/// \file
/// The platform clock, a closed class, as far as the facade uses it.
#pragma once

#include <QtGlobal>

namespace hxdatetime {

/// Sets the system clock. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT DateTimeManager {
public:
    /// The one object; never null.
    static DateTimeManager *instance();

    /// Sets the system clock to the values of a report of the MCU. flag is always false.
    void setDateTime(int year, int month, int day, int hour, int minute, int second, bool flag);
};

} // namespace hxdatetime
