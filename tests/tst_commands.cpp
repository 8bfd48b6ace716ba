// Commands out: every operation that tells the MCU something, with what the link then receives, and
// the few that have a rule of their own.
#include "linksubstitute.h"
#include "mcuservice.h"
#include "operations.h"
#include "platformsubstitute.h"
#include "testkit.h"

#include <limits>

using mcu::McuService;
using mcusim::Operation;

namespace {

constexpr int lowest = std::numeric_limits<int>::min();
constexpr int highest = std::numeric_limits<int>::max();

/// What the link and the tuner received since the last call.
QString sent()
{
    QStringList texts;
    for (const auto &call : substitute::link::log().take() + substitute::platform::log().take())
        texts.append(testkit::show(call.name, call.arguments));
    return texts.join(' ');
}

/// The facade's commands, then the radio's.
QVector<Operation> commands()
{
    QVector<Operation> found;
    for (const Operation &operation : mcusim::operations()) {
        if (!found.isEmpty() || operation.name == "McuService.volumePlus")
            found.append(operation);
        if (operation.name == "McuRadioInterface.set_tuner_step")
            break;
    }
    return found;
}

/// Arguments that all differ, counted up from a number; booleans alternate.
QVariantList counted(const Operation &operation, int number)
{
    QVariantList values;
    for (const mcusim::Parameter &parameter : operation.parameters) {
        QVariant value = parameter.type == QMetaType::Bool ? number % 2 : number;
        if (parameter.type == QMetaType::QVariantList)
            value = QVariantList{number, number + 1, number + 2, number + 3, number + 4};
        value.convert(parameter.type);
        values.append(value);
        ++number;
    }
    return values;
}

/// A command that does not reach the link under its own name with its own arguments.
struct Exception {
    QString link;
    QVariantList (*arguments)(QVariantList given) = [](QVariantList given) { return given; };
};

QVariantList zero(QVariantList) { return {0}; }
QVariantList widened(QVariantList given) { return {given[0].toInt()}; }
QVariantList asBytes(QVariantList given)
{
    return {given[0].toInt() & 255, given[1].toInt() & 255};
}
QVariantList flattened(QVariantList given) { return QVariantList{given[0]} + given[1].toList(); }
QVariantList offset(QVariantList given)
{
    return {int(given[0].toUInt() + 25), int(given[1].toUInt() + 25)};
}

const QHash<QString, Exception> exceptions{
    {"steeringWheelDopState", {"setWheelDopState"}},
    {"steeringWheeldopReset", {"steeringWheedoplReset"}},
    {"steeringWheeldopClear", {"steeringWheedoplClear"}},
    {"setNativeMusicMode", {"set_UICMD_Native_Music_Mode"}},
    {"set_UICMD_AUDIO_PlayBack_Comleted", {"set_UICMD_AUDIO_Playback_Comleted"}},
    {"setSleepAllMute", {"set_UICMD_Sleep_All_Mute"}},
    {"setMeterClearDisplay", {"set_UICMD_Meter_Clear_Display"}},
    {"setSpeakerPhase", {"set_speaker_phase"}},
    {"setRadioRds", {"setRdsOnOff"}},
    {"setRadioTA", {"setTaOnOff"}},
    {"setRadioAF", {"setAfOnOff"}},
    {"dabRequestScan", {"TunerControl.HDR_DabRequestScan"}},
    {"dabRequestTuneFreq", {"TunerControl.HDR_DabTunerFM"}},
    {"setPowerOff", {"setPowerOff", widened}},
    {"setDabAntPower", {"setDabAntPower", widened}},
    {"setBalanceFader", {"setBalanceFader", offset}},
    {"triggerBeep", {"triggerBeep", zero}},
    {"setAudioTimerDelay", {"setAudioTimerDelay", flattened}},
    {"setMixChannel", {"setMixChannel", asBytes}},
};

QString expected(const Operation &operation, const QVariantList &given)
{
    const QString name = operation.name.section('.', 1);
    if (name == "setBeepInterval" || name == "getEcuEdititon")
        return {};
    const Exception exception = exceptions.value(name, {name});
    return testkit::show(exception.link, exception.arguments(given));
}

/// A facade bound to the link.
struct Bound : McuService {
    Bound()
    {
        init();
        sent();
    }
};

} // namespace

class tst_Commands : public QObject {
    Q_OBJECT

public:
    explicit tst_Commands(substitute::VirtualClock *clock) : m_clock(clock) {}

private Q_SLOTS:
    // In this order: the link stays bound, and the mute level sent last is kept for good.
    void withoutLinkNothingIsSent();
    void muteLevelIsSentOnce();
    void argumentsArriveAtTheLink();
    void beepsKeepTheirInterval();
    void logLinesAreWritten();
    void oddInputIsTaken();

private:
    substitute::VirtualClock *m_clock;
};

