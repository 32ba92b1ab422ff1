#include "../browsers/BrowserWorld.h"
#include "inbound/frmLOGG.h"
#include "inbound/frmSMSReceived.h"
#include "inbound/frmSMSSent.h"
#include "modem/SendPace.h"

#include <QElapsedTimer>
#include <QPlainTextEdit>
#include <QScrollBar>

namespace {

/// The lists of what came in and what went out, and the log of the first of two doors.
struct ListsTest : BrowserWorld {
    ListsTest()
    {
        for (const auto &[number, name] :
             {std::pair(u"+4790000001"_qs, u"Hovedport"_qs), {u"+4790000002"_qs, u"Garasje"_qs}}) {
            database.add(u"KEYTable"_qs, u"KeyNummer,KeyNavn,KeySikkerhet"_qs,
                         {number, name, u"4"_qs});
        }
        module.KeySelect = u"+4790000001"_qs;
    }
    void message(const QString &text)
    {
        database.add(u"SMS_Received"_qs, u"FraNummerKort,SMS_Text"_qs, {u"91000001"_qs, text});
    }
    void sent(const QString &text, const QVariant &state)
    {
        database.add(u"SMS_Sent"_qs, u"TilNummer,SMS_Text,CMGS"_qs,
                     {u"+4790000001"_qs, text, state});
    }
    void logged(const QString &door, const QString &date)
    {
        database.add(u"LOGGData"_qs, u"KeyNummer,KeyUser,Dato"_qs, {door, u"91000001"_qs, date});
    }
    frmLOGG &openLog() { return open<frmLOGG>(tools(), pace); }
    std::string queue()
    {
        return rows(u"SELECT substr(TilNummer, -1), SMS_Text, Etternavn, Dato FROM SMS_Sent"
                    " WHERE CMGS = 'UNSENT' ORDER BY ID"_qs);
    }
    QString text() { return control<QPlainTextEdit>("SMSText").toPlainText(); }

    ModemFlags flags;
    SendPace pace{clock, flags, [] {}};
};

TEST_F(ListsTest, SentAndWaitingAreTwoListsOfOneTable)
{
    sent(u"a"_qs, u"45:OK"_qs);
    sent(u"b"_qs, u"UNSENT"_qs);
    sent(u"c"_qs, u"SLETTET"_qs);
    sent(u"d"_qs, u""_qs);
    for (const auto &[mode, shown] : {std::pair(true, "a|d"), {false, "b|c"}}) {
        module.SmsListSent = mode;
        open<frmSMSSent>(tools());
        EXPECT_EQ(column(5), shown);
        EXPECT_FALSE(grid().verticalHeader()->isVisible()) << "no row is edited here";
    }
    clickHeading(5);
    clickHeading(8); // has no key of its own
    run(u"UPDATE SMS_Sent SET SMS_Text = 'z' WHERE SMS_Text = 'b'"_qs);
    open<frmSMSSent>(tools());
    EXPECT_EQ(column(5), "c|z") << "the key is kept";
    settings.values[u"frmsmssent.sort"_qs] = u"tull"_qs;
    open<frmSMSSent>(tools());
    EXPECT_EQ(column(5), "z|c");
}

TEST_F(ListsTest, MessageShowsItsLinesBelowUntilAnotherHasSome)
{
    message(u"Dør\r\n91000001 er lagt til"_qs);
    message(u""_qs);
    message(u"lang\n"_qs.repeated(40));
    open<frmSMSReceived>(tools());
    EXPECT_EQ(text(), u"Dør\n91000001 er lagt til"_qs);
    key(Qt::Key_Down);
    EXPECT_EQ(text(), u"Dør\n91000001 er lagt til"_qs);
    EXPECT_EQ(status(), u"Record: 2"_qs);
    key(Qt::Key_Down);
    QTest::keyClick(&grid(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &control<QPlainTextEdit>("SMSText"));
    const QScrollBar &bar = *control<QPlainTextEdit>("SMSText").verticalScrollBar();
    int before = 0;
    for (const Qt::Key each : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Down}) {
        QTest::keyClick(QApplication::focusWidget(), each);
        EXPECT_GT(bar.value(), std::exchange(before, bar.value()));
    }
    EXPECT_EQ(status(), u"Record: 3"_qs);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Home);
    EXPECT_EQ(status(), u"Record: 1"_qs);
}

