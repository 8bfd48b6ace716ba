// Names and parameters come from the meta-objects and the table of operations; nothing is listed
// twice but the settings of the desk.
#include "catalogue.h"

#include "autotesthandler.h"
#include "desk.h"
#include "linksubstitute.h"
#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcuvechiclebridge.h"
#include "recordcatalog_p.h"
#include "signaltap.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <cmath>
#include <limits>

namespace mcusim {

namespace {

QString typeName(int type)
{
    return type == QMetaType::QVariantList ? QStringLiteral("int[]")
                                           : QString::fromLatin1(QMetaType::typeName(type));
}

/// A JSON number as an int, or invalid.
QVariant asInt(const QJsonValue &value)
{
    const double number = value.toDouble(std::nan(""));
    const bool fits = number >= std::numeric_limits<int>::min() &&
                      number <= std::numeric_limits<int>::max() && std::trunc(number) == number;
    return fits ? QVariant(int(number)) : QVariant();
}

/// "0x0aff" as bytes, or invalid.
QVariant asBytes(const QJsonValue &value)
{
    const QString text = value.toString();
    if (!text.startsWith(QLatin1String("0x")))
        return {};
    const QByteArray digits = text.mid(2).toLatin1();
    const QByteArray bytes = QByteArray::fromHex(digits);
    return bytes.toHex() == digits.toLower() ? QVariant(bytes) : QVariant();
}

/// A list of ints, or invalid.
QVariant asInts(const QJsonValue &value, int length)
{
    QVariantList ints;
    for (const auto &item : value.toArray())
        ints.append(asInt(item));
    const bool fits =
        value.isArray() && !ints.contains(QVariant()) && (length == 0 || ints.size() == length);
    return fits ? QVariant(ints) : QVariant();
}

/// A setting of any type, in the type it is written in.
QVariant readFreely(const QJsonValue &value)
{
    if (value.isDouble())
        return asInt(value);
    return value.isBool() || value.isString() ? value.toVariant() : QVariant();
}

/// The value in the type of a parameter, or invalid.
QVariant read(const QJsonValue &value, const Parameter &parameter)
{
    switch (parameter.type) {
    case QMetaType::Int:
        return asInt(value);
    case QMetaType::Bool:
        return value.isBool() ? QVariant(value.toBool()) : QVariant();
    case QMetaType::QString:
        return value.isString() ? QVariant(value.toString()) : QVariant();
    case QMetaType::QByteArray:
        return asBytes(value);
    case QMetaType::QVariantList:
        return asInts(value, parameter.length);
    case QMetaType::QVariant:
        return readFreely(value);
    default:
        return {};
    }
}

QString written(const QJsonValue &value)
{
    return QString::fromUtf8(
        QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact).mid(1).chopped(1));
}

/// Reads the values for one signature, or says why they do not fit.
QString readFor(const Signature &signature, const QJsonArray &values, QVariantList *arguments)
{
    const int expected = signature.parameters.size();
    if (values.size() != expected) {
        return QStringLiteral("%1 expects %2 argument%3, got %4")
            .arg(signature.text())
            .arg(expected)
            .arg(QLatin1String(expected == 1 ? "" : "s"))
            .arg(values.size());
    }
    arguments->clear();
    for (int i = 0; i < expected; ++i) {
        const Parameter &parameter = signature.parameters[i];
        arguments->append(read(values[i], parameter));
        if (!arguments->last().isValid()) {
            return QStringLiteral("%1: argument %2 (%3%4) cannot be %5")
                .arg(signature.name)
                .arg(i + 1)
                .arg(typeName(parameter.type),
                     parameter.name.isEmpty() ? QString() : ' ' + parameter.name,
                     written(values[i]));
        }
    }
    return {};
}

const char *title(Kind kind)
{
    switch (kind) {
    case Kind::Report:
        return "link signal";
    case Kind::Call:
        return "operation";
    case Kind::Setting:
        return "setting";
    case Kind::Signal:
        return "application signal";
    case Kind::Answer:
        return "answering operation";
    case Kind::Command:
        return "link command";
    case Kind::Platform:
        break;
    }
    return "platform call";
}

template <typename Object>
ApplicationObject applicationObject(const char *name)
{
    return {name, []() -> QObject * { return Object::instance(); }, &Object::staticMetaObject};
}

/// What the substitutes of the platform classes write down.
QVector<Signature> platformCalls()
{
    constexpr int Int = QMetaType::Int;
    constexpr int Bool = QMetaType::Bool;
    constexpr int Text = QMetaType::QString;
    constexpr int Any = QMetaType::QVariant;
    return {
        {"AudioService.Att20DB", {{Bool, "on"}}},
        {"AudioService.setMainAudioMute", {{Bool, "on"}}},
        {"DateTimeManager.setDateTime",
         {{Int, "year"},
          {Int, "month"},
          {Int, "day"},
          {Int, "hour"},
          {Int, "minute"},
          {Int, "second"},
          {Bool, "flag"}}},
        {"EventHandler.onEvent", {{Int, "event"}}},
        {"TunerControl.HDR_DabRequestScan", {}},
        {"TunerControl.HDR_DabTunerFM", {{Int, "index"}}},
        {"SettingsUtil.SubwooferOnOff", {{Int, "value"}}},
        {"SettingsUtil.CrossoverType", {{Int, "value"}}},
        {"SettingsUtil.HpfLpfOnOff", {{Int, "type"}, {Int, "value"}}},
        {"SettingsUtil.DemoOnOff", {{Bool, "value"}}},
        {"SettingsExe.setOtherPathValue",
         {{Text, "key"}, {Text, "file"}, {Any, "value"}, {Any, "value2"}, {Bool, "flag"}}},
    };
}

QVector<Signature> makeCatalogue(Kind kind)
{
    QVector<Signature> signatures;
    switch (kind) {
    case Kind::Report:
        for (const QMetaMethod &method : substitute::link::signalMethods())
            signatures.append(signature(method));
        break;
    case Kind::Command:
        signatures.append({QStringLiteral("init"), {}});
        for (const QMetaMethod &method : substitute::link::commandMethods())
            signatures.append(signature(method));
        break;
    case Kind::Signal:
        for (const ApplicationObject &object : applicationObjects()) {
            for (const QMetaMethod &method : substitute::declaredSignals(*object.metaObject))
                signatures.append(signature(method, QString::fromLatin1(object.name) + '.'));
        }
        break;
    case Kind::Call:
        for (const Operation &operation : operations())
            signatures.append({operation.name, operation.parameters});
        break;
    case Kind::Answer:
        for (const Operation &operation : operations()) {
            if (operation.result != QMetaType::Void)
                signatures.append({operation.name, {{operation.result, QString()}}});
        }
        break;
    case Kind::Setting:
        for (const Setting &setting : settings())
            signatures.append({setting.name, setting.parameters});
        break;
    case Kind::Platform:
        signatures = platformCalls();
        break;
    }
    return signatures;
}

QVector<Signature> named(Kind kind, const QString &name)
{
    QVector<Signature> found;
    for (const Signature &signature : catalogue(kind)) {
        if (signature.name == name)
            found.append(signature);
    }
    return found;
}

} // namespace

