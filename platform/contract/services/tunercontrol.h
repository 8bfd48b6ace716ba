/// \file
/// The platform's HD radio and DAB tuner, a closed class, as far as the commands of the facade use
/// it.
#pragma once

#include <QtGlobal>

namespace tuner {

/// Controls the tuner. Called from the thread of mcu::McuService.
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
