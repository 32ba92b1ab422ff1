#include "users/UserPanel.h"
#include "users/DoorPanel.h"
#include "users/UsersWorld.h"

#include <QTest>
#include <QtWidgets>

namespace {

const QString kOnDoor = QStringLiteral("Bruker er allerede registrert!!");

/// Both panels in a window that has the focus, driven by keys and mouse.
struct UserPanelTest : UsersWorld {
    UserPanelTest()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(&doors);
        layout->addWidget(&panel);
        recordsets.display = [this] { doors.display(); };
        QObject::connect(&doors, &DoorPanel::doorChosen, &panel, &UserPanel::followDoor);
        window.resize(700, 600);
        window.show();
        QApplication::setActiveWindow(&window);
        panel.CLEAR_INPUT();
        refresh();
    }
    ~UserPanelTest() override
    {
        doors.setParent(nullptr);
        panel.setParent(nullptr);
    }
    void refresh() override
    {
        recordsets.OpenRecordsets();
        panel.VisBrukerTabell();
    }
    template <class Control> Control &control(const char *name)
    {
        return *window.findChild<Control *>(QString::fromLatin1(name));
    }
    QLineEdit &field(int index)
    {
        return control<QLineEdit>(("Txtfields_" + std::to_string(index)).c_str());
    }
    /// The six fields, the days of the period in December, its hours, and the mode for new users.
    std::string form()
    {
        QStringList fields;
        for (int index = 0; index < 6; ++index) {
            fields.append(field(index).text());
        }
        return u"%1 %2-%3 %4-%5 %6"_qs
            .arg(fields.join(u'|'), control<QDateEdit>("DTPickerFrom").date().toString(u"d"_qs),
                 control<QDateEdit>("DTPickerTo").date().toString(u"d"_qs),
                 control<QComboBox>("FraTid").currentText(),
                 control<QComboBox>("TilTid").currentText(), control<QLabel>("Label2").text())
            .toStdString();
    }
    void click(const char *button) { QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton); }
    void type(int index, const QString &text)
    {
        field(index).setFocus();
        field(index).selectAll();
        // QTest's own typing knows no letters beyond ASCII.
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QApplication::sendEvent(&field(index), &key);
    }
    void clickRow(int row)
    {
        const QRect cell = table.visualRect(table.model()->index(row, 0));
        QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, cell.center());
    }
    void clickTab(const QString &caption)
    {
        int tab = tabs.count() - 1;
        while (tab > 0 && tabs.tabText(tab) != caption) {
            --tab;
        }
        ASSERT_EQ(tabs.tabText(tab), caption);
        QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(tab).center());
    }
    /// Numbers in the table, by their last digits.
    std::string numbersShown()
    {
        QStringList numbers;
        for (int row = 0; row < table.model()->rowCount(); ++row) {
            numbers.append(table.model()->index(row, 0).data().toString().right(4));
        }
        return numbers.join(u' ').toStdString();
    }

    QWidget window;
    DoorPanel doors{module, recordsets, link, person, clock};
    UserPanel panel{module, recordsets, link, users, person, clock, host};
    QTableView &table = *panel.findChild<QTableView *>(u"DataGrid1"_qs);
    QTabBar &tabs = *panel.findChild<QTabBar *>(u"TabStrip1"_qs);
    QLineEdit &saldo = *panel.findChild<QLineEdit *>(u"Saldo"_qs);
    QWidget &saldoArrows = *panel.findChild<QWidget *>(u"UpDown3"_qs);
};

QString background(const QLineEdit &field)
{
    return field.palette().color(QPalette::Base).name();
}

