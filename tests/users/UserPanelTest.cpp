#include "users/UserPanel.h"
#include "data/Connection.h"
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

#include <gtest/gtest.h>

namespace {

const QString kOnDoor = QStringLiteral("Bruker er allerede registrert!!");
const QDate kToday(2026, 12, 1);

/// Both panels in a window that has the focus, driven by keys and mouse.
struct PanelWorld : UsersWorld {
    PanelWorld()
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
        update();
    }
    ~PanelWorld()
    {
        layout()->removeWidget(&doors);
        layout()->removeWidget(&panel);
        doors.setParent(nullptr);
        panel.setParent(nullptr);
    }
    QLayout *layout() { return window.layout(); }

    void update()
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
    QString text(int index) { return field(index).text(); }
    QLineEdit &saldo() { return control<QLineEdit>("Saldo"); }
    QTableView &grid() { return control<QTableView>("DataGrid1"); }
    QTabBar &tabs() { return control<QTabBar>("TabStrip1"); }
    QDate from() { return control<QDateEdit>("DTPickerFrom").date(); }
    QDate to() { return control<QDateEdit>("DTPickerTo").date(); }

    void click(const char *button) { QTest::mouseClick(&control<QWidget>(button), Qt::LeftButton); }
    void type(int index, const QString &text)
    {
        field(index).setFocus();
        field(index).selectAll();
        // QTest's own typing knows no letters beyond ASCII.
        for (const QChar letter : text) {
            QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, QString(letter));
            QApplication::sendEvent(&field(index), &key);
        }
    }
    void clickRow(int row)
    {
        const QRect cell = grid().visualRect(grid().model()->index(row, 0));
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cell.center());
    }
    void clickTab(const QString &caption)
    {
        for (int i = 0; i < tabs().count(); ++i) {
            if (tabs().tabText(i) == caption) {
                QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(i).center());
                return;
            }
        }
        FAIL() << "No tab " << caption.toStdString();
    }
    void clickHeading(int column)
    {
        QHeaderView &header = *grid().horizontalHeader();
        const QPoint place(header.sectionViewportPosition(column) + 10, header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    }
    QStringList numbersShown()
    {
        QStringList numbers;
        for (int row = 0; row < grid().model()->rowCount(); ++row) {
            numbers.append(grid().model()->index(row, 0).data().toString());
        }
        return numbers;
    }

    QWidget window;
    DoorPanel doors{module, recordsets, modem, person, clock};
    UserPanel panel{module, recordsets, modem, users, person, clock, host};
};

QColor background(const QLineEdit &field)
{
    return field.palette().color(QPalette::Base);
}

TEST(UserPanel, RegistersWhatWasTypedStraightOntoTheDoor)
{
    PanelWorld world;
    world.type(0, kUser);
    world.type(1, u"Kari"_qs);
    world.type(2, u"Ås Ж"_qs);
    EXPECT_EQ(world.text(3), u"NY"_qs);
    EXPECT_EQ(world.text(4), u"Gjest"_qs);
    world.click("CommandRegistrerBruker");
    EXPECT_EQ(world.onDoors(), QStringList{u"+4790000001|+4791234567|1/12/2026|NY"_qs});
    EXPECT_EQ(world.rows(u"SELECT Etternavn, Fornavn FROM Katalog"_qs),
              QStringList{u"Ås ?|Kari"_qs});
    EXPECT_EQ(world.text(0), QString());
    EXPECT_EQ(world.text(5), u"9999"_qs);
    EXPECT_EQ(world.tabs().count(), 3);
}

