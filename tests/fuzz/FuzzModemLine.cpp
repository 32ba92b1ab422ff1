// Whatever a modem sends, in whatever pieces: each read comes back in its time with a line that is
// one, and nothing piles up.

#include "fuzz/FuzzBench.h"

#include <fuzzer/FuzzedDataProvider.h>

namespace {

// A read on a COM port looks once more behind its two seconds; a pass over them is the limit.
constexpr milliseconds kLongestRead = 2100ms;
constexpr int kMostReads = 101;
constexpr qsizetype kMostWaiting = 64 * 1024;

void readLine(FuzzBench &bench)
{
    const QString line = bench.link.line.ReadModemLine();
    require(!line.contains(u'\r'), "a line holds no carriage return");
    require(!line.startsWith(u'\n') && !line.endsWith(u'\n'), "a line stands alone");
}

void readPrompt(FuzzBench &bench)
{
    const QString prompt = bench.link.line.ReadModemPrompt();
    require(prompt.isEmpty() || prompt.endsWith(u'>'), "a prompt is one or nothing");
}

void submit(FuzzBench &bench)
{
    bench.link.submitter.SendSms(u"I 91234567"_qs, u"+4790000001"_qs);
    require(bench.link.TimerCom->isEnabled(), "the watcher goes on behind a submission");
    require(!bench.link.flags.WaitingForCmgs, "no result is awaited any more");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // Pieces and steps are taken from the end, so that plain dialogues make good inputs.
    FuzzedDataProvider input(data, size);
    FuzzBench bench;
    bench.ready(input.ConsumeBool());
    while (input.remaining_bytes() > 0) {
        const auto length = input.ConsumeIntegralInRange<size_t>(1, 200);
        const milliseconds delay{input.ConsumeIntegralInRange(0, 3000)};
        const std::string piece = input.ConsumeBytesAsString(length);
        bench.clock.after(delay,
                          [&bench, bytes = QByteArray::fromStdString(piece)] { bench.say(bytes); });
        // The long dialogues keep the timers off the line, as the watcher's own ticks do.
        bench.link.TimerCom->setEnabled(false);
        bench.link.pace.stop();
        const milliseconds start = bench.clock.elapsed();
        switch (input.ConsumeIntegralInRange(0, 5)) {
        case 0:
            readLine(bench);
            require(bench.clock.elapsed() - start <= kLongestRead, "a line is not waited for long");
            break;
        case 1:
            readPrompt(bench);
            require(bench.clock.elapsed() - start <= kLongestRead, "nor a prompt");
            break;
        case 2:
            bench.link.line.WaitForModemOK();
            require(bench.clock.elapsed() - start <= kMostReads * kLongestRead, "nor an OK");
            break;
        case 3:
            bench.link.TimerCom->setEnabled(true);
            bench.link.pace.restart(2000ms);
            bench.clock.run(3s);
            break;
        case 4:
            submit(bench);
            break;
        default:
            bench.link.initialiser.InitModem(); // without a database it never ends well
        }
        require(bench.link.line.ModemRxBuffer.size() <= kMostWaiting, "nothing piles up");
        require(bench.view.terminal.size() <= 600, "the terminal box stays short");
    }
    return 0;
}
