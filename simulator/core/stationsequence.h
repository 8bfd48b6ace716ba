// A test sequence of the factory station: JSON Lines, a test a line.
#pragma once

#include "stationpacket.h"

#include <QVariantList>
#include <QVector>

namespace mcusim {

/// One test: what is sent, what the application does, what must come back.
struct StationTest {
    QString name;
    int line = 0;

    int status = -1;            ///< factory-test status that the MCU reports first; -1 for none
    QVector<QByteArray> chunks; ///< sent one after another
    QVector<QVariantList> keys; ///< steering-wheel keys then: key, state
    QVector<QVariantList> panelKeys; ///< and panel keys: key, state
    bool replies = false;            ///< the application answers the first read signal
    StationPacket reply;

    QString signal; ///< of the handler, expected; empty when it does not matter
    QVariantList values;
    QVector<StationPacket> answers; ///< exactly these must come
    int within = 500;               ///< virtual milliseconds for all of them
};

struct StationSequence {
    QString description;
    QVector<StationTest> tests;
};

/// Reads a sequence. False with one line in *error, "line 3: ...".
bool readSequence(const QByteArray &text, StationSequence *sequence, QString *error);

} // namespace mcusim
