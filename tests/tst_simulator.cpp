// The simulator: what it refuses to read, how it judges what came back, how it plays and how it
// ends.
#include "player.h"
#include "scenario.h"
#include "stationsequence.h"
#include "substituteplatform.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#if __has_include(<valijson/validator.hpp>)
#define HAS_VALIJSON
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>
#endif

using namespace mcusim;

namespace {

/// A row "what => outcome" of simulator.txt, and its section.
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
    for (const QString &line : QString::fromUtf8(contentOf(TABLES)).split('\n')) {
        if (line.startsWith('['))
            section = line;
        else if (line.contains(" =>") && !line.startsWith('#') && section.contains(sections))
            found.append({section, line.section(" =>", 0, -2), line.section(" =>", -1).trimmed()});
    }
    return found;
}

SubstitutePlatform platform;

const Catalogue &names()
{
    static const Catalogue catalogue(platform);
    return catalogue;
}

/// With another folder for temporary files.
QProcessEnvironment withTmp(const QString &folder)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", folder);
    return environment;
}

struct Run {
    int status; ///< -1 when it did not come to an end of its own
    QByteArray output;
    QByteArray errors;
};

Run run(const QStringList &arguments, const QByteArray &input = {}, const char *tmp = "/tmp")
{
    QProcess process;
    process.setProcessEnvironment(withTmp(tmp));
    process.setWorkingDirectory(SIMULATOR);
    process.start(MCUSIM, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(-1) && process.exitStatus() == QProcess::NormalExit;
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

const QString drive = "scenarios/cold-start-and-drive.jsonl";
const QString truck = "scenarios/truck-start.jsonl";
const QByteArray metadata = R"({"metadata":{"version":1,"description":"test"}})"
                            "\n";

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
    void readsScenario()
    {
        const QByteArray torn =
            metadata + R"({"timestamp":1760000000.5,"name":"keyEventSgl","value":[7,0]}
{"timestamp":1760000000.6,"name":"autoTestPkgChanged","value":"0xFF55"}

{"timestamp":1760000000.6,"signal":"McuService.audioVolumeChanged","value":[true,3,0]}
{"timestamp":1760000000.6,"call":"McuService.setAudioTimerDelay","value":[1,[2,3,4,5,6]]}
{"timestamp":1760000001)";
        ScenarioFile scenario(names(), file(torn));
        QByteArray written;
        while (const std::optional<Event> event = scenario.next())
            written += writtenEvent(*event) + '\n';
        QCOMPARE(written.data(), R"({"timestamp":0.000,"name":"keyEventSgl","value":[7,0]}
{"timestamp":0.100,"name":"autoTestPkgChanged","value":"0xff55"}
{"timestamp":0.100,"signal":"McuService.audioVolumeChanged","value":[true,3,0]}
{"timestamp":0.100,"call":"McuService.setAudioTimerDelay","value":[1,[2,3,4,5,6]]}
)");
        QVERIFY2(scenario.warning().contains("line 7 is torn"), qPrintable(scenario.warning()));
    }

    void refusesBadInput()
    {
        for (const Row &row : rows("refused")) {
            const bool isScenario = row.section == "[refused scenarios]";
            QByteArray text = row.what.mid(2).toUtf8();
            if (text.startsWith('{') && !text.contains("metadata"))
                text =
                    "META/" + text.insert(1, isScenario ? "\"timestamp\":0," : "\"test\":\"t\",");
            text.replace("/", "\n").replace("META", metadata.trimmed());
            text.replace("FINE", R"({"timestamp":2,"name":"shallowSleepSgl"})")
                .replace("ESC", "\x1b");
            text.replace("LONG", QByteArray(1'100'000, 'x')).append('\n');
            QString told;
            try {
                ScenarioFile scenario(names(), isScenario ? file(text) : SIMULATOR "/" + truck);
                while (scenario.next()) {
                }
                SequenceFile sequence(names(), file(text));
                while (sequence.next()) {
                }
            } catch (const Refusal &refusal) {
                told = refusal.text();
            }
            QVERIFY2(told.contains(row.outcome), qPrintable(row.what + "\n" + told));
            QVERIFY2(told.startsWith(m_folder.path()) && told.size() < 400 && !told.contains('\n'),
                     qPrintable(told));
#ifdef HAS_VALIJSON
            QVERIFY2(isInSchema(isScenario ? "scenario" : "sequence", text) ==
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
            Judge judge(row.what.startsWith("recording "));
            int line = 1;
            for (const QString &word : row.what.split(' ')) {
                const bool isInput = word[0] == 'i';
                Event event = names().read(isInput ? Kind::Report : Kind::Signal,
                                           isInput ? "stwAdcValue" : "McuService.keyPressed",
                                           word.section(':', 1).toInt());
                event.time = word.mid(1).section(':', 0, 0).toInt();
                event.line = word[0] == 'e' ? ++line : 0;
                if (event.line > 0)
                    judge.expect(event);
                else if (isInput || word[0] == 'h')
                    judge.hear(event);
            }
            judge.finish(row.what.endsWith("cut"));
            QCOMPARE(judge.faults().join('|').replace("McuService.keyPressed", "key"), row.outcome);
            QCOMPARE(judge.isSurplus(), row.what.endsWith("cut"));
        }
    }

    void showsTwentyFaults()
    {
        Judge judge(false);
        Event event = names().read(Kind::Signal, "McuService.keyPressed", 0);
        for (int key = 1; key <= 100'000; ++key) {
            event.values[0] = key;
            judge.expect(event);
            event.values[0] = -key;
            judge.hear(event);
        }
        judge.finish(false);
        QCOMPARE(judge.faults().size(), 21);
        QCOMPARE(judge.faults().last(), QString("and 99980 more"));
    }

    void playsRecordingAgain()
    {
        const QByteArray recorded = run({"play", "--fast", "--json", drive}).output;
        for (const char *options : {"--fast", "--speed=200", "--fast --reader-thread"}) {
            const Run again =
                run(QStringList{"play", "--json", "-"} + QString(options).split(' '), recorded);
            QVERIFY2(again.status == 0, again.errors.constData());
            QCOMPARE(again.output, recorded);
        }
        QByteArray changed = recorded;
        changed.replace("syncSpeedUpdate\",\"value\":41", "syncSpeedUpdate\",\"value\":42");
        const Run failed = run({"play", "--fast", "--quiet", "-"}, changed);
        QCOMPARE(failed.status, 1);
        QVERIFY2(failed.output.contains("syncSpeedUpdate(42) at 11.900, received McuService.syncS"),
                 failed.output.constData());
        for (int size = 1; size < recorded.size() - 1; size += 331) {
            const QString path = size % 2 == 0 ? "-" : file(recorded.left(size));
            const Run cut = run({"play", "--fast", "--quiet", path}, recorded.left(size));
            QVERIFY2(cut.status == 0 && cut.errors.startsWith("mcusim: warning: ") &&
                         cut.errors.count('\n') == 1,
                     cut.errors.constData());
            QCOMPARE(cut.output.contains("came back"), recorded.left(size).count('\n') > 1);
        }
    }

    void endsWithStatus()
    {
        for (const Row &row : rows("run")) {
            QString arguments = row.what.mid(2);
            arguments.replace("DRIVE", drive).replace("TRUCK", truck);
            const Run ended = run(QProcess::splitCommand(arguments));
            QVERIFY2(ended.status == row.what.left(1).toInt(), qPrintable(row.what));
            QString told = ended.status == 2 ? ended.errors : ended.output;
            const bool hasLine = row.outcome.startsWith('/');
            QVERIFY2((hasLine ? told.replace('\n', '/') : told).contains(row.outcome),
                     qPrintable(row.what + '\n' + told));
            QCOMPARE(ended.errors.count('\n'), ended.status == 2 ? 1 : 0);
        }
    }

    void reportsLostOutput()
    {
        for (const QString &arguments :
             {QString("list"), "play --fast " + truck, "play --fast --json " + truck,
              "play --fast " + truck + ' ' + truck, QString("station sequences/every-did.jsonl")}) {
            QProcess process;
            process.setWorkingDirectory(SIMULATOR);
            process.setStandardOutputFile("/dev/full");
            process.start(MCUSIM, arguments.split(' '));
            QVERIFY(process.waitForFinished(-1));
            QCOMPARE(process.exitCode(), 2);
            QVERIFY(process.readAllStandardError().contains("cannot write standard output"));
        }
    }

    void hintsAtTheTestMode()
    {
        const QString verdicts = m_folder.filePath("verdicts.xml");
        const Run ended =
            run({"station", "--junit", verdicts, "-"},
                metadata + R"({"test":"\u0001<","send":"read UI","answer":"read UI"})");
        QCOMPARE(ended.status, 1);
        QVERIFY2(ended.output.contains("test mode is off: \"status\":1"), ended.output.constData());
        QVERIFY(contentOf(verdicts).contains("name=\"\\u0001&lt;\""));
    }

    void searchesUnderAnyPath()
    {
        const QString root = m_folder.filePath("sd/update");
        for (const QString &name :
             {root + "/usb/other/CUST_PIO.BIN", root + "/sd1/update/st26mcu.bin"}) {
            QFile file(name);
            QVERIFY(QDir().mkpath(QFileInfo(name).path()) && file.open(QIODevice::WriteOnly));
        }
        const QByteArray found = run({"updates", root}).output;
        QVERIFY2(found.contains(("first medium  " + root + "/sd1/update/st26mcu.bin").toUtf8()) &&
                     !found.contains("usb"),
                 found.constData());
    }

    void leavesNothingBehind()
    {
        const QString folder = m_folder.filePath("tmp");
        QVERIFY(QDir().mkpath(folder));
        QProcess process;
        process.setProcessEnvironment(withTmp(folder));
        process.start(MCUSIM, {"play", "-"});
        const QByteArray settings = metadata + R"({"timestamp":0,"call":"AutoTestHandler.start"}
{"timestamp":0,"name":"autoTestPkgChanged","value":"0xff55052ef7010101d3"}
{"timestamp":0,"name":"autoTestPkgChanged","value":"0xff55052ef7010101d3"}
)";
        // What could not be written is not read back: it is set a second time.
        QCOMPARE(run({"play", "--fast", "-"}, settings, "/proc").output.count("key=\"DemoOnOff"),
                 2);
        process.write(settings + "{\"timestamp\":0,\"name\":\"stwAdcValue\",\"value\":7}\n");
        while (!process.readLine().contains("stwAdcValue"))
            QVERIFY(process.canReadLine() || process.waitForReadyRead());
        process.terminate();
        QVERIFY(process.waitForFinished(-1));
        QCOMPARE(process.exitCode(), 130);
        QVERIFY(process.readAll().endsWith("Interrupted\n"));
        QCOMPARE(QDir(folder).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
    }

    void playsInAnEventLoop()
    {
        struct Values : Sink {
            Player *player = nullptr;
            QVector<int> heard;
            void hear(const Event &event) override
            {
                if (event.what->name == "stwAdcValue")
                    heard.append(event.values[0].toInt());
                if (heard.size() == 2)
                    player->pause();
            }
        } values;
        RealTime time;
        Simulation simulation(names(), platform, time);
        simulation.addSink(&values);
        simulation.start();
        int next = 0;
        Player player(
            [&next]() {
                if (next == 5)
                    throw Refusal("line 7: torn");
                Event event = names().read(Kind::Report, "stwAdcValue", next);
                event.time = 10 * next++;
                return std::optional(event);
            },
            simulation, nullptr);
        values.player = &player;
        QString stopped;
        const auto stop = [&stopped](const QString &why) { stopped = why; };
        player.start(10, stop);
        QTRY_COMPARE(values.heard, (QVector<int>{0, 1}));
        QVERIFY(!player.isRunning() && player.step());
        QVERIFY(player.seek(35));
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
