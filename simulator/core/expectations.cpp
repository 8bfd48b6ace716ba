// One pass over both lists; the first fault of a recording ends it, since all that follows is off.
#include "expectations.h"

#include "catalogue.h"

namespace mcusim {

namespace {

QString text(const Event &event)
{
    QStringList arguments;
    for (const QVariant &argument : event.arguments)
        arguments.append(shown(argument));
    return QStringLiteral("%1(%2) at %3")
        .arg(event.name, arguments.join(QStringLiteral(", ")))
        .arg(double(event.time) / 1000, 0, 'f', 3);
}

/// What came under the same name at the same moment, as a hint.
QString hint(const Event &expected, const QList<Event> &outputs)
{
    for (const Event &output : outputs) {
        if (output.sameAs(expected))
            return QStringLiteral("; it came, but not in this place");
    }
    for (const Event &output : outputs) {
        if (output.time == expected.time && output.name == expected.name)
            return QStringLiteral("; there came ") + text(output);
    }
    for (const Event &output : outputs) {
        if (output.name == expected.name &&
            Event::sameArguments(output.arguments, expected.arguments))
            return QStringLiteral("; it came at %1").arg(double(output.time) / 1000, 0, 'f', 3);
    }
    return {};
}

Verdict judgeRecording(const QList<Event> &expected, const QList<Event> &outputs)
{
    Verdict verdict;
    while (verdict.met < expected.size() && verdict.met < outputs.size() &&
           expected[verdict.met].sameAs(outputs[verdict.met]))
        ++verdict.met;
    if (verdict.met < expected.size()) {
        const Event &next = expected[verdict.met];
        verdict.faults.append(QStringLiteral("line %1: recorded %2; there came %3")
                                  .arg(next.line)
                                  .arg(text(next), verdict.met < outputs.size()
                                                       ? text(outputs[verdict.met])
                                                       : QStringLiteral("nothing more")));
    } else if (verdict.met < outputs.size()) {
        verdict.faults.append(
            QStringLiteral("after the recording there came %1").arg(text(outputs[verdict.met])));
    }
    return verdict;
}

} // namespace

Verdict judge(const Scenario &scenario, const QList<Event> &outputs)
{
    const QList<Event> expected = scenario.expectations();
    if (scenario.recording)
        return judgeRecording(expected, outputs);

    Verdict verdict;
    int from = 0;
    for (const Event &event : expected) {
        int found = from;
        while (found < outputs.size() && !event.sameAs(outputs[found]))
            ++found;
        if (found < outputs.size()) {
            ++verdict.met;
            from = found + 1;
        } else {
            verdict.faults.append(QStringLiteral("line %1: expected %2")
                                      .arg(event.line)
                                      .arg(text(event) + hint(event, outputs)));
        }
    }
    return verdict;
}

} // namespace mcusim
