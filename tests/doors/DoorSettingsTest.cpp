#include "doors/frmKeyProperties.h"

#include "support/World.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <gtest/gtest.h>

namespace {

/// The configuration screen beside the running program, and a unit that answers.
struct SettingsWorld : World {
    SettingsWorld()
    {
        execute(u"UPDATE KEYTable SET Admin = '0', Eget_Nummer = '99999999'"_qs);
        door().seedUser(u"91234567"_qs, {DoorPeriod{{2026, 1, 1}, 0, {2027, 1, 1}, 24}});
        keys.load();
        keys.show();
        QApplication::setActiveWindow(&keys);
    }
    template <class Control> Control &control(const char *name, int index)
    {
        return *keys.findChild<Control *>(u"%1_%2"_qs.arg(QLatin1String(name)).arg(index));
    }
    QString caption(int index) { return control<QPushButton>("Command1", index).text(); }
    void type(int field, const QString &text)
    {
        auto &edit = control<QLineEdit>("KeyTXT", field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
    }
    void choose(int list, int entry)
    {
        control<QRadioButton>("KeyType", 0).click();
        control<QComboBox>("Combo1", list).setCurrentIndex(entry);
        emit control<QComboBox>("Combo1", list).activated(entry);
    }
    /// Sends, and waits until the unit's answer has been read and shown, with a box if it brings
    /// one.
    void send(int index, const QString &box = {})
    {
        auto &button = control<QPushButton>("Command1", index);
        ASSERT_TRUE(button.isVisible()) << index;
        button.setFocus();
        person.answers(u") blir sendt til nøkkelenhet"_qs);
        if (!box.isEmpty()) {
            person.answers(box);
        }
        button.click();
        clock.run(1min);
        EXPECT_TRUE(runUntilIdle()) << index;
        clock.run(10s);
    }

    frmKeyProperties keys{application().module(), person, clock};
};

} // namespace

TEST(DoorSettings, ReachTheUnitAndItsReportsComeBackToTheScreen)
{
    SettingsWorld world;
    DoorSettings expected = world.door().settings();
    const QString kOwnNumber = u"90000001"_qs;

    EXPECT_EQ(world.caption(1), u"Registrer ADMIN"_qs);
    world.send(1, u"Eget nummer er ikke angitt."_qs);
    EXPECT_EQ(world.caption(1), u"Reset ADMIN"_qs);
    expected.administrator = world.modem.ownNumber();
    world.send(9);
    expected.ownNumber = kOwnNumber;
    for (int i = 4; i <= 8; ++i) {
        world.type(i, u"9200000%1"_qs.arg(i));
        world.send(i);
        expected.assistants.at(i - 4) = u"9200000%1"_qs.arg(i);
    }
    world.type(10, u"Sideport"_qs);
    world.send(10);
    expected.name = u"Sideport"_qs;
    world.type(13, u"12"_qs);
    world.send(13);
    expected.pulse = 12;
    for (int i = 15; i <= 20; ++i) {
        world.type(i, u"Tekst %1"_qs.arg(i));
        world.send(i);
        expected.texts.at(i - 15) = u"Tekst %1"_qs.arg(i);
    }
    world.person.answers(u"ALARMFUNKSJONEN"_qs);
    world.choose(4, 8);
    world.send(11);
    expected.alarmFunction = 8;
    world.person.answers(u"Åpne eller Lukke port"_qs);
    world.choose(5, 4);
    world.person.types(u"ÅPNE"_qs, u"7-16"_qs);
    world.send(12);
    expected.mode = u"O 07-16*7"_qs;
    world.choose(0, 6);
    world.choose(1, 8);
    world.choose(2, 14);
    world.choose(3, 24);
    world.send(21);
    expected.hours = u"06081424"_qs;
    world.choose(0, 6);
    world.send(14);
    EXPECT_EQ(world.status(u"+4791234567"_qs), u"AKTIV"_qs);
    EXPECT_EQ(world.door().settings(), expected);

    EXPECT_EQ(
        world.rows(u"SELECT Beskrivelse, Admin, Admin1, Admin5, Eget_Nummer FROM KEYTable"_qs),
        QStringList{u"Sideport|99000000|92000004|92000008|90000001"_qs});
    EXPECT_EQ(world.control<QLineEdit>("KeyTXT", 14).text(), u"99000000"_qs);
    world.send(1); // hands it on
    EXPECT_EQ(world.caption(1), u"Registrer ADMIN"_qs);
    EXPECT_TRUE(world.door().settings().handedOn);
    EXPECT_EQ(world.value(u"SELECT count(*) FROM SMS_Sent"_qs), u"20"_qs);
}
