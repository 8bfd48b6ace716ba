// How events look: aligned lines for a person, or lines of a scenario.
#pragma once

#include "event.h"
#include "expectations.h"
#include "player.h"

#include <cstdio>

namespace mcusim {

/// Writes aligned lines. What is played in stands at the margin, what comes out below it, indented:
///
///       1.200  link report       keyEventSgl                    key=163 state=0
///       1.200    app signal      McuService.keyEvent            key=163 state=0
///
/// Long values go on in further lines.
class EventPrinter {
public:
    /// Colour is for terminals. Nothing is wider than the given width.
    EventPrinter(std::FILE *stream, bool colour, int width);

    void print(const Event &event);
    void printSummary(const Outcome &outcome, const Verdict &verdict, double seconds);

private:
    QString painted(const QString &text, const char *code) const;
    void printArguments(const QStringList &arguments, int column);

    std::FILE *m_stream;
    bool m_colour;
    int m_width;
};

} // namespace mcusim
