#include "browsers/CellDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QToolTip>

bool CellDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view,
                             const QStyleOptionViewItem &option, const QModelIndex &index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid()) {
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
    const QRect cell = view->visualRect(index);
    QStyleOptionViewItem room = option;
    room.rect = cell;
    const QSize needed = sizeHint(room, index);
    const bool cut = needed.width() > cell.width() || needed.height() > cell.height();
    // Escaped, since a stranger's text could pass for rich text.
    QToolTip::showText(event->globalPos(),
                       cut ? index.data(Qt::EditRole).toString().toHtmlEscaped() : QString(), view);
    event->setAccepted(cut); // else the grid's own tool tip comes
    return cut;
}
