#include "liveplay.h"

#include "bench.h"
#include "commandline.h"

#include "printer.h"
#include "values.h"

#include <cmath>

namespace mcusim {

namespace {

constexpr int interval = 50; ///< between looks at what stops the play
/// How long the application's timers go on after the last input.
constexpr qint64 afterLastInput = 1000;

LiveJudge::Rules rules(const CommandLine &line, double speed)
{
    // Time in the scenario passes faster than the timers and delays of the machine.
    const auto tolerance = double(line.moment("tolerance", LiveJudge::usualTolerance));
    return {qint64(tolerance * std::max(1.0, speed)), false, true};
}

} // namespace

LivePlay::LivePlay(const Catalogue &names, const CommandLine &line, const QString &path, GoOn goOn)
    : m_speed(line.number("speed", 1)), m_goOn(std::move(goOn)), m_file(names, path,
                                                                        [this] {
                                                                            // What comes meanwhile
                                                                            // does not wait for the
                                                                            // next line.
                                                                            receive(0);
                                                                            return m_goOn();
                                                                        }),
      m_judge(rules(line, m_speed))
{
    readAhead(m_file);
}

void LivePlay::run(LiveClient &client)
{
    m_client = &client;
    client.addSink(this);
    client.onMissed = [this](qint64 count) { m_missed += count; };
    QMap<int, int> lines; // of inputs, by their number
    client.onAnswer = [&](int number, const QString &why) {
        const int line = lines.take(number);
        if (!why.isEmpty())
            throw Refusal(m_file.name() + ": line " + QString::number(line) + ": " + why);
    };
    m_since.start();
    qint64 end = 0;
    for (auto event = m_file.next(); event && isGoing(); event = m_file.next()) {
        waitUntil(event->time);
        end = std::max(end, event->time + m_judge.tolerance());
        if (event->isInput()) {
            m_first = m_first ? m_first : event;
            end = std::max(end, event->time + qint64(afterLastInput * m_speed));
            lines[client.send(writtenEvent(*event))] = event->line;
        } else if (m_first || !m_file.metadata().recording) {
            // The application has started before a recording begins to be played.
            m_judge.expect(*event);
        }
    }
    while (isGoing() && !lines.isEmpty())
        receive(interval);
    m_wasCutOff = !m_client;
    waitUntil(end);
    m_judge.finish(now() - m_judge.tolerance(), m_file.isCut());
    client.onAnswer = {};
}

void LivePlay::hear(const Event &event)
{
    Event counted = event;
    if (!m_origin && m_first && event.isInput() && event.sameAs(*m_first))
        m_origin = event.time - qint64(double(m_first->time) / m_speed);
    counted.time = m_origin ? std::llround(double(event.time - *m_origin) * m_speed) : now();
    m_counters.hear(counted);
    m_judge.hear(counted);
    for (Sink *sink : m_sinks)
        sink->hear(counted);
}

void LivePlay::receive(int milliseconds)
{
    if (m_client && !m_client->receive(milliseconds)) {
        m_client = nullptr;
        m_ended = now();
    }
}

void LivePlay::waitUntil(qint64 moment)
{
    while (isGoing()) {
        const double due = double(moment) / m_speed - double(m_since.nsecsElapsed()) / 1e6;
        receive(int(std::ceil(std::clamp(due, 0.0, double(interval)))));
        if (due <= 0)
            break;
    }
}

qint64 LivePlay::now() const { return qint64(double(m_since.elapsed()) * m_speed); }

QStringList LivePlay::faults() const
{
    QStringList faults = m_judge.faults();
    if (m_wasCutOff)
        faults.append("the application ended at " + seconds(m_ended) +
                      ", before the end of the scenario");
    if (m_missed > 0)
        faults.append(counted(m_missed, "event") + " missed");
    return faults;
}

void LivePlay::print(Printer &printer) const
{
    constexpr int indent = 10;
    const auto count = [this](Kind kind, const char *thing) {
        return counted(m_counters.count(kind), thing);
    };
    printer.print("Played    " + count(Kind::Report, "report") + " and " +
                      count(Kind::Call, "call") + ", " + seconds(now()) + " s",
                  indent);
    printer.print("Received  " + count(Kind::Signal, "signal") + " by applications, " +
                      count(Kind::Command, "command") + " by the link",
                  indent);
    const QStringList notes = m_judge.notes();
    for (const QString &note : notes)
        printer.print(note, indent);
    const QStringList all = faults();
    if (m_judge.met() > 0 || !all.isEmpty())
        printer.print("Expected  " + counted(m_judge.met(), "line") + " came back", indent);
    for (const QString &fault : all)
        printer.print("FAILED    " + fault, indent, "31");
    if (wasInterrupted())
        printer.print("Interrupted", indent);
    else if (m_judge.met() > 0 && all.isEmpty())
        printer.print("Passed", indent, "32");
}

int playLive(const CommandLine &line, const QString &path, JUnitFile &junit)
{
    SubstitutePlatform platform;
    const Catalogue names(platform);
    LivePlay play(names, line, path, [] { return !wasInterrupted() && std::ferror(stdout) == 0; });
    const bool isJson = line.isSet("json");
    const bool isLimited = line.isSet("only") || line.isSet("except");
    Printer printer(isJson ? console() : stdout, {line.isSet("wide") ? 0 : terminalWidth(),
                                                  showsColour(isJson ? console() : stdout)});
    LiveClient client(names, findProcess(line.value("on")));
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    std::optional<Recorder> recorder;
    Sink *shown = line.isSet("quiet") ? nullptr : &printer;
    if (isJson)
        shown =
            &recorder.emplace(stdout, JsonLinesFile::Metadata{play.file().metadata().description,
                                                              !isLimited, !isLimited, !isLimited});
    Filter filter(names, line.values("only"), line.values("except"));
    filter.setSink(shown);
    if (shown)
        play.addSink(isLimited ? &filter : shown);
    play.run(client);
    if (recorder && !wasInterrupted())
        recorder->finish(play.now());
    play.print(printer);
    junit.write(path, {{path, play.now(), play.faults()}});
    return wasInterrupted() ? Interrupted : play.faults().isEmpty() ? Passed : Failed;
}

} // namespace mcusim
