#include "app/Shell.h"

namespace {

bool isShown(Shell &shell, const QString &name)
{
    auto *named = &shell.find<QObject>(qPrintable(name));
    if (const auto *control = qobject_cast<QWidget *>(named)) {
        const auto *menu = qobject_cast<QMenu *>(named);
        return menu != nullptr ? menu->menuAction()->isVisible() : !control->isHidden();
    }
    return named->property("visible").toBool();
}

} // namespace

// The language table is the chief operator's, whatever the level.
TEST(Levels, DecideWhatTheScreenShows)
{
    const std::pair<const char *, const char *> kShownAt[] = {
        // 7, 6, 5, 4, any other
        {"CmdSMSDoor CommandSendSMS mnuComPort mnuSpråk SMSIDLBL SMSFROMLBL SMSDATELBL", "-+++-"},
        {"lblInnkommendeSMS UpDown2 SMSRectxt_0 SMSRectxt_1 SMSRectxt_2 SMSRectxt_3 SMSRectxt_4",
         "-+++-"},
        {"mnuDatafrmPassWords", "-+-+-"},
        {"mnuDatafrmKey", "-++++"},
        {"mnuDatafrmKeyOppsett mnuDatafrmKeyLogg mnuFilePrintLogg mnuSMSSendingsbekreftelse",
         "+++--"},
        {"mnuFileDatabase mnuFilePrintKEY SMSTXTLBL", "++++-"},
        {"mnuFileCompactDatabase", "++++-"},
    };
    const std::pair<QString, int> kLevels[] = {{u"7"_qs, 0},  {u"6"_qs, 1}, {u"5"_qs, 2},
                                               {u"4"_qs, 3},  {u"3"_qs, 4}, {u"6 "_qs, 4},
                                               {u"66"_qs, 4}, {{}, 4}};
    for (const auto &[level, column] : kLevels) {
        Shell shell;
        shell.module.SecurityLevel = level;
        shell.module.LoginUser = level == u"4" ? u"HOVEDOPERATØR"_qs : u"Hovedoperatøren"_qs;
        shell.load();
        EXPECT_EQ(isShown(shell, u"mnuSpråkLanguage"_qs), level == u"4");
        for (const auto &[names, shown] : kShownAt) {
            for (const QString &name : QString::fromUtf8(names).split(u' ')) {
                EXPECT_EQ(isShown(shell, name), shown[column] == '+')
                    << level.toStdString() << ' ' << name.toStdString();
            }
        }
    }
}
