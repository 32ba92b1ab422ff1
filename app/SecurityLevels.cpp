#include "app/SecurityLevels.h"

namespace {

constexpr auto no = LevelRule::Hidden;
constexpr auto yes = LevelRule::Shown;
constexpr auto asIs = LevelRule::AsDesigned;

// The order of the levels is not monotonic, and is meant so: 5 loses PassWords while 4 and 6 have
// it, and 7 has less than 6 although it sees the most doors.
// clang-format off
constexpr LevelRule kRules[] = {
    //                                7     6     5     4   other
    {u"CmdSMSDoor",                  no,  yes,  yes,  yes,   no},
    {u"CommandSendSMS",              no,  yes,  yes,  yes,   no},
    {u"mnuDatafrmPassWords",         no,  yes,   no,  yes,   no},
    {u"mnuDatafrmKey",               no, asIs, asIs, asIs, asIs},
    {u"mnuDatafrmKeyOppsett",      asIs,  yes,  yes,   no,   no},
    {u"mnuComPort",                  no,  yes,  yes,  yes,   no},
    {u"mnuSpråk",                    no,  yes,  yes,  yes,   no},
    {u"mnuFileDatabase",            yes,  yes,  yes,  yes,   no},
    {u"mnuFileCompactDatabase",    asIs, asIs, asIs,  yes,   no},
    {u"mnuDatafrmKeyLogg",         asIs,  yes,  yes,   no,   no},
    {u"mnuFilePrintLogg",          asIs,  yes,  yes,   no,   no},
    {u"mnuFilePrintKEY",           asIs,  yes,  yes,  yes,   no},
    {u"mnuSMSSendingsbekreftelse", asIs,  yes,  yes,   no,   no},
    {u"SMSIDLBL",                    no,  yes,  yes,  yes,   no},
    {u"SMSFROMLBL",                  no,  yes,  yes,  yes,   no},
    {u"SMSDATELBL",                  no,  yes,  yes,  yes,   no},
    {u"SMSTXTLBL",                  yes,  yes,  yes,  yes,   no},
    {u"lblInnkommendeSMS",           no,  yes,  yes,  yes,   no},
    {u"UpDown2",                     no,  yes,  yes,  yes,   no},
    {u"SMSRectxt_0",                 no,  yes,  yes,  yes,   no},
    {u"SMSRectxt_1",                 no,  yes,  yes,  yes,   no},
    {u"SMSRectxt_2",                 no,  yes,  yes,  yes,   no},
    {u"SMSRectxt_3",                 no,  yes,  yes,  yes,   no},
    {u"SMSRectxt_4",                 no,  yes,  yes,  yes,   no},
};
// clang-format on

} // namespace

std::optional<bool> LevelRule::visibleAt(const QString &level) const
{
    const Effect effect = level == u"7"   ? level7
                          : level == u"6" ? level6
                          : level == u"5" ? level5
                          : level == u"4" ? level4
                                          : other;
    return effect == AsDesigned ? std::nullopt : std::optional(effect == Shown);
}

std::span<const LevelRule> levelRules()
{
    return kRules;
}
