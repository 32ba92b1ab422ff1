#include "support/World.h"

#include <gtest/gtest.h>

namespace {

constexpr int kDoors = 20;

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

// Each user of each door is a number that nobody else has; every third has a balance.
void enterWaitingPeriods(World &world)
{
    const QString eachUser = QStringLiteral(
        "WITH RECURSIVE u(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM u WHERE i < 9) INSERT INTO ");
    world.execute(
        eachUser +
        u"Katalog (Bruker, BrukerKort, Etternavn, Fornavn) SELECT '+47' || n, "
        "n, '?', '?' FROM (SELECT 91000000 + 100 * k.Rad + i AS n FROM KEYTable k, u)"_qs);
    world.execute(eachUser +
                  u"NYEbrukere (Bruker, KeyNummer, [Gyldig fra], FraTid, [Gyldig til], "
                  "TilTid, Konto, Saldo, Status) SELECT '+47' || (91000000 + 100 * Rad + i), "
                  "KeyNummer, (1 + i) || '/12/2026', '08', '31/12/2099', '16', 'Beboer', "
                  "CASE i % 3 WHEN 0 THEN 10 + i ELSE 0 END, 'NY' FROM KEYTable, u"_qs);
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
