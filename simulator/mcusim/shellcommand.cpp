// mcusim shell: inputs as they are typed, into a running application or into the library here.
#include "bench.h"
#include "commandline.h"
#include "inputline.h"
#include "liveclient.h"
#include "prompt.h"

#include "livejudge.h"
#include "printer.h"
#include "scenario.h"
#include "sinks.h"
#include "values.h"

#include <QJsonObject>
#include <QScopeGuard>

namespace mcusim {

namespace {

class Shell : public Sink {
public:
    /// In the application of a name, or without a name in this process.
    explicit Shell(const QStringList &operands);

    int run();
    void hear(const Event &event) override;

private:
    struct Command {
        const char *name;
        const char *operands;
        const char *help;
        void (Shell::*run)(const QStringList &operands);
    };
    static const Command commands[];

    bool goesOn() const { return !wasInterrupted() && m_end.isEmpty() && !m_isAtEnd; }
    void receive();
    void execute(const QString &line);
    Event read(const QString &line) const;
    void doInput(const Event &event);
    void waitUntil(const QElapsedTimer &since, qint64 moment);
    void help(const QStringList &operands);
    void watch(const QStringList &operands);
    void unwatch(const QStringList &operands);
    void play(const QStringList &operands);
    void wait(const QStringList &operands);
    void quit(const QStringList &) { m_isAtEnd = true; }
    std::optional<QStringList> complete(const QStringList &before, const QString &word);

