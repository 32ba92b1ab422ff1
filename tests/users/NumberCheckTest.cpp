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

TEST_F(NumberCheckTest, PeriodFollowsTheLastAnswer)
{
    struct Case {
        std::optional<Answer> onDoor, waits;
        const char *result;
    };
    for (const auto &[onDoor, waits, result] : {Case{{}, {}, "NY|Gjest|1.|3."},
                                                {Answer::Ok, {}, "NY|Gjest|1.|3."},
                                                {Answer::Cancel, {}, "Aktiv |Fast|5.|31."},
                                                {{}, Answer::Cancel, "NY|Gjest|8.|24."},
                                                {Answer::Cancel, Answer::Ok, "NY|Gjest|1.|3."},
                                                {Answer::Ok, Answer::Cancel, "NY|Gjest|8.|24."}}) {
        run(u"DELETE FROM TBLbrukere"_qs);
        run(u"DELETE FROM NYEbrukere"_qs);
        if (onDoor) {
            addUser(kUser, u"Fast"_qs);
            person.answers(kOnDoor, *onDoor);
        }
        if (waits) {
            addWaiting(kUser, u"8/12/2026"_qs);
            person.answers(kWaits, *waits);
        }
        UserEntry chosen = entry;
        check.choosePeriod(chosen);
        const QStringList fields = {chosen.status, chosen.konto, chosen.from.toString(u"d."_qs),
                                    chosen.to.toString(u"d."_qs)};
        EXPECT_EQ(fields.join(u'|').toStdString(), result);
    }
}

TEST_F(NumberCheckTest, AnswerIsAboutTheRowThatWasAskedForAndOutlastsAFailure)
{
    addUser(kOtherUser, u"Annen"_qs, u"Slett"_qs);
    addUser(kUser, u"Fast"_qs);
    run(u"UPDATE TBLbrukere SET [Gyldig fra] = 'snart'"_qs);
    clock.after(5s, [&] { refresh(); }); // a tick opens the sets anew while the question stands
    person.answers(kOnDoor, Answer::Cancel, 10s);
    EXPECT_THROW(check.choosePeriod(entry), RuntimeFailure);
    EXPECT_EQ(entry.konto, u"Fast"_qs);
    EXPECT_EQ(entry.from, QDate(2026, 1, 1));
}

} // namespace
