#include "app/LanguagePositions.h"
#include "app/SecurityLevels.h"
#include "app/Shell.h"

namespace {

bool isShown(Shell &shell, const QString &name)
{
    if (const auto *action = shell.screen->findChild<QAction *>(name)) {
        return action->isVisible();
    }
    if (const auto *menu = shell.screen->findChild<QMenu *>(name)) {
        return menu->menuAction()->isVisible();
    }
    const auto *control = shell.screen->findChild<QWidget *>(name);
    return control != nullptr && !control->isHidden();
}

} // namespace

// The language table is the chief operator's, whatever the level.
TEST(Levels, DecideWhatTheScreenShows)
{
    const struct {
        QString level;
        QString shown;
        QString hidden;
        QString user = u"Hovedoperatøren"_qs;
    } kLevels[] = {
        {u"7"_qs, u"mnuDatafrmKeyOppsett mnuFileDatabase mnuSMSSendingsbekreftelse SMSTXTLBL"_qs,
         u"CommandSendSMS CmdSMSDoor mnuDatafrmKey mnuSpråk SMSIDLBL SMSRectxt_3"_qs},
        {u"6"_qs, u"CmdSMSDoor mnuDatafrmPassWords mnuSpråk SMSRectxt_0"_qs,
         u"mnuSpråkLanguage"_qs},
        {u"5"_qs, u"mnuDatafrmKeyOppsett mnuSMSSendingsbekreftelse"_qs, u"mnuDatafrmPassWords"_qs},
        {u"4"_qs, u"mnuDatafrmPassWords mnuFilePrintKEY mnuFileCompactDatabase mnuSpråkLanguage"_qs,
         u"mnuDatafrmKeyOppsett mnuSMSSendingsbekreftelse mnuFilePrintLogg"_qs,
         u"HOVEDOPERATØR"_qs},
        {u"3"_qs, u"mnuDatafrmKey"_qs, u"mnuFileDatabase UpDown2 SMSTXTLBL lblInnkommendeSMS"_qs},
        {u"6 "_qs, {}, u"CommandSendSMS"_qs},
        {u"66"_qs, {}, u"mnuComPort"_qs},
        {{}, {}, u"lblInnkommendeSMS"_qs},
    };
    for (const auto &[level, shown, hidden, user] : kLevels) {
        SCOPED_TRACE(level.toStdString());
        Shell shell;
        shell.module.SecurityLevel = level;
        shell.module.LoginUser = user;
        shell.load();
        for (const QString &name : shown.split(u' ', Qt::SkipEmptyParts)) {
            EXPECT_TRUE(isShown(shell, name)) << name.toStdString();
        }
        for (const QString &name : hidden.split(u' ', Qt::SkipEmptyParts)) {
            EXPECT_FALSE(isShown(shell, name)) << name.toStdString();
        }
    }
}

// A control that was renamed would slip through in silence.
TEST(Levels, AndLanguageNameOnlyControlsThatExist)
{
    Shell shell;
    shell.load();
    const auto exists = [&](QStringView name) {
        EXPECT_TRUE(shell.screen->findChild<QObject *>(name.toString()))
            << qPrintable(name.toString());
    };
    for (const LevelRule &rule : levelRules()) {
        exists(rule.control);
    }
    for (const CaptionPosition &caption : captionPositions()) {
        exists(caption.control);
    }
}