TEST_F(UserPanelTest, NewUserStartsBehindThePrefixWaitsAndGoesByTheIdOfTheRow)
{
    clickTab(u"Alle"_qs);
    click("cmdNyBruker");
    EXPECT_TRUE(field(0).hasFocus());
    QTest::keyClicks(&field(0), u"91234567"_qs);
    type(2, u"Ås Ж"_qs);
    EXPECT_EQ(form(), "+4791234567||Ås Ж|NY|Gjest|9999 1-3 00-24 True");
    click("CommandRegistrerBruker");
    EXPECT_EQ(state(), " // 1|4567|1/12/2026|NY // ");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM Katalog"_qs), "Ås ?");
    EXPECT_EQ(form(), "|||||9999 1-3 00-24 True");
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()), u"Alle"_qs);
    run(u"UPDATE NYEbrukere SET ID = 17"_qs);
    clickTab(u"Nye"_qs);
    clickRow(0);
    EXPECT_EQ(form(), "+4791234567|?|Ås ?|NY|Gjest|17 1-3 00-24 True");
    click("CommandSlettBruker");
    EXPECT_EQ(state(), " //  // ");
    EXPECT_EQ(form(), "|||||9999 1-3 00-24 True");
}

TEST_F(UserPanelTest, NumberCheckAsksBeforeAClickIsHandledAndOnceThoughTheBoxTakesTheFocus)
{
    addUser(kUser, u"Fast"_qs);
    addUser(kOtherUser, u"Fast"_qs, u"Slett"_qs);
    clickTab(u"Alle"_qs);
    type(0, kUser);
    person.answers(kOnDoor, Answer::Ok);
    clickRow(0);
    EXPECT_EQ(person.texts.size(), 1);
    EXPECT_EQ(form(), "+4790009000|Ola|Berg|Slett|Fast|9999 5-31 08-16 False");

    panel.CLEAR_INPUT();
    QWidget box;
    box.show();
    const auto borrowFocus = [&] {
        QApplication::setActiveWindow(&box);
        QApplication::setActiveWindow(&window);
    };
    type(0, kUser);
    borrowFocus();
    EXPECT_EQ(person.texts.size(), 1);
    clock.after(1s, borrowFocus);
    person.answers(kOnDoor, Answer::Cancel, 2s);
    QTest::keyClick(&field(0), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &field(1));
    EXPECT_EQ(person.texts.size(), 2);
    EXPECT_EQ(form(), "+4791234567|Ola|Berg|Aktiv |Fast|9999 5-31 00-24 False");
}

TEST_F(UserPanelTest, SaldoTurnsTheFormAndBackAndTheFirstDayDrawsTheLastAlong)
{
    const auto balance = [&] {
        QString open;
        for (const char *name : {"FraTid", "TilTid", "DTPickerFrom", "DTPickerTo"}) {
            const QWidget &part = control<QWidget>(name);
            open += part.isVisible() && part.isEnabled() ? u'+' : u'-';
        }
        return QStringList{saldo.text(), open, control<QLabel>("KontoLBL").text(),
                           background(saldo)}
            .join(u' ')
            .toStdString();
    };
    QTest::keyClick(&saldoArrows, Qt::Key_Down);
    EXPECT_EQ(saldo.text(), u"0"_qs);
    QTest::keyClick(&saldoArrows, Qt::Key_Up);
    EXPECT_EQ(balance(), "1 ---- Antall #ffffff");
    EXPECT_EQ(form(), "||||Saldo|9999 1-3 00-24 False");
    control<QDateEdit>("DTPickerTo").setDate(QDate(2027, 1, 1));
    QTest::keyClick(&saldoArrows, Qt::Key_Down);
    EXPECT_EQ(balance(), "0 ++++ Konto #808080");
    EXPECT_EQ(form(), "||||Gjest|9999 1-3 00-24 False");

    saldo.setText(u"5"_qs);
    saldo.setText(u"mye"_qs); // leaves the form, and the stepper says why it stands
    person.answers(u"ikke et tall"_qs);
    QTest::keyClick(&saldoArrows, Qt::Key_Up);
    EXPECT_EQ(balance(), "mye ---- Antall #ffffff");

    for (const auto &[first, expected] :
         {std::pair(3, "||||Saldo|9999 3-3 00-24 False"), {4, "||||Saldo|9999 4-6 00-24 False"}}) {
        control<QDateEdit>("DTPickerFrom").setDate(QDate(2026, 12, first));
        EXPECT_EQ(form(), expected);
    }
}

