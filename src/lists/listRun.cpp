// What a list window shows: its caller's condition and its held values in the fields, its search in the list.
#include "data/modGateway.hpp"
#include "lists/listFrame.hpp"
#include "lists/listQuery.hpp"
#include "screen/sorting.hpp"
#include "session/rosterSession.hpp"
#include "text/numbers.hpp"
#include "values/modCondition.hpp"

#include <algorithm>

namespace kestrel {

using screen::Control;

namespace {

bool isStatus(const ListSpec& spec, std::string_view name) {
    return std::any_of(spec.statuses.begin(), spec.statuses.end(),
                       [name](const StatusPair& status) { return status.number == name; });
}

void takeStatus(ListWindow& list, const ConditionValue& row, const std::string& value) {
    list.selections[statusIndex(list.spec, row.field)] = text::leadingShort(value);
}

void takeField(ListWindow& list, const ConditionValue& row, const std::string& value) {
    const ListField& field = list.spec.fields[fieldIndex(list.spec, row.field)];
    heldValue(list, row.field) = value;
    if (field.nameOf) heldValue(list, field.nameField) = field.nameOf(value);
}

// A column that isn't mentioned leaves its status, and empties its field as every other field is.
void takeCondition(ListWindow& list, const ConditionValue& row) {
    std::string& condition = rosterSession.lookupCondition;
    if (!conditionHolds(condition, worded(list.spec, row.occurrence))) return;
    const std::string value = takeConditionValue(worded(list.spec, row.column), condition);
    (isStatus(list.spec, row.field) ? takeStatus : takeField)(list, row, value);
}

void showStatus(ListWindow& list, std::size_t index) {
    const StatusPair& status = list.spec.statuses[index];
    Control& number = controlOf(list, status.number);
    screen::setValue(number, list.selections[index]);
    list.selections[index] = number.value;
    screen::setListIndex(controlOf(list, status.dropDown), number.value);
}

// Adds the records of one search as rows. Where the columns stand is found once, and the texts go from the engine into
// the row without a stop.
class Filling {
public:
    Filling(const ListSpec& spec, const database::RecordSet& itsRecords) : records(itsRecords) {
        for (const ListWindowColumn& column : spec.columns) columns.push_back(records.columnIndex(column.column));
        for (std::string_view column : spec.keyColumns) keyColumns.push_back(records.columnIndex(column));
        row.subItems.resize(columns.size() - 1);
    }

    void addTo(Control& rows) {
        row.text = cell(columns[0]);
        for (std::size_t i = 1; i < columns.size(); ++i) row.subItems[i - 1] = cell(columns[i]);
        key = "C";
        for (int column : keyColumns) key += column == columns[0] ? row.text : cell(column);
        row.key = key;
        screen::addRow(rows, row);
    }

private:
    std::string_view cell(int column) const { return records.view(column).value_or(""); }

    const database::RecordSet& records;
    std::vector<int> columns, keyColumns;
    screen::RowTexts row;
    std::string key;
};

// The rows that were added; never more than the limit, if there is one.
int fill(const ListSpec& spec, Control& rows, database::RecordSet& records) {
    Filling filling(spec, records);
    int count = 0;
    for (; (spec.rowLimit == 0 || count < spec.rowLimit) && !records.eof(); records.moveNext(), ++count)
        filling.addTo(rows);
    return count;
}

int readRows(ListWindow& list) {
    if (list.querySql.empty()) return 0;
    database::RecordSet records;
    if (!openRecordset(records, list.querySql, false)) return 0;
    Control& rows = rowsOf(list);
    const int count = fill(list.spec, rows, records);
    records.close();
    screen::sortRows(rows);
    return count;
}

} // namespace

void readCondition(ListWindow& list) {
    std::fill(list.held.begin(), list.held.end(), std::string());
    for (const ConditionValue& row : list.spec.conditions) takeCondition(list, row);
    if (list.spec.takeMore) list.spec.takeMore(list);
}

void showFields(ListWindow& list) {
    for (std::size_t i = 0; i < list.held.size(); ++i)
        screen::setText(controlOf(list, list.spec.fields[i].name), list.held[i]);
    for (std::size_t i = 0; i < list.selections.size(); ++i) showStatus(list, i);
}

void runSearch(ListWindow& list) {
    screen::clearRows(rowsOf(list));
    const SearchMode* mode = findMode(list.spec, list.searchMode);
    if (mode && mode->built) list.querySql = searchText(list, *mode);
    const int count = readRows(list);
    const int limit = list.spec.rowLimit;
    if (limit > 0) screen::setVisible(controlOf(list, "lab_注意"), count >= limit);
    if (list.spec.showsFieldsAfterSearch) showFields(list);
}

} // namespace kestrel