TEST_F(ListsTest, EditWaitsForItsButtonsAndTheKeysRest)
{
    message(u"hei"_qs);
    open<frmSMSReceived>(tools());
    EXPECT_FALSE(control<QPushButton>("cmdUpdate").isVisible());
    click("cmdEdit");
    EXPECT_EQ(status(), u"Edit record"_qs);
    EXPECT_NE(grid().indexWidget(grid().currentIndex()), nullptr) << "typing may begin";
    EXPECT_FALSE(control<QPushButton>("cmdEdit").isVisible());
    type(0, 2, u"Ås"_qs);
    key(Qt::Key_Escape);
    key(Qt::Key_End);
    EXPECT_TRUE(screen->isVisible());
    EXPECT_EQ(status(), u"Edit record"_qs);
    click("cmdCancel");
    EXPECT_EQ(column(2), "");
    click("cmdEdit");
    type(0, 2, u"Ås"_qs);
    EXPECT_EQ(rows(u"SELECT Etternavn FROM SMS_Received"_qs), "");
    click("cmdUpdate");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM SMS_Received"_qs), "Ås");
    EXPECT_EQ(status(), u"Record: 1"_qs);
    EXPECT_FALSE(control<QPushButton>("cmdUpdate").isVisible());
    click("cmdAdd");
    type(1, 5, u"notat"_qs);
    click("cmdUpdate");
    EXPECT_EQ(column(5), "hei|notat");
    EXPECT_EQ(status(), u"Record: 2"_qs);
    click("cmdEdit");
    type(1, 2, u"Berg"_qs);
    const QModelIndex elsewhere = grid().model()->index(0, 2);
    const QPoint there = grid().visualRect(elsewhere).center();
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, there);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, there);
    EXPECT_EQ(grid().indexWidget(elsewhere), nullptr) << "what is typed there would be lost";
    click("cmdCancel");
    click("cmdDelete");
    EXPECT_EQ(rows(u"SELECT SMS_Text FROM SMS_Received"_qs), "hei");
}

// The first screen to tick takes the flag; it keeps its row, and the sort of its opening.
TEST_F(ListsTest, ReloadComesWithTheFlagAndKeepsThePlace)
{
    logged(u"+4790000001"_qs, u"02/06,08:00"_qs);
    logged(u"+4790000001"_qs, u"03/06,08:00"_qs);
    logged(u"+4790000002"_qs, u"01/06,08:00"_qs);
    openLog();
    EXPECT_EQ(column(2), "02/06,08:00|03/06,08:00");
    clickHeading(1);
    key(Qt::Key_End);
    grid().setColumnWidth(1, 99);
    logged(u"+4790000001"_qs, u"01/06,09:00"_qs);
    module.RefreshPending = true;
    clock.run(60s);
    EXPECT_TRUE(module.RefreshPending) << "the timer starts with a fetch";
    click("Command1");
    frmSMSReceived other(tools());
    other.load();
    other.show();
    EXPECT_FALSE(module.RefreshPending) << "a load takes it";
    module.RefreshPending = true;
    clock.run(10s);
    EXPECT_FALSE(module.RefreshPending);
    EXPECT_EQ(column(2), "01/06,09:00|02/06,08:00|03/06,08:00");
    EXPECT_EQ(status(), u"Record: 3"_qs);
    EXPECT_EQ(grid().columnWidth(1), 99);
}

// What this screen was told of is not lost, though another one takes the flag meanwhile.
TEST_F(ListsTest, LockedFileDelaysAReloadAndDoesNotStopTheScreen)
{
    message(u"en"_qs);
    open<frmSMSReceived>(tools());
    message(u"to"_qs);
    const auto other = database.open();
    other->run(u"BEGIN EXCLUSIVE"_qs);
    module.RefreshPending = true;
    QElapsedTimer stopped;
    stopped.start();
    clock.run(20s);
    EXPECT_LT(stopped.elapsed(), 4'000);
    EXPECT_TRUE(std::exchange(module.RefreshPending, false));
    person.answers(u"låst"_qs);
    clock.run(60s);
    person.answers(u"låst"_qs);
    click("cmdRefresh");
    EXPECT_EQ(column(5), "en");
    other->run(u"COMMIT"_qs);
    clock.run(10s);
    EXPECT_EQ(column(5), "en|to");
}

TEST_F(ListsTest, FetchAsksTheDoorOnceForEachLength)
{
    openLog();
    sent(u"r5"_qs, u"UNSENT"_qs);
    run(u"UPDATE SMS_Sent SET TilNummer = '+4790000002', Dato = '2026-11-01'"_qs);
    for (const char *button :
         {"Command1", "Command1", "Command2", "Command3", "Command4", "Command5"}) {
        click(button);
    }
    EXPECT_EQ(queue(), "2|r5||2026-11-01;1|r5|Hovedport|2026-12-01;1|r10|Hovedport|2026-12-01;"
                       "1|r25|Hovedport|2026-12-01;1|r50|Hovedport|2026-12-01;"
                       "1|r100|Hovedport|2026-12-01");
    EXPECT_EQ(pace.interval(), 3000ms);

    module.KeySelect = u"+4790000002"_qs; // chosen on another screen a moment ago
    click("Command2");
    module.KeySelect = u"+4790000009"_qs; // none that this operator sees
    person.answers(u"Det er ikke valgt noen dør."_qs);
    click("Command1");
    run(u"UPDATE KEYTable SET KeyNummer = '+47 9' WHERE KeyNavn = 'Garasje'"_qs);
    module.KeySelect = u"+47 9"_qs;
    person.answers(u"Mottakeren er ikke et telefonnummer"_qs);
    click("Command1");
    EXPECT_EQ(rows(u"SELECT substr(TilNummer, -1), Etternavn FROM SMS_Sent WHERE ID > 6"_qs),
              "2|Garasje");
}

} // namespace
