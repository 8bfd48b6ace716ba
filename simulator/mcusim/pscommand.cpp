// mcusim ps: which applications run with the probe.
#include "commandline.h"
#include "liveclient.h"
#include "process.h"

#include "substituteplatform.h"
#include "values.h"

namespace mcusim {

namespace {

void putRow(const QString &name, const QString &pid, const QString &link, const QString &library,
            const QString &program, const QString &socket)
{
    constexpr int nameWidth = 16;
    constexpr int width = 11;
    put((name.leftJustified(nameWidth) + ' ' + pid.leftJustified(width) +
         link.leftJustified(width) + library.leftJustified(width) +
         program.leftJustified(nameWidth) + ' ' + socket)
            .trimmed());
}

} // namespace

int psCommand(const QStringList &arguments)
{
    const CommandLine line(arguments, {"ps",
                                       "",
                                       "Shows the applications of this user that run with the "
                                       "probe: the name and the process that other commands take, "
                                       "which link they have, and the library's version.",
                                       {}});
    line.expectOperands(0, 0, "no operand");
    SubstitutePlatform platform;
    const Catalogue names(platform);
    putRow("NAME", "PID", "LINK", "LIBRARY", "PROGRAM", "SOCKET");
    const QVector<LiveProcess> processes = liveProcesses(Leftovers::Remove);
    for (const LiveProcess &process : processes) {
        const QString pid = QString::number(process.pid);
        try {
            const LiveClient client(names, process);
            const auto text = [&](const char *key) {
                return printable(client.metadata().value(QLatin1String(key)).toString());
            };
            putRow(process.name, pid, text("link"), text("library"), text("program"), process.path);
        } catch (const Refusal &refusal) {
            putRow(process.name, pid, "-", "-", refusal.text(), {});
        }
    }
    return Passed;
}

} // namespace mcusim
