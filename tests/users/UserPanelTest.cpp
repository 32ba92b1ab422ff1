#include "users/UserPanel.h"
#include "users/DoorPanel.h"
#include "users/UsersWorld.h"

#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

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
    /// What the fields from the first on hold.
    std::string texts(int first, int last)
    {
        QStringList found;
        for (int index = first; index <= last; ++index) {
            found.append(field(index).text());
        }
        return found.join(u'|').toStdString();
    }
    /// The period's days in December.
    std::string days()
    {
        return QStringLiteral("%1-%2")
            .arg(control<QDateEdit>("DTPickerFrom").date().day())
            .arg(control<QDateEdit>("DTPickerTo").date().day())
            .toStdString();
    }
    QString label(const char *name) { return control<QLabel>(name).text(); }
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
        int tab = 0;
        while (tab < tabs.count() && tabs.tabText(tab) != caption) {
            ++tab;
        }
        ASSERT_LT(tab, tabs.count()) << caption.toStdString();
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

QColor background(const QLineEdit &field)
{
    return field.palette().color(QPalette::Base);
}

TEST_F(UserPanelTest, NewUserStartsBehindThePrefixAndWaits)
{
    clickTab(u"Alle"_qs);
    click("cmdNyBruker");
    EXPECT_TRUE(field(0).hasFocus());
    EXPECT_EQ(label("Label2"), u"True"_qs);
    QTest::keyClicks(&field(0), u"91234567"_qs);
    type(2, u"Ås Ж"_qs);
    EXPECT_EQ(texts(0, 4), "+4791234567||Ås Ж|NY|Gjest");
    click("CommandRegistrerBruker");
    EXPECT_EQ(state(), " // 1|4567|1/12/2026|NY // ");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM Katalog"_qs), "Ås ?");
    EXPECT_EQ(texts(0, 5), "|||||9999");
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()), u"Alle"_qs);
}

TEST_F(UserPanelTest, NumberCheckAsksOnceThoughTheBoxTakesTheFocus)
{
    addUser(kUser, u"Fast"_qs);
    QWidget box;
    box.show();
    type(0, kUser);
    QApplication::setActiveWindow(&box); // only borrows the focus
    QApplication::setActiveWindow(&window);
    EXPECT_EQ(person.texts.size(), 0);
    clock.after(1s, [&] {
        QApplication::setActiveWindow(&box);
        QApplication::setActiveWindow(&window);
    });
    person.answers(kOnDoor, Answer::Cancel, 2s);
    QTest::keyClick(&field(0), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &field(1));
    EXPECT_EQ(person.texts.size(), 1);
    EXPECT_EQ(texts(1, 4), "Ola|Berg|Aktiv |Fast");
    EXPECT_EQ(days(), "5-31");
}

TEST_F(UserPanelTest, NumberCheckRunsBeforeAClickIntoTheGridIsHandled)
{
    addUser(kUser, u"Fast"_qs);
    addUser(kOtherUser, u"Fast"_qs, u"Slett"_qs);
    clickTab(u"Alle"_qs);
    type(0, kUser);
    person.answers(kOnDoor, Answer::Ok);
    clickRow(0);
    EXPECT_EQ(person.texts.size(), 1);
    EXPECT_EQ(texts(0, 3), "+4790009000|Ola|Berg|Slett");
}

