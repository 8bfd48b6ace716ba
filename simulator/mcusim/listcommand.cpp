// mcusim list: all names that a scenario can use.
#include "catalogue.h"
#include "commands.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace mcusim {

int listCommand(const QStringList &arguments, substitute::VirtualClock *)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows all names that a scenario can use, with their parameters."));
    parser.addOption(helpOption());
    parser.addPositionalArgument(QStringLiteral("list"), QString());
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return unusable(parser.errorText() + QStringLiteral("; see mcusim list --help"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(Passed);
    if (parser.positionalArguments().size() != 1)
        return unusable(QStringLiteral("list expects nothing more; see mcusim list --help"));

    struct Section {
        Kind kind;
        const char *title;
    };
    constexpr Section sections[]{
        {Kind::Report, "Link signals, played with \"name\""},
        {Kind::Call, "Operations, played with \"call\""},
        {Kind::Answer, "What operations give back, expected with \"answer\""},
        {Kind::Setting, "Settings of the desk, played with \"set\""},
        {Kind::Signal, "Application signals, expected with \"signal\""},
        {Kind::Command, "Link commands, expected with \"command\""},
        {Kind::Platform, "Calls of other platform classes, expected with \"platform\""},
    };
    for (const Section &section : sections) {
        std::printf("%s\n", section.title);
        for (const Signature &signature : catalogue(section.kind))
            std::printf("  %s\n", qUtf8Printable(signature.text()));
        std::printf("\n");
    }
    return written(Passed);
}

} // namespace mcusim
