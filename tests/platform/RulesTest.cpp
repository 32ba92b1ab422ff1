#include "platform/Rules.h"

#include "platform/RuntimeFailure.h"
#include "support/Doubles.h"

#include <gtest/gtest.h>

namespace {

void fail()
{
    throw RuntimeFailure(u"Porten er borte"_qs);
}
void end()
{
    throw ProgramEnds();
}

class Rules : public testing::Test {
protected:
    VirtualClock clock;
    ScriptedOperator person{clock};
};

TEST_F(Rules, ShownTellsOfAFailureAloneAndEndsTheHandler)
{
    person.answers(u"Porten er borte"_qs);
    bool wentOn = false;
    EXPECT_FALSE(shown(person, u"Com Port"_qs, [&] {
        fail();
        wentOn = true;
    }));
    EXPECT_FALSE(wentOn);
    EXPECT_TRUE(shown(person, {}, [] {}));
    EXPECT_FALSE(shown(person, {}, end));
    EXPECT_EQ(person.titles, QStringList{u"Com Port"_qs});
}

TEST_F(Rules, SkippedLeavesOutTheFailingStepOnlyAndAllBehindTheEndOfTheProgram)
{
    QStringList ran;
    skipped({[&] { ran += u"first"_qs; }, fail, [&] { ran += u"third"_qs; }, end,
             [&] { ran += u"last"_qs; }});
    EXPECT_EQ(ran, (QStringList{u"first"_qs, u"third"_qs}));
}

TEST_F(Rules, EndOfTheProgramUnderAnOpenBoxEndsTheHandlerToo)
{
    person.answers(u"Porten er borte"_qs, Answer::Ok, 1000ms);
    clock.after(500ms, [&] { clock.end(); });
    EXPECT_FALSE(shown(person, {}, fail));
}

TEST_F(Rules, TheSameFailureOpensNoSecondBoxWhileTheFirstIsOpen)
{
    person.answers(u"Porten er borte"_qs, Answer::Ok, 1000ms);
    int ticks = 0;
    const auto timer = clock.timer([&] {
        ++ticks;
        shown(person, {}, fail);
    });
    timer->setInterval(300ms);
    timer->setEnabled(true);
    shown(person, {}, fail);
    timer->setEnabled(false);
    EXPECT_EQ(ticks, 3);
    EXPECT_EQ(person.texts.size(), 1);

    person.answers(u"Porten er borte"_qs);
    shown(person, {}, fail);
    EXPECT_EQ(person.texts.size(), 2) << "closed, it may open again";
}

TEST_F(Rules, AnotherFailureIsShownBesideAnOpenBox)
{
    person.answers(u"Porten er borte"_qs, Answer::Ok, 1000ms);
    person.answers(u"Disken er full"_qs);
    clock.after(100ms, [&] { person.showFailure(u"Disken er full"_qs, {}); });
    shown(person, {}, fail);
    EXPECT_EQ(person.texts, (QStringList{u"Porten er borte"_qs, u"Disken er full"_qs}));
}

} // namespace
