#include "modem/ModemPanel.h"

#include "data/Recordset.h"
#include "ui_ModemPanel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QPainter>

namespace {

/// A modem with its aerial, and waves about it when it is on, in the colours of the theme.
QIcon modemPicture(const QPalette &palette, qreal ratio, bool on)
{
    constexpr QSize kSize(32, 32);
    QPixmap picture(kSize * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = palette.color(QPalette::WindowText);
    const QColor glow = palette.color(QPalette::Highlight);
    painter.setPen(QPen(ink, 1.5));
    painter.drawRoundedRect(QRectF(3, 19, 26, 10), 2, 2);
    painter.drawLine(QPointF(16, 19), QPointF(16, 9));
    painter.setBrush(on ? QBrush(glow) : QBrush(Qt::NoBrush));
    painter.drawEllipse(QPointF(24, 24), 2, 2);
    if (on) {
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(glow, 1.8));
        for (const qreal radius : {5.0, 9.0}) {
            const QRectF around(16 - radius, 9 - radius, 2 * radius, 2 * radius);
            painter.drawArc(around, -45 * 16, 90 * 16);
            painter.drawArc(around, 135 * 16, 90 * 16);
        }
    }
    return picture;
}

} // namespace

ModemPanel::ModemPanel(QWidget *parent) : QWidget(parent), ui_(std::make_unique<Ui::ModemPanel>())
{
    ui_->setupUi(this);
    connect(ui_->Image1, &QToolButton::clicked, this, &ModemPanel::imageClicked);
    connect(ui_->Image2, &QToolButton::clicked, this, &ModemPanel::imageClicked);
    drawImages();
    setModemOn(false);
}

ModemPanel::~ModemPanel() = default;

void ModemPanel::display(const Recordset &rsModem)
{
    const bool onRow = rsModem.isOpen() && !rsModem.bof() && !rsModem.eof();
    const auto text = [&](const QString &column) {
        return onRow ? rsModem.text(column) : QString();
    };
    const bool on = onRow && rsModem.value(u"ModemStatus"_qs).toBool();
    ui_->Modemdata_0->setText(!onRow ? QString()
                              : on   ? QCoreApplication::translate("ModemPanel", "På")
                                     : QCoreApplication::translate("ModemPanel", "Av"));
    ui_->Modemdata_1->setText(text(u"ModemName"_qs));
    ui_->Modemdata_2->setText(text(u"ModemManufacturer"_qs));
    ui_->Modemdata_3->setText(text(u"ModemOwner"_qs));
    ui_->Modemdata_4->setText(text(u"IMEICODE"_qs));
    for (QLineEdit *field : findChildren<QLineEdit *>()) {
        field->setCursorPosition(0); // a long value shows its start
    }
    setModemOn(on);
}

void ModemPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        drawImages();
    }
}

void ModemPanel::setModemOn(bool on)
{
    ui_->Image1->setVisible(!on);
    ui_->Image2->setVisible(on);
}

void ModemPanel::drawImages()
{
    ui_->Image1->setIcon(modemPicture(palette(), devicePixelRatioF(), false));
    ui_->Image2->setIcon(modemPicture(palette(), devicePixelRatioF(), true));
}
