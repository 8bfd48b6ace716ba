// The platform display controller as the factory test needs it: SrcDsplCtrl, closed.
#pragma once

#include <QtGlobal>

/// Knows which source is on the display.
class Q_DECL_IMPORT SrcDsplCtrl {
public:
    /// Code of the current display source.
    static int currentDspl();
};
