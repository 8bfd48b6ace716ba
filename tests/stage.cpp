#include "stage.h"

#include "autotesthandler.h"
#include "linksubstitute.h"
#include "mcusrv.h"
#include "packettext.h"
#include "platformsubstitute.h"

#include "audioservice.h"
#include "eventhandler.h"
#include "settingsexe.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>
#include <QThread>

#include <array>
#include <thread>

namespace link = substitute::link;
namespace platform = substitute::platform;

namespace {

const char factorySettings[] = "/media/flash/nvm/factory/settings.ini";
QHash<QString, QString> storedSettings;
bool isStoreFull = false;

} // namespace

// Stores the factory settings in memory instead of the substitute's files.
int mem::SettingsExe::getValue(QString key, QString file, int fallback)
{
    bool isNumber = false;
    const int value = storedSettings.value(file == factorySettings ? key : file).toInt(&isNumber);
    return isNumber ? value : fallback;
}
bool mem::SettingsExe::getValue(QString key, QString file, bool fallback)
{
    const QVariant value = storedSettings.value(file == factorySettings ? key : file);
    return value.toString().isEmpty() ? fallback : value.toBool();
}
void mem::SettingsExe::setOtherPathValue(QString key, QString file, QVariant value, QVariant value2,
                                         bool flag)
{
    platform::log().record("SettingsExe.setOtherPathValue", key, file, value, value2, flag);
    if (!isStoreFull)
        storedSettings[key] = value.toString();
}

