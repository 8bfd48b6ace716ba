// Writes the items before the text of a log line, and the three lines of the scope tracer.
#include "logline_p.h"

#include <algorithm>

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr char category[] = "default";
constexpr int usualLength = 256; // with a signature of a hundred characters, and a record

qlonglong kernelThreadId() { return syscall(SYS_gettid); }

// One line of the tracer. Kept: the file of its lines is the shared header, without ".h", because
// all components identify the class by that name.
QDebug traceLine(const CallSite &site, const QString &name, int line)
{
    return QMessageLogger("include/debug", site.line, site.function, category).debug()
           << "[DBG]" << kernelThreadId() << name << QString::number(line);
}

// Whether QDebug writes the text as it is, but for quotes around it. Other texts may still be such.
template <typename Unit>
bool isPlain(const Unit *text, int length)
{
    return std::all_of(text, text + length, [](Unit unit) {
        return unit >= ' ' && unit <= '~' && unit != '"' && unit != '\\';
    });
}

template <typename Text>
QString quoted(const Text &text)
{
    QString written;
    QDebug(&written).nospace() << text;
    return written;
}

void appendNumber(QString &line, qulonglong magnitude, bool isNegative)
{
    char item[24];
    char *const end = item + sizeof item;
    char *front = end;
    do {
        *--front = char('0' + magnitude % 10);
        magnitude /= 10;
    } while (magnitude != 0);
    if (isNegative)
        *--front = '-';
    *--front = ' ';
    line.append(QLatin1String(front, int(end - front)));
}

quint32 monotonicMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return quint32(qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000);
}

} // namespace

namespace mcu {

LogLine::LogLine(QtMsgType type, const CallSite &site)
    : m_type(type), m_context(site.file, site.line, site.function, category)
{
    m_text.reserve(usualLength);
    m_text.append(QLatin1String(type == QtDebugMsg ? "[DBG]" : "[ERR]"));
    *this << kernelThreadId() << site.function << site.line << "--";
}

LogLine::~LogLine()
{
    if (!m_stream)
        qt_message_output(m_type, m_context, m_text);
}

LogLine &LogLine::operator<<(const char *text)
{
    const int length = int(qstrlen(text));
    m_text.append(QLatin1Char(' '));
    if (isPlain(text, length))
        m_text.append(QLatin1String(text, length));
    else
        m_text.append(QString::fromUtf8(text, length));
    return *this;
}

LogLine &LogLine::operator<<(const QString &text)
{
    if (isPlain(QStringView(text).utf16(), text.size()))
        m_text.append(QLatin1String(" \"")).append(text).append(QLatin1Char('"'));
    else
        m_text.append(QLatin1Char(' ')).append(quoted(text));
    return *this;
}

LogLine &LogLine::operator<<(const QByteArray &bytes)
{
    if (isPlain(bytes.constData(), bytes.size()))
        m_text.append(QLatin1String(" \""))
            .append(QLatin1String(bytes.constData(), bytes.size()))
            .append(QLatin1Char('"'));
    else
        m_text.append(QLatin1Char(' ')).append(quoted(bytes));
    return *this;
}

LogLine &LogLine::operator<<(bool value)
{
    m_text.append(QLatin1String(value ? " true" : " false"));
    return *this;
}

LogLine &LogLine::addNumber(qlonglong number)
{
    if (number < 0) // the least number has no opposite
        appendNumber(m_text, qulonglong(-(number + 1)) + 1, true);
    else
        appendNumber(m_text, qulonglong(number), false);
    return *this;
}

LogLine &LogLine::addNumber(qulonglong number)
{
    appendNumber(m_text, number, false);
    return *this;
}

QDebug &LogLine::stream()
{
    if (!m_stream) {
        const QMessageLogger logger(m_context.file, m_context.line, m_context.function, category);
        m_stream = m_type == QtDebugMsg ? logger.debug() : logger.critical();
        m_stream->noquote() << m_text;
        m_stream->quote();
    }
    return *m_stream;
}

} // namespace mcu

QDebug debugLine(const CallSite &site) { return mcu::LogLine(QtDebugMsg, site).stream(); }

QDebug criticalLine(const CallSite &site) { return mcu::LogLine(QtCriticalMsg, site).stream(); }

AutoPrint::AutoPrint(const char *name, int line) : m_name(QString::fromUtf8(name)), m_line(line)
{
    if (isDebugLogged())
        traceLine(CALL_SITE, m_name, m_line) << "[--IN--]";
    m_start = monotonicMilliseconds();
}

AutoPrint::~AutoPrint()
{
    m_end = monotonicMilliseconds();
    if (!isDebugLogged())
        return;
    traceLine(CALL_SITE, m_name, m_line) << "[--ExecTime--]" << quint32(qint64(m_end) - m_start);
    traceLine(CALL_SITE, m_name, m_line) << "[--OUT--]";
}