TEST_F(UserPanelTest, SaldoTurnsTheFormAndBack)
{
    const auto form = [&] {
        QString open;
        for (const char *name : {"FraTid", "TilTid", "DTPickerFrom", "DTPickerTo"}) {
            const QWidget &part = control<QWidget>(name);
            open += part.isVisible() && part.isEnabled() ? u'+' : u'-';
        }
        return QStringList{saldo.text(), open, field(4).text(), label("KontoLBL"),
                           background(saldo).name()}
            .join(u' ')
            .toStdString();
    };
    QTest::keyClick(&saldoArrows, Qt::Key_Down);
    EXPECT_EQ(saldo.text(), u"0"_qs);
    QTest::keyClick(&saldoArrows, Qt::Key_Up);
    EXPECT_EQ(form(), "1 ---- Saldo Antall #ffffff");
    control<QDateEdit>("DTPickerTo").setDate(QDate(2027, 1, 1));
    QTest::keyClick(&saldoArrows, Qt::Key_Down);
    EXPECT_EQ(form(), "0 ++++ Gjest Konto #808080");
    EXPECT_EQ(days(), "1-3");

    saldo.setText(u"5"_qs);
    saldo.setText(u"mye"_qs); // leaves the form, and the stepper says why it stands
    person.answers(u"ikke et tall"_qs);
    QTest::keyClick(&saldoArrows, Qt::Key_Up);
    EXPECT_EQ(form(), "mye ---- Saldo Antall #ffffff");
}

TEST_F(UserPanelTest, OneClickFillsTheFormAndTheArrowsGoOn)
{
    addUser(u"+4790009001"_qs, u"Fast"_qs);
    addUser(u"+4790009002"_qs, u"Gjest"_qs, u"Slett"_qs);
    run(u"UPDATE TBLbrukere SET [Gyldig fra] = NULL, [Gyldig til] = 'aldri',"
        " TilTid = '' WHERE KeyBruker = '+4790009002'"_qs);
    clickTab(u"Alle"_qs);
    QTest::keyClick(&tabs, Qt::Key_Tab);
    EXPECT_EQ(texts(0, 0), ""); // the focus alone brings no row, Enter does
    QTest::keyClick(&table, Qt::Key_Return);
    EXPECT_EQ(texts(0, 5), "+4790009001|Ola|Berg|Aktiv |Fast|9999");
    clickRow(0);
    EXPECT_EQ(days(), "5-31");
    EXPECT_EQ(control<QComboBox>("FraTid").currentText(), u"08"_qs);
    QTest::keyClick(&table, Qt::Key_Down);
    EXPECT_EQ(texts(0, 5), "+4790009002|Ola|Berg|Slett|Gjest|9999");
    EXPECT_EQ(days(), "5-31"); // empty and unreadable columns leave what stood there
    EXPECT_EQ(control<QComboBox>("TilTid").currentText(), u"16"_qs);

    QTest::mouseDClick(table.viewport(), Qt::LeftButton, {},
                       table.visualRect(table.currentIndex()).center());
    QTest::keyClick(&table, Qt::Key_Up);
    EXPECT_EQ(texts(0, 0), "+4790009002");
    QTest::keyClick(&field(0), Qt::Key_Escape);
    EXPECT_EQ(texts(0, 4), "||||");
}

TEST_F(UserPanelTest, RowOfAWaitingPeriodBringsItsIdAndTheMode)
{
    addWaiting(kUser, u"9/12/2026"_qs);
    clickRow(0);
    EXPECT_EQ(label("Label2"), u"True"_qs);
    EXPECT_EQ(field(5).text(), database.single(u"SELECT ID FROM NYEbrukere"_qs));
    click("CommandSlettBruker");
    EXPECT_EQ(state(), " //  // ");
    EXPECT_EQ(texts(5, 5), "9999");
}

