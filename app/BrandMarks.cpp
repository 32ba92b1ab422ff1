#include "app/BrandMarks.h"

#include <QFont>
#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace {

constexpr QColor kNight(0x1d, 0x3a, 0x5f);
constexpr QColor kLeaf(0xf4, 0xf1, 0xea);
constexpr QColor kSignal(0xf2, 0xa3, 0x3a);

struct Brand {
    QStringView name;
    QColor plate;
};
constexpr Brand kBrands[] = {
    {u"BRENVIK", QColor(0x1d, 0x3a, 0x5f)},
    {u"OSTRAND", QColor(0x2f, 0x6b, 0x4f)},
    {u"VESKO", QColor(0x8a, 0x2f, 0x3c)},
    {u"ZEM", QColor(0x4b, 0x3f, 0x72)},
};

// In a field of 64 by 64.
void paintDoor(QPainter &painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(kNight);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 13, 13);
    painter.setBrush(kLeaf);
    painter.drawRoundedRect(QRectF(14, 12, 22, 42), 2.5, 2.5);
    painter.setBrush(kNight);
    painter.drawEllipse(QPointF(31, 34), 2.2, 2.2);
    for (int wave = 0; wave < 3; ++wave) {
        const double radius = 6 + wave * 6.5;
        painter.setPen(QPen(kSignal, 3.4, Qt::SolidLine, Qt::RoundCap));
        painter.setBrush(Qt::NoBrush);
        painter.drawArc(QRectF(36 - radius, 33 - radius, 2 * radius, 2 * radius), -45 * 16,
                        90 * 16);
    }
}

} // namespace

QIcon programIcon()
{
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 64.0, size / 64.0);
        paintDoor(painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

QPixmap brandMark(const QString &name, qreal devicePixelRatio)
{
    QColor plate = kNight;
    for (const Brand &brand : kBrands) {
        plate = brand.name == name ? brand.plate : plate;
    }
    QFont font;
    font.setPixelSize(15);
    font.setBold(true);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 3);
    const QSize size(QFontMetrics(font).horizontalAdvance(name) + 30, 32);

    QPixmap picture(size * devicePixelRatio);
    picture.setDevicePixelRatio(devicePixelRatio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(plate);
    painter.drawRoundedRect(QRect(QPoint(0, 0), size), 6, 6);
    painter.setBrush(kSignal);
    painter.drawRect(14, 25, size.width() - 30, 2);
    painter.setPen(Qt::white);
    painter.setFont(font);
    painter.drawText(QRect(15, 0, size.width() - 15, 26), Qt::AlignVCenter | Qt::AlignLeft, name);
    return picture;
}
