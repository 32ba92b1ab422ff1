#include "app/SecurityLevels.h"
#include "app/Shell.h"

#include <QMenu>

#include <gtest/gtest.h>

#include <vector>

namespace {

struct Control {
    const char *name;
    bool visible;
};
struct Case {
    const char *name;
    const char *level;
    std::vector<Control> controls;
};
struct Levels : testing::TestWithParam<Case> {};

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

TEST_P(Levels, DecideWhatTheScreenShows)
{
    Shell shell;
    shell.module.SecurityLevel = QString::fromUtf8(GetParam().level);
    shell.load();
    for (const Control &control : GetParam().controls) {
        EXPECT_EQ(isShown(shell, QString::fromUtf8(control.name)), control.visible) << control.name;
    }
}
INSTANTIATE_TEST_SUITE_P(
    Logins, Levels,
    testing::Values(Case{"sevenSeesMostDoorsAndMayLeast",
                         "7",
                         {{"CommandSendSMS", false},
                          {"CmdSMSDoor", false},
                          {"mnuDatafrmKey", false},
                          {"mnuDatafrmKeyOppsett", true},
                          {"mnuSpråk", false},
                          {"mnuFileDatabase", true},
                          {"mnuSMSSendingsbekreftelse", true},
                          {"SMSTXTLBL", true},
                          {"SMSIDLBL", false},
                          {"SMSRectxt_3", false}}},
                    Case{"sixMayAll",
                         "6",
                         {{"CmdSMSDoor", true},
                          {"mnuDatafrmPassWords", true},
                          {"mnuSpråk", true},
                          {"SMSRectxt_0", true}}},
                    Case{"fiveManagesNoLogins",
                         "5",
                         {{"mnuDatafrmPassWords", false},
                          {"mnuDatafrmKeyOppsett", true},
                          {"mnuSMSSendingsbekreftelse", true}}},
                    Case{"fourManagesLoginsButNoDoors",
                         "4",
                         {{"mnuDatafrmPassWords", true},
                          {"mnuDatafrmKeyOppsett", false},
                          {"mnuSMSSendingsbekreftelse", false},
                          {"mnuFilePrintLogg", false},
                          {"mnuFilePrintKEY", true},
                          {"mnuFileCompactDatabase", true}}},
                    Case{"threeIsAmongTheOthers",
                         "3",
                         {{"mnuFileDatabase", false},
                          {"UpDown2", false},
                          {"SMSTXTLBL", false},
                          {"lblInnkommendeSMS", false},
                          {"mnuDatafrmKey", true}}},
                    Case{"blankBehindTheDigitIsAnotherLevel", "6 ", {{"CommandSendSMS", false}}},
                    Case{"twoDigitsAreAnotherLevel", "66", {{"mnuComPort", false}}},
                    Case{"noLevel", "", {{"lblInnkommendeSMS", false}}}),
    [](const auto &tested) { return std::string(tested.param.name); });

// A control that was renamed would slip through in silence.
TEST(LevelTable, NamesOnlyControlsThatExist)
{
    Shell shell;
    shell.load();
    for (const LevelRule &rule : levelRules()) {
        EXPECT_TRUE(shell.screen->findChild<QObject *>(rule.control.toString()))
            << rule.control.toString().toStdString();
    }
}

TEST(LevelTable, LeavesTheLanguageTableToTheChiefOperator)
{
    Shell chief;
    chief.module.LoginUser = QStringLiteral("HOVEDOPERATØR");
    chief.load();
    EXPECT_TRUE(chief.entry("mnuSpråkLanguage").isVisible());

    Shell other;
    other.module.LoginUser = QStringLiteral("Hovedoperatøren");
    other.load();
    EXPECT_FALSE(other.entry("mnuSpråkLanguage").isVisible());
}
