// Writes the items before the text of a log line, and the three lines of the scope tracer.
#include "debug.h"

#include <sys/syscall.h>
#include <time.h>
#include <unistd.h>

namespace {

constexpr char category[] = "default";

qlonglong kernelThreadId() { return syscall(SYS_gettid); }

// One line of the tracer. Kept: the file of its lines is the shared header, without ".h", because
// all components identify the class by that name.
QDebug traceLine(const CallSite &site, const QString &name, int line)
{
    return QMessageLogger("include/debug", site.line, site.function, category).debug()
           << "[DBG]" << kernelThreadId() << name << QString::number(line);
}

quint32 monotonicMilliseconds()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return quint32(qint64(now.tv_sec) * 1000 + now.tv_nsec / 1000000);
}

} // namespace

QDebug debugLine(const CallSite &site)
{
    return QMessageLogger(site.file, site.line, site.function, category).debug()
           << "[DBG]" << kernelThreadId() << site.function << site.line << "--";
}

QDebug criticalLine(const CallSite &site)
{
    return QMessageLogger(site.file, site.line, site.function, category).critical()
           << "[ERR]" << kernelThreadId() << site.function << site.line << "--";
}

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
