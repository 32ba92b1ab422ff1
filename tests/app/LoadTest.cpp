#include "app/DoorHours.h"
#include "app/Shell.h"
#include "app/StoredSettings.h"
#include "platform/RuntimeFailure.h"

#include <QFile>

namespace {
using Load = ShellTest;
} // namespace

TEST_F(Load, WithEmptySettingsGivesNorwegianDoorOneAndNoLine)
{
    module.LogoCountryCode = u"45"_qs; // stored, and for the splash only
    loadAndShow();
    EXPECT_EQ(module.KeySelect, u"1");
    EXPECT_EQ(module.CountryCode, u"47");
    EXPECT_EQ(module.LogoCountryCode, u"47");
    EXPECT_EQ(shows(u"mnuSMSSendingsbekreftelseAv.checked mnuComPortComNone.checked"
                    " txtHostName.text txtPort.text TilTid.count TilTid.currentText"_qs),
              "true|true|127.0.0.1|23|25|24");
    EXPECT_TRUE(port.device.isEmpty());
    // The stored default is smaller than the content, so its own minimum wins.
    const QSize content = screen->minimumSizeHint();
    EXPECT_EQ(screen->size().expandedTo(content), screen->size());
}

TEST_F(Load, OpensPortSevenAndLeavesTheTickOff)
{
    language({});
    settings.values[u"lastcomport"_qs] = u"7"_qs;
    load();
    EXPECT_EQ(port.device, u"COM7");
    EXPECT_EQ(modemRow(u"ModemOwner"_qs), host.computer);
    EXPECT_EQ(module.OtherComPort, 7);
    EXPECT_TRUE(screen->modemLink().TimerCom->isEnabled());
    EXPECT_EQ(shows(u"mnuComPortComOther.text mnuComPortComOther.checked sbStatusBar_1.text"_qs),
              "com7|false|Lukora Simulated Modem på COM7");
}

TEST_F(Load, AsksForTheNetworkModemBeforeTheScreenShows)
{
    settings.values[u"lastcomport"_qs] = u"255"_qs;
    settings.values[u"hostname"_qs] = u"modem.example"_qs;
    settings.values[u"port"_qs] = u"2001"_qs;
    person.answers(u"modem.example Port 2001"_qs, Answer::Cancel);
    load();
    EXPECT_EQ(socket.host, QString());
    // Meant so: 255 is greater than 4 like any other port.
    EXPECT_EQ(shows(u"txtPort.text mnuComPortWinsock.checked mnuComPortComOther.text"_qs),
              "2001|true|com255");
}

TEST_F(Load, ShowsASettingThatCannotBeAndStopsThere)
{
    const QString kNoNumber = u"Teksten er ikke et tall"_qs;
    for (const auto &[key, value, words] :
         {std::tuple{u"mainleft"_qs, u"langt til høyre"_qs, kNoNumber},
          {u"mainheight"_qs, u"inf"_qs, kNoNumber},
          {u"mainwidth"_qs, {}, kNoNumber},
          {u"lastcomport"_qs, u"256"_qs, u"Tallet er for stort"_qs},
          {u"lastcomport"_qs, u"COM3"_qs, kNoNumber},
          {u"lastcomport"_qs, u"2"_qs, u"No such port"_qs},
          {u"smsreport"_qs, u"kanskje"_qs, kNoNumber}}) {
        SCOPED_TRACE(value.toStdString());
        Shell shell;
        shell.language({u"Filer"_qs});
        shell.port.unplug();
        shell.settings.values[key] = value;
        shell.person.answers(words);
        shell.loadAndShow();
        EXPECT_TRUE(shell.screen->isVisible());
        // Neither the modem nor the language has had its turn.
        EXPECT_EQ(shell.shows(u"mnuComPortComNone.checked mnuFile.title"_qs), "false|&File");
        EXPECT_FALSE(shell.module.ModemReady);
    }
}

TEST_F(Load, TakesHugeNumbersForTheEdgeOfTheScreen)
{
    settings.values[u"mainleft"_qs] = u"1e300"_qs;
    settings.values[u"maintop"_qs] = u"-1.5E+30"_qs;
    EXPECT_EQ(storedWindow(settings), QRect(32767, -32767, 433, 433));
}

TEST_F(Load, WithoutTheDatabaseSaysSoComesUpAndSavesWhenItCloses)
{
    module.DatabaseConnection.reset();
    ASSERT_TRUE(QFile::remove(database.path()));
    // OpenDatabase, OpenRecordsets in the load, the initialisation on the way without a line, and
    // the language, where the load stops.
    for (int box = 0; box < 4; ++box) {
        person.answers({});
    }
    load();
    EXPECT_TRUE(entry("mnuComPortComNone").isChecked());
    EXPECT_EQ(module.GridFilter, QString());
    person.answers({}); // OpenRecordsets, in the unload
    screen->unload();
    EXPECT_EQ(settings.saved.size(), 12);
}

TEST(DoorHoursLookup, TakesTheDoorsHoursAndItsOwnForAnUnknownDoor)
{
    TestDatabase database;
    const QString columns = u"KeyNummer,TimeInStart,TimeInStop,TimeOutStart,TimeOutStop"_qs;
    database.add(u"KEYTable"_qs, columns, {u"+47DOR"_qs, u"08"_qs, u"16"_qs, u"00"_qs, u"24"_qs});
    database.add(u"KEYTable"_qs, columns,
                 {u"+4790000002"_qs, u"åtte"_qs, u"16"_qs, u"00"_qs, u"24"_qs});
    EXPECT_EQ(doorHours(database.open(), u" +47dor "_qs), (DoorHours{8, 16, 0, 24}));
    EXPECT_EQ(doorHours(database.open(), u"+4790000009"_qs), (DoorHours{9, 22, 18, 22}));
    EXPECT_THROW(doorHours(database.open(), u"+4790000002"_qs), RuntimeFailure);
}
