// The log lines of the library itself. Applications keep the QDebug of MCU_DEBUG, because only
// where a line is written are all of an application's operators for QDebug found.
#pragma once

#include "debug.h"

#include <optional>
#include <type_traits>

namespace mcu {

/// One log line, written when the object ends. It writes the bytes of debugLine() or
/// criticalLine(), at less cost: the usual items are composed into one text. From the first other
/// item on, a QDebug composes the line.
class LogLine {
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

    /// Adds an item.
    ///@{
    LogLine &operator<<(const char *text);
    LogLine &operator<<(const QString &text);
    LogLine &operator<<(const QByteArray &bytes);
    LogLine &operator<<(bool value);
    template <typename Number, std::enable_if_t<isNumber<Number>, int> = 0>
    LogLine &operator<<(Number number)
    {
        using Widest = std::conditional_t<std::is_signed_v<Number>, qlonglong, qulonglong>;
        return addNumber(Widest(number));
    }
    template <typename Item, std::enable_if_t<!isNumber<Item>, int> = 0>
    QDebug &operator<<(const Item &item)
    {
        stream() << item;
        return stream();
    }
    ///@}

    /// The QDebug that composes the line from now on. The line is written when its last copy ends.
    QDebug &stream();

private:
    LogLine &addNumber(qlonglong number);
    LogLine &addNumber(qulonglong number);

    const QtMsgType m_type;
    const QMessageLogContext m_context;
    QString m_text; ///< the line so far, until there is a stream
    std::optional<QDebug> m_stream;
};

} // namespace mcu

/// A "[DBG]" line, as MCU_DEBUG.
#define LOG_DEBUG                                                                                  \
    for (bool mcuLogged = isDebugLogged(); mcuLogged; mcuLogged = false)                           \
    mcu::LogLine(QtDebugMsg, CALL_SITE)
/// An "[ERR]" line, as MCU_CRITICAL.
#define LOG_CRITICAL                                                                               \
    for (bool mcuLogged = isCriticalLogged(); mcuLogged; mcuLogged = false)                        \
    mcu::LogLine(QtCriticalMsg, CALL_SITE)
