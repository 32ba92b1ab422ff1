#include "Site.h"

#include "app/frmMain.h"
#include "browsers/RecordsetModel.h"
#include "browsers/frmBrukere.h"
#include "doors/frmKEY.h"
#include "inbound/frmLOGG.h"
#include "inbound/frmSMSReceived.h"
#include "inbound/frmSMSSent.h"
#include "platform/qt/SystemClock.h"
#include "support/Bench.h"
#include "users/DoorSearch.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <ctime>
#include <map>
#include <string>

// The table screens as an operator meets them, on the machine's clock. Times are in milliseconds,
// the best of some runs, since others may be at work on the machine: wall time, and as cpu_… what
// of it this program has computed.

namespace {

struct Spent {
    double wall = 0;
    double cpu = 0;
};

/// Time since it was made.
class Stopwatch {
public:
    Stopwatch() { restart(); }
    void restart()
    {
        wall_.start();
        cpu_ = cpuNow();
    }
    Spent spent() const { return {double(wall_.nsecsElapsed()) / 1e6, cpuNow() - cpu_}; }

private:
    static double cpuNow()
    {
        timespec now{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
        return double(now.tv_sec) * 1e3 + double(now.tv_nsec) / 1e6;
    }

    QElapsedTimer wall_;
    double cpu_ = 0;
};

/// The best of what was noted under each name.
class Best {
public:
    void note(const std::string &name, const Spent &spent)
    {
        noteOne(name, spent.wall);
        noteOne("cpu_" + name, spent.cpu);
    }
    void handTo(benchmark::State &state) const
    {
        for (const auto &[name, value] : best_) {
            state.counters[name] = value;
        }
    }

private:
    void noteOne(const std::string &name, double value)
    {
        const auto [entry, isNew] = best_.emplace(name, value);
        entry->second = std::min(entry->second, value);
    }

    std::map<std::string, double> best_;
};

/// Ticks each millisecond: the longest time between two ticks is the longest that the window
/// did not answer.
class Heartbeat {
public:
    explicit Heartbeat(Clock &clock) : timer_(clock.timer([this] { beat(); }))
    {
        timer_->setInterval(1ms);
        timer_->setEnabled(true);
    }
    const Spent &longestGap() const { return longest_; }

private:
    void beat()
    {
        const Spent gap = sinceLast_.spent();
        longest_ = {std::max(longest_.wall, gap.wall), std::max(longest_.cpu, gap.cpu)};
        sinceLast_.restart();
    }

    Stopwatch sinceLast_;
    Spent longest_;
    std::unique_ptr<Timer> timer_;
};

/// Operator, settings and lines are doubles; the time and the database are real. Nothing here
/// writes to the database.
struct Desk : Bench {
    explicit Desk(const SiteSize &size)
    {
        module.DatabasePath = siteDatabase(size);
        module.SecurityLevel = u"6"_qs;
        module.KeySelect = u"+4795000001"_qs;
        module.SmsListSent = true;
        settings.values[u"dbpath"_qs] = module.DatabasePath;
        settings.values[u"keyselect"_qs] = module.KeySelect;
        person.isPatient = true;
        recordsets.OpenDatabase();
        recordsets.OpenRecordsets();
    }
    void until(const std::function<bool()> &condition)
    {
        while (!condition()) {
            time.yield(1ms);
        }
    }

    SystemClock time;
    BrowserTools tools{module, person, time, settings};
};

/// An open browser, and its grid.
class Screen : public QObject {
public:
    Screen(Desk &desk, std::unique_ptr<RecordBrowser> screen)
        : desk_(desk),
          screen_(std::move(screen)),
          grid_(*screen_->findChild<QTableView *>()),
          model_(static_cast<RecordsetModel &>(*grid_.model()))
    {
        grid_.viewport()->installEventFilter(this);
        screen_->load();
        screen_->show();
        // An empty last row is no row of the table.
        desk_.until([this] { return isPainted_ && model_.recordCount() > 0; });
        connect(&model_, &RecordsetModel::modelReset, this, [this] { isFresh_ = true; });
    }

