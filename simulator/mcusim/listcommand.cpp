// mcusim list: all names that a scenario can use, or some of them in full.
#include "commandline.h"
#include "process.h"
#include "recordtables.h"

#include "scenario.h"
#include "substituteplatform.h"
#include "values.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace mcusim {

namespace {

/// The unit of a value, known by its name; all other values are codes of the MCU.
QString unit(const Parameter &parameter)
{
    static const QMap<QString, QString> units{{"kmh", "km/h"},
                                              {"percent", "%"},
                                              {"ms", "milliseconds"},
                                              {"steering_angle", "tenths of a degree"}};
    return units.value(parameter.name);
}

void putInFull(const Signature &signature)
{
    const KindInfo &kind = info(signature.kind);
    put(signature.text());
    put(QString("  ") + kind.title + (kind.isInput ? ", played" : ", expected") + " with \"" +
        kind.key + "\":");
    Event example{0, &signature, {}, 0};
    for (const Parameter &parameter : signature.parameters) {
        const int type =
            parameter.type == QMetaType::QVariant ? int(QMetaType::Int) : parameter.type;
        example.values.append(type == QMetaType::QVariantList
                                  ? QVariantList(QVector<QVariant>(parameter.length, 0).toList())
                                  : QVariant(type, nullptr));
    }
    put("  " + QString::fromUtf8(writtenEvent(example)));
    for (const Parameter &parameter : signature.parameters) {
        if (!unit(parameter).isEmpty())
            put("  " + parameter.name + " in " + unit(parameter));
    }
    if (signature.answer)
        put("  returns " + described(signature.answer->parameters.first()) +
            ", expected with \"answer\"");
    if (const auto *record = recordOf(signature))
        put('\n' + recordSection(*record).remove('`'));
    put({});
}

QJsonObject json(const Signature &signature)
{
    QJsonArray parameters;
    for (const Parameter &parameter : signature.parameters) {
        QJsonObject entry{{"name", parameter.name}, {"type", typeName(parameter)}};
        if (parameter.length > 0)
            entry.insert("length", parameter.length);
        if (!unit(parameter).isEmpty())
            entry.insert("unit", unit(parameter));
        parameters.append(entry);
    }
    QJsonObject object{
        {"kind", info(signature.kind).key}, {"name", signature.name}, {"parameters", parameters}};
    if (const auto *record = recordOf(signature))
        object.insert("record", recordJson(*record));
    return object;
}

} // namespace

int listCommand(const QStringList &arguments)
{
    const CommandLine line(arguments,
                           {"list",
                            "[NAME...]",
                            "Shows all names that a scenario can use, with their parameters; those "
                            "that are named (globs over names, classes and kinds) in full.",
                            {{"json", nullptr, "As a JSON array, an object for each name."}}});
    SubstitutePlatform platform;
    const Catalogue names(platform);
    QVector<const Signature *> shown;
    const bool inFull = !line.operands().isEmpty();
    const QStringList globs = inFull ? line.operands() : QStringList("*");
    for (const QString &glob : globs) {
        const QVector<const Signature *> matching = names.like(glob);
        for (const Signature *signature : matching) {
            if (!shown.contains(signature))
                shown.append(signature);
        }
    }
    if (line.isSet("json")) {
        const char *separator = "[";
        for (const Signature *signature : shown) {
            put(separator +
                QString::fromUtf8(QJsonDocument(json(*signature)).toJson(QJsonDocument::Compact)));
            separator = ",";
        }
        put("]");
        return Passed;
    }
    if (inFull) {
        for (const Signature *signature : shown)
            putInFull(*signature);
        return Passed;
    }
    for (const KindInfo &kind : kinds) {
        put(QString(kind.heading));
        for (const Signature *signature : shown) {
            if (&info(signature->kind) == &kind)
                put("  " + signature->text());
        }
        put({});
    }
    return Passed;
}

} // namespace mcusim
