/// \file
/// The platform display controller, a closed class, as far as the factory test uses it.
#pragma once

#include <QtGlobal>

/// Knows which source is on the display. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT SrcDsplCtrl {
public:
    /// Code of the current display source. The library compares it with 30, see
    /// EventHandler::onEvent().
    static int currentDspl();
};