TEST(UserPanel, NewUserStartsBehindThePrefixAndWaits)
{
    PanelWorld world;
    world.clickTab(u"Alle"_qs);
    world.click("cmdNyBruker");
    EXPECT_TRUE(world.field(0).hasFocus());
    EXPECT_EQ(world.control<QLabel>("Label2").text(), u"True"_qs);
    QTest::keyClicks(&world.field(0), u"91234567"_qs);
    EXPECT_EQ(world.text(0), kUser);
    world.click("CommandRegistrerBruker");
    EXPECT_EQ(world.waiting().size(), 1);
    EXPECT_EQ(world.onDoors(), QStringList());
    EXPECT_EQ(world.tabs().tabText(world.tabs().currentIndex()), u"Alle"_qs);
}

TEST(NumberCheck, AsksOnceThoughTheBoxTakesTheFocus)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    QWidget box;
    box.show();
    world.clock.after(1s, [&] {
        QApplication::setActiveWindow(&box);
        QApplication::setActiveWindow(&world.window);
    });
    world.person.answers(kOnDoor, Answer::Cancel, 2s);
    world.type(0, kUser);
    QTest::keyClick(&world.field(0), Qt::Key_Tab);
    EXPECT_EQ(world.window.focusWidget(), &world.field(1));
    EXPECT_EQ(world.person.texts.size(), 1);
    EXPECT_EQ(world.text(1), u"Ola"_qs);
    EXPECT_EQ(world.text(3), u"Aktiv "_qs);
    EXPECT_EQ(world.text(4), u"Fast"_qs);
    EXPECT_EQ(world.from(), QDate(2026, 12, 5));
}

TEST(NumberCheck, AnotherWindowOnlyBorrowsTheFocus)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.type(0, kUser);
    QWidget other;
    other.show();
    QApplication::setActiveWindow(&other);
    EXPECT_EQ(world.person.texts, QStringList());
}

TEST(NumberCheck, RunsBeforeAClickIntoTheGridIsHandled)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.addUser(u"+4790009000"_qs, u"Fast"_qs, u"Slett"_qs);
    world.clickTab(u"Alle"_qs);
    world.type(0, kUser);
    world.person.answers(kOnDoor, Answer::Ok);
    world.clickRow(0);
    EXPECT_EQ(world.person.texts.size(), 1);
    EXPECT_EQ(world.text(0), u"+4790009000"_qs);
    EXPECT_EQ(world.text(3), u"Slett"_qs);
}

TEST(UserPanel, EscapeEmptiesTheTextsInTheNumberFieldOnly)
{
    PanelWorld world;
    world.type(2, u"Ås"_qs);
    QTest::keyClick(&world.field(2), Qt::Key_Escape);
    EXPECT_EQ(world.text(2), u"Ås"_qs);
    world.saldo().setText(u"4"_qs);
    world.field(0).setFocus();
    QTest::keyClick(&world.field(0), Qt::Key_Escape);
    EXPECT_EQ(world.text(2), QString());
    EXPECT_EQ(world.text(4), QString());
    EXPECT_EQ(world.saldo().text(), u"4"_qs);
}

TEST(Saldo, TurnsTheFormAndBack)
{
    PanelWorld world;
    auto &arrows = world.control<QWidget>("UpDown3");
    QTest::keyClick(&arrows, Qt::Key_Down);
    EXPECT_EQ(world.saldo().text(), u"0"_qs);
    QTest::keyClick(&arrows, Qt::Key_Up);
    EXPECT_EQ(world.saldo().text(), u"1"_qs);
    EXPECT_EQ(background(world.saldo()), QColor(Qt::white));
    EXPECT_FALSE(world.control<QWidget>("FraTid").isVisible());
    EXPECT_FALSE(world.control<QWidget>("TilTid").isVisible());
    EXPECT_FALSE(world.control<QWidget>("DTPickerFrom").isEnabled());
    EXPECT_FALSE(world.control<QWidget>("DTPickerTo").isEnabled());
    EXPECT_EQ(world.text(4), u"Saldo"_qs);
    EXPECT_EQ(world.control<QLabel>("KontoLBL").text(), u"Antall"_qs);

    world.control<QDateEdit>("DTPickerTo").setDate(QDate(2027, 1, 1));
    QTest::keyClick(&arrows, Qt::Key_Down);
    EXPECT_EQ(background(world.saldo()), QColor(0x80, 0x80, 0x80));
    EXPECT_TRUE(world.control<QWidget>("FraTid").isVisible());
    EXPECT_TRUE(world.control<QWidget>("DTPickerTo").isEnabled());
    EXPECT_EQ(world.to(), kToday.addDays(2));
    EXPECT_EQ(world.text(4), u"Gjest"_qs);
    EXPECT_EQ(world.control<QLabel>("KontoLBL").text(), u"Konto"_qs);
}

