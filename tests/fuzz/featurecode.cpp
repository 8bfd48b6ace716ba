// Fuzz target: the feature code that the link gives as numbers in a text, compared with a model
// that reads the numbers digit by digit.
#include "linksubstitute.h"
#include "mcuservice.h"
#include "target.h"

#include <QCoreApplication>

#include <limits>

namespace {

/// The low byte of a decimal number; 0 for any other text. Qt takes the minus of typesetting, too.
char lowByte(QString number)
{
    number = number.trimmed();
    const bool isNegative = number.startsWith('-') || number.startsWith(QChar(0x2212));
    if (isNegative || number.startsWith('+'))
        number.remove(0, 1);
    qint64 value = 0;
    for (const QChar digit : number) {
        if (digit < '0' || digit > '9')
            return 0;
        value = std::min(value * 10 + (digit.unicode() - '0'), qint64(1) << 40);
    }
    value = isNegative ? -value : value;
    const bool isInt =
        value >= std::numeric_limits<int>::min() && value <= std::numeric_limits<int>::max();
    return isInt ? char(value) : 0;
}

struct Unit {
    Unit()
    {
        fuzz::silence();
        mcu::McuService::instance()->init();
    }

    int argc = 0;
    QCoreApplication application{argc, nullptr};
};

} // namespace

int LLVMFuzzerTestOneInput(const quint8 *data, std::size_t size)
{
    static const Unit unit;
    const QString text = QString::fromUtf8(fuzz::bytesOf(data, size));
    substitute::link::setAnswer(QStringLiteral("getCarFeatureCode"), text);
    QByteArray expected;
    int begin = 0;
    for (int end = 0; end <= text.size(); ++end) {
        if (end < text.size() && text[end] != ';')
            continue;
        expected += lowByte(text.mid(begin, end - begin));
        begin = end + 1;
    }
    const QByteArray code = mcu::McuService::instance()->getReportFeatureCodeChanged();
    fuzz::expect(code == expected, "feature code", code.toHex());
    return 0;
}
