// mcusim check-link where mcusim was built without the library that reads ELF files.
#include "commandline.h"

namespace mcusim {

int checkLinkCommand(const QStringList &)
{
    throw Refusal("check-link: this mcusim was built without libelf, which reads libraries");
}

} // namespace mcusim
