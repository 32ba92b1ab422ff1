#include "ConfigurationHands.h"

namespace {

/// The configuration screen beside the running program, and a unit that answers.
struct SettingsWorld : World, Hands {
    using Hands::type;

    SettingsWorld() : Hands(application().module(), person, clock)
    {
        execute(u"UPDATE KEYTable SET Admin = '0', Eget_Nummer = '99999999'"_qs);
        door().seedUser(u"91234567"_qs, {DoorPeriod{{2026, 1, 1}, 0, {2027, 1, 1}, 24}});
        open();
    }
    /// Sends, and waits until the unit's answer has been read and shown, with a box if it brings
    /// one.
    void send(int index, const QString &typed = {}, const QString &box = {})
    {
        if (!typed.isEmpty()) {
            type(index, typed);
        }
        ASSERT_TRUE(button(index).isVisible()) << index;
        button(index).setFocus();
        press(index, Answer::Ok, index == 12 ? u" :O 07-16*7"_qs : QString());
        if (!box.isEmpty()) {
            person.answers(box);
        }
        clock.run(1min);
        EXPECT_TRUE(runUntilIdle()) << index;
        clock.run(10s);
    }
};

} // namespace

TEST(DoorSettings, ReachTheUnitAndItsReportsComeBackToTheScreen)
{
    SettingsWorld world;
    DoorSettings expected = world.door().settings();

    world.send(1, {}, u"Eget nummer er ikke angitt."_qs);
    EXPECT_EQ(world.button(1).text(), u"Reset ADMIN"_qs);
    expected.administrator = world.modem.ownNumber();
    world.send(9);
    expected.ownNumber = u"90000001"_qs;
    for (int i = 4; i <= 8; ++i) {
        world.send(i, expected.assistants.at(i - 4) = u"9200000%1"_qs.arg(i));
    }
    world.send(10, expected.name = u"Sideport"_qs);
    world.send(13, u"12"_qs);
    expected.pulse = 12;
    for (int i = 15; i <= 20; ++i) {
        world.send(i, expected.texts.at(i - 15) = u"Tekst %1"_qs.arg(i));
    }
    world.chooseModel(0);
    world.person.answers(u"ALARMFUNKSJONEN"_qs);
    world.choose(4, 8);
    world.send(11);
    expected.alarmFunction = 8;
    world.chooseModel(0);
    world.person.answers(u"Åpne eller Lukke port"_qs);
    world.choose(5, 4);
    world.person.types(u"ÅPNE"_qs, u"7-16"_qs);
    world.send(12);
    EXPECT_EQ(world.person.lastPrompt, u"Tast inn ÅPNINGSTID hverdager\n\n           07-16"_qs);
    expected.mode = u"O 07-16*7"_qs;
    for (const auto &[list, hour] : {std::pair(0, 6), {1, 8}, {2, 14}, {3, 24}}) {
        world.choose(list, hour);
    }
    world.send(21);
    expected.hours = u"06081424"_qs;
    world.chooseModel(0);
    world.send(14);
    EXPECT_EQ(world.status(u"+4791234567"_qs), u"AKTIV"_qs);
    EXPECT_EQ(world.door().settings(), expected);

    EXPECT_EQ(
        world.rows(u"SELECT Beskrivelse, Admin, Admin1, Admin5, Eget_Nummer FROM KEYTable"_qs),
        QStringList{u"Sideport|99000000|92000004|92000008|90000001"_qs});
    EXPECT_EQ(world.field(14).text(), u"99000000"_qs);
    world.send(1); // hands it on
    EXPECT_EQ(world.button(1).text(), u"Registrer ADMIN"_qs);
    EXPECT_TRUE(world.door().settings().handedOn);
    EXPECT_EQ(world.value(u"SELECT count(*) FROM SMS_Sent"_qs), u"20"_qs);
}
