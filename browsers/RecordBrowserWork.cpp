#include "browsers/RecordBrowser.h"

#include "data/Module1.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/SettingsStore.h"
#include "ui_RecordBrowser.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QSaveFile>
#include <QStorageInfo>

#include <algorithm>

// What takes long in a browser: it goes slice by slice, shows how far it has come, and ends at Esc.

namespace {

constexpr milliseconds kBetweenSlices = 1ms;

QString ownText(const char *text)
{
    return QCoreApplication::translate("RecordBrowser", text);
}

/// In the operator's words where there are some, else in the system's.
QString whyNotWritten(QSaveFile &file)
{
    constexpr qint64 kNoRoom = 1'000'000; // bytes: what a file system keeps for itself
    if (file.isOpen()) {
        file.flush(); // a write that came to a half gives its reason at the next
    }
    const QFileInfo target(file.fileName());
    const QFileInfo folder(target.absolutePath());
    const QStorageInfo disk(folder.filePath());
    if (!folder.isDir()) {
        return ownText(QT_TRANSLATE_NOOP("RecordBrowser", "Mappen finnes ikke."));
    }
    if (!folder.isWritable() || (target.exists() && !target.isWritable())) {
        return ownText(QT_TRANSLATE_NOOP("RecordBrowser", "Du har ikke adgang til å skrive der."));
    }
    if (disk.isValid() && disk.bytesAvailable() < kNoRoom) {
        return ownText(QT_TRANSLATE_NOOP("RecordBrowser", "Det er ikke mer plass på disken."));
    }
    return file.errorString();
}

} // namespace

void RecordBrowser::showProgress()
{
    constexpr milliseconds kWorthShowing = 100ms;
    const bool reading = model_.isReading();
    const bool shows =
        slice_ != nullptr || (reading && clock_.elapsed() - readingSince_ > kWorthShowing);
    ui_->barWork->setVisible(shows);
    ui_->lblWork->setVisible(shows);
    person_.setBusy(this, shows);
    const bool searches = !model_.shownQuery().search.isEmpty();
    const int rows = model_.recordCount();
    const char *const found = searches    ? QT_TRANSLATE_NOOP("RecordBrowser", "%1 treff")
                              : rows == 1 ? QT_TRANSLATE_NOOP("RecordBrowser", "%1 rad")
                                          : QT_TRANSLATE_NOOP("RecordBrowser", "%1 rader");
    const QString more = reading ? QStringLiteral("…") : QString();
    ui_->lblHits->setText(model_.showsLatest() ? ownText(found).arg(QLocale().toString(rows) + more)
                                               : more); // how many there were is no news
    lblEmpty_->setVisible(rows == 0 && !reading);
    lblEmpty_->setText(
        ownText(searches ? QT_TRANSLATE_NOOP("RecordBrowser", "Ingen rad har denne teksten.")
                         : QT_TRANSLATE_NOOP("RecordBrowser", "Tabellen er tom.")));
    ui_->cmdSaveCsv->setEnabled(slice_ == nullptr && !EditFlag && !AddNewFlag);
}

void RecordBrowser::beginWork(std::function<bool(int &percent)> slice)
{
    if (slice_ != nullptr) {
        person_.beep();
        return;
    }
    slice_ = std::move(slice);
    workTries_.beginAnew();
    ui_->barWork->setRange(0, 100);
    workOn();
}

void RecordBrowser::workOn()
{
    work_->setEnabled(false);
    int percent = 0;
    bool more = false;
    const bool fine = workTries_([&] { more = slice_(percent); });
    const bool goesOn = fine ? more : !workTries_.haveFailed();
    if (goesOn && slice_ != nullptr) { // not stopped while a box stood open
        ui_->barWork->setValue(fine ? percent : ui_->barWork->value());
        work_->setInterval(fine ? kBetweenSlices : Tries::kPause);
        work_->setEnabled(true);
    } else {
        endWork();
    }
    showProgress();
}

void RecordBrowser::endWork()
{
    work_->setEnabled(false);
    slice_ = nullptr;
    ui_->barWork->setRange(0, 0);
}

