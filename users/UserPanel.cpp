#include "users/UserPanel.h"

#include "data/Module1.h"
#include "data/Recordsets.h"
#include "modem/ModemLink.h"
#include "platform/Clock.h"
#include "platform/Host.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/Text.h"
#include "platform/qt/Keys.h"
#include "ui_UserPanel.h"
#include "users/Balance.h"
#include "users/DoorSearch.h"
#include "users/UserOperations.h"

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QHelpEvent>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <QTextDocument>
#include <QToolTip>

#include <algorithm>

// The form; the grid is in UserPanelGrid.cpp.

namespace {

constexpr int kCalendarCharacters = 45; ///< wide enough for the names of the days

enum Field { Number, Fornavn, Etternavn, Status, Konto, Id };

// Required backgrounds. The text on them is black in every theme.
constexpr QRgb kLocked = qRgb(0xC0, 0xFF, 0xFF);
constexpr QRgb kUnlocked = qRgb(0xFF, 0xFF, 0x80);
constexpr QRgb kBalanceInUse = qRgb(0xFF, 0xFF, 0xFF);
constexpr QRgb kNoBalance = qRgb(0x80, 0x80, 0x80);
constexpr QRgb kUnread = qRgb(0xFF, 0xD9, 0xA0); // a day that nobody can read

/// Dynamic property of a picker.
constexpr char kUnreadText[] = "unread";

void paint(QWidget &field, QRgb background)
{
    QPalette palette;
    palette.setColor(QPalette::Base, QColor::fromRgb(background));
    palette.setColor(QPalette::Text, Qt::black);
    field.setPalette(palette);
}

void fillHours(QComboBox &hours, const QString &text)
{
    for (int hour = 0; hour <= 24; ++hour) {
        hours.addItem(QStringLiteral("%1").arg(hour, 2, 10, QChar(u'0')));
    }
    hours.setCompleter(nullptr); // it would change what is typed
    hours.setCurrentText(text);
}

} // namespace

UserPanel::UserPanel(Module1 &module, Recordsets &recordsets, ModemLink &modem,
                     UserOperations &users, Operator &person, Clock &clock, const Host &host,
                     SettingsStore &settings, QWidget *parent)
    : QWidget(parent),
      module_(module),
      recordsets_(recordsets),
      modem_(modem),
      users_(users),
      person_(person),
      clock_(clock),
      check_(module, recordsets, person, clock),
      freeSms_(module, recordsets, modem, person, clock),
      grid_(module, recordsets),
      model_(clock, person),
      settings_(settings),
      dateFormat_(host.dateFormat()),
      ui_(std::make_unique<Ui::UserPanel>())
{
    ui_->setupUi(this);
    search_ = new DoorSearch(module, clock, dateFormat_, this);
    ui_->tableTitleLayout->addWidget(search_, 1);
    setTabOrder(ui_->CommandSlettBruker, search_);
    setTabOrder(search_, ui_->TabStrip1);
    Txtfields_ = {ui_->Txtfields_0, ui_->Txtfields_1, ui_->Txtfields_2,
                  ui_->Txtfields_3, ui_->Txtfields_4, ui_->Txtfields_5};
    fillHours(*ui_->FraTid, QStringLiteral("00"));
    fillHours(*ui_->TilTid, QStringLiteral("24"));
    for (QDateEdit *picker : {ui_->DTPickerFrom, ui_->DTPickerTo}) {
        picker->setDisplayFormat(dateFormat_);
        QWidget *calendar = picker->calendarWidget();
        calendar->setMinimumWidth(calendar->fontMetrics().averageCharWidth() * kCalendarCharacters);
        connect(picker, &QDateEdit::dateChanged, this, [this, picker] { markUnread(*picker, {}); });
    }
    // A date on its way to being typed is no change yet.
    ui_->DTPickerFrom->setKeyboardTracking(false);
    // The form keeps its shape when the hours vanish.
    for (QWidget *hours : {ui_->FraTid, ui_->TilTid}) {
        QSizePolicy policy = hours->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        hours->setSizePolicy(policy);
    }
    ui_->UpDown3->setMaximumHeight(ui_->Saldo->sizeHint().height());
    lockStatus(true);
    showBalanceForm(false);
    highlightPrimaryButton();
    refreshDates();
    setNewUserMode(false);
    connectForm();
    connectGrid();
}

