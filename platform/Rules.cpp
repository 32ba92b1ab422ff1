#include "platform/Rules.h"

#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/RuntimeFailure.h"

bool shown(Operator &person, const QString &title, const std::function<void()> &handler,
           const QString &advice)
{
    try {
        handler();
        return true;
    } catch (const RuntimeFailure &failure) {
        try {
            person.showFailure(failure.description() + advice, title);
        } catch (const ProgramEnds &) {
        }
    } catch (const ProgramEnds &) {
    }
    return false;
}

void skipped(std::initializer_list<std::function<void()>> steps)
{
    for (const auto &step : steps) {
        try {
            step();
        } catch (const RuntimeFailure &) {
        } catch (const ProgramEnds &) {
            return;
        }
    }
}

void kept(const std::function<void()> &handler)
{
    skipped({handler});
}
