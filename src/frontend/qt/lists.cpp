#include "frontend/qt/lists.hpp"

#include "frontend/qt/look.hpp"
#include "frontend/qt/person.hpp"
#include "frontend/qt/rows_model.hpp"

#include <QHeaderView>
#include <QTableView>

namespace kestrel::frontend {

namespace {

void calmDown(QTableView& table) {
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    table.setSelectionMode(QAbstractItemView::SingleSelection);
    table.setEditTriggers(QAbstractItemView::NoEditTriggers);
    table.setAlternatingRowColors(true);
    table.setShowGrid(false);
    table.setWordWrap(false);
    table.setTabKeyNavigation(false);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.verticalHeader()->hide();
    table.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table.verticalHeader()->setDefaultSectionSize(rowHeight());
    table.verticalHeader()->setMinimumSectionSize(rowHeight());
}

void setUpHeader(QTableView& table) {
    QHeaderView& header = *table.horizontalHeader();
    header.setSectionsClickable(true);
    header.setHighlightSections(false);
    header.setStretchLastSection(true);
    header.setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    header.setFixedHeight(rowHeight());
    header.setFocusPolicy(Qt::NoFocus);
    header.viewport()->setFocusPolicy(Qt::NoFocus);
    QObject::connect(&header, &QHeaderView::sectionClicked, &table,
                     [&table](int column) { personPressedHeader(&table, column); });
}

void applyWidths(const screen::Control& control, QTableView& table) {
    for (int column = 0; column < static_cast<int>(control.columns.size()); ++column)
        table.setColumnWidth(column, toPixels(control.columns[static_cast<std::size_t>(column)].width));
}

// The header turns its own mark at a click; the model says what is true.
void applySortMark(const screen::Control& control, QHeaderView& header) {
    const Qt::SortOrder order =
        control.sortOrder == screen::SortOrder::ascending ? Qt::AscendingOrder : Qt::DescendingOrder;
    if (header.isSortIndicatorShown() != control.sorted) header.setSortIndicatorShown(control.sorted);
    if (header.sortIndicatorSection() != control.sortKey || header.sortIndicatorOrder() != order)
        header.setSortIndicator(control.sortKey, order);
}

void applySelection(const screen::Control& control, QTableView& table) {
    const QModelIndex wanted = table.model()->index(control.selected, 0);
    if (table.currentIndex().row() == control.selected && table.selectionModel()->hasSelection() == wanted.isValid())
        return;
    if (!wanted.isValid()) {
        table.selectionModel()->clear();
        return;
    }
    table.selectionModel()->setCurrentIndex(wanted, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    table.scrollTo(wanted);
}

} // namespace

QWidget* makeList(screen::Control& control, QWidget* top) {
    auto* table = new QTableView(top);
    calmDown(*table);
    setUpHeader(*table);
    table->setModel(new RowsModel(control, table));
    return table;
}

void applyList(const screen::Control& control, QWidget& widget) {
    auto& table = static_cast<QTableView&>(widget);
    auto& rows = static_cast<RowsModel&>(*table.model());
    const int columns = rows.columnCount();
    if (rows.follow() && columns != rows.columnCount()) applyWidths(control, table);
    applySortMark(control, *table.horizontalHeader());
    applySelection(control, table);
}

void leaveList(QWidget& widget) {
    if (auto* table = qobject_cast<QTableView*>(&widget)) static_cast<RowsModel*>(table->model())->leave();
}

} // namespace kestrel::frontend
