#include "app/Shell.h"

#include <QDialog>
#include <QTest>

namespace {

const QString kTyped = QStringLiteral("+4791234567");

struct Focus : testing::Test {
    Focus()
    {
        shell.loadAndShow();
        goTo(*shell.screen);
        number().setText(kTyped);
        shell.module.RefreshPending = false;
        pace().restart(60000ms);
    }
    static void goTo(QWidget &window)
    {
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    QLineEdit &number() { return shell.find<QLineEdit>("Txtfields_0"); }
    /// Whether the phone is on, as the Modem row says it.
    std::string phone()
    {
        return shell.shows(u"PhoneOn.visible PhoneOff.visible PhoneDisplay.visible"_qs);
    }

    Shell shell;
    SendPace &pace() { return shell.screen->modemLink().pace; }
    QWidget other;
};

} // namespace

TEST_F(Focus, LeavingHurriesTheQueueAndComingBackRefreshesTheScreenToo)
{
    EXPECT_EQ(phone(), "false|true|false");
    goTo(other);
    EXPECT_EQ(number().text(), kTyped);
    EXPECT_EQ(pace().interval(), 3000ms);
    pace().restart(60000ms);
    shell.database.look().run(u"UPDATE Modem SET ModemStatus = -1"_qs); // another PC
    goTo(*shell.screen);
    EXPECT_EQ(number().text(), QString());
    EXPECT_TRUE(shell.module.RefreshPending);
    EXPECT_EQ(pace().interval(), 3000ms);
    EXPECT_EQ(phone(), "true|false|true");

    pace().restart(30000ms); // between two messages nothing hurries
    shell.screen->modemLink().flags.QueuePending = true;
    for (QWidget *window : {&other, static_cast<QWidget *>(shell.screen.get())}) {
        goTo(*window);
        EXPECT_EQ(pace().interval(), 30000ms);
    }
}

// The number check asks in the middle of an entry.
TEST_F(Focus, ComingBackFromAQuestionKeepsWhatWasTyped)
{
    QDialog question(shell.screen.get());
    question.setModal(true);
    goTo(question);
    question.close();
    goTo(*shell.screen);
    EXPECT_EQ(number().text(), kTyped);
    EXPECT_FALSE(shell.module.RefreshPending);
    EXPECT_EQ(pace().interval(), 60000ms);
}
