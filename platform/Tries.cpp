#include "platform/Tries.h"

#include "platform/Rules.h"

#include <algorithm>

bool Tries::operator()(const std::function<void()> &handler)
{
    try {
        handler();
        failures_ = 0;
        return true;
    } catch (const RuntimeFailure &failure) {
        const bool mayPass = dynamic_cast<const InOtherHands *>(&failure) != nullptr;
        failures_ = mayPass ? failures_ + 1 : std::max(failures_ + 1, atMost_);
        if (failures_ == atMost_) {
            shown(person_, {}, [&] { throw failure; });
        }
    } catch (const ProgramEnds &) {
    }
    return false;
}
