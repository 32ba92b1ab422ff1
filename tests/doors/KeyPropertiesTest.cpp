#include "doors/frmKeyProperties.h"

#include "data/Connection.h"
#include "data/Module1.h"
#include "support/FakeMachine.h"
#include "support/TestDatabase.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTranslator>

#include <gtest/gtest.h>

namespace {

const QString kDoor = u"+4790000001"_qs;
const QString kNational = u"90000001"_qs;
const QString kNoRow = u"Det er ingen gjeldende rad"_qs;
const QString kOrNoKey = u"\r Er det opprettet noen nøkkel under Key Data??"_qs;
const QString kWillBeSent = u"Ny instilling (%1) blir sendt til nøkkelenhet"_qs;
const QString kConflict = u"Raden er endret eller slettet"_qs;

/// Three doors, of which the second is loaded and one more lies above the level. It is 1 December
/// 2026.
struct KeyProperties : testing::Test, FakeMachine {
    KeyProperties()
    {
        database.use(module);
        module.KeySelect = kDoor;
        for (const auto &[number, level] : {std::pair(u"+4790000000"_qs, u"6"_qs),
                                            {kDoor, u"4"_qs},
                                            {u"+4790000009"_qs, u"7"_qs},
                                            {u"+4790000002"_qs, u"1"_qs}}) {
            database.add(u"KEYTable"_qs,
                         u"KeyNummer,KeyNavn,KeySikkerhet,Admin,Eget_Nummer,Alarmstatus,KeyStatus,"
                         "TimeInStart,TimeInStop,TimeOutStart,TimeOutStop,Tekst1"_qs,
                         {number, u"Port "_qs + number.right(1), level, u"1"_qs, number.mid(3),
                          u"ALARM AV"_qs, u"Normal (N)"_qs, u"07"_qs, u"09"_qs, u"15"_qs, u"17"_qs,
                          u"Hei"_qs});
        }
    }
    void open()
    {
        screen.load();
        screen.show();
        QApplication::setActiveWindow(&screen);
    }
    template <class Control> Control &control(const char *name, int index)
    {
        return *screen.findChild<Control *>(u"%1_%2"_qs.arg(QLatin1String(name)).arg(index));
    }
    QLineEdit &field(int index) { return control<QLineEdit>("KeyTXT", index); }
    QPushButton &button(int index) { return control<QPushButton>("Command1", index); }
    QComboBox &list(int index) { return control<QComboBox>("Combo1", index); }
    void type(int index, const QString &text)
    {
        field(index).setFocus();
        field(index).selectAll();
        // QTest's own typing knows no letters beyond ASCII.
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text);
        QApplication::sendEvent(&field(index), &key);
    }
    void choose(int index, int entry)
    {
        list(index).setCurrentIndex(entry);
        emit list(index).activated(entry);
    }
    void chooseModel(int index) { control<QRadioButton>("KeyType", index).click(); }
    void press(int index, Answer answer = Answer::Ok, const QString &command = {})
    {
        person.answers(kWillBeSent.arg(button(index).text() + command), answer);
        button(index).click();
    }
    void step(Qt::Key key) { QTest::keyClick(&screen, key, Qt::ControlModifier); }
    /// Indices of the buttons that can be seen, and "+" with the lists.
    std::string shownButtons()
    {
        QStringList shown;
        for (int i = 0; i < 22; ++i) {
            const auto *found = screen.findChild<QPushButton *>(u"Command1_%1"_qs.arg(i));
            if (found != nullptr && found->isVisibleTo(&screen)) {
                shown += QString::number(i);
            }
        }
        const bool label = screen.findChild<QWidget *>(u"Label1_14"_qs)->isVisibleTo(&screen);
        return shown.join(u' ').toStdString() +
               (label && list(0).isVisibleTo(&screen) && list(5).isVisibleTo(&screen) ? " +" : "");
    }
    std::string queue()
    {
        return database
            .rows(u"SELECT substr(TilNummer, -1), TilNummerKort, Etternavn, Fornavn, SMS_Text, CMGS"
                  " FROM SMS_Sent ORDER BY ID"_qs)
            .join(u';')
            .toStdString();
    }
    std::string stored(const QString &columns, const QString &door = kDoor)
    {
        return database
            .rows(u"SELECT %1 FROM KEYTable WHERE KeyNummer = '%2'"_qs.arg(columns, door))
            .join(u';')
            .toStdString();
    }
    void elsewhere(const QString &assignment)
    {
        database.look().run(u"UPDATE KEYTable SET "_qs + assignment);
    }

