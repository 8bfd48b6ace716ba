// mcusim, the desk tool: drives the library on the substitute platform.
#include "commands.h"

#include "virtualclock.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace mcusim {

int unusable(const QString &why)
{
    std::fprintf(stderr, "mcusim: %s\n", qUtf8Printable(why));
    return Unusable;
}

} // namespace mcusim

int main(int argc, char **argv)
{
    substitute::VirtualClock *clock = substitute::VirtualClock::install();
    QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mcusim"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MCUSIM_VERSION));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Drives libmcuservice on a substitute platform.\n\n"
        "Commands:\n"
        "  play FILE   plays a scenario and shows what applications and the link receive\n"
        "  list        shows all names that a scenario can use, with their parameters\n\n"
        "Exit status: 0 all well, 1 the scenario failed, 2 wrong usage or an unreadable file.\n"
        "`mcusim COMMAND --help` tells more."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("play or list"));
    // What follows the command is the command's own.
    parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsPositionalArguments);
    if (!parser.parse(QCoreApplication::arguments()))
        return mcusim::unusable(parser.errorText() + QStringLiteral("; see mcusim --help"));
    if (parser.isSet(QStringLiteral("version")))
        parser.showVersion();
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(mcusim::Passed);

    const QStringList arguments = parser.positionalArguments();
    const QString command = arguments.value(0);
    if (command == QLatin1String("play"))
        return mcusim::playCommand(arguments, clock);
    if (command == QLatin1String("list"))
        return mcusim::listCommand(arguments);
    return mcusim::unusable(
        command.isEmpty()
            ? QStringLiteral("expected a command; see mcusim --help")
            : QStringLiteral("unknown command \"%1\"; see mcusim --help").arg(command));
}
