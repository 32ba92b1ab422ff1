#include "app/DoorHours.h"
#include "app/Shell.h"
#include "app/StoredSettings.h"
#include "data/Connection.h"
#include "platform/RuntimeFailure.h"

#include <QComboBox>
#include <QFile>
#include <QMenu>

#include <gtest/gtest.h>

TEST(Load, WithEmptySettingsGivesNorwegianDoorOneAndNoLine)
{
    Shell shell;
    shell.load();
    EXPECT_EQ(shell.module.KeySelect, QStringLiteral("1"));
    EXPECT_EQ(shell.module.CountryCode, QStringLiteral("47"));
    EXPECT_EQ(shell.module.ActiveComPort, 0);
    EXPECT_FALSE(shell.module.SmsReportOn);
    EXPECT_TRUE(shell.entry("mnuSMSSendingsbekreftelseAv").isChecked());
    EXPECT_TRUE(shell.entry("mnuComPortComNone").isChecked());
    EXPECT_EQ(shell.find<QLineEdit>("txtHostName").text(), QStringLiteral("127.0.0.1"));
    EXPECT_EQ(shell.find<QLineEdit>("txtPort").text(), QStringLiteral("23"));
    EXPECT_EQ(shell.find<QComboBox>("TilTid").count(), 25);
    EXPECT_EQ(shell.find<QComboBox>("TilTid").currentText(), QStringLiteral("24"));
    EXPECT_TRUE(shell.serial.device.isEmpty());
}

// The stored default is smaller than the content, so its own minimum wins.
TEST(Load, NeverMakesTheWindowSmallerThanItsContent)
{
    Shell shell;
    shell.loadAndShow();
    EXPECT_GE(shell.screen->width(), shell.screen->minimumSizeHint().width());
    EXPECT_GE(shell.screen->height(), shell.screen->minimumSizeHint().height());
}

TEST(Load, LetsTheLanguageTakeOverTheLogo)
{
    Shell shell;
    shell.settings.values[QStringLiteral("countrycode")] = QStringLiteral("46");
    shell.module.LogoCountryCode = QStringLiteral("45");
    shell.load();
    EXPECT_EQ(shell.module.LogoCountryCode, QStringLiteral("46"));
}

TEST(Load, OpensPortSevenAndLeavesTheTickOff)
{
    Shell shell;
    shell.language({});
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("7");
    answerLikeAModem(shell.serial);
    shell.load();
    EXPECT_EQ(shell.serial.device, QStringLiteral("COM7"));
    EXPECT_TRUE(shell.module.ModemReady);
    EXPECT_EQ(shell.modem(QStringLiteral("ModemOwner")), shell.host.computer);
    EXPECT_EQ(shell.module.OtherComPort, 7);
    EXPECT_EQ(shell.entry("mnuComPortComOther").text(), QStringLiteral("com7"));
    EXPECT_FALSE(shell.entry("mnuComPortComOther").isChecked());
    EXPECT_TRUE(shell.screen->modemLink().TimerCom->isEnabled());
    EXPECT_EQ(shell.find<QLabel>("sbStatusBar_1").text(),
              QStringLiteral("Eksempel Eksempel på COM7"));
}

TEST(Load, AsksForTheNetworkModemBeforeTheScreenShows)
{
    Shell shell;
    shell.language({});
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("255");
    shell.settings.values[QStringLiteral("hostname")] = QStringLiteral("modem.example");
    shell.person.answers(QStringLiteral("modem.example Port 23"), Answer::Cancel);
    shell.load();
    EXPECT_FALSE(shell.screen->isVisible());
    EXPECT_EQ(shell.socket.host, QString());
    EXPECT_TRUE(shell.entry("mnuComPortWinsock").isChecked());
    // Meant so: 255 is greater than 4 like any other port.
    EXPECT_EQ(shell.entry("mnuComPortComOther").text(), QStringLiteral("com255"));
}

namespace {

struct Garbage {
    const char *name;
    const char *key;
    const char *value;
};
struct LoadGarbage : testing::TestWithParam<Garbage> {};

} // namespace