    Module1 module;
    TestDatabase database;
    frmKeyProperties screen{module, person, clock};
};

} // namespace

TEST_F(KeyProperties, IsDesignedWithTheseCaptionsAndLimits)
{
    const std::map<int, QString> captions = {
        {1, u"RESET ADMIN"_qs},      {4, u"Send ny ADMIN 1"_qs},  {5, u"Send ny ADMIN 2"_qs},
        {6, u"Send ny ADMIN 3"_qs},  {7, u"Send ny ADMIN 4"_qs},  {8, u"Send ny ADMIN 5"_qs},
        {9, u"Send EGET nr."_qs},    {10, u"Send Navn"_qs},       {11, u"Send  Funksjon"_qs},
        {12, u"Send Lås Status"_qs}, {13, u"Send Åpningstid"_qs}, {14, u"Hent BRUKERE"_qs},
        {15, u"Send ny tekst 1"_qs}, {16, u"Send ny tekst 2"_qs}, {17, u"Send ny tekst 3"_qs},
        {18, u"Send ny tekst4"_qs},  {19, u"Send ny tekst5"_qs},  {20, u"Send ny tekst 6"_qs},
        {21, u"Send nye tider"_qs}};
    for (const auto &[index, caption] : captions) {
        EXPECT_EQ(button(index).text(), caption);
    }
    const struct {
        int index;
        int limit;
        QString toolTip;
    } fields[] = {
        {4, 9, u"Telefonnummer til Admin1 - 8 SIFFER"_qs},
        {5, 9, u"Telefonnummer til Admin2 - 8 SIFFER"_qs},
        {6, 9, u"Telefonnummer til Admin3 - 8 SIFFER"_qs},
        {7, 9, u"Telefonnummer til Admin4 - 8 SIFFER"_qs},
        {8, 9, u"Telefonnummer til Admin5 - 8 SIFFER"_qs},
        {9, 9, u"Nøkkelens eget nummer - 8 siffer"_qs},
        {10, 20, {}},
        {12, 32767, u"N - Normal, L - Låst, O - Oppe"_qs},
        {13, 5, u"Pulslengde i sekund"_qs},
        {14, 9, u"Telefonnummer til Admin - 8 SIFFER"_qs},
        {15, 50, u"Del en av velkomstmelding"_qs},
        {16, 50, u"Del to av velkomstmeldingen"_qs},
        {17, 50, u"Del en av utmeldingen"_qs},
        {18, 50, u"Del to av utmeldingen"_qs},
        {19, 50, u"Tekst ved eventuell ALARM"_qs},
        {20, 15, u"Undertekst i meldingene"_qs},
        {21, 50, u"Denne delen av velkomsmeldingen er fast"_qs},
    };
    for (const auto &[index, limit, toolTip] : fields) {
        EXPECT_EQ(field(index).maxLength(), limit) << index;
        EXPECT_EQ(field(index).toolTip(), toolTip) << index;
    }
    EXPECT_EQ(field(21).text(), u"Ring (nummer til dør)"_qs);
    EXPECT_EQ(screen.windowTitle(), u"Dør Oppsett"_qs);
}

