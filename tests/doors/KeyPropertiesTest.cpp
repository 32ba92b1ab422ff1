#include "../browsers/BrowserWorld.h"
#include "doors/frmKeyProperties.h"

#include <QComboBox>
#include <QRadioButton>
#include <QScreen>
#include <QTranslator>

namespace {

constexpr int kAlarms = 4; ///< list of the alarm functions …
constexpr int kModes = 5;  ///< … and of the function modes

const QString kDoor = u"+4790000001"_qs;
const QString kNational = u"90000001"_qs;
const QString kNoRow = u"Det er ingen gjeldende rad"_qs;
const QString kOrNoKey = u"\r Er det opprettet noen nøkkel under Key Data??"_qs;
const QString kWillBeSent = u"blir sendt til nøkkelenhet"_qs;
const QString kConflict = u"Raden er endret eller slettet"_qs;

/// Three doors, of which the second is loaded and one more lies above the level. It is 1 December
/// 2026.
struct KeyProperties : ScreenWorld {
    KeyProperties()
    {
        module.KeySelect = kDoor;
        for (const char *door : {"06", "14", "97", "21"}) {
            run(u"INSERT INTO KEYTable (KeyNummer, KeyNavn, KeySikkerhet, Admin, Eget_Nummer,"
                " Tekst1, Alarmstatus, KeyStatus, TimeInStart, TimeInStop, TimeOutStart,"
                " TimeOutStop) VALUES ('+479000000%1', 'Port %1', '%2', '1', '9000000%1', 'Hei',"
                " 'ALARM AV', 'Normal (N)', '07', '09', '15', '17')"_qs.arg(QLatin1Char(door[0]))
                    .arg(QLatin1Char(door[1])));
        }
    }
    std::string queue()
    {
        return rows(u"SELECT substr(TilNummer, -1), TilNummerKort, Etternavn, Fornavn, SMS_Text,"
                    " CMGS FROM SMS_Sent ORDER BY ID"_qs);
    }
    std::string stored(const QString &columns, const QString &door = kDoor)
    {
        return rows(u"SELECT %1 FROM KEYTable WHERE KeyNummer = '%2'"_qs.arg(columns, door));
    }
    void elsewhere(const QString &assignment) { run(u"UPDATE KEYTable SET "_qs + assignment); }

    /// Columns of the door's row, then the buttons that can be seen.
    std::string storedAndShown(const QString &columns)
    {
        return stored(columns) + " / " + shownButtons();
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
        field(index).insert(text);
    }
    void choose(int index, int entry)
    {
        list(index).setCurrentIndex(entry);
        emit list(index).activated(entry);
    }
    void chooseAlarm(int entry, Answer answer)
    {
        person.answers(u"Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"_qs, answer);
        choose(kAlarms, entry);
    }
    void chooseModel(int index) { control<QRadioButton>("KeyType", index).click(); }
    /// The command is that of a function mode, which alone is shown.
    void press(int index, Answer answer = Answer::Ok, const QString &command = {})
    {
        person.answers(
            u"Ny instilling (%1) blir sendt til nøkkelenhet"_qs.arg(button(index).text() + command),
            answer);
        button(index).click();
    }
    /// The command goes no further than to a box that says why.
    void pressInVain(int index, const QString &why, bool isAsked = false)
    {
        const std::string queued = queue();
        if (isAsked) {
            person.answers(kWillBeSent, Answer::Ok);
        }
        person.answers(why);
        button(index).click();
        EXPECT_EQ(queue(), queued);
    }
    /// Of UpDown1: 0 for the one that points up, 1 for the other.
    void clickArrow(int arrow)
    {
        screen.findChild<QWidget *>(u"UpDown1"_qs)
            ->findChildren<QAbstractButton *>()[arrow]
            ->click();
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
        const bool hasLists = screen.findChild<QWidget *>(u"Label1_14"_qs)->isVisibleTo(&screen);
        for (int i = 0; i < 6; ++i) {
            EXPECT_EQ(list(i).isVisibleTo(&screen), hasLists) << "with its label";
        }
        return shown.join(u' ').toStdString() + (hasLists ? " +" : "");
    }

    frmKeyProperties screen{module, person, clock};
};

} // namespace