void tst_Commands::withoutLinkNothingIsSent()
{
    const QStringList needLink{"setSerialNumer", "setSleepMode", "setMixChannel"};
    const testkit::LogCapture log;
    substitute::link::setAnswer("getEcuEdititon", 42);
    for (const Operation &command : commands()) {
        if (needLink.contains(command.name.section('.', 1)))
            continue;
        const QVariant result = command.call(nullptr, counted(command, 3));
        QCOMPARE(result, command.name.endsWith("getEcuEdititon") ? QVariant(0) : QVariant());
        // The DAB requests go to the tuner.
        const QString wanted = expected(command, counted(command, 3));
        QCOMPARE(command.name + sent(), command.name + (wanted.contains('.') ? wanted : QString()));
    }
}

void tst_Commands::muteLevelIsSentOnce()
{
    McuService unbound;
    Bound service, other;
    const auto arrives = [](McuService &by, int level) {
        by.setMuteLevel(level);
        return sent() == QString("setMuteLevel(%1)").arg(level);
    };
    QVERIFY(!arrives(service, 255)); // as if sent at the start
    QVERIFY(!arrives(unbound, 3));
    QVERIFY(arrives(service, 3));
    QVERIFY(!arrives(service, 3));
    QVERIFY(!arrives(other, 3));
    QVERIFY(arrives(other, -1));
    QVERIFY(!arrives(unbound, 3));
    QVERIFY(!arrives(service, -1));
    QVERIFY(arrives(service, 255));
}

void tst_Commands::argumentsArriveAtTheLink()
{
    McuService::instance()->init();
    substitute::link::setAnswer("getEcuEdititon", 42);
    const QVector<Operation> all = commands();
    QCOMPARE(all.size(), 123 + 15);
    QSet<QString> reached{"init()"};
    for (const Operation &command : all) {
        for (int from : {10, -51, highest - 20, lowest}) {
            sent();
            const QVariantList given = counted(command, from);
            const QVariant result = command.call(nullptr, given);
            QCOMPARE(result, command.name.endsWith("getEcuEdititon") ? QVariant(42) : QVariant());
            const QString arrived = sent();
            QCOMPARE(command.name + ' ' + arrived, command.name + ' ' + expected(command, given));
            reached.insert(arrived.section('(', 0, 0));
            m_clock->advance(1000); // ends the beep guard
        }
    }
    for (const QMetaMethod &method : substitute::link::commandMethods())
        QVERIFY2(reached.contains(method.name()), method.name());
    QCOMPARE(substitute::link::commandMethods().size(), 129);
}

void tst_Commands::beepsKeepTheirInterval()
{
    Bound service;
    const auto beeps = [&service] {
        service.triggerBeep(5);
        return sent() == "triggerBeep(0)";
    };
    QVERIFY(beeps() && beeps()); // no interval yet
    service.setBeepInterval(200);
    for (int unchanging : {0, -1, lowest})
        service.setBeepInterval(unchanging);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(beeps());
        m_clock->advance(50);
        QVERIFY(!beeps());
        m_clock->advance(149);
        QVERIFY(!beeps()); // what was ignored does not put off the next
        m_clock->advance(1 + round);
    }
    QVERIFY(beeps());
}

void tst_Commands::logLinesAreWritten()
{
    McuService unbound;
    Bound service;
    testkit::LogCapture log;
    struct Row {
        void (*command)(McuService &);
        QStringList lines;
        QStringList withoutLink;
    };
    for (const Row &row : {
             Row{[](McuService &s) { s.setMute(true, 2); }, {"true", "true"}, {"true"}},
             {[](McuService &s) { s.setAudioMute(7, 8, 9); }, {"7", "7"}, {"7"}},
             {[](McuService &s) { s.setAudioMute2(7, 8, 9); }, {"7", "7"}, {"7"}},
             {[](McuService &s) { s.setLPFValue(80, 12); }, {"==== 80 12"}, {"==== 80 12"}},
             {[](McuService &s) { s.uiCmdReset(); }, {"ui cmd reset!!!"}, {"ui cmd reset!!!"}},
             {[](McuService &s) { s.setSleepAllMute(6); }, {"6"}, {}},
             {[](McuService &s) { s.setMeterClearDisplay(6); }, {"6"}, {}},
         }) {
        row.command(service);
        QCOMPARE(log.takeTexts(), row.lines);
        row.command(unbound);
        QCOMPARE(log.takeTexts(), row.withoutLink);
    }
    service.setMixChannel(5, 1);
    service.setMixChannel(255, 65);
    QCOMPARE(log.takeTexts(), (QStringList{"\"00000101\" 1", "\"11111111\" 65"}));
}

void tst_Commands::oddInputIsTaken()
{
    Bound service;
    service.setAudioTimerDelay(1, nullptr);
    QCOMPARE(sent(), QString());
    service.set_Illumination(1, std::string("a\0\xc3\xa9", 4), 2, 3);
    QCOMPARE(sent(), QString(R"(set_Illumination(1,"a\u0000é",2,3))"));
}

int main(int argc, char **argv) { return testkit::run<tst_Commands>(argc, argv); }
#include "tst_commands.moc"