TEST_F(KeyProperties, BringsAButtonForWhatWasTouched)
{
    const struct {
        const char *touch; ///< field, list or model, and its index
        const char *shown; ///< the buttons afterwards; "+" with the lists
    } touches[] = {
        {"", "1 13"},
        {"field 0", "1 13"},
        {"field 1", "1 13"},
        {"field 3", "1 13"},
        {"field 4", "1 4 13"},
        {"field 8", "1 8 13"},
        {"field 9", "1 9 13"},
        {"field 10", "1 10 13"},
        {"field 13", "1 13"},
        {"field 14", "1 13 14"}, // the index decides, though that button fetches the users
        {"field 15", "1 13 15"},
        {"field 20", "1 13 20"},
        {"list 0", "1 13 21"},
        {"list 3", "1 13 21"},
        {"list 4", "1 11 13"},
        {"list 5", "1 12 13"},
        {"model 0", "1 11 12 13 14 21 +"},
        {"model 1", "1 11 12 13 14 21 +"},
        {"model 2", "1 13"},
        {"model 0 model 2", "1 13"},
        {"field 4 field 5 model 0", "1 4 5 11 12 13 14 21 +"},
    };
    for (const auto &[touch, shown] : touches) {
        open();
        const QStringList words = QString::fromLatin1(touch).split(u' ', Qt::SkipEmptyParts);
        for (int i = 0; i < words.size(); i += 2) {
            const int index = words[i + 1].toInt();
            if (words[i] == u"field") {
                type(index, index == 0 ? kDoor + u'1' : u"1"_qs);
            } else if (words[i] == u"model") {
                chooseModel(index);
            } else {
                if (index > 3) {
                    person.answers(u"Vil du fortsette?"_qs);
                }
                choose(index, 1);
            }
        }
        EXPECT_EQ(shownButtons(), shown) << touch;
        // Each starts with the row as it was.
        for (int i = 0; i < 21; ++i) {
            field(i).setModified(false);
        }
    }
}

TEST_F(KeyProperties, ChecksTheOwnNumberOfADoorWithAnAdministrator)
{
    const QString missing = u"Eget nummer er ikke angitt. Du bør sende dette til nøkkelenhet!!"_qs;
    const QString differs = u"Sjekk om EGET NUMMER er riktig !!!"_qs;
    const struct {
        QString Admin;
        QString Eget_Nummer;
        QString box;
        Answer answer;
        const char *stored;
        const char *shown;
        QString caption;
    } cases[] = {
        {u"1"_qs, kNational, {}, {}, "90000001", "1 13", u"Reset ADMIN"_qs},
        {u"0"_qs, u"6"_qs, {}, {}, "6", "1 13", u"Registrer ADMIN"_qs},
        {u"00"_qs, u"6"_qs, {}, {}, "6", "1 13", u"Reset ADMIN"_qs},
        {QString(), u"6"_qs, {}, {}, "6", "1 13", u"Reset ADMIN"_qs}, // a new door
        {u"1"_qs, u"6"_qs, missing, Answer::Ok, "90000001", "1 9 13", u"Reset ADMIN"_qs},
        {u"91234567"_qs, u"99999999"_qs, missing, Answer::Ok, "90000001", "1 9 13",
         u"Reset ADMIN"_qs},
        {u"1"_qs, u"99999999"_qs, missing, Answer::Cancel, "99999999", "1 13", u"Reset ADMIN"_qs},
        {u"1"_qs, u"66"_qs, differs, Answer::Ok, "66", "1 13", u"Reset ADMIN"_qs},
        {u"1"_qs, QString(), differs, Answer::Ok, "", "1 13", u"Reset ADMIN"_qs},
    };
    for (const auto &[Admin, Eget_Nummer, box, answer, after, shown, caption] : cases) {
        database.look().run(u"UPDATE KEYTable SET Admin = ?, Eget_Nummer = ?"_qs,
                            {Admin, Eget_Nummer});
        if (!box.isEmpty()) {
            person.answers(box, answer);
        }
        module.RefreshPending = true;
        screen.load();
        EXPECT_EQ(stored(u"Eget_Nummer"_qs), after);
        EXPECT_EQ(shownButtons(), shown);
        EXPECT_EQ(button(1).text(), caption);
        EXPECT_EQ(field(21).text(), u"Ring: "_qs + QString::fromLatin1(after));
        EXPECT_FALSE(module.RefreshPending);
    }
    EXPECT_EQ(queue(), "");
}

TEST_F(KeyProperties, EndsTheLoadWhereItFails)
{
    elsewhere(u"Admin = 'ingen'"_qs);
    person.answers(u"Teksten er ikke et tall"_qs + kOrNoKey);
    screen.load();
    EXPECT_EQ(shownButtons(), "1 14 +"); // hidden as far as it got, and nothing behind
    EXPECT_EQ(field(21).text(), u"Ring (nummer til dør)"_qs);

    module.KeySelect = u"+4790000009"_qs; // above the level
    person.answers(kNoRow + kOrNoKey);
    screen.load();
    EXPECT_EQ(field(0).text() + field(1).text() + field(15).text(), QString());
    person.answers(kWillBeSent.arg(button(14).text()));
    person.answers(u"Det er ikke valgt noen dør. Ingenting ble sendt."_qs);
    button(14).click();
    EXPECT_EQ(queue(), "");

    module.DatabaseConnection.reset();
    person.answers(u"Ingen database er åpen"_qs + kOrNoKey);
    screen.load();
}