TEST_F(UserPanelTest, OneClickFillsTheFormAndTheArrowsGoOn)
{
    addUser(u"+4790009001"_qs, u"Fast"_qs);
    addUser(u"+4790009002"_qs, u"Gjest"_qs, u"Slett"_qs);
    run(u"UPDATE TBLbrukere SET [Gyldig fra] = NULL, [Gyldig til] = 'aldri',"
        " TilTid = '' WHERE KeyBruker = '+4790009002'"_qs);
    clickTab(u"Alle"_qs);
    QTest::keyClick(&tabs, Qt::Key_Tab);
    EXPECT_EQ(field(0).text(), u""_qs); // the focus alone brings no row, Enter does
    const char *const kFirst = "+4790009001|Ola|Berg|Aktiv |Fast|9999 5-31 08-16 False";
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(form(), kFirst);
    clickRow(0);
    EXPECT_EQ(form(), kFirst);
    QTest::keyClick(&table, Qt::Key_Down); // empty and unreadable columns leave what stood there
    EXPECT_EQ(form(), "+4790009002|Ola|Berg|Slett|Gjest|9999 5-31 08-16 False");

    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {},
                       table.visualRect(table.currentIndex()).center());
    QTest::keyClick(&table, Qt::Key_Up);
    EXPECT_EQ(field(0).text(), u"+4790009002"_qs);
    QTest::keyClick(&field(0), Qt::Key_Escape);
    EXPECT_EQ(form(), "|||||9999 5-31 08-16 False");
}

TEST_F(UserPanelTest, PeriodBehindABalanceLosesItsAccountAndLastDay)
{
    addUser(u"+4790009001"_qs, u"Saldo"_qs, u"Aktiv "_qs, kDoor, u"5"_qs);
    addUser(u"+4790009002"_qs, u"Fast"_qs);
    addUser(u"+4790009003"_qs, u"Fast"_qs); // makes no change of the balance
    clickTab(u"Alle"_qs);
    const char *const kForms[] = {"+4790009001|Ola|Berg|Aktiv |Saldo|9999 5-31 08-16 False",
                                  "+4790009002|Ola|Berg|Aktiv |Gjest|9999 5-3 08-16 False",
                                  "+4790009003|Ola|Berg|Aktiv |Fast|9999 5-31 08-16 False"};
    for (int row = 0; row < 3; ++row) {
        clickRow(row);
        EXPECT_EQ(form(), kForms[row]);
    }
}

TEST_F(UserPanelTest, HeadingSortsAndEmptiesTheForm)
{
    addUser(u"+4790009001"_qs, u"Vakt"_qs);
    addUser(u"+4790009002"_qs, u"Annen"_qs);
    clickTab(u"Alle"_qs);
    clickRow(0);
    type(2, u"Lund"_qs);
    const QHeaderView &header = *table.horizontalHeader();
    QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                      {header.sectionViewportPosition(7) + 10, header.height() / 2});
    EXPECT_EQ(numbersShown(), "9002 9001");
    EXPECT_EQ(field(0).text(), u""_qs);
    EXPECT_EQ(rows(u"SELECT Etternavn FROM Katalog"_qs), "Lund;Berg"); // the field was left
    clickRow(0);
    EXPECT_EQ(field(0).text(), u"+4790009002"_qs);
}

TEST_F(UserPanelTest, TabsAreTheAccountsOfTheDoorAndEachShowsItsRows)
{
    addWaiting(u"+4790009025"_qs, u"2/12/2026"_qs);
    addWaiting(u"+4790009026"_qs, u"2/12/2026"_qs, u"NY"_qs, kOtherDoor);
    for (const auto &[number, konto, status] : {std::tuple(u"9020"_qs, u"Gjest"_qs, u"NY"_qs),
                                                {u"9021"_qs, u"Gjest"_qs, u"Ny"_qs},
                                                {u"9022"_qs, u"GJEST"_qs, u"Aktiv "_qs},
                                                {u"9023"_qs, u"Saldo"_qs, u"Registrerer"_qs},
                                                {u"9027"_qs, u" Vakt"_qs, u"Aktiv "_qs},
                                                {u"9028"_qs, QString(), u"Aktiv "_qs},
                                                {u"9029"_qs, u"O'Hara"_qs, u"Aktiv "_qs}}) {
        addUser(u"+479000"_qs + number, konto, status);
    }
    addUser(u"+4790009024"_qs, u"Annen"_qs, u"Aktiv "_qs, kOtherDoor);
    std::string shown;
    for (int tab = 0; tab < tabs.count(); ++tab) {
        clickTab(tabs.tabText(tab));
        shown += tabs.tabText(tab).toStdString() + ": " + numbersShown() + '\n';
    }
    EXPECT_EQ(shown, "Nye: 9025\n"
                     " Vakt: 9027\n" // an account counts as typed
                     "Gjest: 9022\n"
                     "O'Hara: 9022\n" // which no filter can hold: what stood there stays
                     "Saldo: 9023\n"
                     "Alle: 9020 9021 9022 9023 9027 9028 9029\n");
}

