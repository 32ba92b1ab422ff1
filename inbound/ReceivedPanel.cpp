#include "inbound/ReceivedPanel.h"

#include "data/Recordsets.h"
#include "platform/Operator.h"
#include "platform/Rules.h"
#include "ui_ReceivedPanel.h"

#include <QEvent>
#include <QFontDatabase>
#include <QPainter>

namespace {

/// A mobile telephone, its display lit or dark, in the colours of the theme.
QPixmap phonePicture(const QPalette &palette, qreal ratio, bool lit)
{
    constexpr QSize size(22, 36);
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::WindowText);
    painter.setPen(QPen(ink, 1.5));
    painter.drawLine(QPointF(16, 1), QPointF(16, 6));
    painter.drawRoundedRect(QRectF(3, 5, 16, 30), 3, 3);
    painter.setBrush(lit ? palette.brush(QPalette::Highlight) : QBrush(Qt::NoBrush));
    painter.drawRect(QRectF(6, 8, 10, 9));
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column) {
            painter.drawRect(QRectF(6 + 4 * column, 20 + 3.5 * row, 2, 2));
        }
    }
    return picture;
}

} // namespace

ReceivedPanel::ReceivedPanel(Recordsets &recordsets, Operator &person, QWidget *parent)
    : QWidget(parent),
      recordsets_(recordsets),
      operator_(person),
      ui_(std::make_unique<Ui::ReceivedPanel>())
{
    ui_->setupUi(this);
    ui_->PhoneDisplay->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    for (QLineEdit *field :
         {ui_->SMSRectxt_0, ui_->SMSRectxt_1, ui_->SMSRectxt_2, ui_->SMSRectxt_4}) {
        connect(field, &QLineEdit::textChanged, this, &ReceivedPanel::refreshPhone);
    }
    connect(ui_->SMSRectxt_3, &QPlainTextEdit::textChanged, this, &ReceivedPanel::refreshPhone);

    // The arrows go round past either end; the stepper stops there.
    const auto back = [this](Move onEnd) {
        step(&Recordset::movePrevious, &Recordset::bof, onEnd);
    };
    const auto on = [this](Move onEnd) { step(&Recordset::moveNext, &Recordset::eof, onEnd); };
    connect(ui_->ArrowLeft, &QToolButton::clicked, this, [back] { back(&Recordset::moveLast); });
    connect(ui_->ArrowRight, &QToolButton::clicked, this, [on] { on(&Recordset::moveFirst); });
    connect(ui_->UpDown2, &UpDown::down, this, [back] { back(&Recordset::moveFirst); });
    connect(ui_->UpDown2, &UpDown::up, this, [on] { on(&Recordset::moveLast); });

    drawPhones();
    setModemOn(false);
}

ReceivedPanel::~ReceivedPanel() = default;

void ReceivedPanel::showCurrent(const Recordset &rsSmsReceived)
{
    const bool onRow = rsSmsReceived.isOpen() && !rsSmsReceived.bof() && !rsSmsReceived.eof();
    const auto value = [&](const QString &column) {
        return onRow ? rsSmsReceived.text(column) : QString();
    };
    ui_->SMSRectxt_0->setText(value(u"ID"_qs));
    ui_->SMSRectxt_1->setText(value(u"FraNummer"_qs));
    ui_->SMSRectxt_2->setText(value(u"Dato"_qs));
    // Each tick comes here: whoever is reading keeps the place, and nothing is laid out anew.
    if (const QString text = value(u"SMS_Text"_qs); text != shownText_) {
        shownText_ = text;
        ui_->SMSRectxt_3->setPlainText(text);
    }
    ui_->SMSRectxt_4->setText(value(u"Etternavn"_qs));
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        field->setCursorPosition(0); // a long value shows its start
    }
}

void ReceivedPanel::setModemOn(bool on)
{
    ui_->PhoneOn->setVisible(on);
    ui_->PhoneOff->setVisible(!on);
    ui_->PhoneDisplay->setVisible(on);
}

void ReceivedPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        drawPhones();
    }
}

void ReceivedPanel::step(Move go, bool (Recordset::*atEnd)() const, Move onEnd)
{
    shown(operator_, {}, [&] {
        Recordset &messages = recordsets_.rsSmsReceived;
        if (!(messages.*atEnd)()) {
            (messages.*go)();
        }
        if ((messages.*atEnd)() && !messages.isEmpty()) {
            operator_.beep();
            (messages.*onEnd)();
        }
        messageOnScreen_ = messages.bookmark();
        showCurrent(messages);
    });
}

void ReceivedPanel::refreshPhone()
{
    ui_->PhoneDisplay->setPlainText(u"Nummer: "_qs + ui_->SMSRectxt_0->text() + u"\nFra  : "_qs +
                                    ui_->SMSRectxt_1->text() + u"\nNavn: "_qs +
                                    ui_->SMSRectxt_4->text() + u'\n' + ui_->SMSRectxt_2->text() +
                                    u"\n\n"_qs + ui_->SMSRectxt_3->toPlainText());
}

void ReceivedPanel::drawPhones()
{
    ui_->PhoneOn->setPixmap(phonePicture(palette(), devicePixelRatioF(), true));
    ui_->PhoneOff->setPixmap(phonePicture(palette(), devicePixelRatioF(), false));
}