TEST(Saldo, TextThatIsNoNumberLeavesTheFormAndTellsTheStepper)
{
    PanelWorld world;
    world.saldo().setText(u"5"_qs);
    world.saldo().setText(u"mye"_qs);
    EXPECT_EQ(world.text(4), u"Saldo"_qs);
    world.person.answers(u"ikke et tall"_qs);
    QTest::keyClick(&world.control<QWidget>("UpDown3"), Qt::Key_Up);
    EXPECT_EQ(world.saldo().text(), u"mye"_qs);
}

TEST(DataGrid1, OneClickFillsTheFormAndTheArrowsGoOn)
{
    PanelWorld world;
    world.addUser(u"+4790009001"_qs, u"Fast"_qs, u"Aktiv "_qs);
    world.addUser(u"+4790009002"_qs, u"Gjest"_qs, u"Slett"_qs);
    world.clickTab(u"Alle"_qs);
    world.clickRow(0);
    EXPECT_EQ(world.text(0), u"+4790009001"_qs);
    EXPECT_EQ(world.text(1), u"Ola"_qs);
    EXPECT_EQ(world.text(2), u"Berg"_qs);
    EXPECT_EQ(world.text(4), u"Fast"_qs);
    EXPECT_EQ(world.text(5), u"9999"_qs);
    EXPECT_EQ(world.from(), QDate(2026, 12, 5));
    EXPECT_EQ(world.to(), QDate(2026, 12, 31));
    EXPECT_EQ(world.control<QComboBox>("FraTid").currentText(), u"08"_qs);
    QTest::keyClick(&world.grid(), Qt::Key_Down);
    EXPECT_EQ(world.text(0), u"+4790009002"_qs);

    QTest::mouseDClick(world.grid().viewport(), Qt::LeftButton, {},
                       world.grid().visualRect(world.grid().currentIndex()).center());
    QTest::keyClick(&world.grid(), Qt::Key_Up);
    EXPECT_EQ(world.text(0), u"+4790009002"_qs);
}

TEST(DataGrid1, WaitingPeriodBringsItsIdAndTheMode)
{
    PanelWorld world;
    world.addWaiting(kUser, u"9/12/2026"_qs);
    world.panel.VisBrukerTabell();
    world.clickRow(0);
    EXPECT_EQ(world.control<QLabel>("Label2").text(), u"True"_qs);
    EXPECT_EQ(world.text(5), world.database.single(u"SELECT ID FROM NYEbrukere"_qs));
    world.click("CommandSlettBruker");
    EXPECT_EQ(world.waiting(), QStringList());
    EXPECT_EQ(world.text(5), u"9999"_qs);
}

TEST(DataGrid1, PeriodBehindABalanceLosesItsAccountAndLastDay)
{
    PanelWorld world;
    world.addUser(u"+4790009001"_qs, u"Saldo"_qs, u"Aktiv "_qs, kDoor, u"5"_qs);
    world.addUser(u"+4790009002"_qs, u"Fast"_qs, u"Aktiv "_qs);
    world.addUser(u"+4790009003"_qs, u"Fast"_qs, u"Aktiv "_qs);
    world.clickTab(u"Alle"_qs);
    world.clickRow(0);
    EXPECT_EQ(world.text(4), u"Saldo"_qs);
    world.clickRow(1);
    EXPECT_EQ(world.text(4), u"Gjest"_qs);
    EXPECT_EQ(world.to(), kToday.addDays(2));
    world.clickRow(2); // no change of the balance, so the row's own values stay
    EXPECT_EQ(world.text(4), u"Fast"_qs);
    EXPECT_EQ(world.to(), QDate(2026, 12, 31));
}

