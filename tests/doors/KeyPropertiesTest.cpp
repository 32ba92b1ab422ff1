#include "../browsers/BrowserWorld.h"
#include "doors/frmKeyProperties.h"

#include <QComboBox>
#include <QRadioButton>
#include <QScreen>
#include <QTranslator>

namespace {

constexpr int kAlarms = 4; ///< list of the alarm functions …
constexpr int kModes = 5;  ///< … and of the function modes

const QString kAlarm = u"Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"_qs;

/// One door that knows its number. It is 1 December 2026.
struct KeyProperties : ScreenWorld {
    KeyProperties()
    {
        module.KeySelect = u"+4790000001"_qs;
        run(u"INSERT INTO KEYTable (KeyNummer, KeyNavn, KeySikkerhet, Admin, Eget_Nummer,"
            " Alarmstatus, KeyStatus) VALUES ('+4790000001', 'Port 1', '4', '1', '90000001',"
            " 'ALARM AV', 'Normal (N)')"_qs);
    }
    std::string stored(const QString &columns)
    {
        return rows(u"SELECT %1 FROM KEYTable"_qs.arg(columns));
    }
    void elsewhere(const QString &assignment) { run(u"UPDATE KEYTable SET "_qs + assignment); }

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
    void chooseModel(int index) { control<QRadioButton>("KeyType", index).click(); }
    bool showsLists() { return screen.findChild<QWidget *>(u"Label1_14"_qs)->isVisible(); }

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

TEST_F(KeyProperties, ChoiceIsTakenBackWhenAnotherPcChoseWhileItIsAskedAbout)
{
    open();
    person.answers(kAlarm, Answer::Ok, 2s);
    clock.after(1s, [this] { elsewhere(u"Alarmstatus = 'Endebryter A'"_qs); });
    person.answers(u"Raden er endret eller slettet"_qs);
    choose(kAlarms, 5); // not stored, and not to be sent
    EXPECT_EQ(stored(u"Alarmstatus"_qs), "Endebryter A");
    EXPECT_FALSE(button(11).isVisible());
}

TEST_F(KeyProperties, SaysThatThereIsNoDatabase)
{
    open();
    module.DatabaseConnection.reset();
    person.answers(u"Ingen database er åpen\r Er det opprettet noen nøkkel under Key Data??"_qs);
    screen.load();
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
    EXPECT_FALSE(showsLists());
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
    person.answers(u"blir sendt til nøkkelenhet"_qs, Answer::Ok, 30s);
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
    person.answers(kAlarm, Answer::Ok);
    choose(kAlarms, 3);
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
