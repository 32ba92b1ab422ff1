#include "support/World.h"

#include "data/Dates.h"

#include <gtest/gtest.h>

namespace {

constexpr int kDoors = 20;
constexpr int kUsers = 10; ///< on each door

QString doorNumber(int door)
{
    return QStringLiteral("+47900000%1").arg(door, 2, 10, QLatin1Char('0'));
}

std::vector<World::Door> doors()
{
    std::vector<World::Door> result;
    for (int i = 0; i < kDoors; ++i) {
        result.push_back(
            {doorNumber(i), QStringLiteral("Dør %1").arg(i), static_cast<DoorLanguage>(i % 3)});
    }
    return result;
}

void enterWaitingPeriods(World &world)
{
    for (int door = 0; door < kDoors; ++door) {
        for (int user = 0; user < kUsers; ++user) {
            const QString number = QStringLiteral("+479%1").arg(1'000'000 + door * 100 + user);
            world.execute(QStringLiteral("INSERT INTO Katalog (Bruker, BrukerKort, Etternavn, "
                                         "Fornavn) VALUES ('%1', '%2', '?', '?')")
                              .arg(number, number.mid(3)));
            world.execute(
                QStringLiteral("INSERT INTO NYEbrukere (Bruker, KeyNummer, [Gyldig fra], FraTid, "
                               "[Gyldig til], TilTid, Konto, Saldo, Status) VALUES ('%1', '%2', "
                               "'%3/12/2026', '08', '31/12/2099', '16', 'Beboer', '%4', 'NY')")
                    .arg(number, doorNumber(door))
                    .arg(1 + user)
                    .arg(user % 3 == 0 ? 10 + user : 0));
        }
    }
}

// What a door holds, in the words of the table.
QStringList memoryOf(const DoorUnit &door)
{
    QStringList result;
    for (const auto &[number, user] : door.users()) {
        result.append(QStringLiteral("+47%1|%2|%3")
                          .arg(number, door.number())
                          .arg(user.hasBalance() ? user.balance() : 0));
    }
    return result;
}

} // namespace

TEST(ManyDoors, TwoHundredRegistrationsAllEndActive)
{
    World world({.doors = doors()});
    enterWaitingPeriods(world);

    ASSERT_TRUE(world.runUntilIdle(4h));
    EXPECT_EQ(world.value(u"SELECT count(*) FROM TBLbrukere WHERE Status = 'Aktiv '"_qs), u"200");
    EXPECT_EQ(world.value(u"SELECT count(*) FROM SMS_Received"_qs), u"200");
    EXPECT_EQ(world.value(u"SELECT count(*) FROM Katalog"_qs), u"200");

    QStringList inDoors;
    for (std::size_t i = 0; i < kDoors; ++i) {
        inDoors += memoryOf(world.door(i));
    }
    inDoors.sort();
    EXPECT_EQ(world.rows(u"SELECT KeyBruker, KeyNummer, trim(Saldo) FROM TBLbrukere "
                         "ORDER BY KeyBruker || '|' || KeyNummer"_qs),
              inDoors);
}
