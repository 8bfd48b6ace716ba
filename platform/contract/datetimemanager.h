/// \file
/// The platform clock as the state cache needs it: hxdatetime::DateTimeManager, closed.
#pragma once

#include <QtGlobal>

namespace hxdatetime {

/// Owner of the system clock. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT DateTimeManager {
public:
    /// The one object; never null.
    static DateTimeManager *instance();

    /// Sets the system clock to a report of the MCU, values as reported. flag is always false.
    void setDateTime(int year, int month, int day, int hour, int minute, int second, bool flag);
};

} // namespace hxdatetime