namespace testkit {

namespace {

/// A command to the link: "link.SetVolume(9)", or "6e:05:02" for a packet to the station.
QString commandText(const substitute::Call &call)
{
    const QByteArray sent = call.arguments.value(1).toByteArray();
    const QString packet = packetText(sent);
    const bool isPacket = call.name == "sendAutoTestPkgToMcu" && call.arguments[0] == sent.size();
    return isPacket && !packet.isEmpty() ? packet : "link." + show(call.name, call.arguments);
}

/// A call of the platform: "stored.key(value)" for a factory setting that is stored.
QString platformText(const substitute::Call &call)
{
    const QVariantList &values = call.arguments;
    const bool isStored = call.name == "SettingsExe.setOtherPathValue" &&
                          values[1] == factorySettings && values[2] == values[3] &&
                          values[4] == true;
    return isStored ? show("stored." + values[0].toString(), {values[2]}) : show(call.name, values);
}

/// Resets what is used by all stages: connections to the link and the platform, and the bridge. The
/// facade of the process stays connected to the link, because the manager's instance() mutes
/// through it and the factory test answers through it, but it gets no reports.
void putBack()
{
    static const bool linked = mcu::McuService::instance()->init();
    Q_UNUSED(linked)
    McuManager::instance();
    mcu::McuSrv::instance()->disconnect();
    hxaudio::AudioService::instance()->disconnect();
    EventHandler::instance()->disconnect();
    mcu::AutoTestHandler::instance()->stop();
    link::reset();
    platform::reset();
    storedSettings.clear();
    isStoreFull = false;

    McuVechicleBridge *bridge = McuVechicleBridge::instance();
    bridge->notifyHeadlightUpdate(false, 0);
    bridge->notifyParkingUpdate(false, 0);
    bridge->notifyReverseUpdate(false, 0);
    bridge->notifyTurnLightUpdate(0);
    bridge->notifyCarSpeedUpdate(0);
    bridge->notifyDoorUpdate(0);
    bridge->notifySteeringAngleUpdate(7380);
    std::array<int, 4> nothing{};
    bridge->notifyRadarUpdate(nothing.data(), nothing.data(), 0, 0, 0);
}

/// The states that a script can set, by name; the link has the names of its own answers.
const QHash<QString, std::function<void(const QVariantList &values)>> settings{
    {"forceTime", [](const QVariantList &values) { platform::setForceTime(values[0].toBool()); }},
    {"upgrading",
     [](const QVariantList &values) {
         platform::setSetting("mcu_upgrade_status", values[0].toBool());
     }},
    {"audioEvents",
     [](const QVariantList &values) {
         QList<int> events;
         for (const QVariant &value : values)
             events.append(value.toInt());
         platform::setAudioEvents(events);
     }},
    {"muteState", [](const QVariantList &values) { platform::setMuteState(values[0].toInt()); }},
    {"attState", [](const QVariantList &values) { platform::setAttState(values[0].toInt()); }},
    {"stored", // "key=value key=value"; replaces all settings
     [](const QVariantList &values) {
         storedSettings.clear();
         for (const QString &entry : values[0].toString().split(' ', Qt::SkipEmptyParts))
             storedSettings[entry.section('=', 0, 0)] = entry.section('=', 1);
     }},
    {"storeFull", [](const QVariantList &values) { isStoreFull = values[0].toBool(); }},
    {"display", [](const QVariantList &values) { platform::setCurrentDisplay(values[0].toInt()); }},
    {"panelKey",
     [](const QVariantList &values) {
         platform::pressPanelKey(values[0].toInt(), values[1].toInt(), values[2].toInt());
     }},
};

/// The value of a text.
QVariant parsed(const QString &text)
{
    static const QRegularExpression repeated("^\"(.)\"\\*(\\d+)$");
    const QRegularExpressionMatch match = repeated.match(text);
    if (match.hasMatch())
        return match.captured(1).repeated(match.captured(2).toInt());
    if (text.startsWith("0x"))
        return QByteArray::fromHex(text.mid(2).toLatin1());
    const QByteArray packet = packetOf(text);
    if (!packet.isEmpty())
        return packet;
    const QJsonDocument json = QJsonDocument::fromJson('[' + text.toUtf8() + ']');
    if (json.array().size() != 1)
        qFatal("not a value: %s", qPrintable(text));
    return json.array().first().toVariant();
}

/// The texts of the arguments of a call, with 1..4 as 1, 2, 3, 4.
QStringList argumentTexts(const QString &call)
{
    static const QRegularExpression range("^(\\d+)\\.\\.(\\d+)$");
    QStringList texts;
    for (const QString &text : splitOutside(call.section('(', 1).section(')', 0, -2), ",")) {
        const QRegularExpressionMatch match = range.match(text);
        if (!match.hasMatch())
            texts.append(text);
        for (int i = match.captured(1).toInt(); match.hasMatch() && i <= match.captured(2).toInt();
             ++i)
            texts.append(QString::number(i));
    }
    return texts;
}

/// The getters of a class.
QVector<mcusim::Operation> queriesOf(const QString &className)
{
    static const QHash<QString, QVector<mcusim::Operation>> byClass = [] {
        QHash<QString, QVector<mcusim::Operation>> found;
        for (const mcusim::Operation &operation : scriptOperations()) {
            if (operation.result != QMetaType::Void && operation.parameters.isEmpty() &&
                operation.name != "McuService.init")
                found[operation.name.section('.', 0, 0)].append(operation);
        }
        return found;
    }();
    return byClass[className];
}

/// Whether a value is 0, false, an empty text or a list of zeros. Bytes are neutral only if empty.
bool isNeutral(const QVariant &value)
{
    if (value.type() == QVariant::ByteArray)
        return value.toByteArray().isEmpty();
    if (value.type() != QVariant::List)
        return value == QVariant(value.userType(), nullptr) || value.toString().isEmpty();
    const QVariantList list = value.toList();
    return list.count(0) == list.size();
}

/// Calls a slot or emits a signal.
QVariant invoke(QObject *object, int method, QVariantList arguments)
{
    std::vector<void *> pointers{nullptr};
    for (QVariant &argument : arguments)
        pointers.push_back(argument.data());
    object->qt_metacall(QMetaObject::InvokeMetaMethod, method, pointers.data());
    return {};
}

} // namespace

QStringList splitOutside(const QString &text, const QString &separator)
{
    QStringList parts{QString()};
    int depth = 0;
    bool quoted = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        if (character == '"' && text.mid(i - 1, 1) != "\\")
            quoted = !quoted;
        else if (!quoted)
            depth += QString("([{").count(character) - QString(")]}").count(character);
        if (!quoted && depth == 0 && text.mid(i, separator.size()) == separator) {
            parts.append(QString());
            i += separator.size() - 1;
        } else {
            parts.last() += character;
        }
    }
    for (QString &part : parts)
        part = part.trimmed();
    parts.removeAll(QString());
    return parts;
}

