// The private block of the factory test handler: what it has received, its two modes, and how its
// packets are built, sent and handed to the handler of their DID.
#pragma once

#include "autotesthandler.h"
#include "autotestpacket.h"
#include "debug.h"
#include "mcuservice.h"
#include "qxprivate.h"

#include <algorithm>
#include <iterator>

namespace mcu {

class AutoTestHandlerPrivate : public QxPrivate<AutoTestHandler> {
public:
    /// A row of a DID table.
    struct Command {
        quint8 did;
        void (AutoTestHandler::*handle)(const QByteArray &packet);
    };

    McuService *service = McuService::instance(); ///< not owned
    wire::ReceiveBuffer recvBuffer;
    QByteArray packet; ///< the last one cut out of recvBuffer; empty when it was broken
    quint8 inAutotestMode = 0;
    quint8 keyDetect = 0;

    QByteArray cmdPacket(unsigned char type, unsigned char did, const QByteArray &payload) const;
    void sendReadInfo(unsigned char did, const QByteArray &payload);
    void sendWriteInfo(unsigned char did, const QByteArray &payload);
    void sendFeedbackInfo(unsigned char code);
    void sendPkgToMcu(const QByteArray &pkt);

    /// Calls the first row with the packet's DID; false when there is none, which is logged in the
    /// name of the caller.
    template <std::size_t Rows>
    bool dispatch(const Command (&table)[Rows], const QByteArray &received, const CallSite &caller)
    {
        const int did = wire::byteAt(received, wire::didOffset);
        const auto row = std::find_if(std::begin(table), std::end(table),
                                      [did](const Command &command) { return command.did == did; });
        if (row == std::end(table)) {
            if (isDebugLogged())
                debugLine(caller) << did;
            return false;
        }
        // GCC 12's sanitizer leaves a member unread in this kind of call.
        AutoTestHandler *handler = owner;
        (handler->*row->handle)(received);
        return true;
    }
};

} // namespace mcu