TEST_F(KeyProperties, SavesFirstThenAsksThenHidesAndQueuesAtOk)
{
    open();
    type(15, u"Hei du Ж"_qs);
    type(4, u"91234567"_qs);
    press(15, Answer::Cancel);
    EXPECT_EQ(stored(u"Tekst1, Admin1"_qs), "Hei du ?|91234567");
    EXPECT_EQ(shownButtons(), "1 4 13");
    EXPECT_EQ(queue(), "");
    type(5, u"1"_qs);
    EXPECT_EQ(shownButtons(), "1 4 5 13") << "what was saved comes back by its own edit alone";

    press(4);
    type(4, u"91234567"_qs);
    press(4); // waits already
    press(1);
    press(13);
    EXPECT_EQ(queue(), "1|90000001|Port 1||A1 91234567|UNSENT;1|90000001|Port 1||AR|UNSENT;"
                       "1|90000001|Port 1||P |UNSENT");
    EXPECT_EQ(shownButtons(), "5");
    type(16, u"x"_qs);
    EXPECT_EQ(shownButtons(), "1 5 16");

    type(15, u"l'heure"_qs);
    person.answers(kWillBeSent.arg(button(15).text()));
    person.answers(u"apostrof"_qs);
    button(15).click();
    EXPECT_EQ(stored(u"Tekst1"_qs), "l'heure");
    EXPECT_EQ(database.single(u"SELECT count(*) FROM SMS_Sent"_qs), u"3"_qs);
}

TEST_F(KeyProperties, StoresAListAtTheChoiceAndTheHoursAtTheButton)
{
    open();
    EXPECT_EQ(list(5).placeholderText(), u"Normal (N)"_qs); // a new door's, no entry
    person.answers(u"Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"_qs, Answer::Cancel);
    choose(4, 3);
    EXPECT_EQ(list(4).currentText(), u"ALARM AV"_qs);
    person.answers(u"Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"_qs);
    choose(4, 3);
    EXPECT_EQ(stored(u"Alarmstatus, KeyStatus"_qs), "Stengt ved ALARM|Normal (N)");
    person.answers(u"ALARMFUNKSJONEN"_qs, Answer::Ok, 2s);
    clock.after(1s, [this] { elsewhere(u"Alarmstatus = 'Endebryter A'"_qs); });
    person.answers(kConflict);
    choose(4, 5); // not stored, and not to be sent
    chooseModel(0);
    button(12).click(); // no selection: nothing at all happens
    EXPECT_EQ(shownButtons(), "1 11 12 13 14 21 +");
    press(11);
    choose(1, 24);
    EXPECT_EQ(stored(u"TimeInStop"_qs), "09");
    press(21, Answer::Cancel);
    EXPECT_EQ(stored(u"TimeInStart, TimeInStop, TimeOutStart, TimeOutStop"_qs), "07|24|15|17");
    EXPECT_EQ(queue(), "1|90000001|Port 1||V4|UNSENT");
}

TEST_F(KeyProperties, AsksForThePeriodUntilItPassesOrIsEmpty)
{
    const struct {
        int model;
        QStringList typed;
        int beeps;
        const char *command;
    } cases[] = {
        {0, {u"7-16"_qs}, 0, "O 07-16*5"},
        {1, {u"24-16"_qs, u"syv til fire"_qs, u"7:45-16:15 xyz"_qs}, 1, "O 07:45-16:15 xyz*5"},
        {1, {u"7-60"_qs, QString()}, 1, ""},
    };
    for (const auto &[model, typed, beeps, command] : cases) {
        database.look().run(u"DELETE FROM SMS_Sent"_qs);
        open();
        chooseModel(model);
        person.answers(u"Dette vil Åpne eller Lukke port eller dør for alle brukere."_qs);
        choose(5, 3);
        for (const QString &text : typed) {
            person.types(u"ÅPNE"_qs, text);
        }
        person.beeps = 0;
        press(12, Answer::Ok, u" :"_qs + QString::fromLatin1(command));
        EXPECT_EQ(person.lastPrompt, u"Tast inn ÅPNINGSTID hverdager\n\n           "_qs +
                                         (model == 0 ? u"07-16"_qs : u"07:45-16:15"_qs));
        EXPECT_EQ(person.beeps, beeps);
        EXPECT_EQ(database.rows(u"SELECT SMS_Text FROM SMS_Sent"_qs).join(u';').toStdString(),
                  command);
        EXPECT_FALSE(button(12).isVisible());
    }
    EXPECT_EQ(stored(u"KeyStatus"_qs), "Oppe hverdager");
}