TEST_P(LoadGarbage, IsShownAndStopsTheLoadThere)
{
    Shell shell;
    shell.language({QStringLiteral("Filer")});
    shell.settings.values[QString::fromLatin1(GetParam().key)] =
        QString::fromUtf8(GetParam().value);
    shell.person.answers({});
    shell.loadAndShow();
    EXPECT_EQ(shell.person.texts.size(), 1);
    EXPECT_TRUE(shell.screen->isVisible());
    // Neither the modem nor the language has had its turn.
    EXPECT_FALSE(shell.entry("mnuComPortComNone").isChecked());
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("&File"));
}
INSTANTIATE_TEST_SUITE_P(Settings, LoadGarbage,
                         testing::Values(Garbage{"letters", "mainleft", "langt til høyre"},
                                         Garbage{"infinity", "mainheight", "inf"},
                                         Garbage{"empty", "mainwidth", ""},
                                         Garbage{"portBeyondAByte", "lastcomport", "256"},
                                         Garbage{"portInWords", "lastcomport", "COM3"},
                                         Garbage{"neitherTrueNorFalse", "smsreport", "kanskje"}),
                         [](const auto &tested) { return std::string(tested.param.name); });

TEST(LoadSettings, TakesHugeNumbersForTheEdgeOfTheScreen)
{
    MemorySettings settings;
    settings.values[QStringLiteral("mainleft")] = QStringLiteral("1e300");
    settings.values[QStringLiteral("maintop")] = QStringLiteral("-1.5E+30");
    const QRect window = storedWindow(settings);
    EXPECT_EQ(window.left(), 32767);
    EXPECT_EQ(window.top(), -32767);
    EXPECT_EQ(window.size(), QSize(433, 433));
}

TEST(Load, WithoutTheDatabaseSaysSoAndComesUp)
{
    Shell shell;
    shell.module.DatabaseConnection.reset();
    ASSERT_TRUE(QFile::remove(shell.database.path()));
    shell.person.answers({}); // OpenDatabase
    shell.person.answers({}); // OpenRecordsets, in the load
    shell.person.answers({}); // in the initialisation, on the way without a line
    shell.person.answers({}); // the language, where the load stops
    shell.load();
    EXPECT_TRUE(shell.entry("mnuComPortComNone").isChecked());
    EXPECT_EQ(shell.module.GridFilter, QString());
}

TEST(Load, WithAPortThatIsGoneStopsThere)
{
    Shell shell;
    shell.language({QStringLiteral("Filer")});
    shell.settings.values[QStringLiteral("lastcomport")] = QStringLiteral("2");
    shell.serial.unplug();
    shell.person.answers({});
    shell.load();
    EXPECT_EQ(shell.find<QMenu>("mnuFile").title(), QStringLiteral("&File"));
    EXPECT_FALSE(shell.module.ModemReady);
}

TEST(DoorHoursLookup, TakesTheDoorsHoursAndItsOwnForAnUnknownDoor)
{
    TestDatabase database;
    database.add(QStringLiteral("KEYTable"),
                 QStringLiteral("KeyNummer,TimeInStart,TimeInStop,TimeOutStart,TimeOutStop"),
                 {QStringLiteral("+47DOR"), QStringLiteral("08"), QStringLiteral("16"),
                  QStringLiteral("00"), QStringLiteral("24")});
    database.add(QStringLiteral("KEYTable"), QStringLiteral("KeyNummer,TimeInStart"),
                 {QStringLiteral("+4790000002"), QStringLiteral("åtte")});
    EXPECT_EQ(
        doorHours(database.open(), QStringLiteral(" +47dor ")),
        (DoorHours{.TimeInStart = 8, .TimeInStop = 16, .TimeOutStart = 0, .TimeOutStop = 24}));
    EXPECT_EQ(
        doorHours(database.open(), QStringLiteral("+4790000009")),
        (DoorHours{.TimeInStart = 9, .TimeInStop = 22, .TimeOutStart = 18, .TimeOutStop = 22}));
    EXPECT_THROW(doorHours(database.open(), QStringLiteral("+4790000002")), RuntimeFailure);
}
