// The simulator: what it refuses to read, how it judges what came back, how it plays and how it
// ends.
#include "livejudge.h"
#include "player.h"
#include "scenario.h"
#include "stationsequence.h"
#include "substituteplatform.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>

#include <sys/wait.h>
#include <unistd.h>

#if __has_include(<valijson/validator.hpp>)
#define HAS_VALIJSON
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>
#endif

using namespace mcusim;

namespace {

/// A row "what => outcome" of a table, and its section.
struct Row {
    QString section;
    QString what;
    QString outcome;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QVector<Row> rows(const QString &sections)
{
    QVector<Row> found;
    QString section;
    for (const QString &line :
         QString::fromUtf8(contentOf(qEnvironmentVariable("TABLES", TABLES))).split('\n')) {
        if (line.startsWith('['))
            section = line;
        else if (!line.isEmpty() && !line.startsWith('#') && section.contains(sections))
            found.append({section, line.section(" =>", 0, 0), line.section(" =>", 1).trimmed()});
    }
    return found;
}

SubstitutePlatform platform;

const Catalogue &names()
{
    static const Catalogue catalogue(platform);
    return catalogue;
}

const QByteArray metadata = R"({"metadata":{"version":1,"description":"test"}})";

const QByteArray fine = R"({"timestamp":2,"name":"shallowSleepSgl"})";

/// The event of a word in a judged row.
Event eventOf(const QString &word)
{
    const QString value = word.section(':', 1);
    Event event =
        value.isEmpty()   ? names().read(Kind::Report, "stwAdcValue", 0)
        : value[0] == 'v' ? names().read(Kind::Command, "SetVolume", value.mid(1).toInt())
        : value[0] == 'm'
            ? names().read(Kind::Signal, "McuManager.sysBootState", value.mid(1).toInt())
        : value[0] == 'u'
            ? names().read(Kind::Signal, "McuService.syncHuInforUpdate", QString("0x0") + value[1])
        : value == "init" ? names().read(Kind::Command, "init", QJsonValue::Undefined)
                          : names().read(Kind::Signal, "McuService.keyPressed", value.toInt());
    event.time = word.mid(1).section(':', 0, 0).toInt();
    return event;
}

/// The descriptor that the next opened file gets.
int nextDescriptor()
{
    const int next = dup(STDERR_FILENO);
    close(next);
    return next;
}

template <typename File>
void readAll(File &&file)
{
    while (file.next()) {
    }
}

#ifdef HAS_VALIJSON
/// Whether the schema of a format has all lines.
bool isInSchema(const QString &format, const QByteArray &lines)
{
    using valijson::adapters::QtJsonAdapter;
    const QByteArray text = contentOf(SIMULATOR "/schemas/" + format + ".json");
    const QJsonValue json = QJsonDocument::fromJson(text).object();
    valijson::Schema schema;
    valijson::SchemaParser().populateSchema(QtJsonAdapter(json), schema);
    bool isIn = !json.toObject().isEmpty();
    for (const QByteArray &line : lines.split('\n')) {
        const QJsonValue value = QJsonDocument::fromJson(line).object();
        valijson::Validator validator;
        isIn =
            isIn && (line.isEmpty() || validator.validate(schema, QtJsonAdapter(value), nullptr));
    }
    return isIn;
}
#endif

} // namespace

class tst_Simulator : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

    QString file(const QByteArray &content)
    {
        QFile file(m_folder.filePath("file"));
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        return file.fileName();
    }

private Q_SLOTS:
    void refusesBadInput()
    {
        names();
        const int unused = nextDescriptor();
        for (const Row &row : rows("refused")) {
            const bool isScenario = row.section == "[refused scenarios]";
            QByteArray text = row.what.mid(2).toUtf8();
            if (text.startsWith('{') && !text.contains("metadata"))
                text.insert(1, isScenario ? "\"timestamp\":0," : "\"test\":\"t\",")
                    .prepend("META/");
            text.replace("/", "\n").replace("META", metadata).replace("FINE", fine);
            text.replace("ESC", "\x1b").replace("LONG", QByteArray(1'100'000, 'x')).append('\n');
            QString told;
            try {
                if (isScenario)
                    readAll(ScenarioFile(names(), file(text)));
                else
                    readAll(SequenceFile(names(), file(text)));
            } catch (const Refusal &refusal) {
                told = refusal.text();
            }
            QVERIFY2(told.contains(row.outcome), qPrintable(row.what + "\n" + told));
            QCOMPARE(nextDescriptor(), unused); // the file is closed
            QVERIFY2(told.startsWith(m_folder.path()) && told.size() < 400 && !told.contains('\n'),
                     qPrintable(told));
#ifdef HAS_VALIJSON
            // Qt's parser leaks what a key had before it is there twice.
            QVERIFY2(row.outcome.contains("twice") ||
                         isInSchema(isScenario ? "scenario" : "sequence", text) ==
                             row.what.startsWith('+'),
                     qPrintable(row.what));
#endif
        }
    }

