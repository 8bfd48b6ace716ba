// mcusim text: broadcast bytes as the text that they stand for.
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
    const QString given = line.operands().first();
    QByteArray bytes;
    if (given == "-") {
        constexpr int longest = 1 << 20;
        QFile input;
        if (input.open(stdin, QIODevice::ReadOnly))
            bytes = input.read(longest + 1);
        if (input.error() != QFileDevice::NoError)
            throw Refusal("cannot read standard input: " + input.errorString());
        if (bytes.size() > longest)
            throw Refusal("standard input: expected at most 1 MiB");
    } else if (!readHex(given, &bytes)) {
        throw Refusal(excerpt(given) + ": expected bytes as pairs of hexadecimal digits");
    }
    const QByteArray text =
        radioStringConnver::convertFromEBU(bytes.constData(), bytes.size()).toUtf8() + '\n';
    std::fwrite(text.constData(), 1, std::size_t(text.size()), stdout);
    return Passed;
}

} // namespace mcusim
