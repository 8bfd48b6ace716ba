// The probe on a link of which nothing but the contract is known.
#include "probedplatform.h"

namespace mcusim::probe {

std::unique_ptr<Platform> makePlatform() { return std::make_unique<Platform>(); }

const char *const linkName = "own";

} // namespace mcusim::probe
