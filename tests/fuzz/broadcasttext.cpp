// Fuzz target: broadcast text. A text is converted as its bytes are one after another, and the
// result depends on nothing else.
#include "radiostringconnver.h"
#include "target.h"

#include <algorithm>
#include <array>

namespace {

QString converted(const QByteArray &bytes)
{
    return radioStringConnver::convertFromEBU(bytes.constData(), bytes.size());
}

/// What each byte becomes alone.
const std::array<QString, 256> &characters()
{
    static const std::array<QString, 256> all = [] {
        std::array<QString, 256> texts;
        for (int byte = 0; byte < 256; ++byte)
            texts[std::size_t(byte)] = converted(QByteArray(1, char(byte)));
        return texts;
    }();
    return all;
}

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    const QByteArray input = fuzz::bytesOf(data, size);
    QString expected;
    expected.reserve(input.size());
    for (std::size_t i = 0; i < size; ++i)
        expected += characters()[data[i]];
    const QString text = converted(input);
    fuzz::expect(text == expected, "text", text);
    fuzz::expect(text.isNull() == expected.isEmpty(), "null text");
    fuzz::expect(converted(input) == text, "same text again", text);
    for (const QChar character : text)
        fuzz::expect(!character.isNull() && !character.isSurrogate() &&
                         character != QChar::ReplacementCharacter,
                     "character", text);
    return 0;
}
