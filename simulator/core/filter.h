// Hands on what people asked to see.
#pragma once

#include "catalogue.h"

#include <QSet>

namespace mcusim {

/// Globs over names ("syncSpeed*", "McuService.sync*"), classes ("McuManager") and kinds, by the
/// key of a scenario line ("signal").
class Filter : public Sink {
public:
    /// Throws a Refusal for a glob that nothing matches.
    Filter(const Catalogue &names, const QStringList &only, const QStringList &except, Sink &sink);

    /// Shut, nothing is handed on.
    void setOpen(bool open) { m_isOpen = open; }
    bool isOpen() const { return m_isOpen; }
    void hear(const Event &event) override
    {
        if (m_isOpen && m_shown.contains(event.what))
            m_sink.hear(event);
    }

private:
    QSet<const Signature *> m_shown;
    bool m_isOpen = true;
    Sink &m_sink;
};

} // namespace mcusim
