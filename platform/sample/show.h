// Prints each operation that the sample platform receives, one per line on standard output.
#pragma once

#include <QVariant>

#include <cstdio>

namespace sample {

inline void show(const char *operation, const QVariantList &arguments)
{
    QByteArray line = operation;
    for (const QVariant &argument : arguments) {
        const bool bytes = argument.userType() == QMetaType::QByteArray;
        line += ' ' + (bytes ? argument.toByteArray().toHex() : argument.toString().toUtf8());
    }
    std::puts(line.constData());
    std::fflush(stdout);
}

} // namespace sample
