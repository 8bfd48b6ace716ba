// The part of a simulation that depends on the platform: how its link reports, how its commands are
// noticed, what can be set. All else goes through meta-objects and works on any link.
#pragma once

#include "event.h"
#include "operations.h"

#include <QMetaMethod>

#include <functional>

namespace mcusim {

/// The parameters of a method as scenarios write them.
QVector<Parameter> parametersOf(const QMetaMethod &method);

/// A platform with a link of which nothing but the public class is known.
class Platform {
public:
    /// Something that can be set or called there, by name.
    struct Entry {
        QString name;
        QVector<Parameter> parameters;
        std::function<void(const QVariantList &values)> set; ///< null for a call
    };
    using Listener =
        std::function<void(Kind kind, const QString &name, const QVariantList &values)>;

    virtual ~Platform() = default;

    /// Commands of the link: those that it declares as slots, and init().
    virtual QVector<Entry> commands() const;
    virtual QVector<Entry> settings() const { return {}; }
    virtual QVector<Entry> calls() const { return {}; }
    /// Calls the listener for every link command and platform call from now on; null ends it.
    virtual void listen(Listener) {}
    /// Emits a signal of the link, from whichever thread the platform does it.
    virtual void report(const QMetaMethod &signal, QVariantList values);
};

} // namespace mcusim
