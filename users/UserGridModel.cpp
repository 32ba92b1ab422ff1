#include "users/UserGridModel.h"

const std::vector<UserGridModel::Column> &UserGridModel::layout()
{
    static const std::vector<Column> kLayout = {
        {1200, Qt::AlignLeft, "NummerLBL"},    // Bruker
        {1600, Qt::AlignLeft, "EtternavnLBL"}, // Etternavn
        {1600, Qt::AlignLeft, "FornavnLBL"},   // Fornavn
        {1000, Qt::AlignLeft, "DatoLBL1"},     // Gyldig fra
        {600, Qt::AlignHCenter, nullptr},      // FraTid
        {1000, Qt::AlignLeft, "DatoLBL2"},     // Gyldig til
        {600, Qt::AlignHCenter, nullptr},      // TilTid
        {900, Qt::AlignLeft, "KontoLBL"},      // Konto
        {0, Qt::AlignLeft, "StatusLBL"},       // Status
    };
    return kLayout;
}

void UserGridModel::show(const Recordset &rows, const QStringList &headings, bool designedLayout)
{
    std::vector<RecordsetRow> read = rows.rows();
    beginResetModel();
    rows_ = std::move(read);
    columns_ = rows.columns();
    headings_ = headings;
    designedLayout_ = designedLayout;
    endResetModel();
}

qint64 UserGridModel::bookmark(int row) const
{
    return rows_.at(static_cast<std::size_t>(row)).bookmark;
}

int UserGridModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int UserGridModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant UserGridModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    if (role == Qt::DisplayRole) {
        return rows_[static_cast<std::size_t>(index.row())].values.value(index.column()).toString();
    }
    return role == Qt::TextAlignmentRole ? alignment(index.column()) : QVariant();
}

QVariant UserGridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columns_.size()) {
        return {};
    }
    if (role == Qt::TextAlignmentRole) {
        return alignment(section);
    }
    if (role != Qt::DisplayRole) {
        return {};
    }
    const QString heading = headings_.value(section);
    return heading.isEmpty() ? columns_[section] : heading;
}

QVariant UserGridModel::alignment(int column) const
{
    const auto place = static_cast<std::size_t>(column);
    const Qt::Alignment across = designedLayout_ && place < layout().size()
                                     ? layout()[place].alignment
                                     : Qt::Alignment(Qt::AlignLeft);
    return QVariant::fromValue(across | Qt::AlignVCenter);
}
