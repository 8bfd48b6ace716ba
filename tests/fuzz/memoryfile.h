// A file in memory with the bytes of an input.
#pragma once

#include <QByteArray>
#include <QString>

#include <sys/mman.h>
#include <unistd.h>

namespace fuzz {

/// There is one; the path of the last call is the path of all.
inline QString fileWith(const QByteArray &bytes)
{
    static const int descriptor = memfd_create("input", MFD_CLOEXEC);
    const bool isWritten =
        ftruncate(descriptor, 0) == 0 &&
        pwrite(descriptor, bytes.constData(), std::size_t(bytes.size()), 0) == bytes.size();
    return isWritten ? "/proc/self/fd/" + QString::number(descriptor) : QString();
}

} // namespace fuzz
