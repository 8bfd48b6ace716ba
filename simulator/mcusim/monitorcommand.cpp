// mcusim monitor: what goes in and comes out of a running application, as it happens.
#include "commandline.h"
#include "liveclient.h"
#include "process.h"

#include "printer.h"
#include "sinks.h"
#include "substituteplatform.h"
#include "values.h"

#include <QElapsedTimer>

#include <map>

#include <unistd.h>

namespace mcusim {

namespace {

/// A row for each name, as viewers of vehicle buses show them: how often it came, the milliseconds
/// between the last two, its last values. On a terminal it is drawn anew in its place.
class Table : public Sink {
public:
    explicit Table(const QString &title) : m_title(title), m_isLive(isatty(STDOUT_FILENO))
    {
        m_sinceDrawn.start();
    }

    void hear(const Event &event) override
    {
        Row &row = m_rows[{event.what->kind, event.what->name, event.what}];
        row.period = row.count++ > 0 ? event.time - row.last.time : -1;
        row.last = event;
        m_isChanged = true;
    }

    void refresh()
    {
        if (m_isLive && m_isChanged && m_sinceDrawn.elapsed() >= interval) {
            draw(terminalHeight());
            m_sinceDrawn.start();
        }
    }
    void finish() { draw(0); }

    static constexpr int interval = 100;

private:
    struct Row {
        qint64 count = 0;
        qint64 period = -1;
        Event last;
    };

    /// At most so many lines; 0 for all.
    void draw(int height)
    {
        // Lines are not broken by the terminal and replace what stands there.
        const QString begin = m_isLive ? "\033[K" : "";
        QString text = m_isLive ? "\033[?7l\033[H" : "";
        text += begin + head("", "COUNT", "PERIOD", "NAME") + "  " + m_title + '\n';
        int room = height > 0 ? height - 2 : int(m_rows.size());
        for (const auto &[key, row] : m_rows) {
            if (--room < 0)
                break;
            const QString period = row.period < 0 ? "-" : QString::number(row.period);
            text += begin + head(info(row.last.what->kind).mark, QString::number(row.count), period,
                                 row.last.what->name);
            const QVector<Field> shown = fields(row.last);
            for (const Field &field : shown)
                text += ' ' + (field.name.isEmpty() ? "" : field.name + '=') + field.value;
            text += '\n';
        }
        text += m_isLive ? "\033[J\033[?7h" : "";
        std::fputs(text.toUtf8().constData(), stdout);
        std::fflush(stdout);
        m_isChanged = false;
    }

    static QString head(const QString &mark, const QString &count, const QString &period,
                        const QString &name)
    {
        return mark.leftJustified(6) + count.rightJustified(8) + period.rightJustified(8) + "  " +
               name;
    }

    QString m_title;
    bool m_isLive;
    bool m_isChanged = true;
    QElapsedTimer m_sinceDrawn;
    std::map<std::tuple<Kind, QString, const Signature *>, Row> m_rows;
};

} // namespace

int monitorCommand(const QStringList &arguments)
{
    const CommandLine line(
        arguments,
        {"monitor",
         "[NAME]",
         "Shows what goes in and comes out of a running application, until it ends.",
         {{"only", "GLOB", "Show only names, classes or kinds like this; repeats.", true},
          {"except", "GLOB", "Do not show names, classes or kinds like this; repeats.", true},
          {"wide", nullptr, "Show all fields, in lines of any length."},
          {"json", nullptr, "Write a scenario."},
          {"table", nullptr,
           "Show a row for each name: its count, period in ms and last values."}}});
    line.expectOperands(0, 1, "one name at most");
    line.exclude({"wide", "json", "table"});
    SubstitutePlatform platform;
    const Catalogue names(platform);
    noteInterrupts();
    LiveClient client(names, findProcess(line.operands().value(0)));
    client.limitTo(line.values("only"), line.values("except"));
    client.onMissed = [&client](qint64 count) {
        complain(client.process().text() + ": " + counted(count, "event") + " missed");
    };

    Table table(client.process().text());
    Printer printer(stdout, {line.isSet("wide") ? 0 : terminalWidth(), showsColour(stdout)});
    std::optional<Recorder> recorder;
    const bool isTable = line.isSet("table");
    if (!isTable)
        std::setvbuf(stdout, nullptr, _IOLBF, 0); // each line when it comes
    if (isTable)
        client.addSink(&table);
    else if (line.isSet("json"))
        client.addSink(&recorder.emplace(
            stdout, JsonLinesFile::Metadata{"seen in " + client.process().text()}));
    else
        client.addSink(&printer);
    while (client.receive(Table::interval) && !wasInterrupted() && std::ferror(stdout) == 0) {
        if (isTable)
            table.refresh();
    }
    if (isTable)
        table.finish();
    return wasInterrupted() ? Interrupted : Passed;
}

} // namespace mcusim
