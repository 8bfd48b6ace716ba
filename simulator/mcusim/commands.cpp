// What all subcommands share.
#include "commands.h"

#include <cstdio>

namespace mcusim {

QCommandLineOption helpOption()
{
    return QCommandLineOption({QStringLiteral("h"), QStringLiteral("help")},
                              QStringLiteral("Show this help."));
}

int written(int status)
{
    const bool lost = std::fflush(stdout) != 0 || std::ferror(stdout) != 0;
    return lost ? unusable(QStringLiteral("cannot write standard output")) : status;
}

int unusable(const QString &why)
{
    std::fprintf(stderr, "mcusim: %s\n", qUtf8Printable(why));
    return Unusable;
}

} // namespace mcusim
