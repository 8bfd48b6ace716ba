// Everything that a scenario can name, with its parameters: link signals and commands, application
// signals, operations, settings and platform calls. Names come from the meta-objects and the table
// of operations; nothing is listed twice.
#pragma once

#include "event.h"
#include "platform.h"

#include <QHash>
#include <QJsonValue>

#include <deque>
#include <optional>

namespace mcu {
struct RecordDescription;
}

namespace mcusim {

/// Something with a name and parameters; overloads are several.
struct Signature {
    Kind kind = Kind::Report;
    QString name; ///< "keyEventSgl", "McuService.SetVolume"
    QVector<Parameter> parameters;
    /// Plays an input, and returns the result of an operation; null for outputs.
    std::function<QVariant(const QVariantList &values)> play;
    const Signature *answer = nullptr;              ///< of an operation that returns something
    const mcu::RecordDescription *record = nullptr; ///< of a signal that carries one
    QMetaMethod method;                             ///< of a link or application signal

    /// "SetVolume(int level)".
    QString text() const;
    /// "SetVolume" of "McuService.SetVolume", and "McuService".
    QString shortName() const { return name.section('.', -1); }
    QString className() const { return name.section('.', -2, -2); }
    /// Whether values have the number and types of the parameters.
    bool takes(const QVariantList &values) const;
};

/// The objects that applications connect to: "McuService" and so on.
struct ApplicationObject {
    const char *name;
    QObject *(*instance)();
    const QMetaObject *metaObject;
};
const QVector<ApplicationObject> &applicationObjects();

class Catalogue {
public:
    /// Creates no object of the library and calls no operation.
    explicit Catalogue(Platform &platform);
    Catalogue(const Catalogue &) = delete;
    Catalogue &operator=(const Catalogue &) = delete;

    /// All in the order of the interface, kind after kind; overloads one after another.
    const std::deque<Signature> &all() const { return m_all; }
    /// Those of a name; none when it is unknown.
    QVector<const Signature *> find(Kind kind, const QString &name) const;
    /// The one that takes these values, or null.
    const Signature *find(Kind kind, const QString &name, const QVariantList &values) const;

    /// Those whose name, class or kind (the key of a scenario line) is like a glob. Throws a
    /// Refusal when there is none.
    QVector<const Signature *> like(const QString &glob) const;

    /// The event of a name and the "value" of a line: several arguments are an array, one
    /// may stand alone, none is no value. Throws a Refusal.
    Event read(Kind kind, const QString &name, const QJsonValue &value) const;

    /// "; did you mean ..." with the names that are like a text, of any kind and class; those of
    /// the given kind come first.
    QString suggestion(const QString &text, std::optional<Kind> kind = {}) const;

private:
    void add(Signature signature);
    void addOperations();
    void addApplicationSignals();

    std::deque<Signature> m_all; // never moved: events point to them
    QHash<QString, QVector<const Signature *>> m_byName[std::size(kinds)];
};

/// The names of an event's fields with their values: those of its parameters, or those of the
/// vehicle record that it carries. A name may be empty.
struct Field {
    QString name;
    QString value;
};
QVector<Field> fields(const Event &event);

/// How many letters have to be changed, added or left out to make one text the other.
int distance(const QString &a, const QString &b);

} // namespace mcusim
