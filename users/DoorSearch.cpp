#include "users/DoorSearch.h"

#include "data/Dates.h"
#include "data/Module1.h"
#include "platform/Clock.h"
#include "platform/Tries.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCoreApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>

#include <algorithm>

namespace {

enum Column { Door, Number, Name, Status, Columns };

constexpr milliseconds kBetweenSlices = 1ms;
constexpr milliseconds kAtATime = 10ms; ///< of reading, before the screen gets its turn
constexpr auto kMostHits = std::size_t{UserSearch::kEnough};
constexpr int kMostRows = 10;  ///< in sight
constexpr int kFewestRows = 3; ///< however little room there is

QString translated(const char *text)
{
    return QCoreApplication::translate("DoorSearch", text);
}

} // namespace

DoorSearch::DoorSearch(Module1 &module, Clock &clock, const QString &dateFormat, QWidget *parent)
    : QWidget(parent),
      module_(module),
      clock_(clock),
      dateFormat_(dateFormat),
      slices_(clock.timer([this] { readOn(); })),
      lblSok_(new QLabel(this)),
      txtSok_(new QLineEdit(this)),
      list_(new QFrame(parent)),
      lstSok_(new QTableWidget(0, Columns, list_)),
      lblTreff_(new QLabel(list_))
{
    lblSok_->setObjectName(QStringLiteral("lblSok"));
    lblSok_->setBuddy(txtSok_);
    setFocusProxy(txtSok_);
    txtSok_->setObjectName(QStringLiteral("txtSok"));
    txtSok_->setClearButtonEnabled(true);
    auto *line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 4);
    line->addWidget(lblSok_);
    line->addWidget(txtSok_, 1);

    list_->setObjectName(QStringLiteral("fraSok"));
    list_->setFrameShape(QFrame::StyledPanel);
    list_->setAutoFillBackground(true);
    list_->setBackgroundRole(QPalette::Base);
    lstSok_->setObjectName(QStringLiteral("lstSok"));
    lstSok_->setFrameShape(QFrame::NoFrame);
    lstSok_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstSok_->setSelectionBehavior(QAbstractItemView::SelectRows);
    lstSok_->setSelectionMode(QAbstractItemView::SingleSelection);
    lstSok_->setTabKeyNavigation(false);
    lstSok_->setShowGrid(false);
    lstSok_->setAlternatingRowColors(true);
    lstSok_->setWordWrap(false);
    lstSok_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    lstSok_->verticalHeader()->hide();
    lstSok_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    lstSok_->horizontalHeader()->hide();
    for (const Column wide : {Door, Name}) {
        lstSok_->horizontalHeader()->setSectionResizeMode(wide, QHeaderView::Stretch);
    }
    lblTreff_->setObjectName(QStringLiteral("lblTreff"));
    lblTreff_->setTextFormat(Qt::PlainText);
    lblTreff_->setWordWrap(true);
    lblTreff_->setMargin(4);
    auto *inside = new QVBoxLayout(list_);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->setSpacing(0);
    inside->addWidget(lstSok_);
    inside->addWidget(lblTreff_);
    list_->hide();
    translate();

    connect(txtSok_, &QLineEdit::textChanged, this, &DoorSearch::look);
    connect(lstSok_, &QTableWidget::cellClicked, this, [this](int row) {
        qApp->installEventFilter(this); // for the second half of a double click
        choose(row);
    });
    for (QWidget *each : {static_cast<QWidget *>(txtSok_), static_cast<QWidget *>(lstSok_)}) {
        each->installEventFilter(this);
    }
    connect(qApp, &QApplication::focusChanged, this, &DoorSearch::focusMoved);
}

DoorSearch::~DoorSearch() = default;

/// From the beginning; an older search is given up.
void DoorSearch::look()
{
    search_.emplace(module_, txtSok_->text());
    hits_.clear();
    beginSo_ = 0;
    lstSok_->setRowCount(0);
    lstSok_->scrollToTop();
    if (search_->isEmpty()) {
        close();
        return;
    }
    list_->show();
    list_->raise();
    readOn();
}

void DoorSearch::readOn()
{
    const milliseconds end = clock_.elapsed() + kAtATime;
    QString note;
    milliseconds pause = kBetweenSlices;
    // No box: the operator is typing, and what fails now may go well a moment later.
    try {
        do {
            search_->readSlice([this](const UserHit &hit) { add(hit); });
        } while (goesOn() && clock_.elapsed() < end);
        note = hits_.size() == kMostHits ? translated("Det finnes flere treff. Skriv mer.")
               : !hits_.empty()          ? QString()
               : goesOn()                ? translated("Søker …")
                                         : translated("Ingen treff");
    } catch (const RuntimeFailure &failure) {
        note = translated("Søket feilet: %1").arg(failure.description());
        pause = Tries::kPause;
    }
    slices_->setInterval(pause);
    slices_->setEnabled(goesOn());
    lblTreff_->setText(note);
    lblTreff_->setVisible(!note.isEmpty());
    place();
}

/// A full list may still get hits that begin so.
bool DoorSearch::goesOn() const
{
    return !search_->isComplete() && beginSo_ < static_cast<int>(kMostHits);
}