TEST_F(KeyProperties, StepsWithTheFieldsAloneAndBeepsAtTheEnds)
{
    elsewhere(u"Admin = '0', Eget_Nummer = '6', TimeInStart = '20' WHERE KeyNummer LIKE '%2'"_qs);
    open();
    chooseModel(1);
    type(15, u"Nytt"_qs);
    step(Qt::Key_PageDown); // past the door above the level
    EXPECT_EQ(stored(u"Tekst1"_qs), "Nytt");
    EXPECT_EQ(module.KeySelect, u"+4790000002"_qs);
    EXPECT_EQ(field(1).text(), u"Port 2"_qs);
    EXPECT_EQ(button(1).text(), u"Registrer ADMIN"_qs);
    EXPECT_EQ(list(0).currentText() + field(21).text(), u"07Ring: 90000001"_qs);
    EXPECT_EQ(shownButtons(), "1 11 12 13 14 15 21 +");
    step(Qt::Key_PageDown);
    EXPECT_EQ(field(1).text(), u"Port 2"_qs);
    EXPECT_EQ(person.beeps, 1);
    press(21); // the other door's hours
    EXPECT_EQ(stored(u"TimeInStart"_qs, module.KeySelect), "07");
    step(Qt::Key_PageUp);
    step(Qt::Key_PageUp);
    step(Qt::Key_PageUp);
    EXPECT_EQ(module.KeySelect, u"+4790000000"_qs);
    EXPECT_EQ(person.beeps, 2);
    EXPECT_EQ(queue(), "2|90000002|Port 2||A7 07091517|UNSENT");
}

TEST_F(KeyProperties, ReloadsAfterAReportUnlessTheOperatorIsInAField)
{
    open();
    chooseModel(0);
    list(3).setFocus(); // goes with the model, and its focus into no field
    const auto reportComes = [this](const QString &assignment) {
        elsewhere(assignment);
        module.RefreshPending = true;
        clock.run(10s);
    };
    reportComes(u"Admin2 = '92222222'"_qs);
    EXPECT_EQ(field(5).text(), u"92222222"_qs);
    EXPECT_EQ(shownButtons(), "1 13");
    EXPECT_FALSE(control<QRadioButton>("KeyType", 0).isChecked());
    EXPECT_FALSE(module.RefreshPending);
    reportComes(u"Admin3 = '92222222'"_qs);
    EXPECT_EQ(field(6).text(), u"92222222"_qs);

    type(4, u"91234567"_qs);
    reportComes(u"Admin2 = '93333333'"_qs);
    EXPECT_EQ(field(5).text(), u"92222222"_qs);
    // Under the open box nothing is reloaded; behind it the timer runs again, since the focus of
    // the hidden button has gone into no field.
    button(4).setFocus();
    person.answers(kWillBeSent.arg(button(4).text()), Answer::Ok, 30s);
    button(4).click();
    EXPECT_TRUE(module.RefreshPending);
    EXPECT_EQ(stored(u"Admin1, Admin2"_qs), "91234567|93333333");
    reportComes(u"Admin3 = '94444444'"_qs);
    EXPECT_EQ(field(6).text(), u"94444444"_qs);
}

