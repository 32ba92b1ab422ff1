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

struct Rules : testing::Test {
    VirtualClock clock;
    ScriptedOperator person{clock};
};

TEST_F(Rules, AFailureIsShownOrSkippedAndTheEndOfTheProgramEndsAllInSilence)
{
    QString ran;
    person.answers(u"Porten er borte"_qs, 0ms, u"Com Port"_qs);
    EXPECT_FALSE(shown(person, u"Com Port"_qs, [&] {
        fail();
        ran += u"behind the failure"_qs;
    }));
    EXPECT_TRUE(shown(person, {}, [] {}));
    EXPECT_FALSE(shown(person, {}, end));
    skipped({[&] { ran += u"first "_qs; }, fail, [&] { ran += u"third"_qs; }, end,
             [&] { ran += u"last"_qs; }});
    EXPECT_EQ(ran, u"first third"_qs);
    person.answers(u"Porten er borte"_qs, 1000ms);
    clock.after(500ms, [&] { clock.end(); });
    EXPECT_FALSE(shown(person, {}, fail)) << "under an open box";
}

TEST_F(Rules, TheSameFailureOpensNoSecondBoxWhileTheFirstIsOpenAndAnotherDoes)
{
    person.answers(u"Porten er borte"_qs, 1000ms);
    for (const milliseconds moment : {300ms, 600ms}) {
        clock.after(moment, [&] { shown(person, {}, fail); });
    }
    shown(person, {}, fail);
    person.answers(u"Porten er borte"_qs, 1000ms);
    person.answers(u"Disken er full"_qs);
    clock.after(100ms, [&] { person.showFailure(u"Disken er full"_qs, {}); });
    shown(person, {}, fail);
}

} // namespace