TEST(DataGrid1, EmptyOrUnreadableColumnsLeaveWhatStoodThere)
{
    PanelWorld world;
    world.addUser(u"+4790009001"_qs, u"Fast"_qs, u"Aktiv "_qs);
    world.addUser(u"+4790009002"_qs, u"Fast"_qs, u"Aktiv "_qs);
    world.database.look().run(u"UPDATE TBLbrukere SET [Gyldig fra] = NULL, [Gyldig til] = 'aldri',"
                              " TilTid = '' WHERE KeyBruker = '+4790009002'"_qs);
    world.clickTab(u"Alle"_qs);
    world.clickRow(0);
    world.clickRow(1);
    EXPECT_EQ(world.text(0), u"+4790009002"_qs);
    EXPECT_EQ(world.from(), QDate(2026, 12, 5));
    EXPECT_EQ(world.to(), QDate(2026, 12, 31));
    EXPECT_EQ(world.control<QComboBox>("TilTid").currentText(), u"16"_qs);
}

TEST(DataGrid1, HeadingSortsAndEmptiesTheForm)
{
    PanelWorld world;
    world.addUser(u"+4790009001"_qs, u"Vakt"_qs, u"Aktiv "_qs);
    world.addUser(u"+4790009002"_qs, u"Annen"_qs, u"Aktiv "_qs);
    world.clickTab(u"Alle"_qs);
    world.clickRow(0);
    world.type(2, u"Lund"_qs);
    world.clickHeading(7);
    EXPECT_EQ(world.numbersShown(), (QStringList{u"+4790009002"_qs, u"+4790009001"_qs}));
    EXPECT_EQ(world.text(0), QString());
    EXPECT_EQ(world.rows(u"SELECT Etternavn FROM Katalog"_qs),
              (QStringList{u"Lund"_qs, u"Berg"_qs})); // the field was left
    world.clickRow(0);
    EXPECT_EQ(world.text(0), u"+4790009002"_qs);
}

TEST(TabStrip1, DecidesTheModeAndTheRows)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast & fri"_qs, u"Aktiv "_qs);
    world.panel.VisBrukerTabell();
    world.clickTab(u"Fast && fri"_qs);
    EXPECT_EQ(world.module.GridFilter, u"Fast & fri"_qs);
    EXPECT_EQ(world.numbersShown(), QStringList{kUser});
    EXPECT_EQ(world.control<QLabel>("Label2").text(), u"False"_qs);
    world.clickTab(u"Nye"_qs);
    EXPECT_EQ(world.control<QLabel>("Label2").text(), u"True"_qs);
}

TEST(TabStrip1, TabThatVanishedLeavesAnEmptyGrid)
{
    PanelWorld world;
    world.addUser(kUser, u"Vakt"_qs, u"Aktiv "_qs);
    world.panel.VisBrukerTabell();
    world.clickTab(u"Vakt"_qs);
    world.database.look().run(u"DELETE FROM TBLbrukere"_qs);
    world.update();
    EXPECT_EQ(world.tabs().count(), 2);
    EXPECT_EQ(world.module.GridFilter, u"Vakt"_qs);
    EXPECT_EQ(world.grid().model()->rowCount(), 0);
    world.clickTab(u"Nye"_qs); // looks selected already
    EXPECT_EQ(world.module.GridFilter, u"Nye"_qs);
}