    bool eventFilter(QObject *, QEvent *event) override
    {
        isPainted_ |= event->type() == QEvent::Paint;
        return false;
    }
    /// The grid as it is now stands on the screen.
    void awaitPaint()
    {
        isPainted_ = false;
        grid_.viewport()->update();
        desk_.until([this] { return isPainted_; });
    }
    void awaitAllRows()
    {
        desk_.until([this] { return !model_.isReading(); });
    }
    /// Rows of another order, or of a search, have replaced those before: the first of them, and
    /// all. What begins it is handed over.
    void timeFreshRows(Best &best, const std::string &name, const std::function<void()> &begin)
    {
        isFresh_ = false;
        const Stopwatch watch;
        begin();
        desk_.until([this] { return isFresh_; });
        awaitPaint();
        best.note(name + "_first", watch.spent());
        awaitAllRows();
        best.note(name + "_all", watch.spent());
    }
    void press(const char *button)
    {
        screen_->findChild<QAbstractButton *>(QString::fromUtf8(button))->click();
    }
    void clickHeading(int column) { emit grid_.horizontalHeader()->sectionClicked(column); }
    void type(const QString &text)
    {
        screen_->findChild<QLineEdit *>(u"txtSearch"_qs)->setText(text);
    }
    QScrollBar &bar() { return *grid_.verticalScrollBar(); }
    RecordsetModel &model() { return model_; }
    int currentRow() const { return grid_.currentIndex().row(); }

private:
    Desk &desk_;
    std::unique_ptr<RecordBrowser> screen_;
    QTableView &grid_;
    RecordsetModel &model_;
    bool isPainted_ = false;
    bool isFresh_ = false;
};

using Make = std::unique_ptr<RecordBrowser> (*)(Desk &);

std::unique_ptr<RecordBrowser> makeBrukere(Desk &desk)
{
    return std::make_unique<frmBrukere>(desk.tools);
}
std::unique_ptr<RecordBrowser> makeSMSReceived(Desk &desk)
{
    return std::make_unique<frmSMSReceived>(desk.tools);
}
std::unique_ptr<RecordBrowser> makeSMSSent(Desk &desk)
{
    return std::make_unique<frmSMSSent>(desk.tools);
}
std::unique_ptr<RecordBrowser> makeLOGG(Desk &desk)
{
    return std::make_unique<frmLOGG>(desk.tools, desk.link.pace);
}
std::unique_ptr<RecordBrowser> makeKEY(Desk &desk)
{
    return std::make_unique<frmKEY>(desk.tools, [] {});
}

void OpenScreen(benchmark::State &state, Make make, const SiteSize &size)
{
    Desk desk(size);
    Best best;
    for (auto _ : state) {
        const Stopwatch watch;
        const Screen screen(desk, make(desk));
        best.note("open", watch.spent());
    }
    best.handTo(state);
}

// From the first row on show to the last one, while the rows are still being listed and when all
// are; then by pages, backwards through the table.
void Scroll(benchmark::State &state, Make make, const SiteSize &size)
{
    Desk desk(size);
    Best best;
    for (auto _ : state) {
        Screen screen(desk, make(desk));
        const Heartbeat heart(desk.time);
        const Stopwatch opened;
        screen.press("cmdLast");
        desk.until([&] {
            return !screen.model().isReading() &&
                   screen.currentRow() == screen.model().recordCount() - 1;
        });
        screen.awaitPaint();
        best.note("last_once_listed", opened.spent());

        screen.press("cmdFirst");
        screen.awaitPaint();
        const Stopwatch last;
        screen.press("cmdLast");
        screen.awaitPaint();
        best.note("last", last.spent());

        screen.bar().setValue(screen.bar().maximum() / 2);
        screen.awaitPaint();
        Spent slowest;
        for (int page = 0; page < 50; ++page) {
            const Stopwatch down;
            screen.bar().triggerAction(QAbstractSlider::SliderPageStepAdd);
            screen.awaitPaint();
            const Spent spent = down.spent();
            slowest = {std::max(slowest.wall, spent.wall), std::max(slowest.cpu, spent.cpu)};
        }
        best.note("page", slowest);
        // The thumb is dragged over the whole table.
        for (int i = 0; i <= 100; ++i) {
            screen.bar().setValue(static_cast<int>(qint64{screen.bar().maximum()} * i / 100));
            screen.awaitPaint();
        }
        desk.time.sleep(5ms);
        best.note("gap", heart.longestGap());
    }
    best.handTo(state);
}

void Sort(benchmark::State &state, Make make, int column, const SiteSize &size)
{
    Desk desk(size);
    Best best;
    for (auto _ : state) {
        Screen screen(desk, make(desk));
        screen.awaitAllRows();
        const Heartbeat heart(desk.time);
        screen.timeFreshRows(best, "sort", [&] { screen.clickHeading(column); });
        desk.time.sleep(5ms);
        best.note("gap", heart.longestGap());
    }
    best.handTo(state);
}

// Hits in every thousandth row or so, in the last row alone, and nowhere; then key by key, each
// struck while the rows of the one before are being looked for.
void Filter(benchmark::State &state, const SiteSize &size)
{
    Desk desk(size);
    Best best;
    for (auto _ : state) {
        Screen screen(desk, makeBrukere(desk));
        screen.awaitAllRows();
        const Heartbeat heart(desk.time);
        for (const auto &[name, text] :
             {std::pair("thin", u"7777"_qs), std::pair("end", u"navn %1"_qs.arg(size.people)),
              std::pair("none", u"kråke"_qs)}) {
            screen.timeFreshRows(best, name, [&, what = text] { screen.type(what); });
            state.counters[std::string("hits_") + name] = screen.model().recordCount();
        }
        screen.timeFreshRows(best, "cleared", [&] { screen.type({}); });
        const QString typed = u"navn 4711"_qs;
        for (int keys = 1; keys <= typed.size(); ++keys) {
            screen.type(typed.left(keys));
            desk.time.sleep(60ms);
        }
        screen.awaitAllRows();
        desk.time.sleep(5ms);
        best.note("gap", heart.longestGap());
    }
    best.handTo(state);
}

// The line above the table of users: the first hit is to be seen, where the last user of all alone
// is meant, by the beginning of the number, by its end and by the name; where everybody is; and
// where nobody is, until that is said.
void SearchDoors(benchmark::State &state, const SiteSize &size)
{
    Desk desk(size);
    QWidget screen;
    screen.resize(700, 400);
    DoorSearch search(desk.module, desk.time, u"dd/MM/yyyy"_qs, &screen);
    search.resize(700, 30);
    screen.show();
    auto *line = screen.findChild<QLineEdit *>(u"txtSok"_qs);
    const auto *list = screen.findChild<QTableView *>(u"lstSok"_qs);
    const auto *note = screen.findChild<QLabel *>(u"lblTreff"_qs);
    Best best;
    const Heartbeat heart(desk.time);
    for (auto _ : state) {
        for (const auto &[name, text] :
             {std::pair("begin", u"91 10 00 00"_qs), std::pair("end", u"1100000"_qs),
              std::pair("name", u"fornavn 100000"_qs), std::pair("all", u"navn"_qs),
              std::pair("none", u"kråke"_qs)}) {
            line->clear();
            desk.time.sleep(20ms);
            const Stopwatch watch;
            line->setText(text);
            desk.until(
                [&] { return list->model()->rowCount() > 0 || note->text() == u"Ingen treff"; });
            screen.repaint();
            best.note(name, watch.spent());
            state.counters[std::string("hits_") + name] = list->model()->rowCount();
        }
    }
    best.note("gap", heart.longestGap());
    best.handTo(state);
}

void forgetPeakMemory()
{
    QFile marks(u"/proc/self/clear_refs"_qs);
    if (marks.open(QIODevice::WriteOnly)) {
        marks.write("5");
    }
}

/// The most resident memory, in MiB, since forgetPeakMemory().
double peakMebibytes()
{
    QFile status(u"/proc/self/status"_qs);
    status.open(QIODevice::ReadOnly);
    const QByteArray all = status.readAll();
    const qsizetype at = all.indexOf("VmHWM:") + 6;
    return all.mid(at, all.indexOf("kB", at) - at).trimmed().toDouble() / 1024;
}

// All screens at once, the main screen too, opened from its menus. To be run in a process of its
// own, since an earlier benchmark leaves memory behind.
void AllScreens(benchmark::State &state, const SiteSize &size)
{
    Desk desk(size);
    for (auto _ : state) {
        state.counters["MiB_before"] = residentMebibytes();
        frmMain shell(desk.time, desk.person, desk.settings, desk.host, desk.port, desk.socket,
                      desk.module);
        shell.load();
        shell.show();
        desk.time.sleep(50ms);
        state.counters["MiB_main"] = residentMebibytes();
        for (const QString &entry :
             {u"mnuDatafrmKeyOppsett"_qs, u"mnuDatafrmKey"_qs, u"mnuDatafrmKeyLogg"_qs,
              u"mnuDatafrmPassWords"_qs, u"mnuDatafrmKatalog"_qs, u"mnuSMSReceived"_qs,
              u"mnuSMSSent"_qs, u"mnuSpråkLanguage"_qs}) {
            shell.findChild<QAction *>(entry)->trigger();
        }
        desk.time.sleep(50ms);
        QList<QTableView *> grids;
        for (const QWidget *screen : QApplication::topLevelWidgets()) {
            grids += screen->findChildren<QTableView *>(u"grdDataGrid"_qs);
        }
        const auto awaitAll = [&] {
            desk.until([&] {
                return std::ranges::none_of(grids, [](const QTableView *grid) {
                    return static_cast<RecordsetModel *>(grid->model())->isReading();
                });
            });
        };
        awaitAll();
        int rows = 0;
        for (const QTableView *grid : grids) {
            rows += grid->model()->rowCount();
        }
        state.counters["grids"] = double(grids.size());
        state.counters["rows"] = rows;
        state.counters["MiB_all"] = residentMebibytes();
        forgetPeakMemory();
        for (QTableView *grid : grids) {
            if (grid->window()->objectName() == u"frmSMSSent"_qs) {
                emit grid->horizontalHeader()->sectionClicked(5); // SMS_Text
            }
        }
        awaitAll();
        state.counters["MiB_sorting"] = peakMebibytes();
        state.counters["MiB_sorted"] = residentMebibytes();
    }
}

} // namespace

// First, before others leave memory behind.
BENCHMARK_CAPTURE(AllScreens, large, kLargeSite)->Unit(benchmark::kSecond)->Iterations(1);

#define ON_BOTH_SITES(function, name, ...)                                                         \
    BENCHMARK_CAPTURE(function, name##_small __VA_OPT__(, ) __VA_ARGS__, kSmallSite)               \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Iterations(kRuns);                                                                       \
    BENCHMARK_CAPTURE(function, name##_large __VA_OPT__(, ) __VA_ARGS__, kLargeSite)               \
        ->Unit(benchmark::kMillisecond)                                                            \
        ->Iterations(kRuns)

constexpr int kRuns = 5;

ON_BOTH_SITES(OpenScreen, frmBrukere, makeBrukere);
ON_BOTH_SITES(OpenScreen, frmSMSReceived, makeSMSReceived);
ON_BOTH_SITES(OpenScreen, frmSMSSent, makeSMSSent);
ON_BOTH_SITES(OpenScreen, frmLOGG, makeLOGG);
ON_BOTH_SITES(OpenScreen, frmKEY, makeKEY);
ON_BOTH_SITES(Scroll, frmBrukere, makeBrukere);
ON_BOTH_SITES(Scroll, frmSMSReceived, makeSMSReceived);
ON_BOTH_SITES(Scroll, frmSMSSent, makeSMSSent);
ON_BOTH_SITES(Scroll, frmLOGG, makeLOGG);
ON_BOTH_SITES(Sort, frmBrukere_Etternavn, makeBrukere, 1);
ON_BOTH_SITES(Sort, frmSMSSent_SMS_Text, makeSMSSent, 5);
ON_BOTH_SITES(Sort, frmLOGG_Etternavn, makeLOGG, 4);
ON_BOTH_SITES(Filter, frmBrukere);
ON_BOTH_SITES(SearchDoors, users);
BENCHMARK_CAPTURE(SearchDoors, users_crowded, kCrowdedSite)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(kRuns);
