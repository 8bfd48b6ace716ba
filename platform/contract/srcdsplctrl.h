/// \file
/// The platform display controller as the factory test needs it: SrcDsplCtrl, closed.
#pragma once

#include <QtGlobal>

/// Knows which source is on the display. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT SrcDsplCtrl {
public:
    /// Code of the current display source; the library knows 30.
    static int currentDspl();
};
