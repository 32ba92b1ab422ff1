#include "platform/qt/QtOperator.h"

#include "platform/Clock.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <iterator>

namespace {

constexpr milliseconds kLongestWait = 250ms;
constexpr int kLongestWord = 60;
constexpr int kLongestText = 1000;
constexpr int kTextColumns = 50;
constexpr int kTextLines = 7;

struct Language {
    QStringView countryCode;
    QStringView cancel;
    QStringView catalogue; ///< suffix of the file of translations
    QStringView locale;    ///< for the digits of numbers and the names of days
};

constexpr Language kLanguages[] = {
    {u"47", u"Avbryt", u"nb", u"nb_NO"},
    {u"46", u"Avbryt", u"sv", u"sv_SE"},
    {u"45", u"Annuller", u"da", u"da_DK"},
};

// Line breaks as labels know them, and places to break a number of 300 digits.
QString forLabel(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
    int length = 0;
    for (int i = 0; i < text.size(); ++i) {
        length = text.at(i).isSpace() ? 0 : length + 1;
        if (length > kLongestWord) {
            text.insert(i, QChar(0x200B)); // zero-width space
            length = 0;
        }
    }
    return text;
}

QLabel *plainLabel(const QString &text = {})
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

/// A character on a disc in the platform's accent colour.
QPixmap sign(QChar character, const QWidget &screen)
{
    constexpr int kSize = 40;
    QPixmap picture(QSize(kSize, kSize) * screen.devicePixelRatioF());
    picture.setDevicePixelRatio(screen.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(screen.palette().highlight());
    const QRectF disc(2, 2, kSize - 4, kSize - 4);
    painter.drawEllipse(disc);
    QFont font = screen.font();
    font.setPixelSize(24);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(screen.palette().highlightedText().color());
    painter.drawText(disc, Qt::AlignCenter, QString(character));
    return picture;
}

QString orProgramName(const QString &title)
{
    return title.isEmpty() ? QGuiApplication::applicationDisplayName() : title;
}

/// "csv" of "CSV (*.csv *.txt)"; empty when the first pattern takes any ending.
QString firstEnding(const QString &filter)
{
    static const QRegularExpression pattern(QStringLiteral("^[^*]*\\*\\.(\\w+)"));
    return pattern.match(filter).captured(1);
}

/// The window that a question belongs to, also while another program has the focus.
QWidget *frontWindow()
{
    if (QWidget *active = QApplication::activeWindow()) {
        return active;
    }
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        const Qt::WindowType type = window->windowType();
        if (window->isVisible() && (type == Qt::Window || type == Qt::SplashScreen)) {
            return window;
        }
    }
    return nullptr;
}

} // namespace

QtOperator::QtOperator(Clock &clock) : clock_(clock)
{
    setLanguage(QStringLiteral("47"));
}

QtOperator::~QtOperator()
{
    if (!busy_.isEmpty()) {
        QGuiApplication::restoreOverrideCursor();
    }
}

Answer QtOperator::messageBox(const QString &text, const QString &title, Buttons buttons)
{
    // A parent that goes first takes its questions along, so none of them may stand on the stack.
    const QPointer box = new QMessageBox(open_.isEmpty() ? frontWindow() : open_.last());
    const auto remove = qScopeGuard([&] { delete box; });
    box->setWindowTitle(orProgramName(title));
    box->setTextFormat(Qt::PlainText);
    box->setTextInteractionFlags(Qt::TextSelectableByMouse);
    box->setText(forLabel(text.left(kLongestText)));
    if (text.size() > kLongestText) {
        box->setDetailedText(text);
    }
    const bool canCancel = buttons == Buttons::OkCancel;
    box->setIconPixmap(sign(canCancel ? u'?' : u'i', *box));
    box->setStandardButtons(canCancel ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);
    box->setDefaultButton(QMessageBox::Ok);
    captionButtons(*box->findChild<QDialogButtonBox *>());
    const bool accepted = ask(*box);
    // Only the button tells a confirmed box from a closed one.
    return accepted && box && box->clickedButton() == box->button(QMessageBox::Ok) ? Answer::Ok
                                                                                   : Answer::Cancel;
}

QString QtOperator::inputBox(const QString &prompt, const QString &title, const QString &preset)
{
    const QPointer dialog = new QDialog(open_.isEmpty() ? frontWindow() : open_.last());
    const auto remove = qScopeGuard([&] { delete dialog; });
    dialog->setWindowTitle(orProgramName(title));
    auto *label = plainLabel(forLabel(prompt));
    auto *field = new QLineEdit(preset);
    field->setMinimumWidth(field->fontMetrics().averageCharWidth() * 50);
    field->selectAll();
    label->setBuddy(field);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    captionButtons(*buttons);
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(label);
    layout->addWidget(field);
    layout->addSpacing(6);
    layout->addWidget(buttons);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return ask(*dialog) && dialog ? field->text() : QString();
}