    int m_argc = 1;
    char m_name[7] = "mcusim";
    char *m_argv[2] = {m_name, nullptr};
    QCoreApplication m_application{m_argc, m_argv};
    SubstitutePlatform m_platform;
    Catalogue m_names{m_platform};
    RealTime m_time;
    Simulation m_simulation{m_names, m_platform, m_time};
    std::optional<LiveClient> m_client;
    std::optional<QSocketNotifier> m_fromClient;
    QString m_end; ///< why the application is gone
    Prompt m_prompt{
        [this](const QStringList &before, const QString &word) { return complete(before, word); }};
    Printer m_printer{stdout, {m_prompt.isTerminal() ? terminalWidth() : 0, showsColour(stdout)}};
    QStringList m_globs;
    std::optional<Filter> m_watched; ///< by the globs
    bool m_showsAll = false;         ///< while an input is done
    Sink *m_judge = nullptr;         ///< of what is played
    bool m_isAtEnd = false;
    int m_status = Passed;
};

const Shell::Command Shell::commands[]{
    {"help", "[NAME...]", "shows names in full, or this", &Shell::help},
    {"watch", "[GLOB...]", "shows also what comes at other times, of names, classes and kinds",
     &Shell::watch},
    {"unwatch", "[GLOB...]", "ends it for these, or for all", &Shell::unwatch},
    {"play", "FILE", "plays a scenario and compares what it expects", &Shell::play},
    {"wait", "SECONDS", "goes on later", &Shell::wait},
    {"quit", "", "ends the shell", &Shell::quit},
};

Shell::Shell(const QStringList &operands)
{
    if (operands.isEmpty()) {
        m_simulation.addSink(this);
        m_simulation.start();
        return;
    }
    m_client.emplace(m_names, findProcess(operands.first()));
    m_client->addSink(this);
    m_client->onMissed = [](qint64 count) { complain(counted(count, "event") + " missed"); };
    m_fromClient.emplace(m_client->descriptor(), QSocketNotifier::Read);
    QObject::connect(&*m_fromClient, &QSocketNotifier::activated, &m_application,
                     [this] { receive(); });
}

int Shell::run()
{
    if (m_prompt.isTerminal())
        put(m_client ? m_client->process().text() + "; help shows what can be done"
                     : "The library in this process; help shows what can be done");
    else
        std::setvbuf(stdout, nullptr, _IOLBF, 0);
    QString line;
    while (m_end.isEmpty() && !m_isAtEnd) {
        try {
            if (m_prompt.next(&line, [this] { return goesOn(); }))
                execute(line.trimmed());
            else
                m_isAtEnd = !wasInterrupted() && m_end.isEmpty();
        } catch (const Refusal &refusal) {
            m_status = m_prompt.isTerminal() ? m_status : int(Unusable);
            complain((m_prompt.isTerminal()
                          ? ""
                          : "standard input: line " + QString::number(m_prompt.number()) + ": ") +
                     refusal.text());
        }
        if (wasInterrupted()) {
            put({});
            // A person interrupts what is done or typed.
            if (!m_prompt.isTerminal() || !forgetInterrupt())
                return Interrupted;
        }
    }
    if (!m_end.isEmpty() && !m_isAtEnd) {
        complain(m_end);
        m_status = Unusable;
    }
    return m_status;
}

void Shell::hear(const Event &event)
{
    if (m_judge)
        m_judge->hear(event);
    if (!m_showsAll && !(m_watched && m_watched->has(event)))
        return;
    m_prompt.hide();
    m_printer.hear(event);
    m_prompt.show();
}

/// What comes from the application while nothing is sent.
void Shell::receive()
{
    try {
        if (!m_client->receive())
            m_end = m_client->process().text() + " has ended";
    } catch (const Refusal &refusal) {
        m_end = refusal.text();
    }
    m_fromClient->setEnabled(m_end.isEmpty());
}

void Shell::execute(const QString &line)
{
    if (line.isEmpty() || line.startsWith('#'))
        return;
    QStringList words = wordsOf(line);
    const auto *command =
        std::find_if(std::begin(commands), std::end(commands), [&words](const Command &known) {
            return words.first() == QLatin1String(known.name);
        });
    if (command != std::end(commands))
        return (this->*command->run)(words.mid(1));
    const Event event = read(line);
    m_showsAll = true;
    const auto stop = qScopeGuard([this] { m_showsAll = false; });
    doInput(event);
}

/// A line of a scenario, where the timestamp may be missing, or a name and its values.
Event Shell::read(const QString &line) const
{
    if (!line.startsWith('{'))
        return readInput(m_names, wordsOf(line));
    QJsonObject object = readObject(line.toUtf8());
    object.insert("timestamp", 0);
    return readEvent(m_names, object);
}

void Shell::doInput(const Event &event)
{
    const QString why =
        m_client && event.isInput() ? m_client->ask(writtenEvent(event)) : m_simulation.play(event);
    if (!why.isEmpty())
        throw Refusal(why);
}

void Shell::waitUntil(const QElapsedTimer &since, qint64 moment)
{
    while (goesOn() && since.elapsed() < moment)
        waitOnce(moment - since.elapsed());
}

void Shell::help(const QStringList &operands)
{
    if (!operands.isEmpty()) {
        listCommand(QStringList{"list", "--"} + operands);
        return;
    }
    put("NAME VALUE...         plays an input: keyEventSgl 7 0, SetVolume 12, getVehicleSpeed, set "
        "currentDisplay 2");
    put("{\"name\":...}          plays a line of a scenario");
    for (const Command &command : commands)
        put(QString("%1 %2").arg(command.name, command.operands).leftJustified(22) + command.help);
}

void Shell::watch(const QStringList &operands)
{
    const QStringList globs = m_globs + (operands.isEmpty() ? QStringList("*") : operands);
    m_watched.emplace(m_names, globs, QStringList());
    m_globs = globs;
}

void Shell::unwatch(const QStringList &operands)
{
    QStringList globs = operands.isEmpty() ? QStringList() : m_globs;
    for (const QString &glob : operands) {
        if (globs.removeAll(glob) == 0)
            throw Refusal(excerpt(glob) + " is not watched" +
                          (m_globs.isEmpty() ? "" : ", but " + m_globs.join(' ')));
    }
    m_watched.reset();
    m_globs.clear();
    if (!globs.isEmpty())
        watch(globs);
}

void Shell::play(const QStringList &operands)
{
    /// Hears in the time of the scenario.
    struct Shifted : Sink {
        LiveJudge judge{{LiveJudge::usualTolerance, false, true}};
        QElapsedTimer since;
        std::optional<qint64> origin;
        void hear(const Event &event) override
        {
            Event counted = event;
            origin = origin.value_or(event.time - since.elapsed());
            counted.time -= *origin;
            judge.hear(counted);
        }
    } heard;
    constexpr qint64 afterLastInput = 1000;
    if (operands.size() != 1)
        throw Refusal("play expects one file");
    ScenarioFile file(m_names, operands.first(), [] { return !wasInterrupted(); });
    readAhead(file);
    heard.since.start();
    m_judge = &heard;
    m_showsAll = m_globs.isEmpty();
    const auto stop = qScopeGuard([this] {
        m_judge = nullptr;
        m_showsAll = false;
    });
    for (auto event = file.next(); event && goesOn(); event = file.next()) {
        waitUntil(heard.since, event->time);
        if (goesOn() && event->isInput())
            doInput(*event);
        else if (goesOn())
            heard.judge.expect(*event);
    }
    waitUntil(heard.since, file.time() + afterLastInput);
    heard.judge.finish(heard.since.elapsed() - heard.judge.tolerance(), file.isCut());
    put(counted(heard.judge.met(), "expected line") + " came back");
    const QStringList faults = heard.judge.faults();
    for (const QString &fault : faults)
        m_printer.print("FAILED    " + fault, 0, "31");
    m_status = heard.judge.passed() ? m_status : std::max(m_status, int(Failed));
}

void Shell::wait(const QStringList &operands)
{
    bool isNumber = false;
    const double time = operands.value(0).toDouble(&isNumber);
    constexpr double aDay = 86'400;
    if (!isNumber || operands.size() != 1 || !(time >= 0 && time <= aDay))
        throw Refusal("wait expects seconds from 0");
    QElapsedTimer since;
    since.start();
    waitUntil(since, qint64(time * 1000));
}

/// Names that a word begins; where values are expected, shows what they are.
std::optional<QStringList> Shell::complete(const QStringList &before, const QString &word)
{
    QStringList words;
    const QString first = before.value(0);
    if (first == "play")
        return std::nullopt;
    const bool isAny = first == "help" || first == "watch";
    const auto *kind =
        std::find_if(std::begin(kinds), std::end(kinds),
                     [&first](const auto &known) { return first == QLatin1String(known.key); });
    const int nameAt = kind != std::end(kinds) ? 1 : 0;
    if (before.isEmpty()) {
        for (const Command &command : commands)
            words.append(command.name);
    } else if (first == "unwatch") {
        words = m_globs;
    }
    QStringList signatures;
    for (const Signature &signature : m_names.all()) {
        const KindInfo &known = info(signature.kind);
        if (!isAny && (!known.isInput || (nameAt == 1 && kind != &known)))
            continue;
        const QString name = before.value(nameAt);
        if (isAny || before.size() == nameAt) {
            words += {signature.name, signature.shortName()};
        } else if (name == signature.name || name == signature.shortName()) {
            const Parameter parameter = signature.parameters.value(before.size() - 1 - nameAt);
            if (parameter.type == QMetaType::Bool)
                words += {"true", "false"};
            signatures.append(signature.text());
        }
    }
    if (!signatures.isEmpty() && word.isEmpty()) {
        m_prompt.hide();
        put(signatures.join("   "));
        m_prompt.show();
    }
    QStringList found;
    for (const QString &candidate : std::as_const(words)) {
        if (candidate.startsWith(word) && !found.contains(candidate))
            found.append(candidate);
    }
    return found;
}

} // namespace

int shellCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"shell",
         "[NAME]",
         "Plays inputs as they are typed, into a running application or, without a name, into the\n"
         "library in this process. In a pipe: a script, one line each; `help` shows them.",
         {{"log", nullptr, "Show what the library logs on standard error."}}});
    line.expectOperands(0, 1, "at most one name");
    noteInterrupts();
    if (!line.isSet("log"))
        silenceLibrary();
    return Shell(line.operands()).run();
}

} // namespace mcusim
