// The values of chosen fields over the last minutes.
#pragma once

#include "carstate.h"

#include "catalogue.h"

#include <QWidget>

namespace mcupanel {

class Plot : public QWidget {
public:
    /// Takes the present values of the chosen fields.
    virtual void sample() = 0;
};

/// Null when the panel is built without charts.
Plot *makePlot(const mcusim::Catalogue &names, const CarState &state);

} // namespace mcupanel
