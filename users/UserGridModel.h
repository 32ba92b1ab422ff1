#pragma once

#include "data/Recordset.h"

#include <QAbstractTableModel>

/// The rows of the user grid, as they were when they were shown.
class UserGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    /// One column of the designed layout, in order from the left.
    struct Column {
        int twips; ///< starting width, 15 to a pixel; 0 for what its content needs
        Qt::Alignment alignment;
        const char *label; ///< object name of the label that gives the heading; none: the column's
    };
    static const std::vector<Column> &layout();

    using QAbstractTableModel::QAbstractTableModel;

    /// Headings count from the left; columns without one, or with an empty one, get their own name.
    void show(const Recordset &rows, const QStringList &headings, bool designedLayout);
    /// Row of the recordset, by its bookmark.
    qint64 bookmark(int row) const;
    const QStringList &columns() const { return columns_; }

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QVariant alignment(int column) const;

    std::vector<RecordsetRow> rows_;
    QStringList columns_;
    QStringList headings_;
    bool designedLayout_ = true;
};