UserPanel::~UserPanel() = default;

void UserPanel::connectForm()
{
    const auto onClick = [this](QPushButton *button, auto handler) {
        connect(button, &QPushButton::clicked, this, handler);
    };
    onClick(ui_->cmdNyBruker, [this] { cmdNyBruker_Click(); });
    onClick(ui_->CommandRegistrerBruker, [this] { CommandRegistrerBruker_Click(); });
    onClick(ui_->CommandSlettBruker, [this] { CommandSlettBruker_Click(); });
    onClick(ui_->CommandSendSMS, [this] { freeSms_.toUser(entry()); });
    onClick(ui_->cmdHentTilbake, [this] { cmdHentTilbake_Click(); });
    for (QPushButton *button : findChildren<QPushButton *>()) {
        button->installEventFilter(this);
    }
    onKey(*this, "Ctrl+N", [this] { press(*ui_->cmdNyBruker); });
    onKey(*this, "Ctrl+F", [this] { search_->setFocus(); });
    onKey(*this, "Ctrl+H", [this] { press(*ui_->cmdHentTilbake); });
    onKey(*this, "Ctrl+Return", [this] { press(*ui_->CommandRegistrerBruker); });
    onKey(*this, "Ctrl+Enter", [this] { press(*ui_->CommandRegistrerBruker); });

    connect(ui_->DTPickerFrom, &QDateEdit::dateChanged, this, [this] { DTPickerFrom_Change(); });
    connect(ui_->Saldo, &QLineEdit::textChanged, this, [this] { Saldo_Change(); });
    connect(ui_->UpDown3, &UpDown::up, this, [this] {
        shown(person_, QString(), [this] { ui_->Saldo->setText(oneMore(ui_->Saldo->text())); });
    });
    connect(ui_->UpDown3, &UpDown::down, this, [this] {
        shown(person_, QString(), [this] { ui_->Saldo->setText(oneLess(ui_->Saldo->text())); });
    });

    connect(ui_->Txtfields_0, &QLineEdit::textEdited, this, &UserPanel::numberEdited);
    connect(qApp, &QApplication::focusChanged, this, &UserPanel::focusMoved);
    ui_->Txtfields_0->installEventFilter(this);
    ui_->Txtfields_3->installEventFilter(this);
}

bool UserPanel::eventFilter(QObject *watched, QEvent *event)
{
    const int key = event->type() == QEvent::KeyPress ? static_cast<QKeyEvent *>(event)->key() : 0;
    if (event->type() == QEvent::Shortcut && qobject_cast<QPushButton *>(watched) != nullptr) {
        press(static_cast<QPushButton &>(*watched)); // its letter with Alt
        return true;
    }
    if (watched == ui_->TabStrip1) {
        // The wheel would run through the accounts; Qt counts a click with any button.
        const bool isOtherButton = event->type() == QEvent::MouseButtonPress &&
                                   static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton;
        return event->type() == QEvent::Wheel || isOtherButton;
    }
    if (watched == ui_->Txtfields_0 && key == Qt::Key_Escape) {
        keepEntry();
        for (const Field field : {Number, Fornavn, Etternavn, Status, Konto}) {
            Txtfields_[field]->clear();
        }
        forgetRow();
    } else if (watched == ui_->Txtfields_3 &&
               (event->type() == QEvent::MouseButtonDblClick || key == Qt::Key_F2)) {
        Txtfields_DblClick();
    } else if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QString tip = statusTip(watched, help->pos());
        if (!tip.isEmpty()) {
            QToolTip::showText(help->globalPos(), Qt::convertFromPlainText(tip), this);
            return true;
        }
        if (watched == ui_->DataGrid1->viewport() && showWholeText(*help)) {
            return true;
        }
    } else if (watched == ui_->DataGrid1 && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
        // For the keyboard alone: what a click does to a row that is current already.
        if (!RadKlikket_) {
            DataGrid1_Click();
            fillFromRow(ui_->DataGrid1->currentIndex().row());
        }
    } else if (ui_->DataGrid1 && watched == ui_->DataGrid1->viewport()) {
        // Before the grid handles the press, so that a single click on a row fills the form.
        if (event->type() == QEvent::MouseButtonPress) {
            DataGrid1_Click();
        } else if (event->type() == QEvent::MouseButtonDblClick) {
            RadKlikket_ = false;
        } else if (event->type() == QEvent::Resize) {
            layOutColumns();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void UserPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        highlightPrimaryButton();
    }
}

