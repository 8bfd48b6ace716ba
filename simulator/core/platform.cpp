#include "platform.h"

#include "mcusrv.h"

#include <vector>

namespace mcusim {

void Platform::report(const QMetaMethod &signal, QVariantList values)
{
    // Not QMetaMethod::invoke(), which ends at ten arguments.
    std::vector<void *> arguments{nullptr};
    for (QVariant &value : values)
        arguments.push_back(value.data());
    mcu::McuSrv::instance()->qt_metacall(QMetaObject::InvokeMetaMethod, signal.methodIndex(),
                                         arguments.data());
}

} // namespace mcusim
