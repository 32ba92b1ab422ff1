#include "doors/frmKeyProperties.h"

#include "data/Connection.h"
#include "data/Criteria.h"
#include "data/Module1.h"
#include "data/Recordsets.h"
#include "platform/Clock.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "platform/RuntimeFailure.h"
#include "platform/Text.h"
#include "platform/qt/Keys.h"
#include "ui_frmKeyProperties.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QScopedValueRollback>
#include <QScreen>
#include <QScrollBar>

// The configuration of a door as it is put together, loaded and shown. What it stores and sends is
// in frmKeyPropertiesSend.cpp.

namespace {

constexpr milliseconds kReloadInterval = 10000ms;
constexpr int kFirstEdit = 4; ///< the fields with buttons of the same index …
constexpr int kLastEdit = 20; ///< … from the first to the last
constexpr int kFixedText = 21;
constexpr int kPulse = 13;
constexpr int kUsers = 14;

QString translated(const char *text)
{
    return QCoreApplication::translate("frmKeyProperties", text);
}

Query waitingMessages()
{
    return {.source = QStringLiteral("SMS_Sent"),
            .columns = QStringLiteral("ID,TilNummer,TilNummerKort,Etternavn,Fornavn,Dato,DatoLNG,"
                                      "SMS_Text,CMGS,TimeSent,TimeReceived,ReceivedStatus")
                           .split(u','),
            .filter = equals(QStringLiteral("CMGS")),
            .values = {QStringLiteral("UNSENT")}};
}

QStringList hours()
{
    QStringList result;
    for (int hour = 0; hour <= 24; ++hour) {
        result += QStringLiteral("%1").arg(hour, 2, 10, QChar(u'0'));
    }
    return result;
}

void fill(QComboBox &list, const QStringList &entries)
{
    list.clear();
    list.addItems(entries);
    list.setPlaceholderText({});
    list.setCurrentIndex(-1);
}

/// The same entries in another language.
void reword(QComboBox &list, const QStringList &entries)
{
    for (int i = 0; i < list.count(); ++i) {
        list.setItemText(i, entries.at(i));
    }
}

void keepPlaceWhenHidden(QWidget &control)
{
    QSizePolicy policy = control.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    control.setSizePolicy(policy);
}

} // namespace

frmKeyProperties::frmKeyProperties(Module1 &module, Operator &person, Clock &clock, QWidget *parent)
    : QWidget(parent, Qt::Window),
      module_(module),
      person_(person),
      clock_(clock),
      Timer1_(clock.timer([this] { Timer1_Timer(); })),
      ui_(std::make_unique<Ui::frmKeyProperties>()),
      types_(new QButtonGroup(this))
{
    ui_->setupUi(this);
    ui_->UpDown1->setMaximumHeight(ui_->KeyTXT_0->sizeHint().height());
    Timer1_->setInterval(kReloadInterval);
    collectControls();
    connectControls();
    paintReadOnly();
}

frmKeyProperties::~frmKeyProperties() = default;

void frmKeyProperties::collectControls()
{
    const auto collect = [this]<class Control, std::size_t size>(
                             std::array<Control *, size> &controls, const char *name) {
        for (std::size_t i = 0; i < size; ++i) {
            controls[i] =
                findChild<Control *>(QStringLiteral("%1_%2").arg(QLatin1StringView(name)).arg(i));
        }
    };
    collect(KeyTXT_, "KeyTXT");
    collect(Command1_, "Command1");
    collect(Combo1_, "Combo1");
    collect(KeyType_, "KeyType");
}

void frmKeyProperties::connectControls()
{
    for (QLineEdit *field : KeyTXT_) {
        field->installEventFilter(this);
        connect(field, &QLineEdit::textChanged, this, [this] { captionAdministrator(); });
        connect(field, &QLineEdit::textEdited, this, [this] { KeyTXT_Change(); });
    }
    for (std::size_t i = 0; i < Command1_.size(); ++i) {
        if (QPushButton *button = Command1_[i]) {
            keepPlaceWhenHidden(*button);
            const int index = static_cast<int>(i);
            connect(button, &QPushButton::clicked, this, [this, index] { SendDoorCommand(index); });
        }
    }
    for (std::size_t i = 0; i < Combo1_.size(); ++i) {
        keepPlaceWhenHidden(*Combo1_[i]);
        Combo1_[i]->installEventFilter(this);
        // The operator's choice alone, not what a load or a step puts there.
        const int index = static_cast<int>(i);
        connect(Combo1_[i], &QComboBox::activated, this, [this, index] { Combo1_Click(index); });
    }
    for (QWidget *label : listLabels()) {
        keepPlaceWhenHidden(*label);
    }
    for (std::size_t i = 0; i < KeyType_.size(); ++i) {
        types_->addButton(KeyType_[i], static_cast<int>(i));
    }
    connect(types_, &QButtonGroup::idClicked, this, &frmKeyProperties::ApplyDoorType);
    connect(ui_->UpDown1, &UpDown::up, this, [this] { UpDown1_Change(true); });
    connect(ui_->UpDown1, &UpDown::down, this, [this] { UpDown1_Change(false); });

    onKey(*this, "Esc", [this] { close(); });
    onKey(*this, "Ctrl+PgDown", [this] { UpDown1_Change(true); });
    onKey(*this, "Ctrl+PgUp", [this] { UpDown1_Change(false); });
}

