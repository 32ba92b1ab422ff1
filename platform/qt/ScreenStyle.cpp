#include "platform/qt/ScreenStyle.h"

#include <QAbstractButton>
#include <QPainter>
#include <QPlainTextEdit>
#include <QStyleFactory>
#include <QStyleOption>

namespace {

/// A frame around what has the focus, in the colour of the selection.
void drawFocus(QPainter &painter, const QStyleOption &option)
{
    constexpr qreal kWidth = 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(option.palette.color(QPalette::Highlight), kWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(1, 1, -1, -1), 2, 2);
    painter.restore();
}

} // namespace

ScreenStyle::ScreenStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ScreenStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                QPainter *painter, const QWidget *widget) const
{
    const bool isField = element == PE_PanelLineEdit;
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
    const bool hasOwnColour = widget != nullptr && widget->testAttribute(Qt::WA_SetPalette);
    if (isField && frame != nullptr && frame->state.testFlag(State_ReadOnly) && !hasOwnColour) {
        QStyleOptionFrame readOnly = *frame;
        readOnly.palette.setBrush(QPalette::Base, readOnly.palette.window());
        QProxyStyle::drawPrimitive(element, &readOnly, painter, widget);
    } else if (element != PE_FrameFocusRect) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
    if (element == PE_FrameFocusRect ||
        (isField && option->state.testFlag(State_HasFocus) && frame && frame->lineWidth > 0)) {
        drawFocus(*painter, *option);
    }
}

void ScreenStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                              const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element == CE_PushButtonBevel && option->state.testFlag(State_HasFocus)) {
        drawFocus(*painter, *option);
    }
}

void ScreenStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (auto *text = qobject_cast<QPlainTextEdit *>(widget); text && text->isReadOnly()) {
        text->viewport()->setBackgroundRole(QPalette::Window);
    }
}
