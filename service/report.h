// The one path that all vehicle reports take to applications once their record is stored.
#pragma once

#include "mcuservice.h"
#include "mcuservice_p.h"

namespace mcu {

template <const RecordDescription &Description>
void McuServicePrivate::publish(const Record<Description> &record,
                                void (McuService::*updated)(QByteArray), const CallSite &slot)
{
    if constexpr (Description.rateLimit != RateLimit::None) {
        if (checkCmdUpdateToApp(int(Description.rateLimit)))
            return;
    }
    const QByteArray image = record.bytes();
    if constexpr (Description.dumpTag != nullptr) {
        if (isDebugLogged())
            debugLine(slot) << Description.dumpTag << image.toHex();
    }
    McuService *service = owner; // GCC 12's sanitizer leaves a member unread in this kind of call
    Q_EMIT(service->*updated)(image);
    if constexpr (Description.readiness.set != Readiness::None)
        markReady(Description.readiness);
}

} // namespace mcu
