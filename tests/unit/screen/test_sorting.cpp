#include "screen/sorting.hpp"

#include <gtest/gtest.h>

using namespace kestrel::screen;

namespace {

Control listOf(std::initializer_list<RowTexts> rows) {
    Control list;
    list.kind = Kind::ListView;
    for (const RowTexts& row : rows) addRow(list, row);
    return list;
}

std::string keys(const Control& list) {
    std::string joined;
    for (const ListRow& row : list.rows) joined += row.key();
    return joined;
}

} // namespace

TEST(Sorting, GoesByCodePointsOfTheShownText) {
    Control list =
        listOf({{"ｱ", "a", {}, false}, {"𠮷", "b", {}, false}, {"ア", "c", {}, false}, {"Z", "d", {}, false}});
    sortBy(list, 0, SortOrder::ascending);
    EXPECT_EQ(keys(list), "dcab");
    sortBy(list, 0, SortOrder::descending);
    EXPECT_EQ(keys(list), "bacd");
}

TEST(Sorting, EqualRowsKeepTheirOrderBothWaysAndARowWithoutTheColumnIsEmptyThere) {
    Control list =
        listOf({{"1", "a", {"x"}, false}, {"2", "b", {}, false}, {"3", "c", {"x"}, false}, {"4", "d", {""}, false}});
    sortBy(list, 1, SortOrder::ascending);
    EXPECT_EQ(keys(list), "bdac");
    sortBy(list, 1, SortOrder::descending);
    EXPECT_EQ(keys(list), "acbd");
}

TEST(Sorting, TheSelectedRowStaysSelected) {
    Control list = listOf({{"2", "b", {}, false}, {"1", "a", {}, false}});
    list.selected = 0;
    sortBy(list, 0, SortOrder::ascending);
    EXPECT_EQ(list.selected, 1);
    list.selected = -1;
    sortBy(list, 0, SortOrder::descending);
    EXPECT_EQ(list.selected, -1);
}

TEST(Sorting, RowsAddedLaterFindTheirPlaceOnlyInASortedList) {
    Control list = listOf({{"2", "b", {}, false}});
    addRow(list, {"1", "a", {}, false});
    const unsigned revision = list.rowsRevision;
    sortRows(list);
    EXPECT_EQ(keys(list), "ba");
    EXPECT_EQ(list.rowsRevision, revision);
    sortBy(list, 0, SortOrder::ascending);
    EXPECT_EQ(keys(list), "ab");
    EXPECT_NE(list.rowsRevision, revision);
}
