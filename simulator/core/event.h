// The type that sources, simulations and sinks exchange: what happened at a moment, with its
// values.
#pragma once

#include <QVariantList>

#include <algorithm>

namespace mcusim {

struct Signature;

enum class Kind { Report, Call, Setting, Signal, Answer, Command, Platform };

/// What depends only on the kind of an event.
struct KindInfo {
    const char *key;     ///< in a line of a scenario
    const char *mark;    ///< at the head of an aligned line
    const char *colour;  ///< of the mark and the name on a terminal
    bool isInput;        ///< played into the library; the others come out of it
    const char *title;   ///< in messages
    const char *heading; ///< of the list of its names
};

inline constexpr KindInfo kinds[]{
    {"name", "link", "36", true, "link signal", "Link signals, played with \"name\""},
    {"call", "call", "33", true, "operation", "Operations, played with \"call\""},
    {"set", "set", "90", true, "setting", "Settings of the platform, played with \"set\""},
    {"signal", "  app", "32", false, "application signal",
     "Application signals, expected with \"signal\""},
    {"answer", "  ret", "33", false, "answering operation",
     "What operations return, expected with \"answer\""},
    {"command", "  cmd", "35", false, "link command", "Link commands, expected with \"command\""},
    {"platform", "  plt", "34", false, "platform call",
     "Calls of other platform classes, expected with \"platform\""},
};

constexpr const KindInfo &info(Kind kind) { return kinds[int(kind)]; }

struct Event {
    qint64 time = 0;                 ///< milliseconds since the start
    const Signature *what = nullptr; ///< its kind, name and parameters, in the catalogue
    QVariantList values;             ///< in the types of the parameters
    int line = 0;                    ///< in the file it was read from; 0 for what happens in a run

    bool isInput() const;
    /// "keyEventSgl(163, 0)".
    QString text() const;
    /// The same with the same values, at any moment. Types count: QVariant compares 0 and false as
    /// equal, and some parameters take either.
    bool sameAs(const Event &other) const
    {
        return what == other.what &&
               std::equal(values.begin(), values.end(), other.values.begin(), other.values.end(),
                          [](const QVariant &a, const QVariant &b) {
                              return a.userType() == b.userType() && a == b;
                          });
    }
};

/// Receives every event of a simulation, inputs and outputs, in order.
class Sink {
public:
    virtual ~Sink() = default;
    virtual void hear(const Event &event) = 0;
};

} // namespace mcusim
