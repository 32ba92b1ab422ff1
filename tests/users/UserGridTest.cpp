#include "platform/RuntimeFailure.h"
#include "users/DoorStepper.h"
#include "users/UserGridModel.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

struct GridWorld : UsersWorld {
    /// Numbers shown under the tab, in order, by their last two digits.
    QStringList shown(const QString &tab)
    {
        module.GridFilter = tab;
        grid.VisBrukerTabell();
        QStringList numbers;
        for (const RecordsetRow &row : grid.rows().rows()) {
            numbers.append(row.values.first().toString().right(2));
        }
        return numbers;
    }
};

QString number(int last)
{
    return QStringLiteral("+47910000%1").arg(last);
}

TEST(VisBrukerTabell, DoorWithoutUsersHasTwoTabs)
{
    GridWorld world;
    EXPECT_EQ(world.grid.tabs(), (QStringList{u"Nye"_qs, u"Alle"_qs}));
}

TEST(VisBrukerTabell, TabsAreTheAccountsOfTheDoorOnce)
{
    GridWorld world;
    world.addUser(number(10), u"MobReg"_qs, u"Aktiv "_qs);
    world.addUser(number(11), u"GJEST"_qs, u"Aktiv "_qs);
    world.addUser(number(12), u"gjest"_qs, u"Aktiv "_qs);
    world.addUser(number(13), QString(), u"Aktiv "_qs);
    world.addUser(number(14), u"Annen dør"_qs, u"Aktiv "_qs, kOtherDoor);
    EXPECT_EQ(world.grid.tabs(), (QStringList{u"Nye"_qs, u"GJEST"_qs, u"MobReg"_qs, u"Alle"_qs}));
}

TEST(VisBrukerTabell, EachTabShowsItsRows)
{
    GridWorld world;
    world.addUser(number(20), u"Gjest"_qs, u"NY"_qs);
    world.addUser(number(21), u"Gjest"_qs, u"Ny"_qs);
    world.addUser(number(22), u"GJEST"_qs, u"Aktiv "_qs);
    world.addUser(number(23), u"Saldo"_qs, u"Registrerer"_qs);
    world.addUser(number(24), u"Gjest"_qs, u"Aktiv "_qs, kOtherDoor);
    world.addUser(number(27), u" Vakt"_qs, u"Aktiv "_qs);
    world.addWaiting(number(25), u"2/12/2026"_qs);
    world.addWaiting(number(26), u"2/12/2026"_qs, u"NY"_qs, kOtherDoor);
    EXPECT_EQ(world.shown(u"Nye"_qs), QStringList{u"25"_qs});
    EXPECT_EQ(world.shown(u"Gjest"_qs), QStringList{u"22"_qs});
    EXPECT_EQ(world.shown(u"Saldo"_qs), QStringList{u"23"_qs});
    EXPECT_FALSE(world.grid.hasOwnLayout());
    EXPECT_EQ(world.shown(u"Alle"_qs),
              (QStringList{u"20"_qs, u"21"_qs, u"22"_qs, u"23"_qs, u"27"_qs}));
    EXPECT_EQ(world.shown(u" Vakt"_qs), QStringList{u"27"_qs}); // an account counts as typed
    EXPECT_TRUE(world.grid.hasOwnLayout());
    EXPECT_EQ(world.shown(u"Borte"_qs), QStringList()); // a tab that is gone
}

TEST(VisBrukerTabell, AccountWithAQuoteLeavesTabsAndReachesNoRow)
{
    GridWorld world;
    world.addUser(number(30), u"O'Hara"_qs, u"Aktiv "_qs);
    EXPECT_THROW(world.shown(u"O'Hara"_qs), RuntimeFailure);
    EXPECT_EQ(world.grid.tabs(), (QStringList{u"Nye"_qs, u"O'Hara"_qs, u"Alle"_qs}));
}

TEST(VisBrukerTabell, SortsDatesAsDatesAndIgnoresUnnamedColumns)
{
    GridWorld world;
    world.addUser(number(40), u"Gjest"_qs, u"Aktiv "_qs); // from 5/12/2026
    world.addWaiting(number(41), u"10/1/2027"_qs);
    world.addWaiting(number(42), u"9/12/2026"_qs);
    const QStringList byNumber = world.shown(u"Nye"_qs);
    EXPECT_EQ(byNumber, (QStringList{u"41"_qs, u"42"_qs}));
    world.grid.sortByColumn(4);
    EXPECT_EQ(world.shown(u"Nye"_qs), (QStringList{u"42"_qs, u"41"_qs}));
    world.grid.sortByColumn(9);
    EXPECT_EQ(world.grid.SorteringBrukere, u"[Gyldig fra]"_qs);
}

TEST(UserGridModel, HeadingsComeFromLabelsElseFromTheQuery)
{
    GridWorld world;
    world.addWaiting(number(50), u"2/12/2026"_qs);
    UserGridModel model;
    model.show(world.grid.rows(), {u"Nummer"_qs, u"Etternavn"_qs}, true);
    const auto heading = [&](int column) {
        return model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    };
    EXPECT_EQ(heading(0), u"Nummer"_qs);
    EXPECT_EQ(heading(4), u"FraTid"_qs);
    EXPECT_EQ(heading(99), QString());
    EXPECT_EQ(model.data(model.index(0, 6), Qt::TextAlignmentRole).toInt(),
              int(Qt::AlignHCenter | Qt::AlignVCenter));
    EXPECT_EQ(model.data(model.index(0, 3), Qt::DisplayRole), u"2/12/2026"_qs);
}

TEST(StepDoor, WrapsPastEitherEnd)
{
    GridWorld world;
    Recordset &doors = world.recordsets.rsKeyAllowed;
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), kOtherDoor);
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), kDoor);
    EXPECT_EQ(stepDoor(doors, DoorStep::Down), kOtherDoor);
}

TEST(StepDoor, UnknownDoorStepsToAnEndAndNoDoorToNone)
{
    GridWorld world;
    world.standOn(u"+4799999999"_qs);
    EXPECT_EQ(stepDoor(world.recordsets.rsKeyAllowed, DoorStep::Up), kDoor);
    world.module.SecurityLevel = u"0"_qs;
    world.refresh();
    EXPECT_EQ(stepDoor(world.recordsets.rsKeyAllowed, DoorStep::Up), QString());
    EXPECT_EQ(stepDoor(world.recordsets.rsKeyAllowed, DoorStep::Down), QString());
}

} // namespace
