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

#include <optional>
#include <type_traits>

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

namespace mcu {

/// One log line, written when the object ends. It takes all that QDebug takes and writes the same
/// bytes, at less cost: the usual items are composed into one text. From the first other item on, a
/// QDebug composes the line.
class MCUSERVICE_EXPORT LogLine {
    template <typename Type>
    static constexpr bool isNumber =
        std::is_integral_v<Type> && !std::is_same_v<std::remove_cv_t<Type>, bool> &&
        !std::is_same_v<std::remove_cv_t<Type>, char> &&
        !std::is_same_v<std::remove_cv_t<Type>, char16_t> &&
        !std::is_same_v<std::remove_cv_t<Type>, char32_t>;

public:
    /// Begins a line of QtDebugMsg, "[DBG]", or QtCriticalMsg, "[ERR]", with all items up to "--".
    LogLine(QtMsgType type, const CallSite &site);
    /// Writes the line.
    ~LogLine();
    Q_DISABLE_COPY_MOVE(LogLine)

    /// Adds a text in UTF-8, as it is. As from each item, an rvalue comes back, so that an operator
    /// template of an application, for streams of any type, is instantiated for QDebug only.
    LogLine &&operator<<(const char *text);
    /// Adds a text in quotes, with QDebug's escapes.
    LogLine &&operator<<(const QString &text);
    /// Adds bytes in quotes, with QDebug's escapes.
    LogLine &&operator<<(const QByteArray &bytes);
    /// Adds "true" or "false".
    LogLine &&operator<<(bool value);
    /// Adds an integer, in decimal digits.
    template <typename Number, std::enable_if_t<isNumber<Number>, int> = 0>
    LogLine &&operator<<(Number number)
    {
        using Widest = std::conditional_t<std::is_signed_v<Number>, qlonglong, qulonglong>;
        return addNumber(Widest(number));
    }
    /// Adds anything else that QDebug takes; a QDebug composes the line from here on.
    template <typename Item, std::enable_if_t<!isNumber<Item>, int> = 0>
    QDebug &operator<<(const Item &item)
    {
        stream() << item;
        return stream();
    }

    QDebug &space() { return stream().space(); }           ///< as QDebug::space()
    QDebug &nospace() { return stream().nospace(); }       ///< as QDebug::nospace()
    QDebug &maybeSpace() { return stream().maybeSpace(); } ///< as QDebug::maybeSpace()
    QDebug &quote() { return stream().quote(); }           ///< as QDebug::quote()
    QDebug &noquote() { return stream().noquote(); }       ///< as QDebug::noquote()
    /// As QDebug::maybeQuote().
    QDebug &maybeQuote(char mark = '"') { return stream().maybeQuote(mark); }
    /// As QDebug::verbosity().
    QDebug &verbosity(int level) { return stream().verbosity(level); }
    QDebug &resetFormat() { return stream().resetFormat(); } ///< as QDebug::resetFormat()

    /// The QDebug that composes the line from now on. The line is written when its last copy ends.
    QDebug &stream();

private:
    LogLine &&addNumber(qlonglong number);
    LogLine &&addNumber(qulonglong number);

    const QtMsgType m_type;
    const QMessageLogContext m_context;
    QString m_text; ///< the line so far, until there is a stream
    std::optional<QDebug> m_stream;
};

} // namespace mcu

/// An ordinary "[DBG]" line; see the top of this file.
#define MCU_DEBUG                                                                                  \
    for (bool mcuLogged = isDebugLogged(); mcuLogged; mcuLogged = false)                           \
    mcu::LogLine(QtDebugMsg, CALL_SITE)
/// An error "[ERR]" line, otherwise as MCU_DEBUG.
#define MCU_CRITICAL                                                                               \
    for (bool mcuLogged = isCriticalLogged(); mcuLogged; mcuLogged = false)                        \
    mcu::LogLine(QtCriticalMsg, CALL_SITE)

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
