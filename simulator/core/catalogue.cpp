#include "catalogue.h"

#include "autotesthandler.h"
#include "mcumanager.h"
#include "mcuradiointerface.h"
#include "mcuservice.h"
#include "mcusrv.h"
#include "mcuvechiclebridge.h"
#include "recordcatalog_p.h"
#include "refusal.h"
#include "signaltap.h"
#include "values.h"

#include <QJsonArray>
#include <QRegularExpression>

#include <numeric>

namespace mcusim {

namespace {

using substitute::declaredMethods;

template <typename Object>
ApplicationObject applicationObject(const char *name)
{
    return {name, []() -> QObject * { return Object::instance(); }, &Object::staticMetaObject};
}

Signature signature(Kind kind, const QMetaMethod &method, const QString &prefix = {})
{
    return {kind,  prefix + QString::fromLatin1(method.name()), parametersOf(method), {}, {}, {},
            method};
}

/// Reads the values for one signature, or returns why they do not fit.
QString readFor(const Signature &signature, const QJsonArray &values, QVariantList *arguments)
{
    const int expected = signature.parameters.size();
    if (values.size() != expected) {
        return signature.text() + " expects " + QString::number(expected) +
               (expected == 1 ? " argument" : " arguments") + ", got " +
               QString::number(values.size());
    }
    arguments->clear();
    for (int i = 0; i < expected; ++i) {
        arguments->append(fitted(values[i], signature.parameters[i]));
        if (!arguments->last().isValid()) {
            return signature.name + ": argument " + QString::number(i + 1) + " (" +
                   described(signature.parameters[i]) + ") cannot be " + excerpt(values[i]);
        }
    }
    return {};
}

} // namespace

int distance(const QString &a, const QString &b)
{
    std::vector<int> row(std::size_t(b.size()) + 1);
    std::iota(row.begin(), row.end(), 0);
    for (int i = 0; i < a.size(); ++i) {
        int diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < std::size_t(b.size()); ++j) {
            const int change = diagonal + (a[i] == b[int(j)] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({change, diagonal + 1, row[j] + 1});
        }
    }
    return row.back();
}

bool Event::isInput() const { return info(what->kind).isInput; }

QString Event::text() const
{
    QStringList texts;
    for (const QVariant &value : values)
        texts.append(shown(value));
    return what->name + '(' + texts.join(", ") + ')';
}

QString Signature::text() const
{
    QStringList texts;
    for (const Parameter &parameter : parameters)
        texts.append(described(parameter));
    return name + '(' + texts.join(", ") + ')';
}

bool Signature::takes(const QVariantList &values) const
{
    return std::equal(values.begin(), values.end(), parameters.begin(), parameters.end(), fits);
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

Catalogue::Catalogue(Platform &platform)
{
    const QList<QMetaMethod> reports =
        declaredMethods(mcu::McuSrv::staticMetaObject, QMetaMethod::Signal);
    for (const QMetaMethod &method : reports) {
        add(signature(Kind::Report, method));
        m_all.back().play = [&platform, method](const QVariantList &values) {
            platform.report(method, values);
            return QVariant();
        };
    }
    addOperations();
    const QVector<Platform::Entry> settings = platform.settings();
    for (const Platform::Entry &setting : settings) {
        const auto play = [set = setting.set](const QVariantList &values) {
            set(values);
            return QVariant();
        };
        add({Kind::Setting, setting.name, setting.parameters, play, {}, {}, {}});
    }
    addApplicationSignals();
    const QVector<Platform::Entry> commands = platform.commands();
    for (const Platform::Entry &command : commands)
        add({Kind::Command, command.name, command.parameters, {}, {}, {}, {}});
    const QVector<Platform::Entry> calls = platform.calls();
    for (const Platform::Entry &call : calls)
        add({Kind::Platform, call.name, call.parameters, {}, {}, {}, {}});
}

void Catalogue::add(Signature signature)
{
    m_all.push_back(std::move(signature));
    const Signature &added = m_all.back();
    m_byName[int(added.kind)][added.name].append(&added);
}

void Catalogue::addOperations()
{
    for (const Operation &operation : operations()) {
        const Signature *answer = nullptr;
        if (operation.result != QMetaType::Void) {
            const Parameter result{operation.result, QString()};
            const QVector<const Signature *> answers = find(Kind::Answer, operation.name);
            for (const Signature *known : answers)
                answer = known->parameters.first().type == result.type ? known : answer;
            if (!answer) {
                add({Kind::Answer, operation.name, {result}, {}, {}, {}, {}});
                answer = &m_all.back();
            }
        }
        const auto play = [&operation](const QVariantList &values) {
            return operation.call(nullptr, values);
        };
        add({Kind::Call, operation.name, operation.parameters, play, answer, {}, {}});
    }
}

void Catalogue::addApplicationSignals()
{
    for (const ApplicationObject &object : applicationObjects()) {
        const QString prefix = QString(object.name) + '.';
        const QList<QMetaMethod> methods = declaredMethods(*object.metaObject, QMetaMethod::Signal);
        for (const QMetaMethod &method : methods) {
            add(signature(Kind::Signal, method, prefix));
            if (object.metaObject == &mcu::McuService::staticMetaObject)
                m_all.back().record = mcu::describeRecord(method.name());
        }
    }
}

QVector<const Signature *> Catalogue::find(Kind kind, const QString &name) const
{
    return m_byName[int(kind)].value(name);
}

const Signature *Catalogue::find(Kind kind, const QString &name, const QVariantList &values) const
{
    const QVector<const Signature *> named = find(kind, name);
    for (const Signature *signature : named) {
        if (signature->takes(values))
            return signature;
    }
    return nullptr;
}

QVector<const Signature *> Catalogue::like(const QString &glob) const
{
    const QRegularExpression pattern(QRegularExpression::wildcardToRegularExpression(glob),
                                     QRegularExpression::CaseInsensitiveOption);
    QVector<const Signature *> found;
    for (const Signature &signature : m_all) {
        const QStringList names{signature.name, signature.shortName(), signature.className(),
                                QString::fromLatin1(info(signature.kind).key)};
        if (names.indexOf(pattern) >= 0)
            found.append(&signature);
    }
    if (found.isEmpty())
        throw Refusal("no name, class or kind is like " + excerpt(glob) + suggestion(glob));
    return found;
}

Event Catalogue::read(Kind kind, const QString &name, const QJsonValue &value) const
{
    Event event;
    QString error;
    const QVector<const Signature *> candidates = find(kind, name);
    if (candidates.isEmpty()) {
        throw Refusal(QString("unknown ") + info(kind).title + ' ' + excerpt(name) +
                      suggestion(name, kind));
    }
    for (const Signature *candidate : candidates) {
        // A single argument that is an array may stand alone, too.
        const bool alone = candidate->parameters.size() == 1 &&
                           (candidate->parameters[0].type == QMetaType::QVariantList
                                ? !value.toArray().at(0).isArray()
                                : !value.isArray());
        const QJsonArray values = value.isUndefined()         ? QJsonArray()
                                  : alone || !value.isArray() ? QJsonArray{value}
                                                              : value.toArray();
        error = readFor(*candidate, values, &event.values);
        if (error.isEmpty()) {
            event.what = candidate;
            return event;
        }
    }
    throw Refusal(error);
}

QString Catalogue::suggestion(const QString &text, std::optional<Kind> kind) const
{
    struct Like {
        int distance;
        const Signature *signature;
    };
    const QString wanted = text.left(100).toLower();
    const QString wantedShort = wanted.section('.', -1);
    const int limit = std::max(1, wantedShort.size() / 3);
    // Of texts whose lengths differ more, the distance need not be computed.
    const auto distanceTo = [limit](const QString &a, const QString &b) {
        return std::abs(a.size() - b.size()) > limit ? limit + 1 : distance(a, b);
    };
    std::vector<Like> likes;
    for (const Signature &signature : m_all) {
        const QString name = signature.name.toLower();
        const QString shortName = signature.shortName().toLower();
        int away = std::min(distanceTo(wanted, name), distanceTo(wantedShort, shortName));
        if (wantedShort.size() > 3 && shortName.startsWith(wantedShort))
            away = std::min(away, 1);
        // A misspelt name is likelier than a wrong kind.
        if (away <= limit)
            likes.push_back({away + (signature.kind == kind ? 0 : 2), &signature});
    }
    std::stable_sort(likes.begin(), likes.end(),
                     [](const Like &a, const Like &b) { return a.distance < b.distance; });
    QStringList names;
    for (const Like &like : likes) {
        QString name = '"' + like.signature->name + '"';
        if (like.signature->kind != kind)
            name += QString(" with \"") + info(like.signature->kind).key + '"';
        if (names.size() < 3 && !names.contains(name))
            names.append(name);
    }
    return names.isEmpty() ? "; `mcusim list` shows them all"
                           : "; did you mean " + names.join(" or ") + '?';
}

QVector<Field> fields(const Event &event)
{
    QVector<Field> found;
    if (event.what->record) {
        for (const auto &field :
             mcu::fieldValues(*event.what->record, event.values.first().toByteArray()))
            found.append({QString(field.name), QString::number(field.value)});
    }
    if (!found.isEmpty())
        return found;
    for (int i = 0; i < event.values.size(); ++i)
        found.append({event.what->parameters[i].name, shown(event.values[i])});
    return found;
}

} // namespace mcusim