/// The last ones give way to those that begin so.
void DoorSearch::add(const UserHit &hit)
{
    const std::size_t at = hit.beginsSo ? static_cast<std::size_t>(beginSo_) : hits_.size();
    if (at >= kMostHits) {
        return;
    }
    if (hits_.size() == kMostHits) {
        hits_.pop_back();
        lstSok_->removeRow(static_cast<int>(hits_.size()));
    }
    hits_.insert(hits_.begin() + static_cast<std::ptrdiff_t>(at), hit);
    beginSo_ += hit.beginsSo ? 1 : 0;
    showHit(static_cast<int>(at), hit);
}

void DoorSearch::showHit(int row, const UserHit &hit)
{
    lstSok_->insertRow(row);
    const QString name = (hit.Fornavn + u' ' + hit.Etternavn).simplified();
    const QString status =
        hit.isWaiting
            ? translated("%1, venter fra %2").arg(hit.Status, shownDay(hit.from, dateFormat_))
            : hit.Status;
    int column = 0;
    for (const QString &text : {hit.doorName, hit.number, name, status}) {
        auto *item = new QTableWidgetItem(text.simplified());
        item->setToolTip(text.simplified().toHtmlEscaped());
        lstSok_->setItem(row, column++, item);
    }
}

void DoorSearch::close()
{
    slices_->setEnabled(false);
    search_.reset();
    list_->hide();
}

/// Below the line, as high as its rows need, down to the parent's lower edge.
void DoorSearch::place()
{
    for (const Column narrow : {Number, Status}) {
        lstSok_->resizeColumnToContents(narrow);
    }
    const int row = lstSok_->verticalHeader()->defaultSectionSize();
    const int rows = std::min(lstSok_->rowCount(), kMostRows);
    lstSok_->setVisible(rows > 0);
    const QPoint corner = mapTo(parentWidget(), rect().bottomLeft());
    const int frame = 2 * list_->frameWidth();
    const int note =
        frame + (lblTreff_->isHidden() ? 0 : lblTreff_->heightForWidth(width() - frame));
    const int room =
        std::max(parentWidget()->height() - corner.y() - note, std::min(rows, kFewestRows) * row);
    list_->setGeometry(corner.x(), corner.y(), width(), std::min(rows * row, room) + note);
}

void DoorSearch::choose(int row)
{
    if (row < 0 || row >= static_cast<int>(hits_.size())) {
        return;
    }
    const UserHit hit = hits_[static_cast<std::size_t>(row)];
    close();
    emit chosen(hit);
}

bool DoorSearch::eventFilter(QObject *watched, QEvent *event)
{
    // What lay below the list must not get the second half of a double click on it.
    const bool isSecond = event->type() == QEvent::MouseButtonDblClick;
    if (watched->isWidgetType() && (isSecond || event->type() == QEvent::MouseButtonPress)) {
        qApp->removeEventFilter(this);
        return isSecond && list_->isHidden() && watched != txtSok_;
    }
    if (event->type() == QEvent::KeyPress && (watched == txtSok_ || watched == lstSok_)) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return watched == txtSok_ ? keyInLine(key) : keyInList(key);
    }
    return QWidget::eventFilter(watched, event);
}

bool DoorSearch::keyInLine(int key)
{
    switch (key) {
    case Qt::Key_Down:
        if (list_->isHidden()) {
            look();
        } else if (lstSok_->rowCount() > 0) {
            lstSok_->setFocus(Qt::TabFocusReason);
            lstSok_->setCurrentCell(0, 0);
        }
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        list_->isHidden() ? look() : choose(0);
        return true;
    case Qt::Key_Escape:
        close();
        if (before_) {
            before_->setFocus(Qt::OtherFocusReason);
        }
        return true;
    default:
        return false;
    }
}

bool DoorSearch::keyInList(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(lstSok_->currentRow());
        return true;
    case Qt::Key_Up:
        if (lstSok_->currentRow() > 0) {
            return false;
        }
        txtSok_->setFocus(Qt::TabFocusReason);
        return true;
    case Qt::Key_Escape:
        txtSok_->setFocus(Qt::OtherFocusReason);
        close();
        return true;
    default:
        return false;
    }
}

void DoorSearch::focusMoved(QWidget *from, QWidget *to)
{
    // A box and another window only borrow the focus.
    if (to == nullptr || to->window() != window()) {
        return;
    }
    const auto isOurs = [this](const QWidget *each) { return each == txtSok_ || each == lstSok_; };
    if (!isOurs(to)) {
        close();
    } else if (from != nullptr && !isOurs(from) && from->window() == window()) {
        before_ = from;
    }
}

void DoorSearch::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    place();
}

void DoorSearch::moveEvent(QMoveEvent *event)
{
    QWidget::moveEvent(event);
    place();
}

void DoorSearch::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        translate();
    }
}

void DoorSearch::translate()
{
    const QString name = translated("Søk i alle dører");
    lblSok_->setText(name);
    txtSok_->setAccessibleName(name);
    txtSok_->setPlaceholderText(translated("Nummer eller navn"));
    lstSok_->setAccessibleName(translated("Treff i alle dører"));
    lstSok_->setHorizontalHeaderLabels(
        {translated("Dør"), translated("Nummer"), translated("Navn"), translated("Status")});
}