TEST_F(UserPanelTest, PeriodBehindABalanceLosesItsAccountAndLastDay)
{
    addUser(u"+4790009001"_qs, u"Saldo"_qs, u"Aktiv "_qs, kDoor, u"5"_qs);
    addUser(u"+4790009002"_qs, u"Fast"_qs);
    addUser(u"+4790009003"_qs, u"Fast"_qs); // makes no change of the balance
    clickTab(u"Alle"_qs);
    for (const auto &[row, form] :
         {std::pair(0, "Saldo 5-31"), {1, "Gjest 5-3"}, {2, "Fast 5-31"}}) {
        clickRow(row);
        EXPECT_EQ(texts(4, 4) + ' ' + days(), form);
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
    EXPECT_EQ(texts(0, 0), "");
    EXPECT_EQ(rows(u"SELECT Etternavn FROM Katalog"_qs), "Lund;Berg"); // the field was left
    clickRow(0);
    EXPECT_EQ(texts(0, 0), "+4790009002");
}

TEST_F(UserPanelTest, TabDecidesTheModeAndTheRows)
{
    addUser(kUser, u"Fast & fri"_qs);
    clickTab(u"Fast && fri"_qs);
    EXPECT_EQ(module.GridFilter, u"Fast & fri"_qs);
    EXPECT_EQ(numbersShown(), "4567");
    EXPECT_EQ(label("Label2"), u"False"_qs);

    run(u"DELETE FROM TBLbrukere"_qs); // the tab vanishes
    EXPECT_EQ(tabs.count(), 2);
    EXPECT_EQ(module.GridFilter, u"Fast & fri"_qs);
    EXPECT_EQ(numbersShown(), "");
    clickTab(u"Nye"_qs); // looks selected already
    EXPECT_EQ(module.GridFilter, u"Nye"_qs);
    EXPECT_EQ(label("Label2"), u"True"_qs);
}

TEST_F(UserPanelTest, FirstDayDrawsALastDayAlongThatWouldLieBefore)
{
    auto &picker = control<QDateEdit>("DTPickerFrom");
    picker.setDate(QDate(2026, 12, 3));
    EXPECT_EQ(days(), "3-3");
    picker.setDate(QDate(2026, 12, 4));
    EXPECT_EQ(days(), "4-6");
}

TEST_F(UserPanelTest, StatusUnlocksAboveLevelFourUntilItIsLeft)
{
    QLineEdit &status = field(3);
    for (const auto &[level, unlocks] : {std::pair(u"4"_qs, false), {u"5"_qs, true}, {{}, false}}) {
        module.SecurityLevel = level;
        QTest::mouseDClick(&status, Qt::LeftButton);
        EXPECT_EQ(status.isReadOnly(), !unlocks);
        EXPECT_EQ(background(status).name(), unlocks ? u"#ffff80" : u"#c0ffff");
        field(4).setFocus();
        EXPECT_TRUE(status.isReadOnly());
        EXPECT_EQ(background(status).name(), u"#c0ffff");
        EXPECT_EQ(status.palette().color(QPalette::Text), QColor(Qt::black));
    }
}

TEST_F(UserPanelTest, StepperTakesTheWholeScreenToTheNextDoor)
{
    addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kOtherDoor);
    clickTab(u"Alle"_qs);
    field(2).setText(u"Ås"_qs);
    QTest::keyClick(&control<QWidget>("UpDown1"), Qt::Key_Up);
    EXPECT_EQ(module.KeySelect, kOtherDoor);
    EXPECT_EQ(control<QLineEdit>("KeyTXT_1").text(), u"Garasje"_qs);
    EXPECT_EQ(numbersShown(), "4567");
    EXPECT_EQ(texts(2, 2), "");
}

TEST_F(UserPanelTest, TabKeyWalksThroughTheFormAsItIsLaidOut)
{
    field(0).setFocus();
    QStringList walk;
    for (int step = 0; step < 21; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        const QWidget *focus = QApplication::focusWidget();
        walk.append(focus->objectName().isEmpty() ? focus->parentWidget()->objectName()
                                                  : focus->objectName());
    }
    walk.removeDuplicates(); // the parts of a date, the arrows of a stepper
    EXPECT_EQ(walk.join(u' ').toStdString(),
              "Txtfields_1 Txtfields_2 Txtfields_3 DTPickerFrom DTPickerTo FraTid TilTid "
              "Txtfields_4 Saldo UpDown3 cmdNyBruker CommandRegistrerBruker CommandSlettBruker "
              "CommandSendSMS TabStrip1 DataGrid1");
}

} // namespace
