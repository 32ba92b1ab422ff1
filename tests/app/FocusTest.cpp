#include "app/Shell.h"

#include <QDialog>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Focus : testing::Test {
    Focus()
    {
        shell.loadAndShow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(shell.screen.get()));
        number().setText(QStringLiteral("+4791234567"));
        shell.module.RefreshPending = false;
    }
    QLineEdit &number() { return shell.find<QLineEdit>("Txtfields_0"); }
    SendPace &pace() { return shell.screen->modemLink().pace; }

    Shell shell;
};

} // namespace

TEST_F(Focus, ComingBackFromAnotherScreenRefreshesAndHurriesTheQueue)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(number().text(), QStringLiteral("+4791234567"));
    EXPECT_EQ(pace().interval(), 3000ms);
    pace().restart(60000ms);
    other.close();
    shell.screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shell.screen.get()));
    EXPECT_EQ(number().text(), QString());
    EXPECT_TRUE(shell.module.RefreshPending);
    EXPECT_EQ(pace().interval(), 3000ms);
}

// The number check asks in the middle of an entry.
TEST_F(Focus, ComingBackFromAQuestionKeepsWhatWasTyped)
{
    QDialog question(shell.screen.get());
    question.open();
    question.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&question));
    question.close();
    shell.screen->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(shell.screen.get()));
    EXPECT_EQ(number().text(), QStringLiteral("+4791234567"));
    EXPECT_FALSE(shell.module.RefreshPending);
}

TEST_F(Focus, LeavesThePaceAloneWhileThirtySecondsStand)
{
    pace().restart(30000ms);
    shell.screen->modemLink().flags.QueuePending = true;
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(pace().interval(), 30000ms);
}