TEST_F(KeyProperties, HasTheseCaptionsAndLimits)
{
    QStringList captions;
    QString limits;
    for (int i = 0; i < 22; ++i) {
        if (i == 1 || i > 3) {
            captions += button(i).text();
        }
        limits += u' ' + QString::number(field(i).maxLength() % 32767); // 0 for none
    }
    EXPECT_EQ(captions.join(u'|').toStdString(),
              "RESET ADMIN|Send ny ADMIN 1|Send ny ADMIN 2|Send ny ADMIN 3|Send ny ADMIN 4|"
              "Send ny ADMIN 5|Send EGET nr.|Send Navn|Send  Funksjon|Send Lås Status|"
              "Send Åpningstid|Hent BRUKERE|Send ny tekst 1|Send ny tekst 2|Send ny tekst 3|"
              "Send ny tekst4|Send ny tekst5|Send ny tekst 6|Send nye tider");
    EXPECT_EQ(limits, u" 0 0 0 0 9 9 9 9 9 9 20 0 0 5 9 50 50 50 50 50 15 50"_qs);
    EXPECT_EQ(field(21).text(), u"Ring (nummer til dør)"_qs);
}

TEST_F(KeyProperties, BringsAButtonForWhatWasTouched)
{
    // Fields, lists and models, and the buttons afterwards.
    for (const auto &[touched, shown] : {
             std::pair(u""_qs, "1 13"),
             {u"F0 F1 F3"_qs, "1 13"},
             {u"F4 F5 F7 F9 F16 F18"_qs, "1 4 5 7 9 13 16 18"},
             {u"F6 F8 F10 F15 F17 F19"_qs, "1 6 8 10 13 15 17 19"},
             {u"F14 F20"_qs, "1 13 14 20"}, // by its index, though that of 14 fetches the users
             {u"L0 L3"_qs, "1 13 21"},
             {u"L4"_qs, "1 11 13"},
             {u"L5"_qs, "1 12 13"},
             {u"M0"_qs, "1 11 12 13 14 21 +"},
             {u"M1"_qs, "1 11 12 13 14 21 +"},
             {u"M0 M2"_qs, "1 13"},
         }) {
        open();
        for (const QString &control : touched.split(u' ', Qt::SkipEmptyParts)) {
            const int index = control.mid(1).toInt();
            if (control[0] == u'F') {
                type(index, index == 0 ? kDoor + u'1' : u"1"_qs);
            } else if (control[0] == u'M') {
                chooseModel(index);
            } else {
                if (index >= kAlarms) {
                    person.answers(u"Vil du fortsette?"_qs, Answer::Ok);
                }
                choose(index, 1);
            }
        }
        EXPECT_EQ(shownButtons(), shown);
        for (int i = 0; i < 21; ++i) { // each starts with the row as it was
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
        std::function<void()> box;
        QString after; ///< the number that is in the file
        const char *shown = "1 13";
    } cases[] = {
        {u"1"_qs, kNational, [] {}, kNational},
        {u"0"_qs, u"6"_qs, [] {}, u"6"_qs},
        {u"00"_qs, u"6"_qs, [] {}, u"6"_qs},
        {{}, u"6"_qs, [] {}, u"6"_qs}, // a new door
        {u"1"_qs, u"6"_qs, [&] { person.answers(missing, Answer::Ok); }, kNational, "1 9 13"},
        {u"1"_qs, u"99999999"_qs, [&] { person.answers(missing, Answer::Cancel); }, u"99999999"_qs},
        {u"1"_qs, {}, [&] { person.answers(differs); }, {}},
    };
    for (const auto &[Admin, Eget_Nummer, box, after, shown] : cases) {
        elsewhere(u"Admin = '%1', Eget_Nummer = '%2'"_qs.arg(Admin, Eget_Nummer));
        box();
        module.RefreshPending = true;
        screen.load();
        EXPECT_EQ(storedAndShown(u"Eget_Nummer"_qs), after.toStdString() + " / " + shown);
        EXPECT_EQ(button(1).text(), Admin == u"0" ? u"Registrer ADMIN"_qs : u"Reset ADMIN"_qs);
        EXPECT_EQ(field(21).text(), u"Ring: "_qs + after);
        EXPECT_FALSE(module.RefreshPending);
    }

    // A blank before a number makes another door of it, but is none of its characters.
    elsewhere(u"KeyNummer = ' +4790000001', Eget_Nummer = '6' WHERE KeyNavn = 'Port 0'"_qs);
    elsewhere(u"Admin = '1'"_qs);
    module.KeySelect = u' ' + kDoor;
    person.answers(missing, Answer::Ok);
    screen.load();
    EXPECT_EQ(field(1).text(), u"Port 0"_qs);
    EXPECT_EQ(stored(u"Eget_Nummer"_qs, module.KeySelect), "90000001");
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
    pressInVain(14, u"Det er ikke valgt noen dør. Ingenting ble sendt."_qs, true);

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
    EXPECT_EQ(storedAndShown(u"Tekst1, Admin1"_qs), "Hei du ?|91234567 / 1 4 13");
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
    pressInVain(15, u"apostrof"_qs, true);
    EXPECT_EQ(stored(u"Tekst1"_qs), "l'heure");
}

TEST_F(KeyProperties, StoresAListAtTheChoiceAndTheHoursAtTheButton)
{
    open();
    EXPECT_EQ(list(kModes).placeholderText(), u"Normal (N)"_qs); // a new door's, no entry
    chooseAlarm(3, Answer::Cancel);
    EXPECT_EQ(list(kAlarms).currentText(), u"ALARM AV"_qs);
    chooseAlarm(3, Answer::Ok);
    EXPECT_EQ(stored(u"Alarmstatus, KeyStatus"_qs), "Stengt ved ALARM|Normal (N)");
    person.answers(u"ALARMFUNKSJONEN"_qs, Answer::Ok, 2s);
    clock.after(1s, [this] { elsewhere(u"Alarmstatus = 'Endebryter A'"_qs); });
    person.answers(kConflict);
    choose(kAlarms, 5); // not stored, and not to be sent
    chooseModel(0);
    button(12).click(); // no selection: nothing at all happens
    EXPECT_EQ(shownButtons(), "1 11 12 13 14 21 +");
    press(11);
    choose(1, 24);
    EXPECT_EQ(stored(u"TimeInStop"_qs), "09");
    press(21, Answer::Cancel);
    EXPECT_EQ(stored(u"TimeInStart, TimeInStop, TimeOutStart, TimeOutStop"_qs), "07|24|15|17");
    elsewhere(u"TimeOutStart = NULL"_qs); // of a new door
    open();
    choose(3, 6);
    pressInVain(21, u"Velg alle fire klokkeslett. Ingenting ble sendt."_qs);
    EXPECT_EQ(queue(), "1|90000001|Port 1||V4|UNSENT");
}

TEST_F(KeyProperties, AsksForThePeriodUntilItPassesOrIsEmpty)
{
    for (const auto &[typed, command] :
         {std::pair(u"24-16|syv til fire|7:45-16:15 xyz"_qs, "O 07:45-16:15 xyz*5"),
          {u"7-60|"_qs, ""}}) {
        run(u"DELETE FROM SMS_Sent"_qs);
        open();
        chooseModel(1);
        person.answers(u"Dette vil Åpne eller Lukke port eller dør for alle brukere."_qs,
                       Answer::Ok);
        choose(kModes, 3);
        for (const QString &text : typed.split(u'|')) {
            person.types(u"ÅPNE"_qs, text);
        }
        person.beeps = 0;
        press(12, Answer::Ok, u" :"_qs + QString::fromLatin1(command));
        EXPECT_EQ(person.lastPrompt, u"Tast inn ÅPNINGSTID hverdager\n\n           07:45-16:15"_qs);
        EXPECT_EQ(person.beeps, 1);
        EXPECT_EQ(rows(u"SELECT SMS_Text FROM SMS_Sent"_qs), command);
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
    clickArrow(0); // past the door above the level
    EXPECT_EQ(stored(u"Tekst1"_qs), "Nytt");
    const QStringList shown = {module.KeySelect, field(1).text(), button(1).text(),
                               list(0).currentText(), field(21).text()};
    EXPECT_EQ(shown.join(u'|'), u"+4790000002|Port 2|Registrer ADMIN|07|Ring: 90000001"_qs);
    EXPECT_EQ(shownButtons(), "1 11 12 13 14 15 21 +");
    step(Qt::Key_PageDown);
    EXPECT_EQ(field(1).text(), u"Port 2"_qs);
    EXPECT_EQ(person.beeps, 1);
    press(21); // the other door's hours
    EXPECT_EQ(stored(u"TimeInStart"_qs, module.KeySelect), "07");
    clickArrow(1);
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
    // Under the open box nothing is reloaded or closed; behind it the timer runs again, since the
    // focus of the hidden button has gone into no field.
    button(4).setFocus();
    person.answers(kWillBeSent, Answer::Ok, 30s);
    clock.after(1s, [this] { screen.close(); });
    button(4).click();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_TRUE(module.RefreshPending);
    EXPECT_EQ(stored(u"Admin1, Admin2"_qs), "91234567|93333333");
    reportComes(u"Admin3 = '94444444'"_qs);
    EXPECT_EQ(field(6).text(), u"94444444"_qs);
    person.answers(u"Teksten er ikke et tall"_qs); // once: the flag goes though the load fails
    reportComes(u"Admin = 'ingen'"_qs);
    clock.run(10s);
}

TEST_F(KeyProperties, TellsWhyItCannotSaveAndWritesNothing)
{
    open();
    type(4, u"91234567"_qs);
    type(5, u"92345678"_qs);
    elsewhere(u"Admin2 = '90009000'"_qs);
    pressInVain(4, kConflict);
    EXPECT_EQ(storedAndShown(u"Admin1, Admin2"_qs), "|90009000 / 1 4 5 13");
    press(4); // once told, the operator's word stands
    EXPECT_EQ(stored(u"Admin1, Admin2"_qs), "91234567|92345678");

    type(0, {});
    pressInVain(13, u"En dør må ha et nummer."_qs);
    EXPECT_EQ(stored(u"KeyNavn"_qs), "Port 1");
    type(0, u"+4790000002"_qs); // another door's
    pressInVain(13, u"Det finnes allerede en rad med dette nummeret"_qs);
    type(0, kDoor + u'1');
    press(13);
    EXPECT_EQ(module.KeySelect, kDoor + u'1');

    type(0, u"+47 90 00 00 01"_qs);
    pressInVain(13, u"Mottakeren er ikke et telefonnummer"_qs, true);
    type(0, kDoor);
    press(13, Answer::Cancel);
    elsewhere(u"KeyNummer = '+4790000007' WHERE KeyNavn = 'Port 1'"_qs);
    pressInVain(1, kConflict, true);
    type(4, u"1"_qs); // saving reads the new number
    pressInVain(4, kConflict);
    run(u"DELETE FROM KEYTable"_qs);
    pressInVain(1, kConflict, true);
    type(4, u"1"_qs);
    pressInVain(4, kConflict);
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
}

TEST_F(KeyProperties, FollowsTheLanguageAndFitsAScreenOf1366By768AtOneAndAHalf)
{
    open();
    const QWidget &content = *screen.findChild<QWidget *>(u"content"_qs);
    const int available = screen.screen()->availableSize().width();
    EXPECT_GE(screen.width(), std::min(content.sizeHint().width(), available));
    screen.close();
    screen.resize(400, 300);
    open();
    EXPECT_EQ(screen.size(), QSize(400, 300)) << "as its operator left it";
    chooseModel(0);
    chooseAlarm(3, Answer::Ok);
    for (const auto &[language, alarm] :
         {std::pair(u"da"_qs, u"Lukket ved ALARM"_qs), {u"sv"_qs, u"Stängd vid LARM"_qs}}) {
        QTranslator texts;
        ASSERT_TRUE(texts.load(u":/translations/lukora_"_qs + language));
        QCoreApplication::installTranslator(&texts);
        QCoreApplication::processEvents();
        EXPECT_EQ(list(kAlarms).currentText(), alarm);
        EXPECT_EQ(list(kModes).placeholderText(), u"Normal (N)"_qs);
        EXPECT_EQ(field(21).text(), u"Ring: 90000001"_qs);
        EXPECT_EQ(button(1).text(), u"Reset ADMIN"_qs);
        EXPECT_LE(content.sizeHint().width(), 1366 * 2 / 3);
        EXPECT_LE(content.sizeHint().height(), 768 * 2 / 3 - 40); // with a title bar
    }
}
