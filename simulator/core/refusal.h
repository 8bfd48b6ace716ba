// Why a tool refuses its input: one line that names what was expected, thrown where the fault is
// found, and shown or sent back where the input came from.
#pragma once

#include <QString>

#include <stdexcept>

namespace mcusim {

struct Refusal : std::runtime_error {
    explicit Refusal(const QString &why) : std::runtime_error(why.toStdString()) {}

    QString text() const { return QString::fromUtf8(what()); }
};

} // namespace mcusim
