// mcusim, the desk tool: drives the library on the substitute platform.
#include "commands.h"

#include "virtualclock.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

using substitute::VirtualClock;

struct Command {
    const char *name;
    const char *summary;
    int (*run)(const QStringList &arguments, VirtualClock *clock);
};

constexpr Command commands[]{
    {"play", "plays a scenario and shows what applications and the link receive",
     mcusim::playCommand},
    {"list", "shows all names that a scenario can use, with their parameters", mcusim::listCommand},
    {"station", "a factory test station: sends packets, runs test sequences",
     mcusim::stationCommand},
    {"updates", "shows which update files are found under a folder", mcusim::updatesCommand},
    {"text", "shows broadcast bytes as text", mcusim::textCommand},
};

QString description()
{
    QString text = QStringLiteral("Drives libmcuservice on a substitute platform.\n\nCommands:\n");
    for (const Command &command : commands) {
        text += QStringLiteral("  %1  %2\n")
                    .arg(QLatin1String(command.name), -8)
                    .arg(QLatin1String(command.summary));
    }
    return text +
           QStringLiteral(
               "\nExit status: 0 all well, 1 something failed, 2 wrong usage or unreadable input.\n"
               "`mcusim COMMAND --help` tells more.");
}

} // namespace

int main(int argc, char **argv)
{
    VirtualClock *clock = VirtualClock::install();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mcusim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MCUSIM_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(description());
    parser.addOption(mcusim::helpOption());
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("what to do"));
    // What follows the command is the command's own.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(QCoreApplication::arguments()))
        return mcusim::unusable(parser.errorText() + QStringLiteral("; see mcusim --help"));
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(mcusim::Passed);

    const QStringList arguments = parser.positionalArguments();
    const QString name = arguments.value(0);
    for (const Command &command : commands) {
        if (name == QLatin1String(command.name))
            return command.run(arguments, clock);
    }
    return mcusim::unusable(
        name.isEmpty() ? QStringLiteral("expected a command; see mcusim --help")
                       : QStringLiteral("unknown command \"%1\"; see mcusim --help").arg(name));
}