/// Whatever takes long ends here, with what it has; a file that is not whole is not written.
bool RecordBrowser::stopWork()
{
    // Until changes to a row are settled the rows to come rest anyway, and wait.
    const bool rests = !model_.showsLatest() && model_.editedRow() >= 0;
    const bool reads = model_.isReading() && !rests;
    const bool worked = slice_ != nullptr || reads;
    endWork();
    if (reads) {
        wantsLast_ = false;
        if (!model_.showsLatest()) {
            place_.reset(); // it was never left
            shown(person_, {}, [this] { askForWhatIsShown(); });
        }
        model_.stopReading();
    }
    showProgress();
    return worked;
}

/// A search or a sort that has come to nothing is taken back.
void RecordBrowser::askForWhatIsShown()
{
    const Query before = model_.shownQuery();
    adoPrimaryRS.search(before.search);
    ui_->txtSearch->setText(before.search);
    sortBy(before.sort);
    showSort();
}

/// The rows are asked for once all are listed.
void RecordBrowser::beginExport(const std::function<std::vector<qint64>()> &bookmarks,
                                RowExport::Format format,
                                const std::function<void(const QString &)> &sink,
                                const std::function<void()> &finish)
{
    beginWork([=, this, rows = std::shared_ptr<RowExport>()](int &percent) mutable {
        if (model_.isReading()) {
            return true;
        }
        if (!rows) {
            rows = std::make_shared<RowExport>(adoPrimaryRS, bookmarks(), columnsInSight(), format,
                                               sink);
        }
        const bool more = rows->writeSlice();
        percent = static_cast<int>(100LL * rows->done() / std::max(1, rows->total()));
        if (!more) {
            finish();
        }
        return more;
    });
}

void RecordBrowser::copySelection()
{
    if (EditFlag || AddNewFlag) {
        person_.beep(); // the file has not what the grid shows before cmdUpdate
        return;
    }
    if (!saveEdit()) {
        return;
    }
    QItemSelection ranges = ui_->grdDataGrid->selectionModel()->selection();
    std::ranges::sort(ranges, {}, &QItemSelectionRange::top);
    std::vector<qint64> bookmarks;
    int next = 0;
    for (const QItemSelectionRange &range : ranges) {
        for (next = std::max(next, range.top()); next <= range.bottom(); ++next) {
            if (const qint64 bookmark = model_.bookmark(next); bookmark != 0) {
                bookmarks.push_back(bookmark);
            }
        }
    }
    const auto text = std::make_shared<QString>();
    beginExport([bookmarks = std::move(bookmarks)] { return bookmarks; }, RowExport::Format::Tabs,
                [text](const QString &line) { *text += line; },
                [text] { QGuiApplication::clipboard()->setText(*text); });
}

void RecordBrowser::saveAsCsv()
{
    if (!saveEdit()) {
        return;
    }
    shown(person_, {}, [this] {
        const QString path = person_.chooseNewFile(windowTitle().simplified() + u".csv"_qs,
                                                   QStringLiteral("CSV (*.csv)"));
        if (path.isEmpty()) {
            return;
        }
        const auto file = std::make_shared<QSaveFile>(path);
        const auto check = [file](bool done) {
            if (!done) {
                const char *const text =
                    QT_TRANSLATE_NOOP("RecordBrowser", "Filen kunne ikke skrives. %1");
                throw RuntimeFailure(ownText(text).arg(whyNotWritten(*file)));
            }
        };
        check(file->open(QIODevice::WriteOnly));
        const auto all = [this] {
            std::vector<qint64> bookmarks;
            for (int row = 0; row < model_.recordCount(); ++row) {
                bookmarks.push_back(model_.bookmark(row));
            }
            return bookmarks;
        };
        beginExport(
            all, RowExport::Format::Csv,
            [file, check](const QString &line) { check(file->write(line.toUtf8()) >= 0); },
            [file, check] {
                check(file->flush()); // what fails in commit() alone has no reason
                check(file->commit());
            });
    });
}
