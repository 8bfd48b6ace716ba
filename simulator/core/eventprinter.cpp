// Columns: time, what it is, name, arguments by the names of their parameters.
#include "eventprinter.h"

#include "catalogue.h"

#include <algorithm>

namespace mcusim {

namespace {

struct Look {
    const char *title;
    const char *colour;
};

Look look(Kind kind)
{
    switch (kind) {
    case Kind::Report:
        return {"link report", "36"};
    case Kind::Call:
        return {"app call", "33"};
    case Kind::Setting:
        return {"desk setting", "90"};
    case Kind::Signal:
        return {"  app signal", "32"};
    case Kind::Answer:
        return {"  answer", "33"};
    case Kind::Command:
        return {"  link command", "35"};
    case Kind::Platform:
        break;
    }
    return {"  platform call", "34"};
}

constexpr int timeWidth = 9;
constexpr int titleWidth = 17;
constexpr int nameWidth = 41;

QString plural(int count, const char *thing)
{
    return QStringLiteral("%1 %2%3").arg(count).arg(QLatin1String(thing),
                                                    QLatin1String(count == 1 ? "" : "s"));
}

} // namespace

EventPrinter::EventPrinter(std::FILE *stream, bool colour, int width)
    : m_stream(stream), m_colour(colour), m_width(std::max(width, 80))
{
}

void EventPrinter::print(const Event &event)
{
    const Look style = look(event.kind);
    const QString head = QStringLiteral("%1  %2")
                             .arg(double(event.time) / 1000, timeWidth, 'f', 3)
                             .arg(QLatin1String(style.title), -titleWidth);
    const QString name = QStringLiteral("%1").arg(event.name, -nameWidth);

    QStringList arguments;
    const QStringList names = argumentNames(event);
    for (int i = 0; i < event.arguments.size(); ++i) {
        const QString value = shown(event.arguments[i]);
        arguments.append(names[i].isEmpty() ? value : names[i] + '=' + value);
    }
    const QStringList fields = recordFields(event);

    std::fputs(
        qUtf8Printable(head + painted(arguments.isEmpty() ? event.name : name, style.colour)),
        m_stream);
    const int column = head.size() + name.size();
    printArguments(arguments, column);
    if (!fields.isEmpty()) {
        std::fprintf(m_stream, "%*s", column, "");
        printArguments(fields, column);
    }
    std::fflush(m_stream);
}

void EventPrinter::printArguments(const QStringList &arguments, int column)
{
    int at = column;
    for (const QString &argument : arguments) {
        if (at > column && at + 1 + argument.size() > m_width) {
            std::fprintf(m_stream, "\n%*s", column, "");
            at = column;
        }
        std::fprintf(m_stream, " %s", qUtf8Printable(argument));
        at += 1 + argument.size();
    }
    std::fputc('\n', m_stream);
}

void EventPrinter::printSummary(const Outcome &outcome, const Verdict &verdict, double seconds)
{
    const auto count = [&outcome](Kind kind) {
        return int(std::count_if(outcome.outputs.begin(), outcome.outputs.end(),
                                 [kind](const Event &event) { return event.kind == kind; }));
    };
    const auto line = [this](const QString &text) {
        std::fprintf(m_stream, "%s\n", qUtf8Printable(text));
    };

    line({});
    line(QStringLiteral("Played    %1 and %2, %3 s of driving in %4 s")
             .arg(plural(outcome.reports, "report"), plural(outcome.calls, "call"))
             .arg(double(outcome.duration) / 1000, 0, 'f', 1)
             .arg(seconds, 0, 'f', 1));
    line(QStringLiteral("Received  %1 by applications, %2 by the link, %3 by the platform")
             .arg(plural(count(Kind::Signal), "signal"), plural(count(Kind::Command), "command"),
                  plural(count(Kind::Platform), "call")));
    if (!outcome.unanswered.isEmpty()) {
        QStringList names;
        for (auto report = outcome.unanswered.begin(); report != outcome.unanswered.end(); ++report)
            names.append(QStringLiteral("%1 (%2)").arg(report.key()).arg(report.value()));
        line(QStringLiteral("Unanswered reports, from which nothing left the library at once:\n"
                            "          ") +
             names.join(QStringLiteral(", ")));
    }
    if (verdict.met > 0 || !verdict.passed()) {
        line(QStringLiteral("Expected  %1 came back").arg(plural(verdict.met, "line")));
    }
    for (const QString &fault : verdict.faults)
        line(painted(QStringLiteral("FAILED    ") + fault, "31"));
    if (verdict.passed() && verdict.met > 0)
        line(painted(QStringLiteral("Passed"), "32"));
}

QString EventPrinter::painted(const QString &text, const char *code) const
{
    return m_colour ? QStringLiteral("\033[%1m%2\033[0m").arg(QLatin1String(code), text) : text;
}

} // namespace mcusim
