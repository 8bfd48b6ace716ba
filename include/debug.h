// The log line that every class of the library writes, and the scope tracer.
//
//     MCU_DEBUG << "channel=" << channel;
//
// gives one line of the Qt message logger, category "default":
//
//     [DBG] 4711 void McuManager::updateAudioChannel(McuManager::AudioChannel) 88 -- channel= 3
//
// The items are the tag, the kernel's thread id, the function, the line and "--", then the text.
// While debug output of the default category is off, a line costs one test: nothing behind the <<
// is evaluated.
#pragma once

#include "mcuserviceexport.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QString>

/// Where a log line comes from. Passed along where one function writes the line for its callers.
struct CallSite {
    const char *file;
    int line;
    const char *function;
};

/// The place in the source where it stands; files are relative to the source root.
#define CALL_SITE CallSite({__FILE__, __LINE__, Q_FUNC_INFO})

/// Streams of one log line with everything up to and including "--" written. The thread id is asked
/// from the kernel each time, so it is right in a forked child too.
MCUSERVICE_EXPORT QDebug debugLine(const CallSite &site);
MCUSERVICE_EXPORT QDebug criticalLine(const CallSite &site);

// Late in process exit the category is gone; then only errors are still written.
inline bool isDebugLogged()
{
    const QLoggingCategory *category = QLoggingCategory::defaultCategory();
    return category && category->isDebugEnabled();
}

inline bool isCriticalLogged()
{
    const QLoggingCategory *category = QLoggingCategory::defaultCategory();
    return !category || category->isCriticalEnabled();
}

/// An ordinary "[DBG]" line.
#define MCU_DEBUG                                                                                  \
    for (bool mcuLogged = isDebugLogged(); mcuLogged; mcuLogged = false)                           \
    debugLine(CALL_SITE)
/// An error "[ERR]" line.
#define MCU_CRITICAL                                                                               \
    for (bool mcuLogged = isCriticalLogged(); mcuLogged; mcuLogged = false)                        \
    criticalLine(CALL_SITE)

/// Logs entering a scope, the milliseconds spent in it and leaving it:
///
///     AutoPrint trace(Q_FUNC_INFO, __LINE__);
///
/// The entry line's own cost is not counted. Times are taken from the monotonic clock as unsigned
/// 32-bit milliseconds; a scope that spans their wrap after 49.7 days is measured correctly.
class MCUSERVICE_EXPORT AutoPrint {
public:
    AutoPrint(const char *name, int line);
    ~AutoPrint();
    AutoPrint(const AutoPrint &) = delete;
    AutoPrint &operator=(const AutoPrint &) = delete;

private:
    quint32 m_start = 0;
    quint32 m_end = 0;
    QString m_name;
    int m_line;
};
