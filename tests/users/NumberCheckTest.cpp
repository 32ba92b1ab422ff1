#include "users/NumberCheck.h"
#include "data/Connection.h"
#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

const QString kOnDoor = QStringLiteral("Bruker er allerede registrert!!");
const QString kWaits = QStringLiteral("Bruker ligger allerede til registring!!");

struct CheckWorld : UsersWorld {
    NumberCheck check{module, recordsets, person, clock};
    UserEntry entry = typed();

    UserEntry typed() const
    {
        UserEntry fields = guest();
        fields.status.clear();
        fields.konto.clear();
        fields.from = QDate(2026, 1, 1);
        fields.to = QDate(2026, 1, 2);
        return fields;
    }
};

TEST(MatchCatalogue, TypedNameWinsAndAMissingOneComesFromThere)
{
    CheckWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.entry.number = u" +4791234567 "_qs;
    world.entry.etternavn = u"Lund"_qs;
    world.entry.fornavn.clear();
    world.check.matchCatalogue(world.entry);
    EXPECT_EQ(world.entry.etternavn, u"Lund"_qs);
    EXPECT_EQ(world.entry.fornavn, u"Ola"_qs);
    EXPECT_EQ(world.rows(u"SELECT Etternavn, Fornavn FROM Katalog"_qs),
              QStringList{u"Lund|Ola"_qs});
}

TEST(MatchCatalogue, KnownNamesAreNotWrittenAgain)
{
    CheckWorld world;
    world.addUser(kUser, u"Gjest"_qs, u"Aktiv "_qs);
    world.database.look().run(u"CREATE TRIGGER held BEFORE UPDATE ON Katalog"
                              " BEGIN SELECT RAISE(ABORT, 'held'); END"_qs);
    world.entry.etternavn = u"Berg"_qs;
    world.entry.fornavn = u"Ola"_qs;
    EXPECT_NO_THROW(world.check.matchCatalogue(world.entry));
    world.entry.fornavn = u"OLA"_qs;
    EXPECT_THROW(world.check.matchCatalogue(world.entry), RuntimeFailure);
}

TEST(MatchCatalogue, UnknownNumberChangesNothing)
{
    CheckWorld world;
    world.check.matchCatalogue(world.entry);
    EXPECT_EQ(world.rows(u"SELECT Bruker FROM Katalog"_qs), QStringList());
    EXPECT_EQ(world.entry.fornavn, u"Kari"_qs);
}

TEST(ChoosePeriod, UnknownNumberStartsAsAGuestOfToday)
{
    CheckWorld world;
    world.check.choosePeriod(world.entry);
    EXPECT_EQ(world.entry.status, u"NY"_qs);
    EXPECT_EQ(world.entry.konto, u"Gjest"_qs);
    EXPECT_EQ(world.entry.from, QDate(2026, 12, 1));
    EXPECT_EQ(world.entry.to, QDate(2026, 12, 3));
}

struct AnswerCase {
    const char *name;
    std::optional<Answer> onDoor;
    std::optional<Answer> waits;
    const char16_t *status;
    const char16_t *konto;
    QDate from;
};

class ChosenPeriod : public testing::TestWithParam<AnswerCase> {};

TEST_P(ChosenPeriod, FollowsTheLastAnswer)
{
    const AnswerCase &test = GetParam();
    CheckWorld world;
    if (test.onDoor) {
        world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
        world.person.answers(kOnDoor, *test.onDoor);
    }
    if (test.waits) {
        world.addWaiting(kUser, u"8/12/2026"_qs, u"NY"_qs);
        world.person.answers(kWaits, *test.waits);
    }
    world.check.choosePeriod(world.entry);
    EXPECT_EQ(world.entry.status, QString::fromUtf16(test.status));
    EXPECT_EQ(world.entry.konto, QString::fromUtf16(test.konto));
    EXPECT_EQ(world.entry.from, test.from);
}

const QDate kToday(2026, 12, 1);
const QDate kOfDoor(2026, 12, 5);
const QDate kOfWaiting(2026, 12, 8);

INSTANTIATE_TEST_SUITE_P(
    Answers, ChosenPeriod,
    testing::Values(AnswerCase{"newOnTheDoor", Answer::Ok, {}, u"NY", u"Gjest", kToday},
                    AnswerCase{"oldOnTheDoor", Answer::Cancel, {}, u"Aktiv ", u"Fast", kOfDoor},
                    AnswerCase{"oldThatWaits", {}, Answer::Cancel, u"NY", u"Gjest", kOfWaiting},
                    AnswerCase{"newAfterOld", Answer::Cancel, Answer::Ok, u"NY", u"Gjest", kToday},
                    AnswerCase{"oldAfterNew", Answer::Ok, Answer::Cancel, u"NY", u"Gjest",
                               kOfWaiting}),
    [](const auto &instance) { return std::string(instance.param.name); });

TEST(ChoosePeriod, AnswerIsAboutTheRowThatWasAskedFor)
{
    CheckWorld world;
    world.addUser(u"+4790009000"_qs, u"Annen"_qs, u"Slett"_qs);
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    // A tick opens the sets anew while the question stands.
    world.clock.after(5s, [&] { world.refresh(); });
    world.person.answers(kOnDoor, Answer::Cancel, 10s);
    world.check.choosePeriod(world.entry);
    EXPECT_EQ(world.entry.konto, u"Fast"_qs);
}

TEST(ChoosePeriod, WhatWasDoneBeforeAFailureStands)
{
    CheckWorld world;
    world.addUser(kUser, u"Fast"_qs, u"Aktiv "_qs);
    world.database.look().run(u"UPDATE TBLbrukere SET [Gyldig fra] = 'snart'"_qs);
    world.refresh();
    world.person.answers(kOnDoor, Answer::Cancel);
    EXPECT_THROW(world.check.choosePeriod(world.entry), RuntimeFailure);
    EXPECT_EQ(world.entry.konto, u"Fast"_qs);
    EXPECT_EQ(world.entry.from, QDate(2026, 1, 1));
}

} // namespace
