// mcusim: the scenarios that it refuses, its verdicts on outputs, and its exit status.
#include "expectations.h"
#include "linksubstitute.h"
#include "operations.h"
#include "scenario.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using mcusim::Event;
using mcusim::Kind;
using mcusim::Scenario;

namespace {

const QByteArray metadata = R"({"metadata":{"version":1,"description":"test"}})"
                            "\n";

struct Run {
    int status;
    QByteArray output;
    QByteArray errors;
};

Run run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral(MCUSIM), arguments);
    process.waitForFinished(-1);
    if (process.exitStatus() != QProcess::NormalExit)
        return {-1, {}, "mcusim crashed"};
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

} // namespace

class tst_Simulator : public QObject {
    Q_OBJECT

private:
    QTemporaryDir m_folder;

private Q_SLOTS:
    void readsScenario()
    {
        Scenario scenario;
        QString error;
        const QByteArray torn =
            metadata + R"({"timestamp":1760000000.5,"name":"keyEventSgl","value":[7,0]}
{"timestamp":1760000000.6,"name":"autoTestPkgChanged","value":"0xFF55"}
{"timestamp":1760000000.6,"signal":"McuService.audioVolumeChanged","value":[true,3,0]}
{"timestamp":1760000000.6,"call":"McuService.setAudioTimerDelay","value":[1,[2,3,4,5,6]]}
{"timestamp":1760000001)";
        QVERIFY2(readScenario(torn, &scenario, &error), qPrintable(error));
        QVERIFY(scenario.warning.contains("line 6"));
        QCOMPARE(scenario.events.size(), 4);
        QVERIFY(scenario.events[0].sameAs({0, Kind::Report, "keyEventSgl", {7, 0}, 0}));
        QVERIFY(scenario.events[1].sameAs(
            {100, Kind::Report, "autoTestPkgChanged", {QByteArray("\xff\x55")}, 0}));
        QVERIFY(scenario.events[2].sameAs(
            {100, Kind::Signal, "McuService.audioVolumeChanged", {true, 3, 0}, 0}));
        QCOMPARE(scenario.events[3].arguments[1].toList(), (QVariantList{2, 3, 4, 5, 6}));
    }

    void refusesBadScenario_data()
    {
        QTest::addColumn<QByteArray>("text");
        const auto row = [](const QByteArray &text, const char *error) {
            QTest::newRow(error) << text;
        };
        const auto line = [&](const char *members, const char *error) {
            row(metadata + R"({"timestamp":0,)" + members + '}', error);
        };
        row("", "line 1: expected {\"metadata\":{");
        row(R"({"timestamp":0,"name":"shallowSleepSgl"})", "line 1: expected {\"metadata");
        row(metadata + "{\"timestamp\":\n{}\n", "line 2: expected a JSON object");
        row(metadata + R"({"timestamp":-1,"name":"shallowSleepSgl"})",
            "line 2: expected \"timestamp\"");
        row(metadata + R"({"timestamp":2,"name":"shallowSleepSgl"})"
                       "\n"
                       R"({"timestamp":1.999,"name":"shallowSleepSgl"})",
            "line 3: time goes backwards, expected 2.000");
        row(metadata + R"({"timestamp":0,"name":"shallowSleepSgl"})"
                       "\n"
                       R"({"timestamp":1760000000,"name":"shallowSleepSgl"})",
            "line 3: expected a time within a week");
        line(R"("value":3)", "line 2: expected one of \"name\"");
        line(R"("name":"a","call":"b")", "not both");
        line(R"("name":"shallowSleepSgl","vlaue":3)", "line 2: unexpected \"vlaue\"");
        line(R"("name":"shallowSleep")", "line 2: unknown link signal \"shallowSleep\"");
        line(R"("call":"McuService.nothing")", "unknown operation \"McuService.nothing\"");
        line(R"("platform":"DateTimeManager.setDate")",
             "unknown platform call \"DateTimeManager.setDate\"");
        line(R"("answer":"McuService.volumePlus","value":1)", "unknown answering operation");
        line(R"("name":"keyEventSgl","value":1)",
             "keyEventSgl(int key, int state) expects 2 arguments, got 1");
        line(R"("name":"keyEventSgl","value":[1,"x"])",
             "keyEventSgl: argument 2 (int state) cannot be \"x\"");
        line(R"("name":"stwAdcValue","value":1.5)", "cannot be 1.5");
        line(R"("name":"stwAdcValue","value":2147483648)", "cannot be 2147483648");
        line(R"("name":"autoTestPkgChanged","value":"0xFG")",
             "argument 1 (QByteArray pkg) cannot be \"0xFG\"");
        line(R"("name":"autoTestPkgChanged","value":"0xFFF")", "cannot be \"0xFFF\"");
    }

    void refusesBadScenario()
    {
        QFETCH(QByteArray, text);
        Scenario scenario;
        QString told;
        QVERIFY(!readScenario(text + '\n', &scenario, &told));
        QVERIFY2(told.contains(QTest::currentDataTag()), qPrintable(told));
    }

