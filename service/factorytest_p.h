// What the facade needs of the factory test, which is built on the facade and not known here:
// autotest/ defines it.
#pragma once

namespace mcu {

class McuService;

/// Switches the factory test mode and with it the keys that reach the test.
void switchFactoryTest(McuService *facade, bool on);

} // namespace mcu
