#include "platform/qt/UpDown.h"

#include <QKeyEvent>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

QToolButton *arrow(Qt::ArrowType type, UpDown *parent)
{
    auto *button = new QToolButton(parent);
    button->setArrowType(type);
    button->setAutoRepeat(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    // Two of them stand as high as the field that they step.
    button->setMinimumHeight(1);
    button->setIconSize({8, 8});
    parent->layout()->addWidget(button);
    return button;
}

void name(QToolButton &button, const QString &name)
{
    button.setAccessibleName(name);
    button.setToolTip(name);
}

} // namespace

UpDown::UpDown(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    up_ = arrow(Qt::UpArrow, this);
    down_ = arrow(Qt::DownArrow, this);
    connect(up_, &QToolButton::clicked, this, &UpDown::up);
    connect(down_, &QToolButton::clicked, this, &UpDown::down);
    setUpName(tr("Opp"));
    setDownName(tr("Ned"));
}

QString UpDown::upName() const
{
    return up_->accessibleName();
}

QString UpDown::downName() const
{
    return down_->accessibleName();
}

void UpDown::setUpName(const QString &name)
{
    ::name(*up_, name);
}

void UpDown::setDownName(const QString &name)
{
    ::name(*down_, name);
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
