// Feedback of the factory station: accepted, without an action or an answer.
#include "autotesthandler.h"

#include "autotesthandler_p.h"

namespace mcu {

namespace {

struct StationFeedback {
    void parse_ATF_PWUP_DID(const QByteArray &) {}
    void parse_ATF_NAVISET_DID(const QByteArray &) {}
    void parse_ATF_BTSH_DID(const QByteArray &) {}
    void parse_ATF_BTConnect_DID(const QByteArray &) {}
    void parse_ATF_BTDisconnect_DID(const QByteArray &) {}
    void parse_ATF_BTDNBK_DID(const QByteArray &) {}
    void parse_ATF_BTCALL_DID(const QByteArray &) {}
};

} // namespace

void AutoTestHandler::parseFeedbackData(const QByteArray &packet)
{
    static constexpr Command<StationFeedback> table[]{
        {0x01, &StationFeedback::parse_ATF_PWUP_DID},
        {0x25, &StationFeedback::parse_ATF_NAVISET_DID},
        {0x30, &StationFeedback::parse_ATF_BTSH_DID},
        {0x31, &StationFeedback::parse_ATF_BTConnect_DID},
        {0x32, &StationFeedback::parse_ATF_BTDisconnect_DID},
        {0x33, &StationFeedback::parse_ATF_BTDNBK_DID},
        {0x34, &StationFeedback::parse_ATF_BTCALL_DID},
    };
    dispatch(table, StationFeedback{}, packet, CALL_SITE);
}

} // namespace mcu