QString Signature::text() const
{
    QStringList texts;
    for (const Parameter &parameter : parameters)
        texts.append((typeName(parameter.type) + ' ' + parameter.name).trimmed());
    return name + '(' + texts.join(QStringLiteral(", ")) + ')';
}

const QVector<ApplicationObject> &applicationObjects()
{
    static const QVector<ApplicationObject> objects{
        applicationObject<mcu::McuService>("McuService"),
        applicationObject<mcu::McuRadioInterface>("McuRadioInterface"),
        applicationObject<McuVechicleBridge>("McuVechicleBridge"),
        applicationObject<mcu::AutoTestHandler>("AutoTestHandler"),
        applicationObject<McuManager>("McuManager"),
    };
    return objects;
}

Signature signature(const QMetaMethod &method, const QString &prefix)
{
    Signature signature{prefix + QString::fromLatin1(method.name()), {}};
    const QList<QByteArray> names = method.parameterNames();
    for (int i = 0; i < method.parameterCount(); ++i) {
        const int type = method.parameterType(i) == QMetaType::UChar ? int(QMetaType::Int)
                                                                     : method.parameterType(i);
        signature.parameters.append({type, QString::fromLatin1(names[i])});
    }
    return signature;
}

QVector<Signature> catalogue(Kind kind)
{
    static QHash<int, QVector<Signature>> made;
    const auto known = made.constFind(int(kind));
    return known != made.constEnd() ? *known : *made.insert(int(kind), makeCatalogue(kind));
}

bool readArguments(Kind kind, const QString &name, const QJsonValue &value, QVariantList *arguments,
                   QString *error)
{
    const QVector<Signature> candidates = named(kind, name);
    if (candidates.isEmpty()) {
        *error = QStringLiteral("unknown %1 \"%2\"; `mcusim list` shows them all")
                     .arg(QLatin1String(title(kind)), name);
        return false;
    }
    for (const Signature &candidate : candidates) {
        // An only argument that is an array itself stands alone, too.
        const bool alone = candidate.parameters.size() == 1 &&
                           (candidate.parameters[0].type == QMetaType::QVariantList
                                ? !value.toArray().at(0).isArray()
                                : !value.isArray());
        const QJsonArray values = value.isUndefined()         ? QJsonArray()
                                  : alone || !value.isArray() ? QJsonArray{value}
                                                              : value.toArray();
        *error = readFor(candidate, values, arguments);
        if (error->isEmpty())
            return true;
    }
    return false;
}

QStringList argumentNames(const Event &event)
{
    for (const Signature &signature : named(event.kind, event.name)) {
        if (signature.parameters.size() != event.arguments.size())
            continue;
        QStringList names;
        for (const Parameter &parameter : signature.parameters)
            names.append(parameter.name);
        return names;
    }
    QStringList unnamed;
    for (int i = 0; i < event.arguments.size(); ++i)
        unnamed.append(QString());
    return unnamed;
}

QStringList recordFields(const Event &event)
{
    const QLatin1String prefix("McuService.");
    if (event.kind != Kind::Signal || !event.name.startsWith(prefix))
        return {};
    const auto *record = mcu::describeRecord(qUtf8Printable(event.name.mid(prefix.size())));
    if (!record)
        return {};
    QStringList fields;
    for (const auto &field : mcu::fieldValues(*record, event.arguments.first().toByteArray()))
        fields.append(QStringLiteral("%1=%2").arg(QLatin1String(field.name)).arg(field.value));
    return fields;
}

QJsonValue writtenArguments(const QVariantList &arguments)
{
    QJsonArray values;
    for (const QVariant &argument : arguments) {
        if (argument.userType() == QMetaType::QByteArray)
            values.append("0x" + QString::fromLatin1(argument.toByteArray().toHex()));
        else
            values.append(QJsonValue::fromVariant(argument));
    }
    return values.size() == 1 && !values[0].isArray() ? values[0] : QJsonValue(values);
}

QString shown(const QVariant &value)
{
    switch (value.userType()) {
    case QMetaType::QString:
        return written(value.toString());
    case QMetaType::QByteArray:
        return QStringLiteral("0x") + QString::fromLatin1(value.toByteArray().toHex());
    case QMetaType::QVariantList:
        return written(QJsonValue::fromVariant(value));
    default:
        return value.toString();
    }
}

} // namespace mcusim
