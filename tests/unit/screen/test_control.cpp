// Texts and values of controls.
#include "screen/control.hpp"
#include "screen/message.hpp"
#include "screen/window.hpp"

#include <gtest/gtest.h>

using namespace kestrel::screen;

namespace {

class Controls : public testing::Test {
protected:
    void SetUp() override { resetScreens(); }
    Window window{"frm"};
};

TEST(ZipText, SetsItsHyphenFromTheFourthDigitOn) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},           {"1", "1"},      {"100", "100"},   {"1000", "100-0"},        {"1000001", "100-0001"},
        {"100-1", "100-1"}, {"100-", "100"}, {"12a4", "12a4"}, {"１２３４", "１２３４"},
    };
    for (const auto& [typed, shown] : rows) EXPECT_EQ(zipText(typed), shown) << typed;
}

TEST_F(Controls, NumbersStayBetweenTheirBounds) {
    Control& number = addControl(window, {"区分", Kind::xNum});
    setBounds(number, 1, 5);
    EXPECT_EQ(number.text, "1");
    setText(number, "9");
    EXPECT_EQ(number.value, 5);
    setText(number, "3a");
    EXPECT_EQ(number.text, "3");
    setText(number, "");
    EXPECT_EQ(number.text, "1");
}

TEST_F(Controls, DropDownsShowNoneOutsideTheirRows) {
    Control& dropDown = addControl(window, {"選", Kind::ComboBox});
    setItems(dropDown, {"個人", "法人"});
    EXPECT_EQ(dropDown.listIndex, -1);
    setListIndex(dropDown, 1);
    EXPECT_EQ(dropDown.listIndex, 1);
    setListIndex(dropDown, 2);
    EXPECT_EQ(dropDown.listIndex, -1);
}

TEST_F(Controls, TabStripsTurnOnlyToPagesTheyHave) {
    Control& tab = addControl(window, {"頁", Kind::SSTab});
    setItems(tab, {"一", "二", "三"});
    setValue(tab, 2);
    EXPECT_EQ(tab.value, 2);
    setValue(tab, 3);
    EXPECT_EQ(tab.value, 2);
}

TEST_F(Controls, ListsForgetTheirSelectionWithTheirRows) {
    Control& list = addControl(window, {"表", Kind::ListView});
    addRow(list, {"一", "C1", {}, false});
    setSelected(list, 0);
    const unsigned before = list.rowsRevision;
    clearRows(list);
    EXPECT_EQ(list.selected, -1);
    EXPECT_NE(list.rowsRevision, before);
    setSelected(list, 0);
    EXPECT_EQ(list.selected, -1);
}

TEST(ButtonsText, MarksTheDefaultOneOfSeveral) {
    EXPECT_EQ(buttonsText({"", "", {"はい", "いいえ"}, 1, 1}), "[はい] [*いいえ]");
    EXPECT_EQ(buttonsText({"", "", {"OK"}, 0, 0}), "[OK]");
}

} // namespace