    void judgesWhatCameBack()
    {
        struct Case {
            bool recording;
            QList<int> came; // key codes at 0, 100, 200 ms ...
            bool passes;
        };
        const Case cases[]{{false, {1, 2}, true},  {false, {1, 2, 3}, true},  {false, {1}, false},
                           {false, {1, 3}, false}, {false, {1, 0, 2}, false}, // too late
                           {true, {1, 2}, true},   {true, {1, 2, 3}, false},  {true, {1}, false}};
        const auto event = [](int index, int key) {
            return Event{index * 100, Kind::Signal, "McuService.keyPressed", {key}, index + 2};
        };
        for (const Case &c : cases) {
            Scenario scenario;
            scenario.recording = c.recording;
            scenario.events = {event(0, 1), event(1, 2)};
            QList<Event> outputs;
            for (int key : c.came)
                outputs.append(event(outputs.size(), key));
            QCOMPARE(judge(scenario, outputs).passed(), c.passes);
        }
    }

    void tellsOverloadsApart()
    {
        const Event number{0, Kind::Signal, "McuService.audioVolumeChanged", {0, 12, 0}, 2};
        const Event flag{0, Kind::Signal, "McuService.audioVolumeChanged", {false, 12, 0}, 3};
        Scenario scenario;
        scenario.events = {number, flag};
        QVERIFY(judge(scenario, {number, flag}).passed());
        const QStringList faults = judge(scenario, {flag, number}).faults;
        QCOMPARE(faults.size(), 1);
        QVERIFY2(faults[0].contains("not in this place"), qPrintable(faults[0]));
    }

    void playsRecordingAgain()
    {
        const QByteArray recorded =
            run({"play", "--fast", "--json", SCENARIOS "/cold-start-and-drive.jsonl"}).output;
        const QString path = m_folder.filePath("recording.jsonl");
        const auto play = [&](const QByteArray &recording, const QStringList &options) {
            QFile file(path);
            if (file.open(QIODevice::WriteOnly))
                file.write(recording);
            file.close();
            return run(QStringList{"play", path} + options);
        };
        for (const char *option : {"--fast", "--speed=200", "--reader-thread"}) {
            const Run replayed = play(recorded, {"--json", "--speed=200", option});
            QVERIFY2(replayed.status == 0, replayed.errors.constData());
            QCOMPARE(replayed.output, recorded);
        }
        QByteArray changed = recorded;
        changed.replace("\"McuService.syncSpeedUpdate\",\"value\":41",
                        "\"McuService.syncSpeedUpdate\",\"value\":42");
        const Run failed = play(changed, {"--fast", "--quiet"});
        QCOMPARE(failed.status, 1);
        QVERIFY2(failed.output.contains("recorded McuService.syncSpeedUpdate(42) at 11.900"),
                 failed.output.constData());
    }

    void endsWithStatus_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("status");
        // The text is on standard output, or for status 2 on standard error.
        const auto row = [](const QStringList &arguments, int status, const char *text) {
            QTest::newRow(text) << arguments << status;
        };
        row({"--help"}, 0, "Usage:");
        row({"--version"}, 0, "mcusim 1.0.0");
        row({"play", "--help"}, 0, "--speed");
        row({"list"}, 0, "reportTruckVehicleParametersChanged(int Vehicle_EngFuelTemp1, ");
        row({}, 2, "expected a command");
        row({"paly"}, 2, "unknown command \"paly\"");
        row({"play", "--slow", "x"}, 2, "see mcusim play --help");
        row({"play"}, 2, "expects one file");
        row({"play", "no-such-file"}, 2, "cannot read no-such-file");
        row({"play", "/"}, 2, "cannot read /");
        row({"play", "--speed", "0", "x"}, 2, "--speed expects a number above 0");
        row({"list", "x"}, 2, "list expects nothing more");
        row({"text", "0x48 0049A9"}, 0, "HI\xe2\x82\xac\n");
        row({"text", "4"}, 2, "expected bytes in hexadecimal");
    }

    void endsWithStatus()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, status);
        const Run ended = run(arguments);
        QCOMPARE(ended.status, status);
        const QByteArray &told = status == 2 ? ended.errors : ended.output;
        QVERIFY2(told.contains(QTest::currentDataTag()), told.constData());
        if (status == 2)
            QCOMPARE(ended.errors.count('\n'), 1);
    }

    void reportsLostOutput()
    {
        QProcess process;
        process.setStandardOutputFile("/dev/full");
        process.start(MCUSIM, {"play", "--fast", "--json", SCENARIOS "/truck-start.jsonl"});
        process.waitForFinished(-1);
        QCOMPARE(process.exitCode(), 2);
        QVERIFY(process.readAllStandardError().contains("cannot write"));
    }
};

QTEST_GUILESS_MAIN(tst_Simulator)
#include "tst_simulator.moc"
