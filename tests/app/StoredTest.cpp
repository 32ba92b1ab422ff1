#include "app/DoorHours.h"
#include "app/StoredSettings.h"
#include "platform/RuntimeFailure.h"
#include "support/Doubles.h"
#include "support/TestDatabase.h"

#include <QRect>

#include <gtest/gtest.h>

TEST(StoredWindow, TakesHugeNumbersForTheEdgeOfTheScreen)
{
    MemorySettings settings;
    settings.values[u"mainleft"_qs] = u"1e300"_qs;
    settings.values[u"maintop"_qs] = u"-1.5E+30"_qs;
    EXPECT_EQ(storedWindow(settings), QRect(32767, -32767, 433, 433));
}

TEST(DoorHoursLookup, TakesTheDoorsHoursAndItsOwnForAnUnknownDoor)
{
    TestDatabase database;
    const QString columns = u"KeyNummer,TimeInStart,TimeInStop,TimeOutStart,TimeOutStop"_qs;
    database.add(u"KEYTable"_qs, columns, {u"+47DOR"_qs, u"08"_qs, u"16"_qs, u"00"_qs, u"24"_qs});
    database.add(u"KEYTable"_qs, columns,
                 {u"+4790000002"_qs, u"åtte"_qs, u"16"_qs, u"00"_qs, u"24"_qs});
    EXPECT_EQ(doorHours(database.open(), u" +47dor "_qs), (DoorHours{8, 16, 0, 24}));
    EXPECT_EQ(doorHours(database.open(), u"+4790000009"_qs), (DoorHours{9, 22, 18, 22}));
    EXPECT_THROW(doorHours(database.open(), u"+4790000002"_qs), RuntimeFailure);
}
