// mcusim, the simulator's command line: drives the library on the substitute platform.
#include "commandline.h"
#include "process.h"
#include "values.h"

#include <clocale>

namespace {

struct Command {
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments);
};

constexpr Command commands[]{
    {"play", "plays scenarios and shows what applications and the link receive",
     mcusim::playCommand},
    {"verify", "plays recordings at full speed and compares what comes", mcusim::verifyCommand},
    {"list", "shows all names that a scenario can use, or one of them in full",
     mcusim::listCommand},
    {"run", "starts an application with the probe, so that the commands below reach it",
     mcusim::runCommand},
    {"ps", "shows the applications that run with the probe", mcusim::psCommand},
    {"monitor", "shows what goes in and comes out of a running application",
     mcusim::monitorCommand},
    {"send", "does inputs in a running application", mcusim::sendCommand},
    {"shell", "does inputs as they are typed, in a running application or here",
     mcusim::shellCommand},
    {"record", "records what goes in and comes out of a running application",
     mcusim::recordCommand},
    {"station", "a factory test station: sends packets, runs test sequences",
     mcusim::stationCommand},
    {"updates", "shows which update files are found under a folder", mcusim::updatesCommand},
    {"text", "shows broadcast bytes as text", mcusim::textCommand},
    {"records", "writes the tables of the vehicle records into a page", mcusim::recordsCommand},
};

QByteArray help()
{
    QByteArray text = "Usage: mcusim COMMAND ...\n\n"
                      "Drives libmcuservice on a substitute platform.\n\nCommands:\n";
    for (const Command &command : commands)
        text += "  " + QByteArray(command.name).leftJustified(8) + "  " + command.summary + '\n';
    return text +
           "\nExit status: 0 all well, 1 something failed, 2 wrong usage, unreadable input or lost "
           "output.\n`mcusim COMMAND --help` shows its options.\n";
}

int run(const QStringList &arguments)
{
    const QString name = arguments.value(0);
    if (name == "--version") {
        std::puts("mcusim " MCUSIM_VERSION);
        return mcusim::Passed;
    }
    if (name == "--help" || name == "-h") {
        std::fputs(help().constData(), stdout);
        return mcusim::Passed;
    }
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name))
            return command.run(arguments);
    }
    throw mcusim::Refusal(name.isEmpty()
                              ? "expected a command; see mcusim --help"
                              : "unknown command " + mcusim::excerpt(name) + "; see mcusim --help");
}

} // namespace

int main(int argc, char **argv)
{
    mcusim::secureStreams();
    std::setlocale(LC_CTYPE, ""); // file names; numbers stay as everywhere
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    try {
        return mcusim::written(run(arguments));
    } catch (const mcusim::Refusal &refusal) {
        mcusim::complain(refusal.text());
        return mcusim::Unusable;
    }
}
