#include "traffic.h"

#include "linksubstitute.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "recordcatalog_p.h"
#include "stationpacket.h"

#include <cstdio>

namespace soak {

using mcusim::Kind;
using mcusim::Signature;

namespace {

// Milliseconds between two reports of a kind, as on a drive.
constexpr int moving = 200;
constexpr int parking = 100;
constexpr int heldBack = 50; ///< several within the time for which such reports are held back
constexpr int usual = 1000;  ///< vehicle records that have no row
constexpr int slow = 5000;
constexpr int rare = 60'000;
constexpr int betweenOperations = 50;
constexpr int betweenPackets = 500;

/// A link signal and the application signal by which it comes out.
struct Row {
    const char *report;
    const char *heard; ///< null for the one of the vehicle record; empty if there is none
    int period;
    int code = 0; ///< sent instead of numbers
};

constexpr Row rows[]{
    {"reportVehicleSpeedChangedSgl", nullptr, moving},
    {"reportSteeringAngleChangedSgl", nullptr, moving},
    {"reportPdcChangedSgl", nullptr, parking},
    {"reportHuChangedSgl", nullptr, heldBack},
    {"reportFeatureVelroCodeChangedSgl", "McuService.syncFeatureCodeInforUpdate", rare},
    {"taillineStateSgl", "McuService.parkingChanged", slow},
    {"keyEventSgl", "McuService.keyEvent", usual},
    {"audioVolumeSgl", "McuService.audioVolumeChanged", slow},
    {"volumeTurnSgl", "McuService.volumeTurn", slow},
    {"datetimeInfoSgl", "McuService.McuUpdateDateTime", rare},
    {"shallowSleepSgl", "McuService.shallowSleep", rare},
    {"mcuVersionSgl", "", rare},
    {"mcuNeedRenewSgl", "McuService.mcuNeedRenew", rare},
    {"factoryResetSgl", "McuService.reset", rare},
    {"ampOverloadStuChangedSgl", "McuService.ampOverloadStuChanged", rare},
    {"selTrackNumSgl", "McuService.selTrackNum", slow},
    {"eqTypeChangedSgl", "McuService.eqTypeChanged", slow},
    {"sourceChangedSgl", "McuService.sourceChanged", slow},
    {"systemSnidChanged", "McuService.snidChanged", rare},
    {"wheelStudyStateSgl", "McuService.wheelStudyState", slow},
    {"wheelStudyKeysSgl", "McuService.wheelStudyKeys", slow},
    {"requestActionSgl", "McuService.requestAction", slow},
    {"sysBootStateSgl", "McuService.sysBootState", rare},
    {"radioStatusChangedSgl", "McuService.radioStatusChanged", slow},
    {"radioCurrChInfoChangedSgl", "McuService.radioCurrChInfoChanged", usual},
    {"radioScanChInfoChangedSgl", "McuService.radioScanChInfoChanged", slow},
    {"requestAppVerSgl", "McuService.requestAppVersion", rare},
    {"setupInfo1StateSgl", "McuService.syncSetupInfo1", rare},
    {"setupInfoStateSgl", "McuService.syncSetupInfo", rare},
    {"usbPowerStatusSgl", "McuService.usbPowerStatus", rare},
    {"syncDestCodeSgl", "McuService.syncDestCode", rare},
    {"tunerWorkStatusSgl", "McuService.radioStatusChanged", slow, 1},
    {"serialNumberChanged", "McuService.serialNumChanged", rare},
    {"stwAdcStatusChanged", "McuService.stwAdcStatusChanged", slow},
    {"stwAdcValue", "McuService.stwAdcValueChanged", usual},
    {"stwCarTypeChanged", "", rare},
    {"gpsAntennaChanged", "McuService.gpsAntennaChanged", rare},
    {"dabAntennaChanged", "McuService.dabAntennaChanged", rare},
    {"setAmpEditionSgl", "", rare},
    {"setEcuEditionSgl", "McuService.syncEcuEdition", rare},
    {"psNameNotifySgl", "McuRadioInterface.psNameChanged", slow},
    {"tunerStationNotifySgl", "", slow},
    {"tunerPtyTypeNotifySgl", "McuRadioInterface.ptyTypeChanged", slow},
    {"rdsAlarmStateSgl", "McuRadioInterface.alarmStatusChanged", slow},
    {"tunerPtySearchResultSgl", "McuRadioInterface.ptySearchResult", slow},
    {"radioTextSgl", "McuRadioInterface.radioTextUpdate", usual},
    {"tunerStereoSgl", "McuRadioInterface.stereoChanged", slow},
    {"tunerTPStateSgl", "McuRadioInterface.tpStateChanged", slow},
    {"tunerAsStationChangedSgl", "McuRadioInterface.stationChanged", slow},
    {"tunerASStationFoundSgl", "McuRadioInterface.asStationFound", slow},
};

/// Commands that do not leave with the values of the call, or that the library sends by itself.
const QStringList ownCommands{"setAudioMute",    "setAudioMute2", "updateAudioStatus",
                              "setBalanceFader", "triggerBeep",   "sendAutoTestPkgToMcu"};

const Row *rowOf(const QString &report)
{
    const auto *row = std::find_if(std::begin(rows), std::end(rows), [&](const Row &candidate) {
        return report == QLatin1String(candidate.report);
    });
    return row == std::end(rows) ? nullptr : row;
}

const mcu::RecordDescription *recordOf(const QString &report)
{
    for (const mcu::RecordDescription *record : mcu::recordCatalog) {
        if (report == QLatin1String(record->linkSignal))
            return record;
    }
    return nullptr;
}

/// Longer than any record that is emitted by the same signal.
QString asText(qint64 number) { return QString::number(number).rightJustified(8, '0'); }

/// The number in the values of a report or a command. Every number fits into a byte, as the
/// narrowest fields of the records do; from three on, they have the bytes of the number.
QVariantList numbered(const QVector<mcusim::Parameter> &parameters, qint64 number)
{
    constexpr int firstCode = 16; // lower ones have a meaning, such as off
    const auto isInt = [](const auto &parameter) { return parameter.type == QMetaType::Int; };
    const bool hasBytes = std::count_if(parameters.begin(), parameters.end(), isInt) >= 3;
    QVariantList values;
    for (const mcusim::Parameter &parameter : parameters) {
        const int place = values.size();
        if (parameter.type == QMetaType::QString)
            values.append(asText(number));
        else if (parameter.type == QMetaType::QByteArray)
            values.append(asText(number).toLatin1());
        else if (parameter.type == QMetaType::Bool)
            values.append(number % 2 == 0);
        else if (hasBytes)
            values.append(int(number >> (8 * (place % 3)) & 0xff));
        else
            values.append(int(place == 0 ? firstCode + number % 240 : number / 240 % 128));
    }
    return values;
}

/// A packet that the unit answers with the same bytes.
QByteArray packet(const char *type, qint64 number)
{
    const QByteArray bytes = asText(number).toLatin1();
    return mcusim::readPacket(QString(type) + " SN " + bytes.toHex()).bytes();
}

constexpr int chunksPerTurn = 4;
constexpr int packetsPerTurn = 2;

/// In turn a whole packet and the three pieces of another one.
QVariantList chunk(qint64 number)
{
    const qint64 turn = (number - 1) / chunksPerTurn;
    const int place = int((number - 1) % chunksPerTurn);
    const QByteArray bytes = packet("write", packetsPerTurn * turn + (place == 0 ? 1 : 2));
    constexpr int piece = 5;
    return {place == 0 ? bytes : bytes.mid((place - 1) * piece, place == 3 ? -1 : piece)};
}

QVariantList answer(qint64 number)
{
    const QByteArray bytes = packet("write-answer", number);
    return {bytes.size(), bytes};
}

QVariantList onOff(qint64 number) { return {int(number % 2)}; }

/// Flags come for numbers that are not 0, and a signal may have fewer values than the report.
bool isLike(const QVariantList &received, const QVariantList &expected)
{
    for (int i = 0; i < received.size() && i < expected.size(); ++i) {
        const bool isFlag = received[i].userType() == QMetaType::Bool;
        if (isFlag ? received[i].toBool() != expected[i].toBool() : received[i] != expected[i])
            return false;
    }
    return true;
}

} // namespace

bool Flow::hear(const QVariantList &values)
{
    for (qint64 number = m_last + 1; number <= m_counts.sent; ++number) {
        if (!isLike(values, m_values(number)))
            continue;
        (m_isLimited ? m_counts.replaced : m_counts.lost) += number - m_last - 1;
        m_last = number;
        ++m_counts.received;
        return true;
    }
    return m_isLimited && isLike(values, m_values(m_last));
}

Flow::Counts Flow::counts() const
{
    Counts counts = m_counts;
    counts.lost += m_counts.sent - m_last;
    return counts;
}

Traffic::Traffic(Emitter emitter) : m_emitter(emitter)
{
    for (const Signature &signature : m_names.all()) {
        if (signature.kind == Kind::Report)
            addReport(signature);
        else if (signature.kind == Kind::Call)
            addOperation(signature);
    }
    m_answers = &add(Kind::Command, "sendAutoTestPkgToMcu", {"factory answers", "answers", answer});

    mcu::McuService::instance()->init();
    m_simulation.attach(mcu::McuSrv::instance());
    for (const mcusim::ApplicationObject &object : mcusim::applicationObjects())
        m_simulation.attach(object.instance());
    m_simulation.addSink(this);
}

Flow &Traffic::add(Kind kind, const QString &heard, Flow flow)
{
    m_flows.push_back(std::move(flow));
    const Signature *overload = m_names.find(kind, heard, m_flows.back().values(1));
    m_heard[overload ? overload : m_names.find(kind, heard).first()].append(&m_flows.back());
    return m_flows.back();
}

void Traffic::addReport(const Signature &report)
{
    const QString &name = report.name;
    if (name == "autoTestStatusChanged") {
        m_status = {&report, &add(Kind::Signal, "McuService.autoTestStatusChanged",
                                  {"factory sessions, on and off", name, onOff})};
        return;
    }
    if (name == "autoTestPkgChanged") {
        m_chunks = {
            &report,
            &add(Kind::Signal, "McuService.autoTestPkgChanged", {"factory chunks", name, chunk}),
            betweenPackets, betweenPackets};
        return;
    }
    const Row *row = rowOf(name);
    const mcu::RecordDescription *record = recordOf(name);
    if (!row && !record)
        qFatal("the soak has no row for %s", qPrintable(name));
    const QString heard =
        row && row->heard ? QString(row->heard) : "McuService." + QString(mcu::signalName(*record));
    const auto values = [&report, code = row ? row->code : 0](qint64 number) {
        return code != 0 ? QVariantList{code} : numbered(report.parameters, number);
    };
    const char *group = record ? "vehicle records" : "other reports";
    const bool isLimited = record && record->hold.command != 0;
    Flow *flow =
        heard.isEmpty() ? nullptr : &add(Kind::Signal, heard, {group, name, values, isLimited});
    // Not all in one moment.
    m_reports.push_back({&report, flow, row ? row->period : usual, qint64(m_reports.size()) * 5});
}

void Traffic::addOperation(const Signature &operation)
{
    const QString name = operation.shortName();
    const bool isOfLink = // the manager converts values and has commands of both
        operation.className() == "McuService" || operation.className() == "McuRadioInterface";
    if (!isOfLink || ownCommands.contains(name))
        return;
    const auto hasSameType = [](const auto &a, const auto &b) { return a.type == b.type; };
    const auto values = [&operation](qint64 number) {
        return numbered(operation.parameters, number);
    };
    const auto commands = m_names.find(Kind::Command, name);
    for (const Signature *command : commands) {
        if (std::equal(command->parameters.begin(), command->parameters.end(),
                       operation.parameters.begin(), operation.parameters.end(), hasSameType))
            m_operations.push_back(
                {&operation, &add(Kind::Command, name, {"commands", operation.name, values})});
    }
    if (commands.isEmpty() && operation.answer && operation.parameters.isEmpty())
        m_operations.push_back({&operation, nullptr}); // a query
}

void Traffic::advanceTo(qint64 moment)
{
    for (Source &source : m_reports) {
        for (; source.due <= moment; source.due += source.period)
            send(source);
    }
    for (; m_chunks.due <= moment; m_chunks.due += m_chunks.period)
        sendPackets();
    for (; m_operationDue <= moment; m_operationDue += betweenOperations)
        send(m_operations[m_nextOperation++ % m_operations.size()]);
}

void Traffic::switchFactoryTest() { send(m_status); }

void Traffic::sendPackets()
{
    const bool isAnswered = m_status.flow->counts().sent % 2 != 0;
    for (int i = 0; isAnswered && i < packetsPerTurn; ++i)
        m_answers->next();
    for (int i = 0; i < chunksPerTurn; ++i)
        send(m_chunks);
}

void Traffic::send(Source &source)
{
    const QVariantList values =
        source.flow ? source.flow->next() : numbered(source.what->parameters, ++m_unheard);
    if (source.what->kind == Kind::Report && m_emitter == Emitter::LinkThread)
        substitute::link::inject(source.what->name, values, nullptr,
                                 substitute::Emitter::ReaderThread);
    else
        source.what->play(values);
}

void Traffic::hear(const mcusim::Event &event)
{
    const QVector<Flow *> flows = m_heard.value(event.what);
    QVariantList values;
    if (event.what->record) {
        for (const auto &field :
             mcu::fieldValues(*event.what->record, event.values.first().toByteArray()))
            values.append(field.value);
    }
    if (values.isEmpty())
        values = event.values;
    const auto takes = [&values](Flow *flow) { return flow->hear(values); };
    if (!flows.isEmpty() && std::none_of(flows.begin(), flows.end(), takes))
        flows.first()->refuse();
}

bool Traffic::isComplete() const
{
    return std::all_of(m_flows.begin(), m_flows.end(),
                       [](const Flow &flow) { return flow.isComplete(); });
}

bool Traffic::print() const
{
    const auto print = [](const char *name, const Flow::Counts &counts) {
        std::printf("%-40s %9lld %9lld %9lld %6lld %8lld\n", name, counts.sent, counts.received,
                    counts.replaced, counts.lost, counts.surplus);
    };
    QMap<QByteArray, Flow::Counts> groups;
    for (const Flow &flow : m_flows) {
        Flow::Counts &sum = groups[flow.group()];
        for (auto count : {&Flow::Counts::sent, &Flow::Counts::received, &Flow::Counts::replaced,
                           &Flow::Counts::lost, &Flow::Counts::surplus})
            sum.*count += flow.counts().*count;
    }
    std::printf("%-40s %9s %9s %9s %6s %8s\n", "", "sent", "received", "replaced", "lost",
                "surplus");
    for (auto group = groups.begin(); group != groups.end(); ++group)
        print(group.key().constData(), group.value());
    bool isGood = true;
    for (const Flow &flow : m_flows) {
        if (flow.counts().lost == 0 && flow.counts().surplus == 0)
            continue;
        isGood = false;
        print(qPrintable("NOT ACCOUNTED: " + flow.name()), flow.counts());
    }
    return isGood;
}

} // namespace soak
