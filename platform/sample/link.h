// The inner side of the sample link: what its commands do.
#pragma once

#include <QVariantList>

namespace sample {

/// Shows the command and lets the MCU behind the link react to it.
void execute(const char *command, const QVariantList &arguments);

} // namespace sample
