#include "probedplatform.h"

namespace mcusim::probe {

ProbedPlatform::ProbedPlatform(std::unique_ptr<Platform> platform) : m_platform(std::move(platform))
{
    for (const DeclaredCommand &command : declaredCommands()) {
        Noted noted{QString::fromLatin1(command.name), {}, {}};
        const QStringList parameters =
            QString::fromLatin1(command.parameters).split(", ", Qt::SkipEmptyParts);
        for (const QString &parameter : parameters) {
            const int type = QMetaType::type(parameter.section(' ', 0, -2).toLatin1());
            noted.types.append(type);
            noted.parameters.append({type == QMetaType::UChar ? int(QMetaType::Int) : type,
                                     parameter.section(' ', -1)});
        }
        m_byName.insert(command.name, m_commands.size());
        m_commands.append(noted);
    }
}

QVector<Platform::Entry> ProbedPlatform::commands() const
{
    QVector<Entry> entries;
    for (const Noted &command : m_commands)
        entries.append({command.name, command.parameters, {}});
    return entries;
}

void ProbedPlatform::listen(Listener listener)
{
    m_listener = listener;
    // The substitute tells of its commands, too: after they were noted.
    m_platform->listen(listener ? [listener](Kind kind, const QString &name,
                                             const QVariantList &values) {
        if (kind != Kind::Command)
            listener(kind, name, values);
    } : Listener());
}

void ProbedPlatform::report(const QMetaMethod &signal, QVariantList values)
{
    m_platform->report(signal, std::move(values));
}

void ProbedPlatform::note(const char *command, const void *const *arguments) const
{
    const Noted &noted =
        m_commands[m_byName.value(QByteArray::fromRawData(command, int(qstrlen(command))))];
    QVariantList values;
    for (int i = 0; i < noted.types.size(); ++i) {
        values.append(QVariant(noted.types[i], arguments[i]));
        values.last().convert(noted.parameters[i].type);
    }
    if (m_listener)
        m_listener(Kind::Command, noted.name, values);
}

} // namespace mcusim::probe
