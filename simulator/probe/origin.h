// Where a recording comes from.
#pragma once

#include <QJsonObject>

namespace mcusim::probe {

/// Time of day, monotonic time, process, and the files and build identities of library and link.
QJsonObject origin();

} // namespace mcusim::probe
