#include "users/FreeSms.h"
#include "users/UsersWorld.h"

#include <gtest/gtest.h>

namespace {

struct FreeSmsWorld : UsersWorld {
    FreeSms sms{module, recordsets, modem, person, clock};

    void write(const QString &recipient, const QString &text)
    {
        person.types(u"Send SMS til :"_qs + recipient, text);
        person.answers(text);
    }
};

const QString kLongUser = QStringLiteral("+47912345678901");

TEST(FreeSms, UserGetsNamesAndTheDoorItsWholeNumber)
{
    FreeSmsWorld world;
    world.write(kLongUser, u"Kom kl. 8"_qs);
    world.sms.toUser(world.guest(kLongUser));
    world.write(kDoor, u"STATUS?"_qs);
    world.sms.toDoor();
    EXPECT_EQ(
        world.rows(u"SELECT TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG,"
                   " SMS_Text, CMGS FROM SMS_Sent ORDER BY ID"_qs),
        (QStringList{u"+47912345678901|912345678|Ås|Kari|2026-12-01|46357|Kom kl. 8|UNSENT"_qs,
                     u"+4790000001|90000001|Hovedport||2026-12-01|46357|STATUS?|UNSENT"_qs}));
    EXPECT_EQ(world.person.titles, (QStringList{u"Send SMS"_qs, u"Send SMS"_qs}));
    EXPECT_EQ(world.person.lastPrompt, u"Skriv meldingstekst"_qs);
    EXPECT_EQ(world.person.lastPreset, QString());
}

TEST(FreeSms, SameWordingIsTakenOverFromWhoeverWaitsForIt)
{
    FreeSmsWorld world;
    world.write(kUser, u"Hei på deg"_qs);
    world.sms.toUser(world.guest());
    world.write(kDoor, u" HEI PÅ DEG "_qs);
    world.sms.toDoor();
    EXPECT_EQ(world.rows(u"SELECT TilNummer, SMS_Text FROM SMS_Sent"_qs),
              QStringList{u"+4790000001|Hei på deg"_qs});
}

TEST(FreeSms, CancelQueuesAnEmptyText)
{
    FreeSmsWorld world;
    world.write(QString(), QString());
    UserEntry nobody = world.guest(QString());
    world.sms.toUser(nobody);
    EXPECT_EQ(world.rows(u"SELECT TilNummer, SMS_Text, CMGS FROM SMS_Sent"_qs),
              QStringList{u"||UNSENT"_qs});
}

TEST(FreeSms, TextWithAQuoteIsQueuedInAnEmptyOutboxAndElseTurnsTheFirstRow)
{
    FreeSmsWorld world;
    world.write(kUser, u"Hent 'pakken'"_qs);
    world.sms.toUser(world.guest());
    world.refresh();
    world.write(kDoor, u"It's open"_qs);
    world.sms.toDoor();
    EXPECT_EQ(world.rows(u"SELECT TilNummer, SMS_Text FROM SMS_Sent"_qs),
              QStringList{u"+4790000001|Hent 'pakken'"_qs});
}

TEST(FreeSms, CharactersOutsideTheProgramsSetAreStoredAsQuestionMarks)
{
    FreeSmsWorld world;
    world.person.types(u"Send SMS til :"_qs, u"Ø \u0416 \U0001F600 €"_qs);
    world.person.answers(u"Ø ? ? €"_qs);
    world.sms.toUser(world.guest());
    EXPECT_EQ(world.rows(u"SELECT SMS_Text FROM SMS_Sent"_qs), QStringList{u"Ø ? ? €"_qs});
}

TEST(FreeSms, NothingIsSentWhileTheOperatorWrites)
{
    FreeSmsWorld world;
    QList<bool> composing;
    world.modem.pace.restart(60000ms);
    world.clock.after(30s, [&] {
        composing.append(world.modem.flags.ComposingSms);
        EXPECT_EQ(world.modem.pace.interval(), 3000ms); // hurried before the dialogue
        world.modem.pace.restart(60000ms);
    });
    world.person.types(u"Send SMS til :"_qs, u"Hei"_qs, 60s);
    world.person.answers(u"Hei"_qs);
    world.sms.toUser(world.guest());
    EXPECT_EQ(composing, QList<bool>{true});
    EXPECT_FALSE(world.modem.flags.ComposingSms);
    EXPECT_EQ(world.modem.pace.interval(), 60000ms); // and not behind it
}

TEST(FreeSms, FailedWriteStillGivesTheModemBack)
{
    FreeSmsWorld world;
    world.recordsets.rsSmsOutbox.close();
    world.write(kUser, u"Hei"_qs);
    world.sms.toUser(world.guest());
    EXPECT_FALSE(world.modem.flags.ComposingSms);
    EXPECT_EQ(world.queue(), QStringList());
}

} // namespace
