/// \file
/// The platform DAB tuner as the commands need it: tuner::TunerControl, closed.
#pragma once

#include <QtGlobal>

namespace tuner {

/// The HD radio and DAB tuner. Called from the thread of mcu::McuService.
class Q_DECL_IMPORT TunerControl {
public:
    /// The one object; never null.
    static TunerControl *instance();

    /// Starts a DAB scan.
    void HDR_DabRequestScan();
    /// Tunes to the DAB frequency of an index.
    void HDR_DabTunerFM(int index);
};

} // namespace tuner
