#include "app/Shell.h"
#include "app/frmLogin.h"

#include <QTest>

namespace {

struct Login : testing::Test, Desk {
    Login()
    {
        screen.load();
        screen.show();
    }
    QLineEdit &field(const char *name)
    {
        return *screen.findChild<QLineEdit *>(QString::fromLatin1(name));
    }
    void enter(const QString &name, const QString &password)
    {
        field("txtUserName").setText(name);
        field("txtPassword").setText(password);
        QTest::keyClick(&field("txtPassword"), Qt::Key_Return);
    }
    Module1 module;
    frmLogin screen{module, person, settings, host};
};

} // namespace

TEST_F(Login, KnowsWhoSitsWhereAsksOnlyForThePasswordAndAdmitsTheNameInAnyCase)
{
    EXPECT_EQ(field("txtUserName").text(), host.user);
    field("txtUserName").setText(u"HOVEDOPERATØR"_qs);
    QTest::keyClicks(screen.focusWidget(), u"hemmelig"_qs);
    QTest::keyClick(screen.focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(screen.LoginSucceeded && !screen.isVisible());
    EXPECT_EQ(module.SecurityLevel, u"6");
    EXPECT_EQ(module.LoginUser, u"HOVEDOPERATØR");
    EXPECT_EQ(module.LoginComputer, host.computer);
}

// The same words for all, so that the screen gives no hint of what was wrong.
TEST_F(Login, RefusesEveryWrongEntryInTheSameWordsAndThenAdmitsAnOperatorAddedMeanwhile)
{
    const std::pair<QString, QString> kWrong[] = {
        {u"Hovedoperatør"_qs, u"hemmelighet"_qs},
        {u" Hovedoperatør"_qs, u"hemmelig"_qs}, // another name
        {u"Hovedoperatør"_qs, u"Hemmelig"_qs},
        {u"Hovedoperatør"_qs, {}},
        {u"' OR '1'='1"_qs, u"hemmelig"_qs},
        {{}, {}},
        {u"Ny ?"_qs, u"?ód?"_qs},
    };
    for (const auto &[name, password] : kWrong) {
        SCOPED_TRACE(name.toStdString() + '/' + password.toStdString());
        person.answers(u"Invalid Password, try again!"_qs, 0ms, u"Login"_qs);
        enter(name, password);
        EXPECT_TRUE(!screen.LoginSucceeded && screen.isVisible());
        EXPECT_EQ(module.SecurityLevel, QString());
        EXPECT_EQ(field("txtPassword").selectedText(), password);
    }
    database.add(u"Passwords"_qs, u"USER_ID,Password,SecurityLevel"_qs,
                 {u"Ny ?"_qs, u"?ód?"_qs, u"4"_qs});
    enter(u"Ny Ł"_qs, u"łódź"_qs); // typed so into the table, too
    EXPECT_EQ(module.SecurityLevel, u"4");
}
