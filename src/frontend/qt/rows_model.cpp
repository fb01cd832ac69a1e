#include "frontend/qt/rows_model.hpp"

#include "frontend/qt/look.hpp"
#include "frontend/qt/text.hpp"

namespace kestrel::frontend {

RowsModel::RowsModel(const screen::Control& list, QObject* parent) : QAbstractTableModel(parent), list_(&list) {}

bool RowsModel::follow() {
    const int rows = static_cast<int>(list_->rows.size());
    const int columns = static_cast<int>(list_->columns.size());
    if (revision_ == list_->rowsRevision && rows == rows_ && columns == columns_) return false;
    beginResetModel();
    revision_ = list_->rowsRevision;
    rows_ = rows;
    columns_ = columns;
    endResetModel();
    return true;
}

void RowsModel::leave() {
    list_ = nullptr;
}

int RowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int RowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : columns_;
}

// The mark, and its words for who can't see it or wonders.
static QVariant markOf(const screen::ListRow& row, int role) {
    if (role == Qt::DecorationRole) return flagMark(row.flag());
    if (role == Qt::ToolTipRole || role == Qt::AccessibleDescriptionRole)
        return QString::fromUtf8(row.flag() ? "あります" : "見つかりません");
    return {};
}

QVariant RowsModel::data(const QModelIndex& index, int role) const {
    if (!list_ || !index.isValid() || index.row() >= static_cast<int>(list_->rows.size())) return {};
    const screen::ListRow& row = list_->rows[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) return shownText(row.cell(static_cast<std::size_t>(index.column())));
    return list_->marked && index.column() == 0 ? markOf(row, role) : QVariant();
}

QVariant RowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (!list_ || orientation != Qt::Horizontal || section >= static_cast<int>(list_->columns.size())) return {};
    if (role == Qt::DisplayRole) return shownText(list_->columns[static_cast<std::size_t>(section)].title);
    if (role == Qt::TextAlignmentRole) return int(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

} // namespace kestrel::frontend
