// mcusim text: broadcast bytes as the text that they stand for.
#include "commands.h"
#include "stationpacket.h"

#include "radiostringconnver.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>

#include <cstdio>

namespace mcusim {

int textCommand(const QStringList &arguments, substitute::VirtualClock *)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Shows bytes of a broadcast (station names, radio text) as text."));
    parser.addOption(helpOption());
    parser.addPositionalArgument(QStringLiteral("text"), QString());
    parser.addPositionalArgument(
        QStringLiteral("hex"),
        QStringLiteral("the bytes in hexadecimal, or - for raw bytes from standard input"));
    if (!parser.parse(QStringList(QCoreApplication::applicationName()) + arguments))
        return unusable(parser.errorText() + QStringLiteral("; see mcusim text --help"));
    if (parser.isSet(QStringLiteral("help")))
        parser.showHelp(Passed);
    if (parser.positionalArguments().size() != 2)
        return unusable(QStringLiteral("text expects the bytes; see mcusim text --help"));

    const QString given = parser.positionalArguments().at(1);
    QByteArray bytes;
    if (given == QLatin1String("-")) {
        QFile input;
        if (input.open(stdin, QIODevice::ReadOnly))
            bytes = input.readAll();
        if (input.error() != QFileDevice::NoError)
            return unusable(QStringLiteral("cannot read standard input"));
    } else if (!readHex(given, &bytes)) {
        return unusable(QStringLiteral("\"%1\": expected bytes in hexadecimal").arg(given));
    }
    const QByteArray text =
        radioStringConnver::convertFromEBU(bytes.constData(), bytes.size()).toUtf8() + '\n';
    std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout);
    return written(Passed);
}

} // namespace mcusim
