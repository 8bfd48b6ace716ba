#include "inputline.h"

#include "refusal.h"
#include "scenario.h"
#include "values.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace mcusim {

namespace {

QJsonValue readValue(const QString &word, const Parameter &parameter)
{
    const bool isBare = parameter.type == QMetaType::QString && !word.startsWith('"');
    const QJsonDocument json = QJsonDocument::fromJson(('[' + word + ']').toUtf8());
    return isBare || json.array().size() != 1 ? QJsonValue(word) : json.array().first();
}

/// The kind of inputs with a key, or null.
const KindInfo *inputKind(const QString &key)
{
    const auto *kind = std::find_if(std::begin(kinds), std::end(kinds), [&key](const auto &known) {
        return known.isInput && key == QLatin1String(known.key);
    });
    return kind == std::end(kinds) ? nullptr : kind;
}

/// The inputs of a name, all of one kind.
QVector<const Signature *> inputsOf(const Catalogue &names, const QString &name,
                                    const KindInfo *only)
{
    QVector<const Signature *> exact;
    QVector<const Signature *> alike; // without the class
    for (const Signature &signature : names.all()) {
        const KindInfo &kind = info(signature.kind);
        if (!kind.isInput || (only && only != &kind))
            continue;
        if (signature.name == name)
            exact.append(&signature);
        else if (signature.shortName() == name)
            alike.append(&signature);
    }
    const QVector<const Signature *> found = exact.isEmpty() ? alike : exact;
    if (found.isEmpty())
        throw Refusal("unknown input " + excerpt(name) + names.suggestion(name, Kind::Report));
    QStringList meant;
    for (const Signature *signature : found) {
        const QString full = info(signature->kind).key + (' ' + signature->name);
        if (!meant.contains(full))
            meant.append(full);
    }
    if (meant.size() > 1)
        throw Refusal(excerpt(name) + " may be " + meant.join(" or "));
    return found;
}

} // namespace

QStringList wordsOf(const QString &line)
{
    QStringList words;
    QString word;
    bool inQuotes = false;
    int depth = 0;
    for (int i = 0; i < line.size(); ++i) {
        const QChar c = line[i];
        if (c.isSpace() && !inQuotes && depth == 0) {
            words.append(word);
            word.clear();
            continue;
        }
        word += c;
        if (inQuotes && c == '\\' && i + 1 < line.size())
            word += line[++i];
        else if (c == '"')
            inQuotes = !inQuotes;
        else if (!inQuotes)
            depth += int(c == '[' || c == '{') - int(c == ']' || c == '}');
    }
    words.append(word);
    words.removeAll(QString());
    return words;
}

bool isInput(const Catalogue &names, const QStringList &words)
{
    const QString name = words.value(inputKind(words.value(0)) ? 1 : 0);
    const auto &all = names.all();
    return std::any_of(all.begin(), all.end(), [&name](const auto &signature) {
        return info(signature.kind).isInput &&
               (signature.name == name || signature.shortName() == name);
    });
}

Event readInput(const Catalogue &names, const QStringList &words)
{
    const KindInfo *kind = inputKind(words.value(0));
    const QString name = words.value(kind ? 1 : 0);
    const QStringList given = words.mid(kind ? 2 : 1);
    QJsonArray values;
    const QVector<const Signature *> found = inputsOf(names, name, kind);
    for (const Signature *signature : found) {
        values = {};
        Event event{0, signature, {}, 0};
        for (int i = 0; i < given.size(); ++i) {
            const Parameter parameter = signature->parameters.value(i);
            values.append(readValue(given[i], parameter));
            event.values.append(fitted(values.last(), parameter));
        }
        if (signature->takes(event.values))
            return event;
    }
    return names.read(found.first()->kind, found.first()->name, values); // says what is wrong
}

QByteArray lineToSend(const Catalogue &names, const QStringList &words)
{
    if (words.value(0).startsWith('{'))
        return words.join(' ').replace('\n', ' ').toUtf8();
    return writtenEvent(readInput(names, words));
}

} // namespace mcusim