/// In the theme's own colour of selection, set off further from its text: styles draw a button in
/// a paler shade of the colour that it is given.
void UserPanel::highlightPrimaryButton()
{
    constexpr int kHalf = 128;
    constexpr int kStronger = 190; // per cent
    const QColor text = palette().color(QPalette::Active, QPalette::HighlightedText);
    const QColor colour = palette().color(QPalette::Active, QPalette::Highlight);
    const QColor button =
        text.lightness() > kHalf ? colour.darker(kStronger) : colour.lighter(kStronger);
    QPalette highlighted;
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        highlighted.setColor(group, QPalette::Button, button);
        highlighted.setColor(group, QPalette::ButtonText, text);
    }
    ui_->CommandRegistrerBruker->setPalette(highlighted);
}

UserEntry UserPanel::entry() const
{
    const auto typed = [this](Field field) { return toWindows1252(Txtfields_[field]->text()); };
    UserEntry entry;
    entry.number = typed(Number);
    entry.fornavn = typed(Fornavn);
    entry.etternavn = typed(Etternavn);
    entry.status = typed(Status);
    entry.konto = typed(Konto);
    entry.id = typed(Id);
    entry.from = ui_->DTPickerFrom->date();
    entry.to = ui_->DTPickerTo->date();
    entry.fraTid = toWindows1252(ui_->FraTid->currentText());
    entry.tilTid = toWindows1252(ui_->TilTid->currentText());
    entry.saldo = toWindows1252(ui_->Saldo->text());
    entry.unreadFrom = unreadIn(*ui_->DTPickerFrom);
    entry.unreadTo = unreadIn(*ui_->DTPickerTo);
    return entry;
}

/// What a number check may have changed.
void UserPanel::showEntry(const UserEntry &entry)
{
    Txtfields_[Fornavn]->setText(entry.fornavn);
    Txtfields_[Etternavn]->setText(entry.etternavn);
    Txtfields_[Status]->setText(entry.status);
    Txtfields_[Konto]->setText(entry.konto);
    setDay(*ui_->DTPickerFrom, entry.from);
    setDay(*ui_->DTPickerTo, entry.to);
    markUnread(*ui_->DTPickerFrom, entry.unreadFrom);
    markUnread(*ui_->DTPickerTo, entry.unreadTo);
}

/// A date of the program's own: only the operator's count as changes.
void UserPanel::setDay(QDateEdit &picker, const QDate &day)
{
    const QSignalBlocker quiet(picker);
    picker.setDate(day);
    markUnread(picker, {});
}

/// The table holds this where a day should be, and the picker shows another. An empty text takes
/// the mark away again.
void UserPanel::markUnread(QDateEdit &picker, const QString &text)
{
    picker.setProperty(kUnreadText, text);
    if (text.isEmpty()) {
        picker.setPalette({});
        picker.setToolTip({});
        return;
    }
    paint(picker, kUnread);
    picker.setToolTip(
        QCoreApplication::translate("UserPanel", "I tabellen står en dato som ikke kan leses: %1")
            .arg(text)
            .toHtmlEscaped());
}

QString UserPanel::unreadIn(const QDateEdit &picker) const
{
    return picker.property(kUnreadText).toString();
}

