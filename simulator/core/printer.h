// Shows events to people, one line per event.
#pragma once

#include "catalogue.h"

#include <cstdio>

namespace mcusim {

/// Inputs begin at the margin, outputs are indented:
///
///     1.200 link  keyEventSgl key=163 state=0
///     1.200   app McuService.keyEvent key=163 state=0
///
/// Fields that have changed since the last event of the name come first; what does not fit in the
/// width is left out.
class Printer : public Sink {
public:
    struct Look {
        int width = 0;       ///< columns; 0 for no end
        bool colour = false; ///< for terminals
    };

    Printer(std::FILE *stream, const Look &look) : m_stream(stream), m_look(look) {}

    void hear(const Event &event) override;
    /// Whether something was left out.
    bool wasCut() const { return m_wasCut; }
    /// A line that is broken between words where it is too long; what follows stands below
    /// `indent`.
    void print(const QString &text, int indent = 0, const char *colour = nullptr);

private:
    QString painted(const QString &text, const char *colour) const;

    std::FILE *m_stream;
    Look m_look;
    bool m_wasCut = false;
    QHash<const Signature *, QVector<QString>> m_last; ///< the values of the last event
};

} // namespace mcusim