    void schemasHaveWhatShips()
    {
#ifdef HAS_VALIJSON
        for (const QString format : {"scenario", "sequence"}) {
            const QDir folder(SIMULATOR "/" + format + 's');
            for (const QString &name : folder.entryList(QDir::Files))
                QVERIFY2(isInSchema(format, contentOf(folder.filePath(name))), qPrintable(name));
        }
#else
        QSKIP("needs valijson");
#endif
    }

    void judgesWhatCameBack()
    {
        for (const Row &row : rows("judged")) {
            const bool isLive = row.what.startsWith("live ");
            Judge exact(row.what.startsWith("recording "));
            LiveJudge live({});
            Judge &judge = isLive ? live : exact;
            int line = 1;
            for (const QString &word :
                 row.what.split(' ').filter(QRegularExpression("^[ehi]\\d"))) {
                Event event = eventOf(word);
                event.line = word[0] == 'e' ? ++line : 0;
                if (event.line > 0)
                    judge.expect(event);
                else
                    judge.hear(event);
            }
            judge.finish(isLive ? 9000 : 0, row.what.endsWith("cut"));
            QCOMPARE((judge.faults() + judge.notes()).join('|').replace("McuService.", ""),
                     row.outcome);
            QCOMPARE(judge.isSurplus(), row.what.endsWith("cut"));
        }
    }

    void runs()
    {
        // Not by QProcess, which does not see the end of a process under emulation.
        const QString scenarios = SIMULATOR "/scenarios/";
        qputenv("PATH", PROGRAMS ":" + qgetenv("PATH"));
        qputenv("XDG_RUNTIME_DIR", m_folder.path().toUtf8());
        qputenv("LIVE", TESTS "/live.sh");
        qputenv("SIM", SIMULATOR);
        qputenv("DRIVE", scenarios.toUtf8() + "cold-start-and-drive.jsonl");
        qputenv("TRUCK", scenarios.toUtf8() + "truck-start.jsonl");
        qputenv("META", metadata);
        qputenv("SUBSTITUTE", PLATFORMS "/substitute");
        qputenv("SAMPLE", PLATFORMS "/sample");
        QVERIFY(QDir::setCurrent(m_folder.path()));
        for (const Row &row : rows("run")) {
            qputenv("ROW", row.what.section(' ', 1).toUtf8());
            const int result = std::system("timeout 300 sh -c \"$ROW\" > .out 2> .err");
            const int status = WEXITSTATUS(result);
            const QByteArray errors = contentOf(".err");
            QString output = contentOf(".out");
            const QByteArray all = row.what.toUtf8() + '\n' + output.toUtf8() + errors;
            QVERIFY2(status == row.what.section(' ', 0, 0).toInt(), all);
            QVERIFY2(errors.count('\n') == (status == 2 ? 1 : 0), all);
            if (row.outcome.startsWith('/'))
                output.replace('\n', '/').prepend('/');
            QVERIFY2((status == 2 ? errors : output).contains(row.outcome), all);
        }
    }

    void playsInAnEventLoop()
    {
        struct Values : Sink {
            QVector<int> heard;
            std::function<void()> pause;
            void hear(const Event &event) override
            {
                if (event.what->name == "stwAdcValue")
                    heard.append(event.values[0].toInt());
                if (heard.size() == 2)
                    pause();
            }
        } values;
        RealTime time;
        Simulation simulation(names(), platform, time);
        simulation.addSink(&values);
        simulation.start();
        Event next = names().read(Kind::Report, "stwAdcValue", 0);
        const auto source = [&next]() -> std::optional<Event> {
            if (next.time == 50)
                throw Refusal("line 7: torn");
            const Event event = next;
            next.time += 10;
            next.values[0] = int(next.time / 10);
            return event;
        };
        Player player(source, simulation, nullptr);
        values.pause = [&player] { player.pause(); };
        QString stopped;
        const auto stop = [&stopped](const QString &why) { stopped = why; };
        player.start(10, stop);
        QTRY_COMPARE(values.heard, (QVector<int>{0, 1}));
        QVERIFY(!player.isRunning() && player.step() && player.seek(35));
        QCOMPARE(values.heard, (QVector<int>{0, 1, 2, 3}));
        player.start(10, stop);
        QTRY_COMPARE(stopped, QString("line 7: torn"));
        QCOMPARE(values.heard.last(), 4);
        const Event output = names().read(Kind::Command, "SetVolume", 5);
        QVERIFY(simulation.play(output).contains("cannot be played"));
    }
};

QTEST_GUILESS_MAIN(tst_Simulator)
#include "tst_simulator.moc"
