#include "app/Application.h"
#include "app/frmMain.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"
#include "support/TestDatabase.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

struct Program : testing::Test {
    Program() { settings.values[QStringLiteral("dbpath")] = database.path(); }

    static QWidget *screen(const char *name)
    {
        const QWidgetList screens = QApplication::topLevelWidgets();
        for (QWidget *candidate : screens) {
            if (candidate->isVisible() && candidate->objectName() == QLatin1String(name)) {
                return candidate;
            }
        }
        return nullptr;
    }
    void logInAfter(milliseconds delay)
    {
        clock.after(delay, [] {
            auto *password =
                screen("frmLogin")->findChild<QLineEdit *>(QStringLiteral("txtPassword"));
            QTest::keyClicks(password, QStringLiteral("hemmelig"));
            QTest::keyClick(password, Qt::Key_Return);
        });
    }

    VirtualClock clock;
    ScriptedOperator person{clock};
    MemorySettings settings;
    FakeHost host;
    FakeSerialPort serial;
    FakeTcpSocket socket{clock};
    TestDatabase database;
    Application lukora{{clock, person, settings, host, serial, socket}};
};

} // namespace

TEST_F(Program, GoesFromLoginOverSplashToTheMainScreen)
{
    logInAfter(1000ms);
    bool splashStood = false;
    bool splashStoodToTheEnd = false;
    clock.after(1100ms, [&] { splashStood = screen("frmSplash") != nullptr; });
    clock.after(3990ms, [&] { splashStoodToTheEnd = screen("frmSplash") != nullptr; });
    ASSERT_TRUE(lukora.start());
    EXPECT_TRUE(splashStood);
    EXPECT_TRUE(splashStoodToTheEnd);
    EXPECT_EQ(screen("frmSplash"), nullptr);
    EXPECT_TRUE(lukora.mainScreen()->isVisible());
    EXPECT_EQ(lukora.mainScreen()->modemLink().tables.out('@'), 0);
    lukora.close();
    EXPECT_FALSE(lukora.mainScreen()->isVisible());
    EXPECT_EQ(settings.saved.size(), 12);
}

TEST_F(Program, ShowsTheMakerAloneOnTheSplash)
{
    settings.values[QStringLiteral("logocountrycode")] = QStringLiteral("45");
    logInAfter(10ms);
    QStringList marks;
    clock.after(100ms, [&] {
        const auto labels = screen("frmSplash")->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->isVisible() && label->objectName().startsWith(u"picLogo")) {
                marks.append(label->objectName());
            }
        }
        EXPECT_FALSE(screen("frmSplash")->findChild<QLabel *>(QStringLiteral("S"))->isVisible());
    });
    ASSERT_TRUE(lukora.start());
    EXPECT_EQ(marks, QStringList{QStringLiteral("picLogoBRENVIK")});
}

TEST_F(Program, EndsWithACancelledLogin)
{
    clock.after(10ms, [] {
        QTest::mouseClick(screen("frmLogin")->findChild<QPushButton *>(QStringLiteral("cmdCancel")),
                          Qt::LeftButton);
    });
    EXPECT_FALSE(lukora.start());
    EXPECT_EQ(lukora.mainScreen(), nullptr);
}

TEST_F(Program, WithoutADatabaseSaysSoAndEnds)
{
    settings.values[QStringLiteral("dbpath")] = database.filePath(QStringLiteral("borte.mdb"));
    person.answers(QStringLiteral("borte.mdb"));
    EXPECT_FALSE(lukora.start());
    EXPECT_EQ(screen("frmLogin"), nullptr);
}

namespace {

struct Moment {
    const char *name;
    milliseconds at;
};
struct ProgramEnd : Program, testing::WithParamInterface<Moment> {};

} // namespace

// A mute modem on COM 2: its initialisation takes minutes.
TEST_P(ProgramEnd, ComesAtOnceWhereverItIs)
{
    settings.values[QStringLiteral("lastcomport")] = QStringLiteral("2");
    logInAfter(1000ms);
    clock.after(GetParam().at, [&] { lukora.close(); });
    EXPECT_FALSE(lukora.start());
    EXPECT_LT(clock.elapsed(), GetParam().at + 3000ms);
    EXPECT_FALSE(serial.isOpen());
}
INSTANTIATE_TEST_SUITE_P(Moments, ProgramEnd,
                         testing::Values(Moment{"login", 500ms}, Moment{"splash", 2000ms},
                                         Moment{"initialisation", 9000ms}),
                         [](const auto &tested) { return std::string(tested.param.name); });
