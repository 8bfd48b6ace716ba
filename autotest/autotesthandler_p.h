// The private block of the factory test handler: received bytes, test mode and key test. It also
// has the functions that send packets and call the handler of a DID.
#pragma once

#include "autotesthandler.h"
#include "autotestpacket_p.h"
#include "logline_p.h"
#include "mcuservice.h"
#include "qxprivate_p.h"

namespace mcu {

/// A row of a DID table: a request and its handler.
template <typename Handlers>
struct Command {
    quint8 did;
    void (Handlers::*handle)(const QByteArray &packet);
};

/// Calls the handler of the first row with the packet's DID. Without a row, logs the DID with the
/// call site of the caller and returns false.
template <typename Handlers, std::size_t Rows>
bool dispatch(const Command<Handlers> (&table)[Rows], Handlers handlers, const QByteArray &packet,
              const CallSite &caller)
{
    const int did = wire::byteAt(packet, wire::didOffset);
    for (const Command<Handlers> &command : table) {
        if (command.did == did) {
            (handlers.*command.handle)(packet);
            return true;
        }
    }
    if (isDebugLogged())
        LogLine(QtDebugMsg, caller) << did;
    return false;
}

class AutoTestHandlerPrivate : public QxPrivate<AutoTestHandler> {
public:
    McuService *service = McuService::instance(); ///< not owned
    wire::ReceiveBuffer recvBuffer;
    QByteArray packet; ///< the last packet from recvBuffer; empty if it was broken
    quint8 inAutotestMode = 0;
    quint8 keyDetect = 0;

    QByteArray cmdPacket(unsigned char type, unsigned char did, const QByteArray &payload) const;
    void sendReadInfo(unsigned char did, const QByteArray &payload);
    void sendWriteInfo(unsigned char did, const QByteArray &payload);
    void sendFeedbackInfo(unsigned char code);
    void sendPkgToMcu(const QByteArray &pkt);
    /// Answers a write request once its handler has returned.
    void acknowledge(const QByteArray &request);

    void setKeyTest(bool on);
    void testAudioSettings(const QByteArray &request);
};

} // namespace mcu
