#include "Site.h"

#include "support/ReaderBench.h"
#include "users/UserOperations.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

/// The program without its screens, on a copy of a site's database and the virtual clock.
struct Site : ReaderBench {
    explicit Site(const SiteSize &size)
    {
        const QString path = folder.filePath(u"site.mdb"_qs);
        QFile::copy(siteDatabase(size), path);
        module.DatabasePath = path;
        module.SecurityLevel = u"6"_qs;
        module.KeySelect = u"+4795000001"_qs;
        ready(false);
        port.onWrite = [this](const QByteArray &bytes) { answer(bytes); };
        recordsets.OpenDatabase();
        recordsets.OpenRecordsets();
        link.watcher.StartNyBruker = [this] { users.StartNyBruker(); };
    }

    /// The answer to the listing that the last tick asked for: until it is there no tick does
    /// anything.
    void hear()
    {
        while (link.line.hasLine()) {
            link.watcher.timerComTick();
        }
    }

    // A modem that takes everything at once.
    void answer(const QByteArray &bytes)
    {
        if (bytes.startsWith("AT+CMGS")) {
            port.feed("\r\n> ");
        } else if (bytes.contains('\x1a')) {
            port.feed("\r\n+CMGS: 7\r\n\r\nOK\r\n");
        } else if (bytes.startsWith("AT")) {
            port.feed("\r\nOK\r\n");
        }
    }

    QTemporaryDir folder;
    UserOperations users{module, recordsets, link, person, clock, host, [] {}};
};

void noteMemory(benchmark::State &state)
{
    state.counters["resident_MiB"] = residentMebibytes();
}

void OpenRecordsets(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    for (auto _ : state) {
        site.recordsets.OpenRecordsets();
    }
    noteMemory(state);
}

void IdleTick(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    for (int ticks = 0; ticks < 20; ++ticks) { // down to the slowest pace
        site.link.watcher.timerSendTick();
        site.hear();
    }
    for (auto _ : state) {
        site.link.watcher.timerSendTick();
    }
    noteMemory(state);
}

// A tick that moves a waiting period onto its door, queues the command and sends it.
void BusyTick(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    int user = 0;
    for (auto _ : state) {
        state.PauseTiming();
        site.module.DatabaseConnection->run(
            u"INSERT INTO NYEbrukere (Bruker, KeyNummer, [Gyldig fra], FraTid, [Gyldig til], "
            "TilTid, Konto, Saldo, Status) VALUES (?, '+4795000001', '1/12/2026', '00', "
            "'3/12/2026', '24', 'Gjest', '0', 'NY')"_qs,
            {u"+4798%1"_qs.arg(100000 + user++)});
        site.recordsets.OpenRecordsets();
        site.link.flags.QueuePending = false;
        site.hear();
        state.ResumeTiming();
        site.link.watcher.timerSendTick();
    }
    noteMemory(state);
}

/// What doors say, in the shares of a working day. The number is that of a user of the site.
QByteArray said(int message, int users)
{
    const auto number = [&](int further) {
        return QByteArray::number(91000001 + (message * 7 + further) % users);
    };
    const QByteArray minute = QByteArray::number(10 + message % 50);
    switch (message % 5) {
    case 0:
        return "Hovedport\n" + number(0) + " er lagt til";
    case 1:
        return "Hovedport\n" + number(0) + " er slettet";
    case 2:
        return "*" + number(0) + "\n5/6,8:" + minute + "\n*" + number(1) + "\n5/6,9:" + minute +
               "\n*" + number(2) + "\n5/6,10:" + minute;
    case 3:
        return "*" + number(0) + "\n*" + number(1) + "-2\n*" + number(2);
    default:
        return "Er det noen hjemme? Ring meg.";
    }
}

void readMessage(Site &site, int message, int users)
{
    site.port.feed(said(message, users) + "\r\n\r\nOK\r\n");
    site.link.response.setText(
        u"+CMGL: 1,\"REC UNREAD\",\"+4795000001\",,\"26/12/01,12:00:%1+04\""_qs.arg(message % 60));
    // The doubles' own memory is none of the program's.
    site.port.written.clear();
    site.view.panelHistory.clear();
}

void Messages(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    int message = 0;
    for (auto _ : state) {
        readMessage(site, message++, size.users);
    }
    state.SetItemsProcessed(state.iterations());
    noteMemory(state);
}

void MemoryAfterMessages(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    for (auto _ : state) {
        for (int message = 0; message < 100'000; ++message) {
            readMessage(site, message, size.users);
            if (message == 1'000) {
                state.counters["MiB_after_1000"] = residentMebibytes();
            }
        }
    }
    state.counters["MiB_after_100000"] = residentMebibytes();
}

} // namespace

BENCHMARK_CAPTURE(OpenRecordsets, small, kSmallSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(OpenRecordsets, large, kLargeSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(IdleTick, small, kSmallSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(IdleTick, large, kLargeSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BusyTick, small, kSmallSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BusyTick, large, kLargeSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Messages, small, kSmallSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Messages, large, kLargeSite)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(MemoryAfterMessages, large, kLargeSite)->Unit(benchmark::kSecond)->Iterations(1);

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
