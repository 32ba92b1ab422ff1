#include "app/frmLogin.h"
#include "data/Connection.h"
#include "data/Module1.h"
#include "platform/RuntimeFailure.h"
#include "support/Doubles.h"
#include "support/TestDatabase.h"

#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

const QString kRefusal = QStringLiteral("Invalid Password, try again!");

struct Login : testing::Test {
    Login()
    {
        settings.values[QStringLiteral("dbpath")] = database.path();
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

    VirtualClock clock;
    ScriptedOperator person{clock};
    MemorySettings settings;
    FakeHost host;
    TestDatabase database;
    Module1 module;
    frmLogin screen{module, person, settings, host};
};

} // namespace

TEST_F(Login, KnowsWhoSitsWhereAndAsksOnlyForThePassword)
{
    EXPECT_EQ(field("txtUserName").text(), host.user);
    EXPECT_EQ(field("txtComputerName").text(), host.computer);
    QTest::keyClicks(screen.focusWidget(), QStringLiteral("hemmelig"));
    EXPECT_EQ(field("txtPassword").text(), QStringLiteral("hemmelig"));
}

TEST_F(Login, AdmitsTheNameInAnyCase)
{
    enter(QStringLiteral("HOVEDOPERATØR"), QStringLiteral("hemmelig"));
    EXPECT_TRUE(screen.LoginSucceeded);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(module.SecurityLevel, QStringLiteral("6"));
    EXPECT_EQ(module.LoginUser, QStringLiteral("HOVEDOPERATØR"));
    EXPECT_EQ(module.LoginComputer, host.computer);
}

TEST_F(Login, CancelLeavesWithoutSuccess)
{
    QTest::mouseClick(screen.findChild<QPushButton *>(QStringLiteral("cmdCancel")), Qt::LeftButton);
    EXPECT_FALSE(screen.LoginSucceeded);
    EXPECT_FALSE(screen.isVisible());
}

TEST_F(Login, AdmitsAnOperatorWhoWasAddedWhileItStood)
{
    person.answers(kRefusal);
    enter(QStringLiteral("Ny"), QStringLiteral("x"));
    database.add(QStringLiteral("Passwords"), QStringLiteral("USER_ID,Password,SecurityLevel"),
                 {QStringLiteral("Ny"), QStringLiteral("x"), QStringLiteral("4")});
    enter(QStringLiteral("Ny"), QStringLiteral("x"));
    EXPECT_EQ(module.SecurityLevel, QStringLiteral("4"));
}

namespace {

struct Refused {
    const char *name;
    const char *user;
    const char *password;
};
struct LoginRefusal : Login, testing::WithParamInterface<Refused> {};

} // namespace

// The same words for all, so that the screen gives no hint of what was wrong.
TEST_P(LoginRefusal, SaysTheSameAndOffersThePasswordForTyping)
{
    person.answers(kRefusal);
    enter(QString::fromUtf8(GetParam().user), QString::fromUtf8(GetParam().password));
    EXPECT_EQ(person.titles, QStringList{QStringLiteral("Login")});
    EXPECT_FALSE(screen.LoginSucceeded);
    EXPECT_TRUE(screen.isVisible());
    EXPECT_EQ(module.SecurityLevel, QString());
    EXPECT_EQ(field("txtPassword").selectedText(), field("txtPassword").text());
}
INSTANTIATE_TEST_SUITE_P(Entries, LoginRefusal,
                         testing::Values(Refused{"wrongPassword", "Hovedoperatør", "hemmelighet"},
                                         Refused{"passwordInOtherCase", "Hovedoperatør",
                                                 "Hemmelig"},
                                         Refused{"emptyPassword", "Hovedoperatør", ""},
                                         Refused{"unknownName", "Ingen", "hemmelig"},
                                         Refused{"quoteInName", "' OR '1'='1", "hemmelig"},
                                         Refused{"emptyName", "", ""}),
                         [](const auto &tested) { return std::string(tested.param.name); });

namespace {

struct Unusable {
    const char *name;
    void (*spoil)(TestDatabase &database, const QString &path);
};
struct LoginDatabase : testing::TestWithParam<Unusable> {};

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
}

} // namespace

TEST_P(LoginDatabase, ThatCannotBeOpenedIsAFailureWithWords)
{
    TestDatabase database;
    const QString path = database.filePath(QStringLiteral("annen.mdb"));
    GetParam().spoil(database, path);
    VirtualClock clock;
    ScriptedOperator person(clock);
    MemorySettings settings;
    settings.values[QStringLiteral("dbpath")] = path;
    FakeHost host;
    Module1 module;
    frmLogin screen(module, person, settings, host);
    try {
        screen.load();
        FAIL() << "opened";
    } catch (const RuntimeFailure &failure) {
        EXPECT_FALSE(failure.description().isEmpty());
    }
    EXPECT_EQ(module.TempDatabasePath, database.filePath(QStringLiteral("annenTMP.mdb")));
    EXPECT_EQ(module.BackupDatabasePath, database.filePath(QStringLiteral("annenBAK.mdb")));
}
INSTANTIATE_TEST_SUITE_P(
    Files, LoginDatabase,
    testing::Values(
        Unusable{"missing", [](TestDatabase &, const QString &) {}},
        Unusable{"empty", [](TestDatabase &, const QString &path) { write(path, {}); }},
        Unusable{"ofAnotherKind",
                 [](TestDatabase &, const QString &path) { write(path, "Dette er et brev.\n"); }},
        Unusable{"ofAnotherPassword",
                 [](TestDatabase &database, const QString &path) {
                     QFile::copy(database.path(), path);
                     QFile file(path);
                     ASSERT_TRUE(file.open(QIODevice::ReadWrite));
                     file.write(QByteArray(16, 'x')); // the salt that the key is made with
                 }}),
    [](const auto &tested) { return std::string(tested.param.name); });
