/// \file
/// The log macros of the library, and the scope tracer.
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

/// The place that a log line names. A function that writes the line for its callers gets theirs.
struct CallSite {
    const char *file;     ///< `__FILE__`; in the library relative to the source root
    int line;             ///< `__LINE__`
    const char *function; ///< `Q_FUNC_INFO`, the full signature
};

/// The call site of the statement that contains it.
#define CALL_SITE CallSite({__FILE__, __LINE__, Q_FUNC_INFO})

/// Stream of one "[DBG]" line, written up to and including "--"; the line ends with the stream. The
/// thread id is queried from the kernel each time, so it is right in a forked child too.
/// While debug output is off, the line is formatted and then dropped: test isDebugLogged() first.
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
/// and this class as their function; components that share the header identify the lines by them.
class MCUSERVICE_EXPORT AutoPrint {
public:
    /// Writes the "[--IN--]" line with the name (UTF-8) and line, then takes the start time.
    AutoPrint(const char *name, int line);
    /// Takes the end time, then writes the "[--ExecTime--]" and "[--OUT--]" lines.
    ~AutoPrint();
    /// Not copyable: one object per scope.
    AutoPrint(const AutoPrint &) = delete;
    /// Not copyable: one object per scope.
    AutoPrint &operator=(const AutoPrint &) = delete;

private:
    quint32 m_start = 0;
    quint32 m_end = 0;
    QString m_name;
    int m_line;
};
