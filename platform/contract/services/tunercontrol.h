// The platform DAB tuner as the commands need it: tuner::TunerControl, closed.
#pragma once

#include <QtGlobal>

namespace tuner {

/// The HD radio and DAB tuner.
class Q_DECL_IMPORT TunerControl {
public:
    static TunerControl *instance();

    /// Starts a DAB scan.
    void HDR_DabRequestScan();
    /// Tunes to a DAB frequency by its index.
    void HDR_DabTunerFM(int index);
};

} // namespace tuner
