// The rows of a list control as the toolkit's views want them: a view on the control's own rows, no copy.
#pragma once

#include "screen/control.hpp"

#include <QAbstractTableModel>

namespace kestrel::frontend {

class RowsModel : public QAbstractTableModel {
public:
    RowsModel(const screen::Control& list, QObject* parent);

    // Tells the views when columns or rows are others than at the last call. False when nothing changed.
    bool follow();
    void leave(); // the control goes; the widgets may live on until the event at work has run out

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const screen::Control* list_; // null once the control is gone
    unsigned revision_ = 0;
    int rows_ = 0, columns_ = 0; // as the views know them: the control's own count runs ahead until follow()
};

} // namespace kestrel::frontend