/// A period that is registered takes the place of the stored one, whose days nobody has seen.
bool UserPanel::daysAreMeant()
{
    QStringList unread{unreadIn(*ui_->DTPickerFrom), unreadIn(*ui_->DTPickerTo)};
    unread.removeAll(QString());
    return unread.isEmpty() ||
           person_.messageBox(
               QCoreApplication::translate(
                   "UserPanel", "I tabellen står en dato som ikke kan leses: %1. Vil du registrere "
                                "perioden slik den står på skjermen?")
                   .arg(unread.join(QStringLiteral(", "))),
               QString(), Buttons::OkCancel) == Answer::Ok;
}

void UserPanel::setNewUserMode(bool newUser)
{
    NewUserMode_ = newUser;
    ui_->Label2->setText(newUser ? QStringLiteral("True") : QStringLiteral("False"));
}

void UserPanel::CLEAR_INPUT()
{
    keepEntry();
    for (const Field field : {Number, Fornavn, Etternavn, Status, Konto}) {
        Txtfields_[field]->clear();
    }
    Txtfields_[Id]->setText(QString::number(kNoWaitingRow));
    ui_->FraTid->setCurrentText(QStringLiteral("00"));
    ui_->TilTid->setCurrentText(QStringLiteral("24"));
    ui_->Saldo->setText(QStringLiteral("0"));
    refreshDates();
    forgetRow();
}

void UserPanel::refreshDates()
{
    const QDate today = clock_.now().date();
    setDay(*ui_->DTPickerTo, today.addDays(kGuestDays));
    setDay(*ui_->DTPickerFrom, today);
}

void UserPanel::refresh()
{
    CLEAR_INPUT();
    recordsets_.OpenRecordsets();
    VisBrukerTabell();
}

void UserPanel::cmdNyBruker_Click()
{
    keepEntry();
    setNewUserMode(true);
    CLEAR_INPUT();
    ui_->Txtfields_0->setFocus();
    ui_->Txtfields_0->insert(module_.dialPrefix());
}

/// What is about to be cleared away, for cmdHentTilbake.
void UserPanel::keepEntry()
{
    const UserEntry form = entry();
    const bool hasNumber = !form.number.isEmpty() && form.number != module_.dialPrefix();
    const bool isKept = kept_ == form; // in the mode that it was typed in
    if (!isKept && (hasNumber || !form.fornavn.isEmpty() || !form.etternavn.isEmpty())) {
        kept_ = form;
        keptNewUserMode_ = NewUserMode_;
    }
    ui_->cmdHentTilbake->setEnabled(kept_.has_value());
}

/// A waiting period comes back as a new one: its row may have gone meanwhile, and its number to
/// another's.
void UserPanel::cmdHentTilbake_Click()
{
    if (!kept_) {
        return;
    }
    const UserEntry form = *std::exchange(kept_, std::nullopt);
    ui_->Txtfields_1->setFocus(); // and not the number, whose check would begin another period
    CLEAR_INPUT();
    setNewUserMode(keptNewUserMode_);
    ui_->Saldo->setText(form.saldo); // it changes others
    Txtfields_[Number]->setText(form.number);
    ui_->FraTid->setCurrentText(form.fraTid);
    ui_->TilTid->setCurrentText(form.tilTid);
    showEntry(form);
    ui_->cmdHentTilbake->setEnabled(kept_.has_value());
}

/// A number with its "+" typed or pasted behind the prefix that stands there takes its place.
void UserPanel::numberEdited(const QString &text)
{
    const QString prefix = module_.dialPrefix();
    QString number = text;
    if (text.startsWith(prefix + u'+')) {
        number = text.mid(prefix.size());
        const auto cursor = static_cast<int>(ui_->Txtfields_0->cursorPosition() - prefix.size());
        ui_->Txtfields_0->setText(number);
        ui_->Txtfields_0->setCursorPosition(cursor);
    }
    QString help;
    kept([&] { help = check_.help(number); });
    ui_->lblHint->setText(help);
}

void UserPanel::press(QAbstractButton &button)
{
    if (!button.isEnabled() || !button.isVisible()) {
        return;
    }
    goesOn_ = true;
    button.setFocus(Qt::ShortcutFocusReason);
    if (goesOn_) {
        button.click();
    }
}

