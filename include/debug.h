/// \file
/// The log line that every class of the library writes, and the scope tracer.
///
///     MCU_DEBUG << "channel=" << channel;
///
/// writes one line to the Qt message logger, category "default":
///
///     [DBG] 4711 void McuManager::updateAudioChannel(McuManager::AudioChannel) 88 -- channel= 3
///
/// The items are the tag, the kernel's thread id, the function, the line and "--", then the text.
/// While debug output of the default category is off, a line costs one test and the items of the
/// text are not evaluated. Everything here is thread-safe and reports no error.
#pragma once

#include "mcuserviceexport.h"

#include <QDebug>
#include <QLoggingCategory>
#include <QString>

/// Where a log line comes from. Passed on where one function writes the line for its callers.
struct CallSite {
    const char *file;     ///< `__FILE__`; in the library relative to the source root
    int line;             ///< `__LINE__`
    const char *function; ///< `Q_FUNC_INFO`, the full signature
};

/// A call site from its parts; the texts must outlive it.
constexpr CallSite callSite(const char *file, int line, const char *function)
{
    return {file, line, function};
}

/// The call site of the statement that contains it.
#define CALL_SITE callSite(__FILE__, __LINE__, Q_FUNC_INFO)

/// Stream of one "[DBG]" line, written up to and including "--"; the line ends with the stream. The
/// thread id is queried from the kernel each time, so it is right in a forked child too.
/// Writes even while debug output is off: test isDebugLogged() first.
MCUSERVICE_EXPORT QDebug debugLine(const CallSite &site);
/// Stream of one "[ERR]" line, as debugLine(); test isCriticalLogged() first.
MCUSERVICE_EXPORT QDebug criticalLine(const CallSite &site);

/// Whether "[DBG]" lines are written: debug output of the default category is on. False late in
/// process exit, when the category no longer exists.
inline bool isDebugLogged()
{
    const QLoggingCategory *category = QLoggingCategory::defaultCategory();
    return category && category->isDebugEnabled();
}

/// Whether "[ERR]" lines are written: critical output of the default category is on. True late in
/// process exit, when the category no longer exists.
inline bool isCriticalLogged()
{
    const QLoggingCategory *category = QLoggingCategory::defaultCategory();
    return !category || category->isCriticalEnabled();
}

/// Stream of an ordinary "[DBG]" line; see the top of this file.
#define MCU_DEBUG                                                                                  \
    for (bool mcuLogged = isDebugLogged(); mcuLogged; mcuLogged = false)                           \
    debugLine(CALL_SITE)
/// Stream of an error "[ERR]" line, otherwise as MCU_DEBUG.
#define MCU_CRITICAL                                                                               \
    for (bool mcuLogged = isCriticalLogged(); mcuLogged; mcuLogged = false)                        \
    criticalLine(CALL_SITE)

/// Logs entering a scope, the milliseconds spent in it and leaving it, in three debug lines:
///
///     AutoPrint trace(Q_FUNC_INFO, __LINE__);
///
/// Time is taken from the monotonic clock as unsigned 32-bit milliseconds; a scope that spans their
/// wrap after 49.7 days is measured correctly. Kept: the lines have "include/debug" as their file
/// and this class as their function; components that share the header know them by it.
class MCUSERVICE_EXPORT AutoPrint {
public:
    /// Writes the "[--IN--]" line with the name (UTF-8) and line, then takes the start time.
    AutoPrint(const char *name, int line);
    /// Takes the end time, then writes the "[--ExecTime--]" and "[--OUT--]" lines.
    ~AutoPrint();
    /// One scope, one object.
    AutoPrint(const AutoPrint &) = delete;
    /// One scope, one object.
    AutoPrint &operator=(const AutoPrint &) = delete;

private:
    quint32 m_start = 0;
    quint32 m_end = 0;
    QString m_name;
    int m_line;
};