TEST_F(UserPanelTest, TabDecidesTheModeAndStaysWhenItsAccountGoes)
{
    addUser(kUser, u"Fast & fri"_qs);
    const auto shown = [&] {
        return (module.GridFilter + u": "_qs).toStdString() + numbersShown() + form();
    };
    clickTab(u"Fast && fri"_qs);
    EXPECT_EQ(shown(), "Fast & fri: 4567|||||9999 1-3 00-24 False");
    run(u"DELETE FROM TBLbrukere"_qs); // the tab vanishes
    EXPECT_EQ(tabs.count(), 2);
    EXPECT_EQ(shown(), "Fast & fri: |||||9999 1-3 00-24 False");
    clickTab(u"Nye"_qs); // looks selected already
    EXPECT_EQ(shown(), "Nye: |||||9999 1-3 00-24 True");
}

TEST_F(UserPanelTest, StepperTakesTheWholeScreenToTheNextDoorPastEitherEnd)
{
    run(u"INSERT INTO KEYTable (KeyNummer, KeyNavn, KeySikkerhet)"
        " VALUES ('+4790000003', 'Bod', '1')"_qs);
    addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kOtherDoor);
    clickTab(u"Alle"_qs);
    const auto step = [&](Qt::Key key) {
        field(2).setText(u"Ås"_qs);
        QTest::keyClick(&control<QWidget>("UpDown1"), key);
        const QString door = control<QLineEdit>("KeyTXT_1").text();
        return (module.KeySelect + u' ' + door + u' ').toStdString() + numbersShown() + form();
    };
    const char *const kFirst = "+4790000001 Hovedport |||||9999 1-3 00-24 False";
    const char *const kLast = "+4790000003 Bod |||||9999 1-3 00-24 False";
    EXPECT_EQ(step(Qt::Key_Up), "+4790000002 Garasje 4567|||||9999 1-3 00-24 False");
    EXPECT_EQ(step(Qt::Key_Down), kFirst);
    EXPECT_EQ(step(Qt::Key_Down), kLast);
    EXPECT_EQ(step(Qt::Key_Up), kFirst);
    standOn(u"+4799999999"_qs); // which is none
    EXPECT_EQ(step(Qt::Key_Up), kFirst);
    module.SecurityLevel = u"0"_qs; // sees no door
    refresh();
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down}) {
        EXPECT_EQ(step(key), "+4790000001  |||||9999 1-3 00-24 False");
    }
}

TEST_F(UserPanelTest, StatusUnlocksAboveLevelFourUntilItIsLeft)
{
    QLineEdit &status = field(3);
    for (const auto &[level, unlocks] : {std::pair(u"4"_qs, false), {u"5"_qs, true}, {{}, false}}) {
        module.SecurityLevel = level;
        QTest::mouseDClick(&status, Qt::LeftButton);
        EXPECT_EQ(status.isReadOnly(), !unlocks);
        EXPECT_EQ(background(status), unlocks ? u"#ffff80" : u"#c0ffff");
        field(4).setFocus();
        EXPECT_TRUE(status.isReadOnly());
        EXPECT_EQ(background(status), u"#c0ffff");
        EXPECT_EQ(status.palette().color(QPalette::Text), QColor(Qt::black));
    }
}

} // namespace