TEST(StatusField, UnlocksAboveLevelFourUntilItIsLeft)
{
    PanelWorld world;
    QLineEdit &status = world.field(3);
    for (const auto &[level, unlocks] : {std::pair(u"4"_qs, false), {u"5"_qs, true}, {{}, false}}) {
        world.module.SecurityLevel = level;
        QTest::mouseDClick(&status, Qt::LeftButton);
        EXPECT_EQ(status.isReadOnly(), !unlocks);
        EXPECT_EQ(background(status),
                  unlocks ? QColor(0xFF, 0xFF, 0x80) : QColor(0xC0, 0xFF, 0xFF));
        world.field(4).setFocus();
        EXPECT_TRUE(status.isReadOnly());
        EXPECT_EQ(background(status), QColor(0xC0, 0xFF, 0xFF));
        EXPECT_EQ(status.palette().color(QPalette::Text), QColor(Qt::black));
    }
}

TEST(DTPickerFrom, DrawsALastDayAlongThatWouldLieBefore)
{
    PanelWorld world;
    auto &picker = world.control<QDateEdit>("DTPickerFrom");
    picker.setDate(QDate(2026, 12, 3));
    EXPECT_EQ(world.to(), QDate(2026, 12, 3));
    picker.setDate(QDate(2026, 12, 4));
    EXPECT_EQ(world.to(), QDate(2026, 12, 6));
    world.control<QDateEdit>("DTPickerTo").setDate(QDate(2026, 12, 1));
    EXPECT_EQ(world.from(), QDate(2026, 12, 4));
}

TEST(CommandSlettBruker, UnknownNumberOnlyEmptiesTheForm)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.field(0).setText(u"+4790009000"_qs);
    world.click("CommandSlettBruker");
    EXPECT_EQ(world.text(0), QString());
    EXPECT_EQ(world.onDoors().size(), 1);
}

TEST(DoorPanel, StepperTakesTheWholeScreenToTheNextDoor)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs, kOtherDoor);
    world.clickTab(u"Alle"_qs);
    world.field(2).setText(u"Ås"_qs);
    QTest::keyClick(&world.control<QWidget>("UpDown1"), Qt::Key_Up);
    EXPECT_EQ(world.module.KeySelect, kOtherDoor);
    EXPECT_EQ(world.control<QLineEdit>("KeyTXT_0").text(), kOtherDoor);
    EXPECT_EQ(world.control<QLineEdit>("KeyTXT_1").text(), u"Garasje"_qs);
    EXPECT_EQ(world.numbersShown(), QStringList{kUser});
    EXPECT_EQ(world.text(2), QString());
}

TEST(UserPanel, ShowsWhatItCanWithoutADatabase)
{
    PanelWorld world;
    world.module.DatabaseConnection.reset();
    world.panel.VisBrukerTabell();
    world.person.answers(u"Ingen database er åpen"_qs); // from OpenRecordsets
    world.type(0, kUser);
    world.type(1, u"Kari"_qs);
    EXPECT_EQ(world.tabs().tabText(0), u"Nye"_qs);
    EXPECT_EQ(world.text(0), kUser);
}

TEST(UserPanel, TabWalksThroughTheFormAsItIsLaidOut)
{
    PanelWorld world;
    world.field(0).setFocus();
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

TEST(DataGrid1, EnterStandsForTheClickOfTheKeyboard)
{
    PanelWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.clickTab(u"Alle"_qs);
    QTest::keyClick(&world.tabs(), Qt::Key_Tab);
    EXPECT_EQ(world.text(0), QString()); // the focus alone brings no row
    QTest::keyClick(&world.grid(), Qt::Key_Return);
    EXPECT_EQ(world.text(0), kUser);
}

TEST(UserPanel, FitsBesideTheRightHandColumn)
{
    PanelWorld world;
    EXPECT_LE(world.doors.minimumSizeHint().width(), 670);
    EXPECT_LE(world.panel.minimumSizeHint().width(), 670);
    EXPECT_LE(world.doors.minimumSizeHint().height() + world.panel.minimumSizeHint().height(), 520);
}

} // namespace
