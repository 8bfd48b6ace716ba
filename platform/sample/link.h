// The private part of the sample link: the body of its commands.
#pragma once

#include <QVariantList>

namespace sample {

/// Prints the command. For a vehicle speed, also emits the report that the MCU would send.
void execute(const char *command, const QVariantList &arguments);

} // namespace sample
