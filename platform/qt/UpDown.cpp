#include "platform/qt/UpDown.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton *arrow(Qt::ArrowType type, const QString &name, UpDown *parent)
{
    auto *button = new QToolButton(parent);
    button->setArrowType(type);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    // Two of them stand as high as the field that they step.
    button->setMinimumHeight(1);
    button->setIconSize({8, 8});
    parent->layout()->addWidget(button);
    return button;
}

} // namespace

UpDown::UpDown(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    connect(arrow(Qt::UpArrow, tr("Opp"), this), &QToolButton::clicked, this, &UpDown::up);
    connect(arrow(Qt::DownArrow, tr("Ned"), this), &QToolButton::clicked, this, &UpDown::down);
}

void UpDown::keyPressEvent(QKeyEvent *event)
{
    // The arrows leave these keys to their parent.
    switch (event->key()) {
    case Qt::Key_Up:
        emit up();
        break;
    case Qt::Key_Down:
        emit down();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}
