#include "app/Application.h"
#include "app/frmMain.h"
#include "platform/qt/QtOperator.h"
#include "support/FarModem.h"
#include "support/TestDatabase.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

/// The window of this name, when it can be seen.
QWidget *visibleScreen(const QString &name)
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto found = std::ranges::find_if(windows, [&](const QWidget *window) {
        return window->isVisible() && window->objectName() == name;
    });
    return found == windows.end() ? nullptr : *found;
}

/// On a machine of doubles with a modem, whose settings name a fresh database.
struct Program : FakeMachine, FarModem {
    Program() : FarModem(static_cast<FakeMachine &>(*this))
    {
        settings.values[u"dbpath"_qs] = database.path();
    }
    void logInAfter(milliseconds delay)
    {
        clock.after(delay, [] {
            QWidget *password = visibleScreen(u"frmLogin"_qs)->focusWidget();
            QTest::keyClicks(password, u"hemmelig"_qs);
            QTest::keyClick(password, Qt::Key_Return);
        });
    }
    TestDatabase database;
    Application lukora{{clock, person, settings, host, port, socket}};
};

} // namespace

TEST(Program, GoesFromLoginOverSplashToTheMainScreen)
{
    Program run;
    run.settings.values[u"logocountrycode"_qs] = u"45"_qs;
    run.logInAfter(1000ms);
    QString splash;
    for (const milliseconds moment : {1100ms, 3990ms}) {
        run.clock.after(moment, [&] {
            const auto labels =
                visibleScreen(u"frmSplash"_qs)
                    ->findChildren<QLabel *>(QRegularExpression(u"^(picLogo.*|S)$"_qs));
            for (const QLabel *label : labels) {
                splash += label->isVisible() ? label->objectName() : QString();
            }
        });
    }
    ASSERT_TRUE(run.lukora.start());
    EXPECT_EQ(splash, u"picLogoBRENVIKpicLogoBRENVIK") << "the maker alone, to the end";
    EXPECT_EQ(visibleScreen(u"frmSplash"_qs), nullptr);
    EXPECT_TRUE(run.lukora.mainScreen()->isVisible());
    EXPECT_EQ(run.lukora.mainScreen()->modemLink().tables.out('@'), 0);
    run.lukora.close();
    EXPECT_FALSE(run.lukora.mainScreen()->isVisible());
}

TEST(Program, SpeaksTheLanguageOfTheSettingsFromTheStartAndAnotherAfterwards)
{
    Program run;
    QtOperator desktop(run.clock);
    run.lukora.onLanguage = [&](const QString &code) { desktop.setLanguage(code); };
    run.settings.values[u"countrycode"_qs] = u"46"_qs;
    run.logInAfter(1000ms);
    ASSERT_TRUE(run.lukora.start());
    const QWidget &screen = *run.lukora.mainScreen();
    const QWidget &hour = *screen.findChild<QWidget *>(u"FraTid"_qs);
    EXPECT_EQ(hour.accessibleName(), u"Från klockan");
    EXPECT_EQ(hour.locale().name(), u"sv_SE");
    screen.findChild<QAction *>(u"mnuSpråkDansk"_qs)->trigger();
    EXPECT_EQ(hour.accessibleName(), u"Fra klokken");
    EXPECT_EQ(hour.locale().name(), u"da_DK");
    desktop.setLanguage(u"47"_qs);
}

TEST(Program, EndsWithoutALoginAndWithoutADatabase)
{
    Program cancelled;
    cancelled.clock.after(10ms, [] {
        visibleScreen(u"frmLogin"_qs)->findChild<QPushButton *>(u"cmdCancel"_qs)->click();
    });
    EXPECT_FALSE(cancelled.lukora.start());
    EXPECT_EQ(cancelled.lukora.mainScreen(), nullptr);

    Program missing;
    missing.settings.values[u"dbpath"_qs] = missing.database.filePath(u"borte.mdb"_qs);
    missing.person.answers(u"borte.mdb"_qs);
    EXPECT_FALSE(missing.lukora.start());
    EXPECT_EQ(visibleScreen(u"frmLogin"_qs), nullptr);
}

// A mute modem on COM 2: its initialisation takes minutes.
TEST(Program, EndsAtOnceInLoginSplashAndInitialisation)
{
    for (const auto &[moment, saved, progress] :
         {std::tuple{500ms, 0, u"none"_qs}, std::tuple{2000ms, 0, u""_qs},
          std::tuple{32'000ms, 14, u"Venter på modemet: forsøk 2 av 5"_qs}}) {
        Program run;
        run.settings.values[u"lastcomport"_qs] = u"2"_qs;
        run.modem.faults().mute = true;
        run.logInAfter(1000ms);
        run.clock.after(moment, [&] {
            const QWidget *splash = visibleScreen(u"frmSplash"_qs);
            EXPECT_EQ(splash != nullptr ? splash->findChild<QLabel *>(u"lblProgress"_qs)->text()
                                        : u"none"_qs,
                      progress);
            run.lukora.close();
        });
        EXPECT_FALSE(run.lukora.start());
        EXPECT_LT(run.clock.elapsed(), moment + 3000ms);
        EXPECT_FALSE(run.port.isOpen());
        EXPECT_EQ(run.settings.saved.size(), saved);
    }
}