Stage::Stage(substitute::VirtualClock *clock, Inputs inputs) : m_clock(clock), m_inputs(inputs)
{
    putBack();
    m_service = std::make_unique<mcu::McuService>();
    m_service->init();
    add("McuService", m_service.get(), "");
    add("McuVechicleBridge", McuVechicleBridge::instance(), "bridge.");
    add("McuRadioInterface", mcu::McuRadioInterface::instance(), "radio.");
    add("AutoTestHandler", mcu::AutoTestHandler::instance(), "handler.");
    add("unlinked McuService", &m_unlinkedService, "unlinked.");
    add("unlinked McuVechicleBridge", &m_unlinkedBridge, "unlinked.");
    add("unlinked McuRadioInterface", &m_unlinkedRadio, "unlinked.");
    add("unlinked McuManager", &m_unlinkedManager, "unlinked.");
    link::log().setListener(
        [this](const substitute::Call &call) { note(call.name, commandText(call)); });
    platform::log().setListener(
        [this](const substitute::Call &call) { note(call.name, platformText(call)); });
}

Stage::~Stage()
{
    link::log().setListener(nullptr);
    platform::log().setListener(nullptr);
}

/// Adds an object with its name: records its signals and reads its getters.
void Stage::add(const QString &name, QObject *object, const QString &prefix)
{
    m_objects[name] = object;
    m_taps.push_back(std::make_unique<substitute::SignalTap>(
        object, [this, prefix](const QMetaMethod &signal, const QVariantList &arguments) {
            note(prefix + signal.name(), prefix + show(signal.name(), arguments));
        }));
    for (const mcusim::Operation &query : queriesOf(name.section(' ', -1))) {
        m_readings.push_back({name, prefix + query.name.section('.', 1),
                              [object, query] { return query.call(object, {}); }});
    }
}

QStringList Stage::play(const QString &stimulus)
{
    const QVariantList before = readings();
    m_effects.clear();
    QStringList texts;
    const QStringList together = splitOutside(stimulus, " & ");
    for (const QString &one : together)
        texts += perform(one);
    m_clock->settle();

    const QVariantList after = readings();
    for (const Effect &effect : qAsConst(m_effects)) {
        const QStringList old = differing(effect.readings, after);
        const bool isStored = together.size() > 1 || old.isEmpty();
        texts.append(isStored ? effect.text : effect.text + '{' + old.join(' ') + '}');
    }
    return texts + differing(after, before);
}

/// Performs one input and returns its result.
QStringList Stage::perform(const QString &stimulus)
{
    const QStringList words = splitOutside(stimulus, " ");
    m_isCallElsewhere = false;
    if (m_objects.contains(stimulus))
        return readAll(stimulus);
    if (words.size() == 1 && stimulus.startsWith('+')) {
        m_clock->advance(stimulus.mid(1).chopped(2).toInt());
        return {};
    }
    if (!packetOf(stimulus).isEmpty())
        return call("AutoTestHandler.onAutoTestPkgChanged(" + stimulus + ')');
    if (stimulus == "start McuManager") {
        m_manager = std::make_unique<McuManager>(m_service.get());
        add("McuManager", m_manager.get(), "manager.");
        return {};
    }
    if (words[0] == "inside") {
        m_reactions[words[1]] = stimulus.section(' ', 2);
        return {};
    }
    if (words[0] != "set")
        return call(stimulus);
    QVariantList values;
    for (const QString &word : words.mid(2))
        values.append(parsed(word));
    input([&] {
        QString error;
        if (settings.contains(words[1]))
            settings[words[1]](values);
        else if (!link::setAnswer(words[1], values[0], &error))
            qFatal("%s", qPrintable(error));
    });
    return {};
}

