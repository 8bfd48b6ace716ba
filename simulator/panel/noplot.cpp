// In place of the plot where charts are not installed.
#include "plot.h"

namespace mcupanel {

Plot *makePlot(const mcusim::Catalogue &, const CarState &) { return nullptr; }

} // namespace mcupanel
