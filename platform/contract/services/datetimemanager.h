// The platform clock as the state cache needs it: hxdatetime::DateTimeManager, closed.
#pragma once

#include <QtGlobal>

namespace hxdatetime {

/// Owner of the system clock.
class Q_DECL_IMPORT DateTimeManager {
public:
    static DateTimeManager *instance();

    /// Sets the system clock. The facade passes false for the flag, always.
    void setDateTime(int year, int month, int day, int hour, int minute, int second, bool flag);
};

} // namespace hxdatetime
