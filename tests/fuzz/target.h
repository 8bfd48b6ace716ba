// What all fuzz targets share.
#pragma once

#include <QByteArray>
#include <QLoggingCategory>
#include <QString>

#include <cstdio>
#include <cstdlib>

/// Runs one input; libFuzzer and replay.cpp call it.
extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size);

namespace fuzz {

/// The bytes of an input; valid as long as the input.
inline QByteArray bytesOf(const quint8 *data, std::size_t size)
{
    return QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
}

[[noreturn]] inline void fail(const char *what, const QString &details)
{
    std::printf("not so: %s: %s\n", what, qPrintable(details));
    std::fflush(stdout);
    std::abort();
}

/// Ends the program when something does not hold.
inline void expect(bool holds, const char *what, const QString &details)
{
    if (!holds)
        fail(what, details);
}

inline void expect(bool holds, const char *what)
{
    if (!holds)
        fail(what, {});
}

/// Log lines and what the library writes to standard error go nowhere.
inline void silence()
{
    QLoggingCategory::defaultCategory()->setEnabled(QtDebugMsg, false);
    QLoggingCategory::defaultCategory()->setEnabled(QtCriticalMsg, false);
    stderr = std::fopen("/dev/null", "w");
}

} // namespace fuzz
