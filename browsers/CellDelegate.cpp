#include "browsers/CellDelegate.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QLineEdit>
#include <QTextDocument>
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
    // As rich text that shows it letter by letter, since a stranger's could pass for rich text.
    QToolTip::showText(
        event->globalPos(),
        cut ? Qt::convertFromPlainText(index.data(Qt::EditRole).toString()) : QString(), view);
    event->setAccepted(cut); // else the grid's own tool tip comes
    return cut;
}

/// A grid that may not leave its row stays there at a double click on another, too.
QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    const auto *view = qobject_cast<const QAbstractItemView *>(option.widget);
    return view != nullptr && view->currentIndex() != index
               ? nullptr
               : QStyledItemDelegate::createEditor(parent, option, index);
}

/// A view asks for this again whenever values were read anew.
void CellDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    const auto *line = qobject_cast<QLineEdit *>(editor);
    if (line == nullptr || !line->isModified()) {
        QStyledItemDelegate::setEditorData(editor, index);
    }
}
