// One line of a scenario and of what is shown: something that happened at a moment, with its
// values.
#pragma once

#include <QString>
#include <QVariantList>

#include <algorithm>

namespace mcusim {

enum class Kind {
    Report,   ///< "name": the link reports, played
    Call,     ///< "call": an application calls, played
    Setting,  ///< "set": the desk sets what the platform answers or does, played
    Signal,   ///< "signal": what applications received
    Answer,   ///< "answer": what an application's call gave back
    Command,  ///< "command": what the link was told
    Platform, ///< "platform": what another platform class was told
};

/// Played into the library, as against coming out of it.
constexpr bool isInput(Kind kind)
{
    return kind == Kind::Report || kind == Kind::Call || kind == Kind::Setting;
}

struct Event {
    qint64 time = 0; ///< virtual milliseconds since the start
    Kind kind = Kind::Report;
    QString name; ///< "sysBootStateSgl", "McuService.SetVolume"
    QVariantList arguments;
    int line = 0; ///< in the scenario file; 0 for what came out of the library

    bool sameAs(const Event &other) const
    {
        return time == other.time && kind == other.kind && name == other.name &&
               sameArguments(arguments, other.arguments);
    }

    /// Types count: a QVariant alone takes 0 and false for equal, which overloads tell apart.
    static bool sameArguments(const QVariantList &a, const QVariantList &b)
    {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                          [](const QVariant &x, const QVariant &y) {
                              return x.userType() == y.userType() && x == y;
                          });
    }
};

} // namespace mcusim
