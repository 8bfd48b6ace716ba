// mcusim send: inputs into a running application, and what its calls return.
#include "commandline.h"
#include "inputline.h"
#include "liveclient.h"
#include "process.h"

#include "scenario.h"
#include "substituteplatform.h"
#include "values.h"

#include <QJsonDocument>

#include <limits>

namespace mcusim {

namespace {

/// Shows what the call that was sent returned.
struct Answers : Sink {
    QString call;

    void hear(const Event &event) override
    {
        if (event.what->kind == Kind::Answer && event.what->name == call)
            put(shown(event.values.first()));
    }
};

/// The lines of the operands: each is one if the first is more than a word, or if all begin with
/// an input; else all are the words of one.
QVector<QStringList> linesOf(const Catalogue &names, const QStringList &operands)
{
    QVector<QStringList> lines;
    bool areInputs = true;
    for (const QString &operand : operands) {
        const QStringList words = wordsOf(operand);
        const bool isJson = operand.trimmed().startsWith('{');
        lines.append(isJson ? QStringList(operand.trimmed()) : words);
        areInputs = areInputs && (isJson || isInput(names, words));
    }
    const bool areLines =
        areInputs || lines.first().size() > 1 || operands.first().trimmed().startsWith('{');
    return areLines ? lines : QVector<QStringList>{operands};
}

} // namespace

int sendCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"send",
         "[NAME] LINE...",
         "Does inputs in a running application and shows what calls return. A line is one of a\n"
         "scenario, or a name and its values: 'keyEventSgl 7 0' 'SetVolume 12'. A single one "
         "needs\n"
         "no quotes. The first operand is the application's name if it is that of one and no\n"
         "input.",
         {{"to", "NAME", "The application; all operands are lines."}}});
    line.expectOperands(1, std::numeric_limits<int>::max(), "at least one line");
    SubstitutePlatform platform;
    const Catalogue names(platform);
    QStringList operands = line.operands();
    QString name = line.value("to");
    if (!line.isSet("to") && !isInput(names, wordsOf(operands.first())) &&
        !processesNamed(operands.first()).isEmpty())
        name = operands.takeFirst();
    if (operands.isEmpty())
        line.refuse("expected a line after the name");
    QVector<QByteArray> lines;
    const QVector<QStringList> given = linesOf(names, operands);
    for (const QStringList &words : given)
        lines.append(lineToSend(names, words));

    LiveClient client(names, findProcess(name));
    Answers answers;
    client.addSink(&answers);
    client.limitTo({info(Kind::Answer).key}, {});
    for (const QByteArray &text : lines) {
        answers.call = QJsonDocument::fromJson(text).object().value("call").toString();
        const QString why = client.ask(text);
        if (!why.isEmpty())
            throw Refusal(why);
    }
    return Passed;
}

} // namespace mcusim
