#include "simulator/DoorUnit.h"
#include "ModemWorld.h"

namespace {

constexpr auto kNorwegian = DoorLanguage::Norwegian;
const QString kDoor = u"+4790000001"_qs;
const DoorPeriod kOther{QDate(2027, 1, 5), 8, QDate(2027, 2, 5), 16};

/// One unit, which holds 91234567 for another period and 92345678 with a balance of 3.
struct DoorWorld : ModemWorld {
    explicit DoorWorld(DoorLanguage language = kNorwegian, const QString &name = u"Hovedport"_qs)
        : door(network, kDoor, name, language)
    {
        door.seedUser(u"91234567"_qs, {kOther});
        door.seedUser(u"92345678"_qs, {3, true});
    }
    /// The unit's answer in raw codes; empty when it says nothing.
    QByteArray ask(const QByteArray &command)
    {
        received.clear();
        network.send(kStranger, kDoor, command);
        clock.run(2min); // a hundred records of a log take a minute
        return received.chopped(received.isEmpty() ? 0 : 1);
    }
    DoorUnit door;
};

struct Door : testing::Test, DoorWorld {};

TEST_F(Door, ChangesItsModeInTheFormsOfItsType)
{
    const struct {
        DoorType type;
        const char *command;
        const char *mode;
    } rows[] = {
        {DoorType::Type310, "L", "L"},    {DoorType::Type310, "O 07-16*5", "O 07-16*5"},
        {DoorType::Mk, "O 07-16*5", "N"}, {DoorType::Mk, "O 23:59-00:00*1", "O 23:59-00:00*1"},
        {DoorType::Argon, "O", "N"},
    };
    for (const auto &[type, command, mode] : rows) {
        DoorWorld world;
        world.door.setType(type);
        EXPECT_EQ(world.ask(command), "");
        EXPECT_EQ(world.door.settings().mode.toStdString(), mode) << command;
    }
}

TEST_F(Door, SaysAndDoesNothingToAnythingElse)
{
    const DoorUnit::Users before = door.users();
    for (const char *command :
         {"", "Hei, er du der?", "I 91234567", "I 91234567>26130100<26120324",
          "I 91234567>26120100<26120325", "I 91234567>26120100<261203",
          "I 91234567>26120100<2612032400", "I 9123456x*3", "U91234567", "\x01\x1b\xff",
          // Out of range or too long.
          "A0 91234567", "A8 91234567", "A1 9123456", "A1 9123456789", "A1 +4791234567",
          "A6 4790000001", "A6 +4790000001234", "A7 07091525", "A7 070915", "A7 070915171", "V9",
          "V", "V10", "P 0", "P 123456", "P -1", "P x", "P ", "r1", "r20", "r1000", "r", "T0 x",
          "T7 x", "T6 1234567890123456", "B !123456789012345678901",
          "T1 123456789012345678901234567890123456789012345678901",
          // A mode's period of the other type, or none.
          "O 07:00-16:00*5", "O 24-16*5", "O 7-16*5", "O 07-16*8", "O 07-16*0", "O 07-16", "O *5",
          "N 07-16*5", "O 07-16*5 x",
          // Another case, or another number of blanks.
          "k", "R5", "ar", "Ar", "a1 91234567", "b !x", "v1", "n", "l", "o", "p 5", "t1 x", "A1",
          "A191234567", "A1  91234567", "AR ", " AR", "K ", "r5 ", "T1", "Vx", " N", "??"}) {
        EXPECT_EQ(ask(command), QByteArray()) << command;
    }
    EXPECT_EQ(door.users(), before);
    EXPECT_EQ(door.settings(), DoorWorld().door.settings());
}

TEST_F(Door, AnswersARegistrationInOneMessageAtItsLongest)
{
    DoorWorld world(DoorLanguage::Swedish, QString(20, u'å'));
    world.door.seedUser(QString(20, u'9'), {kOther, false, '5'});
    const QByteArray answer = world.ask("I " + QByteArray(20, '9') + ">26120100<26120324");
    EXPECT_TRUE(answer.contains("A-5"));
    EXPECT_LE(answer.size(), 160);
}

} // namespace
