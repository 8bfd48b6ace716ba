// The platform of an application with the probe. Commands are noted before the link gets them, so
// it does not matter which link that is.
#pragma once

#include "platform.h"

#include <QHash>

#include <memory>
#include <vector>

namespace mcusim::probe {

/// A command as the contract declares it: a real link need not declare it as a slot.
struct DeclaredCommand {
    const char *name;
    const char *parameters; ///< "int type, QByteArray data"
};
const std::vector<DeclaredCommand> &declaredCommands();

class ProbedPlatform : public Platform {
public:
    /// Of the platform in the process, all but its commands.
    explicit ProbedPlatform(std::unique_ptr<Platform> platform);

    QVector<Entry> commands() const override;
    QVector<Entry> settings() const override { return m_platform->settings(); }
    QVector<Entry> calls() const override { return m_platform->calls(); }
    void listen(Listener listener) override;
    void report(const QMetaMethod &signal, QVariantList values) override;

    /// A command, with the addresses of its arguments.
    void note(const char *command, const void *const *arguments) const;

private:
    struct Noted {
        QString name;
        QVector<int> types; ///< of the arguments
        QVector<Parameter> parameters;
    };

    std::unique_ptr<Platform> m_platform;
    Listener m_listener;
    QVector<Noted> m_commands;
    QHash<QByteArray, int> m_byName; ///< places in m_commands
};

/// The platform that this library is made for, and what clients know it by.
std::unique_ptr<Platform> makePlatform();
extern const char *const linkName;

} // namespace mcusim::probe
