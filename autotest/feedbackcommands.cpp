// Feedback of the factory station: accepted, nothing is done or answered.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

void AutoTestHandler::parseFeedbackData(const QByteArray &packet)
{
    static constexpr AutoTestHandlerPrivate::Command table[]{
        {0x01, &AutoTestHandler::parse_ATF_PWUP_DID},
        {0x25, &AutoTestHandler::parse_ATF_NAVISET_DID},
        {0x30, &AutoTestHandler::parse_ATF_BTSH_DID},
        {0x31, &AutoTestHandler::parse_ATF_BTConnect_DID},
        {0x32, &AutoTestHandler::parse_ATF_BTDisconnect_DID},
        {0x33, &AutoTestHandler::parse_ATF_BTDNBK_DID},
        {0x34, &AutoTestHandler::parse_ATF_BTCALL_DID},
    };
    m_data->dispatch(table, packet, CALL_SITE);
}

// The rows keep their place in the station's vocabulary.
void AutoTestHandler::parse_ATF_PWUP_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_NAVISET_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_BTSH_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_BTConnect_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_BTDisconnect_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_BTDNBK_DID(const QByteArray &) {}
void AutoTestHandler::parse_ATF_BTCALL_DID(const QByteArray &) {}

} // namespace mcu
