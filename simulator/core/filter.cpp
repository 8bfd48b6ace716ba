#include "filter.h"

namespace mcusim {

Filter::Filter(const Catalogue &names, const QStringList &only, const QStringList &except,
               Sink &sink)
    : m_sink(sink)
{
    for (const Signature &signature : names.all()) {
        if (only.isEmpty())
            m_shown.insert(&signature);
    }
    for (const QString &glob : only) {
        for (const Signature *signature : names.like(glob))
            m_shown.insert(signature);
    }
    for (const QString &glob : except) {
        for (const Signature *signature : names.like(glob))
            m_shown.remove(signature);
    }
}

} // namespace mcusim
