#include "app/StatusPanel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

StatusPanel::StatusPanel(const QString &name, QWidget *parent) : QLabel(parent)
{
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setContentsMargins(6, 0, 6, 0);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QSize StatusPanel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void StatusPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect room = contentsRect();
    const QString line = text().simplified();
    style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                          palette(), isEnabled(),
                          fontMetrics().elidedText(line, Qt::ElideRight, room.width()),
                          foregroundRole());
}

bool StatusPanel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const bool cut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
        QStringList lines = {cut ? text() : QString(), words_()};
        lines.removeAll({});
        // As rich text that shows it letter by letter, since a stranger's could pass for rich text.
        QToolTip::showText(
            static_cast<QHelpEvent *>(event)->globalPos(),
            lines.isEmpty() ? QString() : Qt::convertFromPlainText(lines.join(u'\n')), this);
        return true;
    }
    return QLabel::event(event);
}