QString QtOperator::textBox(const QString &prompt, const QString &title, const QString &preset,
                            const std::function<TextNotes(const QString &)> &notes)
{
    const QPointer dialog = new QDialog(open_.isEmpty() ? frontWindow() : open_.last());
    const auto remove = qScopeGuard([&] { delete dialog; });
    dialog->setWindowTitle(orProgramName(title));
    auto *label = plainLabel(forLabel(prompt));
    auto *text = new QPlainTextEdit(preset);
    text->setTabChangesFocus(true);
    text->setMinimumSize(text->fontMetrics().averageCharWidth() * kTextColumns,
                         text->fontMetrics().lineSpacing() * kTextLines);
    label->setBuddy(text);
    auto *count = plainLabel();
    count->setObjectName(QStringLiteral("lblCount"));
    auto *warning = plainLabel();
    warning->setObjectName(QStringLiteral("lblWarning"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    captionButtons(*buttons);
    buttons->button(QDialogButtonBox::Ok)->setToolTip(QStringLiteral("Ctrl+Enter"));
    auto *layout = new QVBoxLayout(dialog);
    layout->addWidget(label);
    layout->addWidget(text, 1);
    layout->addWidget(count);
    layout->addWidget(warning);
    layout->addSpacing(6);
    layout->addWidget(buttons);
    const auto note = [=] {
        const TextNotes told = notes(text->toPlainText());
        count->setText(told.count);
        warning->setText(forLabel(told.warning));
        warning->setVisible(!told.warning.isEmpty());
    };
    QObject::connect(text, &QPlainTextEdit::textChanged, dialog, note);
    QObject::connect(buttons, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto *send = new QShortcut(QKeySequence(Qt::CTRL | key), dialog);
        QObject::connect(send, &QShortcut::activated, dialog, &QDialog::accept);
    }
    note();
    text->setFocus();
    if (textBoxSize_.isValid()) {
        dialog->resize(textBoxSize_);
    }
    const bool accepted = ask(*dialog);
    if (!dialog) {
        return {};
    }
    textBoxSize_ = dialog->size();
    return accepted ? text->toPlainText() : QString();
}

QString QtOperator::chooseFile(const QString &startFrom, const QString &filter)
{
    return askForFile(startFrom, filter, false);
}

QString QtOperator::chooseNewFile(const QString &startFrom, const QString &filter)
{
    QString path = askForFile(startFrom, filter, true);
    // Not by the dialogue's own question, which would wait without the clock.
    while (QFileInfo::exists(path) &&
           messageBox(QCoreApplication::translate("QtOperator",
                                                  "%1 finnes allerede. Vil du erstatte filen?")
                          .arg(path),
                      {}, Buttons::OkCancel) == Answer::Cancel) {
        path = askForFile(path, filter, true);
    }
    return path;
}

QString QtOperator::askForFile(const QString &startFrom, const QString &filter, bool forWriting)
{
    const QPointer dialog = new QFileDialog(open_.isEmpty() ? frontWindow() : open_.last());
    const auto remove = qScopeGuard([&] { delete dialog; });
    dialog->setFileMode(forWriting ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontUseNativeDialog); // it would speak the PC's language
    dialog->setLabelText(QFileDialog::Reject, cancelCaption_);
    dialog->setNameFilter(filter);
    if (forWriting) {
        dialog->setAcceptMode(QFileDialog::AcceptSave);
        dialog->setOption(QFileDialog::DontConfirmOverwrite);
        dialog->setDefaultSuffix(firstEnding(filter));
    }
    dialog->setDirectory(QFileInfo(startFrom).absolutePath());
    dialog->selectFile(QFileInfo(startFrom).fileName());
    return ask(*dialog) && dialog ? dialog->selectedFiles().value(0) : QString();
}

void QtOperator::withdraw()
{
    const QList<QDialog *> open = open_;
    for (auto dialog = open.rbegin(); dialog != open.rend(); ++dialog) {
        (*dialog)->reject();
    }
}

void QtOperator::beep()
{
    QApplication::beep();
}

void QtOperator::setBusy(const void *who, bool busy)
{
    const bool wasBusy = !busy_.isEmpty();
    if (busy) {
        busy_.insert(who);
    } else {
        busy_.remove(who);
    }
    if (const bool isBusy = !busy_.isEmpty(); isBusy != wasBusy) {
        isBusy ? QGuiApplication::setOverrideCursor(Qt::BusyCursor)
               : QGuiApplication::restoreOverrideCursor();
    }
}

void QtOperator::setLanguage(const QString &countryCode)
{
    const Language *language =
        std::find_if(std::begin(kLanguages), std::end(kLanguages), [&](const Language &candidate) {
            return candidate.countryCode == countryCode;
        });
    if (language == std::end(kLanguages)) {
        language = kLanguages;
    }
    cancelCaption_ = language->cancel.toString();
    QLocale::setDefault(QLocale(language->locale.toString()));
    QCoreApplication::removeTranslator(&texts_);
    if (texts_.load(QStringLiteral(":/translations/lukora_%1").arg(language->catalogue))) {
        QCoreApplication::installTranslator(&texts_);
    }
}

bool QtOperator::ask(QDialog &dialog)
{
    const QPointer<QDialog> alive(&dialog);
    bool finished = false;
    bool accepted = false;
    QObject::connect(&dialog, &QDialog::finished, &dialog, [&](int result) {
        finished = true;
        accepted = result != QDialog::Rejected;
    });
    open_.append(&dialog);
    const auto closed = qScopeGuard([this, opened = &dialog] { open_.removeOne(opened); });
    dialog.open();
    dialog.raise();
    dialog.activateWindow();
    while (!finished && alive) {
        clock_.yield(kLongestWait);
    }
    return accepted;
}

void QtOperator::captionButtons(QDialogButtonBox &buttons) const
{
    const QList<QAbstractButton *> all = buttons.buttons();
    for (QAbstractButton *button : all) {
        button->setIcon({});
        if (buttons.standardButton(button) == QDialogButtonBox::Cancel) {
            button->setText(cancelCaption_);
        }
    }
}
