#include "platform/RuntimeFailure.h"
#include "users/DoorStepper.h"
#include "users/UsersWorld.h"

namespace {

struct UserGridTest : UsersWorld {
    /// Numbers shown under the tab, in order, by their last two digits.
    QString shown(const QString &tab)
    {
        module.GridFilter = tab;
        grid.VisBrukerTabell();
        QStringList numbers;
        for (const RecordsetRow &row : grid.rows().rows()) {
            numbers.append(row.values.first().toString().right(2));
        }
        return numbers.join(u' ');
    }
};

QString number(int last)
{
    return QStringLiteral("+47910000%1").arg(last);
}

TEST_F(UserGridTest, TabsAreTheAccountsOfTheDoorOnce)
{
    EXPECT_EQ(grid.tabs().join(u' '), u"Nye Alle");
    addUser(number(10), u"MobReg"_qs);
    addUser(number(11), u"GJEST"_qs);
    addUser(number(12), u"gjest"_qs);
    addUser(number(13), QString());
    addUser(number(14), u"Annen"_qs, u"Aktiv "_qs, kOtherDoor);
    addUser(number(15), u"O'Hara"_qs);
    EXPECT_EQ(grid.tabs().join(u' '), u"Nye GJEST MobReg O'Hara Alle");
    EXPECT_THROW(shown(u"O'Hara"_qs), RuntimeFailure); // which no filter can hold
}

TEST_F(UserGridTest, EachTabShowsItsRows)
{
    addUser(number(20), u"Gjest"_qs, u"NY"_qs);
    addUser(number(21), u"Gjest"_qs, u"Ny"_qs);
    addUser(number(22), u"GJEST"_qs);
    addUser(number(23), u"Saldo"_qs, u"Registrerer"_qs);
    addUser(number(24), u"Gjest"_qs, u"Aktiv "_qs, kOtherDoor);
    addUser(number(27), u" Vakt"_qs);
    addWaiting(number(25), u"2/12/2026"_qs);
    addWaiting(number(26), u"2/12/2026"_qs, u"NY"_qs, kOtherDoor);
    for (const auto &[tab, numbers] : {std::pair(u"Nye"_qs, u"25"_qs),
                                       {u"Gjest"_qs, u"22"_qs},
                                       {u"Saldo"_qs, u"23"_qs},
                                       {u"Alle"_qs, u"20 21 22 23 27"_qs},
                                       {u" Vakt"_qs, u"27"_qs}, // an account counts as typed
                                       {u"Borte"_qs, QString()}}) {
        EXPECT_EQ(shown(tab), numbers) << tab.toStdString();
    }
}

TEST_F(UserGridTest, StepsWrapPastEitherEndAndKnowNoDoor)
{
    Recordset &doors = recordsets.rsKeyAllowed;
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), kOtherDoor);
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), kDoor);
    EXPECT_EQ(stepDoor(doors, DoorStep::Down), kOtherDoor);
    standOn(u"+4799999999"_qs);
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), kDoor);
    module.SecurityLevel = u"0"_qs;
    refresh();
    EXPECT_EQ(stepDoor(doors, DoorStep::Up), QString());
    EXPECT_EQ(stepDoor(doors, DoorStep::Down), QString());
}

} // namespace
