// The function of the factory test that the facade calls. It is declared here and defined in
// autotest/, because the factory test depends on the facade and not the other way round.
#pragma once

namespace mcu {

class McuService;

/// Switches the factory test mode, and connects or disconnects the keys for the key test.
void switchFactoryTest(McuService *facade, bool on);

} // namespace mcu
