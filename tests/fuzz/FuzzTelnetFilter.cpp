// Whatever the far end of a network line sends, in whatever pieces: the same comes out of it, and
// what was escaped comes through unharmed.

#include "fuzz/FuzzBench.h"
#include "platform/TelnetFilter.h"

#include <fuzzer/FuzzedDataProvider.h>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    FuzzedDataProvider input(data, size);
    TelnetFilter whole;
    TelnetFilter pieces;
    QByteArray all;
    QByteArray said;
    QByteArray answered;
    while (input.remaining_bytes() > 0) {
        const auto length = input.ConsumeIntegralInRange<size_t>(1, 20);
        const auto piece = QByteArray::fromStdString(input.ConsumeBytesAsString(length));
        const auto [heard, answer] = pieces.receive(piece);
        all += piece;
        said += heard;
        answered += answer;
    }
    const auto [heard, answer] = whole.receive(all);
    require(heard == said && answer == answered, "pieces make no difference");
    require(said.size() <= all.size() && answered.size() <= all.size(), "nothing is added");

    const auto [unharmed, none] = TelnetFilter().receive(TelnetFilter::escaped(all));
    require(unharmed == all && none.isEmpty(), "what was escaped comes through");
    return 0;
}