QStringList Stage::call(const QString &stimulus)
{
    const Callee called = callee(stimulus);
    const QStringList texts = argumentTexts(stimulus);
    if (texts.size() != called.types.size())
        qFatal("%d arguments expected: %s", called.types.size(), qPrintable(stimulus));
    QVariantList arguments;
    for (int i = 0; i < texts.size(); ++i) {
        arguments.append(parsed(texts[i]));
        if (!arguments.last().convert(called.types[i]))
            qFatal("%s is of another type in %s", qPrintable(texts[i]), qPrintable(stimulus));
    }
    QVariant result;
    const auto run = [&] { result = called.call(arguments); };
    m_isCallElsewhere = stimulus.contains('.');
    if (called.isInput)
        input(run);
    else
        run();
    return result.isValid() ? QStringList{show(result)} : QStringList();
}

QStringList Stage::readAll(const QString &object) const
{
    QStringList texts;
    for (const Reading &reading : m_readings) {
        const QVariant value = reading.object == object ? reading.read() : QVariant();
        if (value.isValid() && !isNeutral(value))
            texts.append(reading.name.section('.', -1) + '=' + show(value));
    }
    return texts;
}

QVector<int> Stage::parameterTypes(const QString &stimulus) const { return callee(stimulus).types; }

/// The operation that "keyEventSgl(7,0)" or "unlinked McuService.SetVolume(12)" calls.
Stage::Callee Stage::callee(const QString &stimulus) const
{
    const QString name = stimulus.section('(', 0, 0);
    const int count = argumentTexts(stimulus).size();
    const QString operationName = name.section(' ', -1);
    const bool isReport = !name.contains('.');
    QObject *object = isReport ? mcu::McuSrv::instance() : m_objects[name.section('.', 0, 0)];
    if (!object)
        qFatal("no object for %s", qPrintable(stimulus));
    for (const mcusim::Operation &operation : scriptOperations()) {
        if (operation.name == operationName && operation.parameters.size() == count) {
            QVector<int> types;
            for (const mcusim::Parameter &parameter : operation.parameters)
                types.append(parameter.type);
            return {
                types,
                [=](const QVariantList &arguments) { return operation.call(object, arguments); },
                operation.name == "McuManager.updateAudioStatus"};
        }
    }
    const QMetaObject *metaObject = object->metaObject();
    for (int i = metaObject->methodOffset(); i < metaObject->methodCount(); ++i) {
        const QMetaMethod method = metaObject->method(i);
        if (method.name() != name.section('.', -1) || method.parameterCount() != count)
            continue;
        QVector<int> types;
        for (int parameter = 0; parameter < count; ++parameter)
            types.append(method.parameterType(parameter));
        return {types, [=](const QVariantList &arguments) { return invoke(object, i, arguments); },
                isReport};
    }
    qFatal("no operation or signal %s with %d arguments", qPrintable(name), count);
}

void Stage::input(const std::function<void()> &action) const
{
    if (m_inputs == Inputs::OtherThread)
        std::thread(action).join();
    else
        action();
}

/// Notes an effect, and does what applications do inside it.
void Stage::note(const QString &name, const QString &text)
{
    const bool isHere = QThread::currentThread() == qApp->thread();
    const QString place = isHere || m_isCallElsewhere ? "" : "elsewhere ";
    m_effects.append({place + text, isHere ? readings() : QVariantList()});
    if (m_reactions.contains(name))
        perform(m_reactions[name]);
}

/// The current values of all getters. Some getters log; these lines are not shown to scripts.
QVariantList Stage::readings() const
{
    QLoggingCategory *category = QLoggingCategory::defaultCategory();
    const bool isLogging = category->isDebugEnabled();
    category->setEnabled(QtDebugMsg, false);
    QVariantList values;
    for (const Reading &reading : m_readings)
        values.append(reading.read());
    category->setEnabled(QtDebugMsg, isLogging);
    return values;
}

QStringList Stage::differing(const QVariantList &readings, const QVariantList &others) const
{
    QStringList found;
    for (int i = 0; i < qMin(readings.size(), others.size()); ++i) {
        if (readings[i] != others[i])
            found.append(m_readings[std::size_t(i)].name + '=' + show(readings[i]));
    }
    return found;
}

} // namespace testkit
