// mcusim text: shows broadcast bytes as text.
#include "commandline.h"
#include "process.h"

#include "values.h"

#include "radiostringconnver.h"

#include <QFile>

namespace mcusim {

int textCommand(const QStringList &arguments)
{
    const CommandLine line(arguments,
                           {"text",
                            "HEX | -",
                            "Shows bytes of a broadcast (station names, radio text) as text: "
                            "hexadecimal, or - for the bytes themselves from standard input.",
                            {}});
    line.expectOperands(1, 1, "the bytes");
    const QString given = line.operands().constFirst();
    QByteArray bytes;
    if (given == "-") {
        QFile input;
        input.open(stdin, QIODevice::ReadOnly);
        bytes = contentOf(input, "standard input");
    } else if (!readHex(given, &bytes)) {
        throw Refusal(excerpt(given) + ": expected bytes as pairs of hexadecimal digits");
    }
    const QByteArray text =
        radioStringConnver::convertFromEBU(bytes.constData(), bytes.size()).toUtf8() + '\n';
    std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout);
    return Passed;
}

} // namespace mcusim
