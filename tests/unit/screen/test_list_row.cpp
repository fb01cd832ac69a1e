// A row gives back what it was made of, whatever its texts hold, after the texts have gone.
#include "screen/list_row.hpp"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace kestrel::screen {

TEST(ListRow, GivesBackEveryTextAfterTheyHaveGone) {
    std::string text = "000001", key = "C000001", name = "青葉印刷株式会社", nothing, odd("a\0b", 3);
    const ListRow row({text, key, {name, nothing, odd}, true});
    for (std::string* gone : {&text, &key, &name, &odd}) gone->assign(gone->size(), '?');
    EXPECT_EQ(row.text(), "000001");
    EXPECT_EQ(row.key(), "C000001");
    EXPECT_EQ(row.cell(0), "000001");
    EXPECT_EQ(row.cell(1), "青葉印刷株式会社");
    EXPECT_EQ(row.cell(2), "");
    EXPECT_EQ(row.cell(3), std::string_view("a\0b", 3));
    EXPECT_EQ(row.columnCount(), 4u);
    EXPECT_TRUE(row.flag());
}

TEST(ListRow, HasNothingBehindItsLastColumn) {
    const ListRow row({"一", "C1", {}});
    EXPECT_EQ(row.columnCount(), 1u);
    EXPECT_EQ(row.cell(1), "");
    EXPECT_EQ(row.cell(1000), "");
    EXPECT_FALSE(row.flag());
}

TEST(ListRow, MayBeEmptyThroughout) {
    const ListRow row({"", "", {""}});
    for (std::string_view text : {row.text(), row.key(), row.cell(1)}) EXPECT_EQ(text, "");
    EXPECT_EQ(row.columnCount(), 2u);
}

TEST(ListRow, KeepsItsTextsWhenItMoves) {
    ListRow row({"一", "C1", {std::string(100, 'x')}});
    const ListRow moved = std::move(row);
    EXPECT_EQ(moved.cell(1), std::string(100, 'x'));
}

} // namespace kestrel::screen
