#include "commandline.h"

#include "process.h"
#include "values.h"

#include <cmath>

namespace mcusim {

namespace {

void showHelp(const CommandLine::Usage &usage)
{
    QString text = QStringLiteral("Usage: mcusim ") + usage.command + " [options] " +
                   usage.operands + "\n\n" + usage.description + "\n\nOptions:\n";
    for (const CommandLine::Option &option : usage.options) {
        const QString name =
            QStringLiteral("--") + option.name + ' ' + (option.value ? option.value : "");
        text += "  " + name.leftJustified(18) + ' ' + option.help + '\n';
    }
    text += QLatin1String("  -h, --help         Show this help.\n");
    std::fputs(text.toUtf8().constData(), stdout);
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments, const Usage &usage)
    : m_command(QString::fromLatin1(usage.command))
{
    m_parser.addOption(
        QCommandLineOption(QStringList{QStringLiteral("h"), QStringLiteral("help")}));
    for (const Option &option : usage.options) {
        m_parser.addOption(
            {QString::fromLatin1(option.name), QString(), QString::fromLatin1(option.value)});
    }
    if (!m_parser.parse(QStringList(QStringLiteral("mcusim")) + arguments)) {
        QString error = m_parser.errorText();
        error[0] = error[0].toLower();
        refuse(error.endsWith('.') ? error.chopped(1) : error);
    }
    if (isSet("help")) {
        showHelp(usage);
        std::exit(written(Passed));
    }
    for (const Option &option : usage.options) {
        if (!option.repeats && values(option.name).size() > 1)
            refuse(QStringLiteral("--") + option.name + " is given twice");
        if (option.value && values(option.name).contains(QString()))
            refuse(QStringLiteral("--") + option.name + " expects " + option.value);
    }
}

double CommandLine::read(const char *option, double otherwise, const char *expected,
                         bool (*isGood)(double)) const
{
    if (!isSet(option))
        return otherwise;
    bool isNumber = false;
    const double number = value(option).toDouble(&isNumber);
    if (!isNumber || !isGood(number))
        refuse(QStringLiteral("--") + option + " expects " + expected + ", got " +
               excerpt(value(option)));
    return number;
}

double CommandLine::number(const char *option, double otherwise) const
{
    return read(option, otherwise, "a number above 0",
                [](double number) { return number > 0 && std::isfinite(number); });
}

int CommandLine::count(const char *option, int otherwise) const
{
    return int(read(option, otherwise, "a whole number from 0", [](double number) {
        return number >= 0 && number < 1e9 && std::trunc(number) == number;
    }));
}

qint64 CommandLine::moment(const char *option, qint64 otherwise) const
{
    constexpr double aWeek = 7 * 24 * 3600;
    const double moment = read(option, -1, "seconds from 0, a week at most",
                               [](double number) { return number >= 0 && number <= aWeek; });
    return moment < 0 ? otherwise : std::llround(moment * 1000);
}

void CommandLine::exclude(const QVector<const char *> &options) const
{
    const char *first = nullptr;
    for (const char *option : options) {
        if (isSet(option) && first)
            refuse(QStringLiteral("--") + first + " and --" + option + " exclude each other");
        first = isSet(option) ? option : first;
    }
}

void CommandLine::expectOperands(int least, int most, const char *what) const
{
    const int count = operands().size();
    if (count < least || count > most)
        refuse(QStringLiteral("expected ") + what);
}

void CommandLine::refuse(const QString &why) const
{
    throw Refusal(why + "; see mcusim " + m_command + " --help");
}

} // namespace mcusim