void UserPanel::CommandRegistrerBruker_Click()
{
    if (!daysAreMeant()) {
        return;
    }
    skipped({[this] { users_.save(entry(), NewUserMode_); }, [this] { refresh(); }});
}

void UserPanel::CommandSlettBruker_Click()
{
    bool deleted = false;
    skipped({[&] { deleted = users_.SlettBruker(entry()); },
             [&] { deleted ? refresh() : CLEAR_INPUT(); }});
}

void UserPanel::focusMoved(QWidget *from, QWidget *to)
{
    // A message box, another screen and the menu only borrow the focus: the field is not left.
    if (to == nullptr || to->window() != window() || qobject_cast<QMenuBar *>(to) != nullptr) {
        return;
    }
    const auto field = std::find(Txtfields_.begin(), Txtfields_.end(), from);
    if (field != Txtfields_.end()) {
        Txtfields_LostFocus(static_cast<int>(field - Txtfields_.begin()));
    }
}

void UserPanel::Txtfields_LostFocus(int index)
{
    if (index == Status) {
        lockStatus(true);
    }
    if (index > Etternavn || checking_ || ui_->Txtfields_0->text().isEmpty()) {
        return;
    }
    const QScopedValueRollback asking(checking_, true);
    UserEntry form = entry();
    goesOn_ = true;
    // The check ends at its first failure; what it brought until then is shown.
    skipped({[&] {
                 check_.matchCatalogue(form);
                 if (index == Number) {
                     goesOn_ = check_.choosePeriod(form);
                     recordsets_.OpenRecordsets();
                     VisBrukerTabell();
                 }
             },
             [&] { showEntry(form); },
             [this] {
                 QMetaObject::invokeMethod(
                     this, [this, click = goesOn_] { liftButtons(click); }, Qt::QueuedConnection);
             }});
}

/// A question that came up between a press of the mouse and its release has taken the release: the
/// button stays down for good. An OK goes on with what was begun; a refusal has brought another
/// period, which the operator must see first.
void UserPanel::liftButtons(bool click)
{
    if (QGuiApplication::mouseButtons() != Qt::NoButton) {
        return;
    }
    const QList<QAbstractButton *> buttons = window()->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->isDown()) {
            button->setDown(false);
            click ? button->click() : void();
        }
    }
}

void UserPanel::Txtfields_DblClick()
{
    if (module_.SecurityLevel > QStringLiteral("4")) {
        lockStatus(false);
    }
}

void UserPanel::lockStatus(bool locked)
{
    ui_->Txtfields_3->setReadOnly(locked);
    paint(*ui_->Txtfields_3, locked ? kLocked : kUnlocked);
}

void UserPanel::DTPickerFrom_Change()
{
    const QDate from = ui_->DTPickerFrom->date();
    if (ui_->DTPickerTo->date() < from) {
        setDay(*ui_->DTPickerTo, from.addDays(kGuestDays));
    }
}

/// Also when a row is selected, or the form is emptied: the account and the last day that a period
/// user's row has just brought are lost behind a balance user's. That is required.
void UserPanel::Saldo_Change()
{
    kept([this] {
        const bool balance = showsBalance(ui_->Saldo->text());
        showBalanceForm(balance);
        if (!balance) {
            setDay(*ui_->DTPickerTo, clock_.now().date().addDays(kGuestDays));
        }
        Txtfields_[Konto]->setText(balance ? QStringLiteral("Saldo") : module_.texts.gjest);
        ui_->KontoLBL->setText(balance ? QStringLiteral("Antall") : QStringLiteral("Konto"));
    });
}

void UserPanel::showBalanceForm(bool balance)
{
    paint(*ui_->Saldo, balance ? kBalanceInUse : kNoBalance);
    ui_->FraTid->setVisible(!balance);
    ui_->TilTid->setVisible(!balance);
    ui_->DTPickerFrom->setEnabled(!balance);
    ui_->DTPickerTo->setEnabled(!balance);
}
