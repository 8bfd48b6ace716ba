// A test sequence of the factory station: JSON Lines, one test per line.
#pragma once

#include "catalogue.h"
#include "jsonlines.h"
#include "stationpacket.h"

namespace mcusim {

/// One test: what is sent, what the application does, what must come back.
struct StationTest {
    QString name;
    int line = 0;

    int status = -1;            ///< factory-test status that the MCU reports first; -1 for none
    QVector<QByteArray> chunks; ///< sent one after another
    QVector<QVariantList> keys; ///< steering-wheel keys then: key, state
    QVector<QVariantList> panelKeys;    ///< and panel keys: key, state
    std::optional<StationPacket> reply; ///< of the application to the first signal

    std::optional<Event> signal;    ///< of the handler, expected
    QVector<StationPacket> answers; ///< exactly these must come
    int within = 500;               ///< virtual milliseconds for all of them
};

class SequenceFile : public JsonLinesFile {
public:
    /// Like next(), throws a Refusal that names file and line.
    SequenceFile(const Catalogue &names, const QString &path, GoOn goOn = {});

    /// The next test; nothing at the end.
    std::optional<StationTest> next();

protected:
    bool take(const QJsonObject &line) override;

private:
    const Catalogue &m_names;
    StationTest m_test;
};

} // namespace mcusim