bool frmKeyProperties::eventFilter(QObject *watched, QEvent *event)
{
    auto *list = qobject_cast<QComboBox *>(watched);
    if (list == nullptr && event->type() == QEvent::FocusIn) {
        // Nobody's typing is to be run over by a reload.
        Timer1_->setEnabled(false);
    }
    if (list != nullptr && event->type() == QEvent::Wheel && !list->hasFocus()) {
        // Who scrolls the screen chooses nothing on the way.
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void frmKeyProperties::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous()) {
        if (!testAttribute(Qt::WA_Resized)) {
            // All of it, where the screen has the room.
            const QSize bars(ui_->scrollArea->verticalScrollBar()->sizeHint().width(), 0);
            resize((ui_->content->sizeHint() + bars).boundedTo(screen()->availableSize()));
        }
        Timer1_->setEnabled(true);
        // In no field, which would stop the timer, and where no key sends or stores anything.
        KeyType_[0]->setFocus();
    }
}

void frmKeyProperties::closeEvent(QCloseEvent *event)
{
    // Closing leaves the row, as a step does: what was typed is saved.
    const bool mayClose = !busy_ && (!rsDoor_.isOpen() || act([this] { saveRow(); }) ||
                                     clock_.hasEnded() || mayLoseEdits());
    event->setAccepted(mayClose);
    if (mayClose) {
        Timer1_->setEnabled(false);
        rsDoor_.close();
        rsQueue_.close();
        connection_.reset();
    }
}

void frmKeyProperties::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
    } else if (event->type() == QEvent::PaletteChange) {
        paintReadOnly();
    }
}

void frmKeyProperties::retranslate()
{
    const QString fixedText = KeyTXT_[kFixedText]->text();
    const QString title = windowTitle();
    ui_->retranslateUi(this);
    setWindowTitle(title); // whoever opened the screen may have given it another
    if (rsDoor_.isOpen()) {
        KeyTXT_[kFixedText]->setText(fixedText);
        captionAdministrator();
    }
    reword(*Combo1_[kAlarmList], alarmFunctions());
    reword(*Combo1_[kModeList], functionModes());
}

/// In the colour of what lies behind it; the words of a list without a selection are as plain as
/// those of the others.
void frmKeyProperties::paintReadOnly()
{
    QPalette flat;
    flat.setColor(QPalette::Base, palette().color(QPalette::Window));
    KeyTXT_[kFixedText]->setPalette(flat);
    QPalette plain;
    plain.setColor(QPalette::PlaceholderText, palette().color(QPalette::ButtonText));
    for (QComboBox *list : Combo1_) {
        list->setPalette(plain);
    }
}

/// Runs a handler to its end, a box of its failure included. While it runs nothing else does, and
/// no tick reloads the screen under it: boxes leave the other windows alive.
bool frmKeyProperties::act(const std::function<void()> &handler, const QString &advice)
{
    if (busy_) {
        return false;
    }
    const QScopedValueRollback busy(busy_, true);
    return shown(person_, QString(), handler, advice);
}

Answer frmKeyProperties::ask(const QString &text, Buttons buttons)
{
    return person_.messageBox(text, QString(), buttons);
}

void frmKeyProperties::load()
{
    if (rsDoor_.isOpen() && !act([this] { saveRow(); })) {
        return;
    }
    act([this] { loadDoor(); },
        u'\r' + translated(" Er det opprettet noen nøkkel under Key Data??"));
}

void frmKeyProperties::loadDoor()
{
    openDatabase();
    OpenDoorRecord();
    fillLists();
    for (int i = kFirstEdit; i <= kHours; ++i) {
        if (i != kUsers) { // that one goes with the lists
            setShown(*Command1_[i], false);
        }
    }
    captionAdministrator();
    Command1_[1]->show();
    checkOwnNumber();
    module_.RefreshPending = false;
    clearModel();
    showControls(false);
    // It stands ready after every load, with nothing changed. Command1_12 looks as if it had been
    // meant, but this is the button that operators know there.
    Command1_[kPulse]->show();
    KeyTXT_[kFixedText]->setText(QStringLiteral("Ring: ") + text(kOwnNumber));
}

void frmKeyProperties::openDatabase()
{
    if (!module_.DatabaseConnection) {
        throw RuntimeFailure(QCoreApplication::translate("Recordset", "Ingen database er åpen"));
    }
    connection_ = module_.DatabaseConnection->another();
    rsQueue_.open(connection_, waitingMessages());
}

