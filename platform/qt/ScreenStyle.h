#pragma once

#include <QProxyStyle>

/// The looks of all screens: Qt's Fusion in the colours of the system's theme, with fields that
/// look read-only when they are, and a focus that can be seen from a chair.
class ScreenStyle : public QProxyStyle {
    Q_OBJECT
public:
    ScreenStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void polish(QWidget *widget) override;
    using QProxyStyle::polish;
};
