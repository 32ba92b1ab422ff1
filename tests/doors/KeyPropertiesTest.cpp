#include "../browsers/BrowserWorld.h"
#include "doors/frmKeyProperties.h"

#include <QComboBox>
#include <QScreen>
#include <QTranslator>

TEST_F(ScreenWorld, DoorSettingsFollowTheLanguageAndFitAScreenOf1366By768AtOneAndAHalf)
{
    module.KeySelect = u"+4790000001"_qs;
    run(u"INSERT INTO KEYTable (KeyNummer, KeyNavn, KeySikkerhet, Admin, Eget_Nummer,"
        " Alarmstatus, KeyStatus) VALUES ('+4790000001', 'Port 1', '4', '1', '90000001',"
        " 'ALARM AV', 'Normal (N)')"_qs);
    frmKeyProperties screen(module, person, clock);
    const auto open = [&] { screen.load(), screen.show(); };
    open();
    const QWidget &content = *screen.findChild<QWidget *>(u"content"_qs);
    const int available = screen.screen()->availableSize().width();
    EXPECT_GE(screen.width(), std::min(content.sizeHint().width(), available));
    screen.close();
    screen.resize(400, 300);
    open();
    EXPECT_EQ(screen.size(), QSize(400, 300)) << "as its operator left it";
    screen.findChild<QAbstractButton *>(u"KeyType_0"_qs)->click();
    person.answers(u"Dette vil endre ALARMFUNKSJONEN. Vil du fortsette?"_qs, Answer::Ok);
    auto &alarms = *screen.findChild<QComboBox *>(u"Combo1_4"_qs);
    alarms.setCurrentIndex(3);
    emit alarms.activated(3);
    for (const auto &[language, alarm] :
         {std::pair(u"da"_qs, u"Lukket ved ALARM"_qs), {u"sv"_qs, u"Stängd vid LARM"_qs}}) {
        QTranslator texts;
        ASSERT_TRUE(texts.load(u":/translations/lukora_"_qs + language));
        QCoreApplication::installTranslator(&texts);
        QCoreApplication::processEvents();
        EXPECT_EQ(alarms.currentText(), alarm);
        EXPECT_EQ(screen.findChild<QComboBox *>(u"Combo1_5"_qs)->placeholderText(),
                  u"Normal (N)"_qs);
        EXPECT_EQ(screen.findChild<QLineEdit *>(u"KeyTXT_21"_qs)->text(), u"Ring: 90000001"_qs);
        EXPECT_EQ(screen.findChild<QAbstractButton *>(u"Command1_1"_qs)->text(), u"Reset ADMIN"_qs);
        EXPECT_LE(content.sizeHint().width(), 1366 * 2 / 3);
        EXPECT_LE(content.sizeHint().height(), 768 * 2 / 3 - 40); // with a title bar
    }
}
