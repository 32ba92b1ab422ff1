#include "users/FreeSms.h"
#include "users/UsersWorld.h"

namespace {

struct FreeSmsTest : UsersWorld {
    FreeSms sms{module, recordsets, link, person, clock};

    void toUser(const UserEntry &user, const QString &text, milliseconds openFor = 0ms)
    {
        person.types(u"Send SMS til :"_qs + user.number, text, openFor);
        person.answers(QString(text).replace(u'Ж', u'?'), 0ms, u"Send SMS"_qs);
        sms.toUser(user);
        EXPECT_EQ(person.lastPrompt + u'/' + person.lastPreset, u"Skriv meldingstekst/");
    }
    void toDoor(const QString &text)
    {
        person.types(u"Send SMS til :"_qs + kDoor, text);
        person.answers(text, 0ms, u"Send SMS"_qs);
        sms.toDoor();
    }
};

TEST_F(FreeSmsTest, UserGetsNamesAndTheDoorItsWholeNumber)
{
    toUser(guest(u"+47912345678901"_qs), u"Kom kl. 8"_qs);
    toDoor(u"STATUS?"_qs);
    EXPECT_EQ(rows(u"SELECT TilNummer, TilNummerKort, Etternavn, Fornavn, Dato, DatoLNG,"
                   " SMS_Text, CMGS FROM SMS_Sent ORDER BY ID"_qs),
              "+47912345678901|912345678|Ås|Kari|2026-12-01|46357|Kom kl. 8|UNSENT;"
              "+4790000001|90000001|Hovedport||2026-12-01|46357|STATUS?|UNSENT");
}

TEST_F(FreeSmsTest, SameWordingIsTakenOverFromWhoeverWaitsForIt)
{
    toUser(guest(), u"Hei på deg Ж€"_qs); // outside the program's set
    toDoor(u" HEI PÅ DEG ?€ "_qs);
    EXPECT_EQ(queue(), "1|Hei på deg ?€|2026-12-01");
    toUser(guest(QString()), QString()); // cancelled
    EXPECT_EQ(queue(), "1|Hei på deg ?€|2026-12-01;||2026-12-01");
}

TEST_F(FreeSmsTest, TextWithAQuoteIsQueuedInAnEmptyOutboxAndElseTurnsTheFirstRow)
{
    toUser(guest(), u"Hent 'pakken'"_qs);
    refresh();
    toDoor(u"It's open"_qs);
    EXPECT_EQ(queue(), "1|Hent 'pakken'|2026-12-01");
}

TEST_F(FreeSmsTest, NothingIsSentWhileTheOperatorWrites)
{
    link.pace.restart(60000ms);
    bool composing = false;
    clock.after(30s, [&] {
        composing = link.flags.ComposingSms;
        EXPECT_EQ(link.pace.interval(), 3000ms); // hurried before the dialogue
        link.pace.restart(60000ms);
    });
    recordsets.rsSmsOutbox.close(); // a failed write gives the modem back as well
    toUser(guest(), u"Hei"_qs, 60s);
    EXPECT_TRUE(composing);
    EXPECT_FALSE(link.flags.ComposingSms);
    EXPECT_EQ(link.pace.interval(), 60000ms); // and not behind it
}

} // namespace