TEST_F(KeyProperties, TellsWhyItCannotSaveAndWritesNothing)
{
    open();
    type(4, u"91234567"_qs);
    type(5, u"92345678"_qs);
    elsewhere(u"Admin2 = '90009000'"_qs);
    person.answers(kConflict);
    button(4).click();
    EXPECT_EQ(stored(u"Admin1, Admin2"_qs), "|90009000");
    EXPECT_EQ(shownButtons(), "1 4 5 13");
    press(4); // once told, the operator's word stands
    EXPECT_EQ(stored(u"Admin1, Admin2"_qs), "91234567|92345678");

    field(0).setFocus();
    field(0).selectAll();
    QTest::keyClick(&field(0), Qt::Key_Delete);
    person.answers(u"En dør må ha et nummer."_qs);
    button(13).click();
    EXPECT_EQ(stored(u"KeyNavn"_qs), "Port 1");
    type(0, kDoor + u'1');
    press(13);
    EXPECT_EQ(module.KeySelect, kDoor + u'1');

    type(4, u"1"_qs);
    database.look().run(u"DELETE FROM KEYTable"_qs);
    person.answers(kConflict);
    button(4).click();
    EXPECT_EQ(field(0).text(), QString());
}

TEST_F(KeyProperties, ClosesWithEscapeSavingWhatWasTyped)
{
    open();
    type(15, u"Hallo"_qs);
    elsewhere(u"Tekst1 = 'Hoi'"_qs);
    person.answers(kConflict);
    person.answers(u"Vil du lukke likevel?"_qs, Answer::Cancel);
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_TRUE(screen.isVisible());
    QTest::keyClick(&screen, Qt::Key_Escape);
    EXPECT_FALSE(screen.isVisible());
    EXPECT_EQ(stored(u"Tekst1"_qs), "Hallo");

    open();
    person.answers(kWillBeSent.arg(button(13).text()), Answer::Ok, 2s);
    clock.after(1s, [this] { screen.close(); });
    button(13).click();
    EXPECT_TRUE(screen.isVisible()) << "not under an open box";
}

TEST_F(KeyProperties, FollowsTheLanguageAndFitsAScreenOf1366By768AtOneAndAHalf)
{
    open();
    chooseModel(0);
    person.answers(u"ALARMFUNKSJONEN"_qs);
    choose(4, 3);
    const QWidget &content = *screen.findChild<QWidget *>(u"content"_qs);
    for (const auto &[language, alarm] :
         {std::pair(u"da"_qs, u"Lukket ved ALARM"_qs), {u"sv"_qs, u"Stängd vid LARM"_qs}}) {
        QTranslator texts;
        ASSERT_TRUE(texts.load(u":/translations/lukora_"_qs + language));
        QCoreApplication::installTranslator(&texts);
        QCoreApplication::processEvents();
        EXPECT_EQ(list(4).currentText(), alarm);
        EXPECT_EQ(list(5).placeholderText(), u"Normal (N)"_qs);
        EXPECT_EQ(field(21).text(), u"Ring: 90000001"_qs);
        EXPECT_EQ(button(1).text(), u"Reset ADMIN"_qs);
        EXPECT_LE(content.sizeHint().width(), 1366 * 2 / 3);
        EXPECT_LE(content.sizeHint().height(), 768 * 2 / 3 - 40); // with a title bar
    }
}

TEST_F(KeyProperties, IsReadByTabInThisOrder)
{
    open();
    chooseModel(0);
    for (QPushButton *found : screen.findChildren<QPushButton *>()) {
        found->show();
    }
    QStringList order;
    field(0).setFocus();
    do {
        // The arrows of UpDown1 have no names of their own.
        const QWidget *at = screen.focusWidget();
        order += at->objectName().isEmpty() ? at->parent()->objectName() : at->objectName();
        QTest::keyClick(&screen, Qt::Key_Tab);
    } while (!field(0).hasFocus() && order.size() < 60);
    order.replaceInStrings(u"KeyTXT_"_qs, u"T"_qs);
    order.replaceInStrings(u"Command1_"_qs, u"C"_qs);
    order.replaceInStrings(u"Combo1_"_qs, u"L"_qs);
    EXPECT_EQ(
        order.join(u' ').toStdString(),
        "T0 UpDown1 UpDown1 T1 T3 T2 KeyType_0 C14 T14 C1 T4 C4 T5 C5 T6 C6 T7 C7 T8 C8 T9 C9 "
        "T10 C10 T13 C13 T15 C15 T16 C16 T17 C17 T18 C18 T19 C19 T20 C20 L0 L1 L2 L3 C21 L4 "
        "C11 L5 C12");
}
