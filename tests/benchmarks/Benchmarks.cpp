#include "Site.h"

#include "data/Connection.h"
#include "data/DatabasePaths.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "inbound/MessageReader.h"
#include "modem/ModemLink.h"
#include "support/Doubles.h"
#include "support/FakeLines.h"
#include "users/UserOperations.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

/// The program without its screens, on a copy of a site's database and the virtual clock.
struct Site {
    explicit Site(const SiteSize &size)
    {
        const QString path = folder.filePath(u"site.mdb"_qs);
        QFile::copy(siteDatabase(size), path);
        module.DatabasePath = path;
        module.SecurityLevel = u"6"_qs;
        module.KeySelect = u"+4795000001"_qs;
        module.LoginComputer = host.computerName();
        module.ActiveComPort = 1;
        MSComm1.open(u"COM1"_qs);
        MSComm1.onWrite = [this](const QByteArray &bytes) { answer(bytes); };
        recordsets.OpenDatabase();
        recordsets.OpenRecordsets();
        link.tables.BuildCharacterTables();
        link.watcher.StartNyBruker = [this] { users.StartNyBruker(); };
        link.watcher.Read_SMS_MessageTEXT = [this] { reader.Read_SMS_MessageTEXT(); };
        module.ModemReady = true;
    }

    // A modem that takes everything at once.
    void answer(const QByteArray &bytes)
    {
        if (bytes.startsWith("AT+CMGS")) {
            MSComm1.feed("\r\n> ");
        } else if (bytes.contains('\x1a')) {
            MSComm1.feed("\r\n+CMGS: 7\r\n\r\nOK\r\n");
        } else if (bytes.startsWith("AT")) {
            MSComm1.feed("\r\nOK\r\n");
        }
    }

    QTemporaryDir folder;
    VirtualClock clock;
    ScriptedOperator person{clock};
    FakeHost host;
    FakeSerialPort MSComm1;
    FakeTcpSocket Winsock1{clock};
    RecordingView view;
    Module1 module;
    Recordsets recordsets{module, person};
    ModemLink link{clock, host, person, MSComm1, Winsock1, view, module, recordsets};
    UserOperations users{module, recordsets, link, person, clock, host, [] {}};
    MessageReader reader{link, module, recordsets, view, clock, host, [] {}};
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
        state.ResumeTiming();
        site.link.watcher.timerSendTick();
    }
    noteMemory(state);
}

void Messages(benchmark::State &state, const SiteSize &size)
{
    Site site(size);
    int user = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const QByteArray number = QByteArray::number(91000001 + user++ % size.users);
        site.MSComm1.feed("Hovedport\n" + number + " er lagt til\r\n\r\nOK\r\n");
        const QString header =
            u"+CMGL: 1,\"REC UNREAD\",\"+4795000001\",,\"26/12/01,12:00:%1+04\""_qs.arg(user % 60);
        state.ResumeTiming();
        site.link.response.setText(header);
    }
    state.SetItemsProcessed(state.iterations());
    noteMemory(state);
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

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