const QStringList &frmKeyProperties::fieldColumns()
{
    static const QStringList kColumns =
        QStringLiteral("KeyNummer,KeyNavn,KeySikkerhet,Bygning,Admin1,Admin2,Admin3,Admin4,Admin5,"
                       "Eget_Nummer,Beskrivelse,Alarmstatus,KeyStatus,Pulslengde,Admin,"
                       "Tekst1,Tekst2,Tekst3,Tekst4,Tekst5,Tekst6")
            .split(u',');
    return kColumns;
}

const QStringList &frmKeyProperties::listColumns()
{
    static const QStringList kColumns =
        QStringLiteral("TimeInStart,TimeInStop,TimeOutStart,TimeOutStop,Alarmstatus,KeyStatus")
            .split(u',');
    return kColumns;
}

/// A door that isn't found leaves the set past its end and the fields empty.
void frmKeyProperties::OpenDoorRecord()
{
    rsDoor_.open(connection_, allowedDoors(module_.SecurityLevel,
                                           fieldColumns() + listColumns().first(kAlarmList)));
    rsDoor_.findFirstAsItStands(QStringLiteral("KeyNummer"), module_.KeySelect);
    showRow();
}

void frmKeyProperties::fillLists()
{
    for (std::size_t i = 0; i < kAlarmList; ++i) {
        fill(*Combo1_[i], hours());
    }
    fill(*Combo1_[kAlarmList], alarmFunctions());
    fill(*Combo1_[kModeList], functionModes());
    for (int i = 0; i <= kModeList; ++i) {
        showStored(i);
    }
}

// A list shows what is stored, also what is none of its entries (the word of another language, the
// "Normal (N)" of a new door): then nothing is selected.

void frmKeyProperties::showStored(int index)
{
    QComboBox &list = *Combo1_[static_cast<std::size_t>(index)];
    const QString stored = rsDoor_.text(listColumns().at(index));
    const int entry = list.findText(stored, Qt::MatchExactly | Qt::MatchCaseSensitive);
    list.setPlaceholderText(entry < 0 ? stored : QString());
    list.setCurrentIndex(entry);
}

QString frmKeyProperties::listText(int index) const
{
    const QComboBox &list = *Combo1_[static_cast<std::size_t>(index)];
    return list.currentIndex() < 0 ? list.placeholderText() : list.currentText();
}

void frmKeyProperties::showRow()
{
    const bool onRow = rsDoor_.row().has_value();
    for (int i = 0; i < fieldColumns().size(); ++i) {
        KeyTXT_[static_cast<std::size_t>(i)]->setText(onRow ? rsDoor_.text(fieldColumns().at(i))
                                                            : QString());
    }
}

void frmKeyProperties::captionAdministrator()
{
    Command1_[1]->setText(lacksAdministrator(text(kAdmin)) ? translated("Registrer ADMIN")
                                                           : translated("Reset ADMIN"));
}

void frmKeyProperties::clearModel()
{
    types_->setExclusive(false);
    for (QRadioButton *type : KeyType_) {
        type->setChecked(false);
    }
    types_->setExclusive(true);
}

std::array<QWidget *, 6> frmKeyProperties::listLabels() const
{
    return {ui_->lblLister, ui_->Label1_13, ui_->Label1_14,
            ui_->Label1_15, ui_->Label1_16, ui_->Label1_17};
}

/// The lists, their labels and the buttons that need a model. Command1_12 comes with them, but a
/// load has hidden it before.
void frmKeyProperties::showControls(bool forLists)
{
    for (QComboBox *list : Combo1_) {
        setShown(*list, forLists);
    }
    for (const int button : {11, 12, 14, 21}) {
        setShown(*Command1_[button], forLists);
    }
    for (QWidget *label : listLabels()) {
        label->setVisible(forLists);
    }
}

/// The focus of what goes must not fall into the next field, where it would stop the timer and with
/// it the reload that shows the unit's answer.
void frmKeyProperties::setShown(QWidget &control, bool shows)
{
    if (!shows && focusWidget() == &control) {
        const int chosen = types_->checkedId();
        KeyType_[chosen < 0 ? 0 : static_cast<std::size_t>(chosen)]->setFocus();
    }
    control.setVisible(shows);
}

/// No column holds the model: the operator chooses it for as long as he works with the door.
void frmKeyProperties::ApplyDoorType(int index)
{
    showControls(static_cast<DoorModel>(index) != DoorModel::Argon);
}

/// An edit brings the button of the same index. By that, Admin brings the one that fetches users:
/// the main administrator has none, that number is set by "Registrer ADMIN" and by reports alone.
void frmKeyProperties::KeyTXT_Change()
{
    for (int i = kFirstEdit; i <= kLastEdit; ++i) {
        if (KeyTXT_[i]->isModified()) {
            Command1_[i]->show();
        }
    }
    Command1_[1]->show();
    captionAdministrator();
}

/// A tick finds an answer of the unit, or of any other door. It waits while something is open.
void frmKeyProperties::Timer1_Timer()
{
    if (!module_.RefreshPending || busy_ || QApplication::activeModalWidget() != nullptr ||
        QApplication::activePopupWidget() != nullptr) {
        return;
    }
    load();
    module_.RefreshPending = false;
}
