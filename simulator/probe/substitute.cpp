// The probe on the substitute platform, whose answers and state can be set.
#include "probedplatform.h"
#include "substituteplatform.h"

namespace mcusim::probe {

std::unique_ptr<Platform> makePlatform() { return std::make_unique<SubstitutePlatform>(); }

const char *const linkName = "substitute";

} // namespace mcusim::probe
