#include "inputline.h"

#include "refusal.h"
#include "scenario.h"
#include "values.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <optional>

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

/// The name in words, and the inputs that it means: of any kind, or of that before it.
QString nameIn(const QStringList &words) { return words.value(inputKind(words.value(0)) ? 1 : 0); }

QVector<const Signature *> inputsOf(const Catalogue &names, const QStringList &words)
{
    const KindInfo *only = inputKind(words.value(0));
    const QString name = nameIn(words);
    QVector<const Signature *> found;
    for (const Signature &signature : names.all()) {
        const KindInfo &kind = info(signature.kind);
        if (kind.isInput && (!only || only == &kind) &&
            (signature.name == name || signature.shortName() == name))
            found.append(&signature);
    }
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
    return !inputsOf(names, words).isEmpty();
}

Event readInput(const Catalogue &names, const QStringList &words)
{
    const QString name = nameIn(words);
    const QVector<const Signature *> found = inputsOf(names, words);
    if (found.isEmpty())
        throw Refusal("unknown input " + excerpt(name) + names.suggestion(name, Kind::Report));
    const QStringList given = words.mid(words.indexOf(name) + 1);
    std::optional<Event> event; // the first that fits, of overloads
    QStringList fitting;
    QStringList others;
    QJsonArray values;
    for (const Signature *signature : found) {
        values = {};
        Event read{0, signature, {}, 0};
        for (int i = 0; i < given.size(); ++i) {
            const Parameter parameter = signature->parameters.value(i);
            values.append(readValue(given[i], parameter));
            read.values.append(fitted(values.last(), parameter));
        }
        const bool fits = signature->takes(read.values);
        if (fits && !event)
            event = read;
        (fits ? fitting : others).append(info(signature->kind).key + (' ' + signature->name));
    }
    QStringList &meant = event ? fitting : others;
    meant.removeDuplicates();
    if (meant.size() > 1)
        throw Refusal(excerpt(name) + " may be " + meant.join(" or "));
    return event ? *event : names.read(found.first()->kind, found.first()->name, values);
}

QByteArray lineToSend(const Catalogue &names, const QStringList &words)
{
    if (words.value(0).startsWith('{'))
        return words.join(' ').replace('\n', ' ').toUtf8();
    return writtenEvent(readInput(names, words));
}

} // namespace mcusim
