#include "users/NumberCheck.h"
#include "platform/RuntimeFailure.h"
#include "users/UsersWorld.h"

namespace {

const QString kOnDoor = QStringLiteral("Bruker er allerede registrert!!");
const QString kWaits = QStringLiteral("Bruker ligger allerede til registring!!");

struct NumberCheckTest : UsersWorld {
    NumberCheckTest()
    {
        entry.status.clear();
        entry.konto.clear();
        entry.from = QDate(2026, 1, 1);
    }
    NumberCheck check{module, recordsets, person, clock};
    UserEntry entry = guest();
};

TEST_F(NumberCheckTest, TypedNameWinsAndAMissingOneComesFromTheCatalogue)
{
    addUser(kUser, u"Gjest"_qs);
    entry.number = u" +4791234567 "_qs;
    entry.etternavn = u"Lund"_qs;
    entry.fornavn.clear();
    check.matchCatalogue(entry);
    EXPECT_EQ(entry.etternavn, u"Lund"_qs);
    EXPECT_EQ(entry.fornavn, u"Ola"_qs);
    EXPECT_EQ(rows(u"SELECT Etternavn, Fornavn FROM Katalog"_qs), "Lund|Ola");
    forbid(u"UPDATE ON Katalog"_qs);
    EXPECT_NO_THROW(check.matchCatalogue(entry)); // known names are not written again
    entry.fornavn = u"OLA"_qs;
    EXPECT_THROW(check.matchCatalogue(entry), RuntimeFailure);
}

struct AnswerCase {
    const char *name;
    std::optional<Answer> onDoor;
    std::optional<Answer> waits;
    QString result;
};

class ChosenPeriod : public NumberCheckTest, public testing::WithParamInterface<AnswerCase> {};

TEST_P(ChosenPeriod, FollowsTheLastAnswer)
{
    if (const auto answer = GetParam().onDoor) {
        addUser(kUser, u"Fast"_qs);
        person.answers(kOnDoor, *answer);
    }
    if (const auto answer = GetParam().waits) {
        addWaiting(kUser, u"8/12/2026"_qs);
        person.answers(kWaits, *answer);
    }
    check.choosePeriod(entry);
    EXPECT_EQ(entry.status + u'|' + entry.konto + entry.from.toString(u"|d.|"_qs) +
                  entry.to.toString(u"d."_qs),
              GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(
    Answers, ChosenPeriod,
    testing::Values(AnswerCase{"unknown", {}, {}, u"NY|Gjest|1.|3."_qs},
                    AnswerCase{"newOnTheDoor", Answer::Ok, {}, u"NY|Gjest|1.|3."_qs},
                    AnswerCase{"oldOnTheDoor", Answer::Cancel, {}, u"Aktiv |Fast|5.|31."_qs},
                    AnswerCase{"oldThatWaits", {}, Answer::Cancel, u"NY|Gjest|8.|24."_qs},
                    AnswerCase{"newAfterOld", Answer::Cancel, Answer::Ok, u"NY|Gjest|1.|3."_qs},
                    AnswerCase{"oldAfterNew", Answer::Ok, Answer::Cancel, u"NY|Gjest|8.|24."_qs}),
    caseName);

TEST_F(NumberCheckTest, AnswerIsAboutTheRowThatWasAskedFor)
{
    addUser(kOtherUser, u"Annen"_qs, u"Slett"_qs);
    addUser(kUser, u"Fast"_qs);
    clock.after(5s, [&] { refresh(); }); // a tick opens the sets anew while the question stands
    person.answers(kOnDoor, Answer::Cancel, 10s);
    check.choosePeriod(entry);
    EXPECT_EQ(entry.konto, u"Fast"_qs);
}

TEST_F(NumberCheckTest, WhatWasDoneBeforeAFailureStands)
{
    addUser(kUser, u"Fast"_qs);
    run(u"UPDATE TBLbrukere SET [Gyldig fra] = 'snart'"_qs);
    person.answers(kOnDoor, Answer::Cancel);
    EXPECT_THROW(check.choosePeriod(entry), RuntimeFailure);
    EXPECT_EQ(entry.konto, u"Fast"_qs);
    EXPECT_EQ(entry.from, QDate(2026, 1, 1));
}

} // namespace
