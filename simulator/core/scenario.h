// A scenario file: JSON Lines, one event a line, the first line its metadata.
#pragma once

#include "event.h"

#include <QByteArray>
#include <QList>

namespace mcusim {

struct Scenario {
    QString description;
    /// What came out when it was recorded is complete: playing it must give exactly that again.
    bool recording = false;
    QList<Event> events; ///< in order of time, the first at 0 or, from 0 on, where it says
    QString warning;     ///< of a torn last line, which is left out

    QList<Event> inputs() const;
    QList<Event> expectations() const;
};

/// Reads a scenario. False with one line in *error, "line 3: ...", when anything in it is wrong but
/// a torn last line; then nothing of it should be played.
bool readScenario(const QByteArray &text, Scenario *scenario, QString *error);

/// An event as a line of a scenario, without the line end.
QByteArray writtenEvent(const Event &event);
/// The metadata line of a recording.
QByteArray writtenMetadata(const QString &description);

} // namespace mcusim
