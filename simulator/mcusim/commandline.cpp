#include "commandline.h"

#include "process.h"
#include "values.h"

#include <cmath>
#include <limits>

namespace mcusim {

namespace {

QString nameOf(const CommandLine::Usage &usage)
{
    return (QString(usage.program) + ' ' + usage.command).trimmed();
}

void showHelp(const CommandLine::Usage &usage)
{
    QString text = "Usage: " + nameOf(usage) + " [options] " + usage.operands + "\n\n" +
                   usage.description + "\n\nOptions:\n";
    for (const CommandLine::Option &option : usage.options) {
        const QString name = QString("--") + option.name + ' ' + (option.value ? option.value : "");
        text += "  " + name.leftJustified(19) + ' ' + option.help + '\n';
    }
    text += "  -h, --help          Show this help.\n";
    std::fputs(text.toUtf8().constData(), stdout);
}

} // namespace

CommandLine::CommandLine(const QStringList &arguments, const Usage &usage)
    : m_command(nameOf(usage))
{
    m_parser.addOption(QCommandLineOption(QStringList{"h", "help"}));
    for (const Option &option : usage.options)
        m_parser.addOption({option.name, QString(), option.value});
    if (!m_parser.parse(QStringList("mcusim") + arguments)) {
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
            refuse(QString("--%1 is given twice").arg(option.name));
        if (option.value && values(option.name).contains(QString()))
            refuse(QString("--%1 expects %2").arg(option.name, option.value));
    }
}

double CommandLine::read(const char *option, double otherwise, const char *expected, double least,
                         double most) const
{
    if (!isSet(option))
        return otherwise;
    bool isNumber = false;
    const double number = value(option).toDouble(&isNumber);
    if (!isNumber || !(number >= least && number <= most))
        refuse(QString("--%1 expects %2, got ").arg(option, expected) + excerpt(value(option)));
    return number;
}

double CommandLine::number(const char *option, double otherwise) const
{
    using Limits = std::numeric_limits<double>;
    return read(option, otherwise, "a number above 0", Limits::min(), Limits::max());
}

int CommandLine::count(const char *option, int otherwise) const
{
    const double number = read(option, otherwise, "a number from 0", 0, 1e9);
    if (std::trunc(number) != number)
        refuse(QString("--%1 expects a whole number").arg(option));
    return int(number);
}

qint64 CommandLine::moment(const char *option, qint64 otherwise) const
{
    constexpr double aWeek = 7 * 24 * 3600;
    const double moment = read(option, -1, "seconds from 0, a week at most", 0, aWeek);
    return moment < 0 ? otherwise : std::llround(moment * 1000);
}

void CommandLine::exclude(const QVector<const char *> &options) const
{
    const char *first = nullptr;
    for (const char *option : options) {
        if (isSet(option) && first)
            refuse(QString("--%1 and --%2 exclude each other").arg(first, option));
        first = isSet(option) ? option : first;
    }
}

void CommandLine::expectOperands(int least, int most, const char *what) const
{
    const int count = operands().size();
    if (count < least || count > most)
        refuse(QString("expected ") + what);
}

void CommandLine::refuse(const QString &why) const
{
    throw Refusal(why + "; see " + m_command + " --help");
}

} // namespace mcusim
