#include "form_test.hpp"

#include <QHeaderView>
#include <QMouseEvent>
#include <QTableView>

namespace kestrel {

using Lines = std::vector<std::string>;

class ListsTest : public demo::FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        hand::page(control("tab_詳細"), 2);
        demo::happened.clear();
    }
};

TEST_F(ListsTest, ShowsTheRowsOfTheControl) {
    EXPECT_EQ(hand::shownRowCount(control("List書類")), 2);
    EXPECT_EQ(hand::shownCell(control("List書類"), 0, 0), "見積書");
    EXPECT_EQ(hand::shownCell(control("List書類"), 0, 2), "2024/05/15");
    EXPECT_EQ(hand::shownSelected(control("List書類")), -1);
    EXPECT_EQ(widget<QTableView>("List書類").horizontalHeader()->count(), 3);
}

TEST_F(ListsTest, FollowsRowsThatAreAddedAndCleared) {
    screen::Control& list = control("List書類");
    addRow(list, {"契約書", "C003", {}, false});
    frontend::sync();
    EXPECT_EQ(hand::shownRowCount(list), 3);
    EXPECT_EQ(hand::shownCell(list, 2, 1), "");
    clearRows(list);
    frontend::sync();
    EXPECT_EQ(hand::shownRowCount(list), 0);
}

TEST_F(ListsTest, APressOnARowSelectsIt) {
    EXPECT_TRUE(hand::row(control("List書類"), 1, false));
    EXPECT_EQ(hand::shownSelected(control("List書類")), 1);
    EXPECT_EQ(demo::happened, (Lines{"click List書類"}));
    EXPECT_EQ(focusName(), "List書類");
}

TEST_F(ListsTest, APressLetGoOnAnotherRowIsNone) {
    auto& table = widget<QTableView>("List書類");
    const auto send = [&](QEvent::Type type, int row) {
        const QPointF point = table.visualRect(table.model()->index(row, 0)).center();
        QMouseEvent event(type, point, point, Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(table.viewport(), &event);
    };
    send(QEvent::MouseButtonPress, 0);
    send(QEvent::MouseButtonRelease, 1);
    EXPECT_TRUE(demo::happened.empty());
    EXPECT_EQ(hand::shownSelected(control("List書類")), -1);
}

TEST_F(ListsTest, TwoPressesOpenTheRow) {
    EXPECT_TRUE(hand::row(control("List書類"), 0, true));
    EXPECT_EQ(demo::happened, (Lines{"click List書類", "click List書類", "twice List書類"}));
}

TEST_F(ListsTest, APressBesideTheRowsKeepsTheSelection) {
    hand::row(control("List書類"), 1, false);
    demo::happened.clear();
    EXPECT_TRUE(hand::click(control("List書類")));
    EXPECT_EQ(hand::shownSelected(control("List書類")), 1);
    EXPECT_EQ(demo::happened, (Lines{"click List書類"}));
}

TEST_F(ListsTest, TheArrowsMoveTheSelection) {
    hand::click(control("List書類"));
    hand::key(screen::Key::Down);
    EXPECT_EQ(hand::shownSelected(control("List書類")), 0);
    hand::key(screen::Key::End);
    EXPECT_EQ(hand::shownSelected(control("List書類")), 1);
}

TEST_F(ListsTest, AColumnHeaderTellsItsColumnAndTheMarkFollowsTheModel) {
    EXPECT_TRUE(hand::header(control("List書類"), 1));
    EXPECT_EQ(demo::happened, (Lines{"column List書類 1"}));
    const QHeaderView& header = *widget<QTableView>("List書類").horizontalHeader();
    EXPECT_FALSE(header.isSortIndicatorShown());
    control("List書類").sorted = true;
    control("List書類").sortKey = 2;
    control("List書類").sortOrder = screen::SortOrder::descending;
    frontend::sync();
    EXPECT_TRUE(header.isSortIndicatorShown());
    EXPECT_EQ(header.sortIndicatorSection(), 2);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
    hand::header(control("List書類"), 2);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
}

TEST_F(ListsTest, ARowOfAMarkedListShowsItsFlagEitherWay) {
    const QAbstractItemModel& rows = *widget<QTableView>("List書類").model();
    const auto image = [&](int row) { return rows.index(row, 0).data(Qt::DecorationRole).value<QPixmap>().toImage(); };
    EXPECT_FALSE(image(0).isNull());
    EXPECT_NE(image(0), image(1));
    EXPECT_EQ(image(0).size(), image(1).size());
    EXPECT_NE(rows.index(0, 0).data(Qt::ToolTipRole), rows.index(1, 0).data(Qt::ToolTipRole));
    EXPECT_FALSE(rows.index(0, 1).data(Qt::DecorationRole).isValid());
    control("List書類").marked = false;
    EXPECT_FALSE(rows.index(0, 0).data(Qt::DecorationRole).isValid());
}

TEST_F(ListsTest, TheEndOfALongListIsOneKeyAway) {
    constexpr int many = 124'000;
    const auto window = demo::makeList(many);
    screen::show(*window);
    screen::Control& list = demo::in(*window, "List得意先");
    EXPECT_EQ(hand::shownRowCount(list), many);
    hand::header(list, 0);
    hand::key(screen::Key::Down);
    hand::key(screen::Key::End);
    EXPECT_EQ(hand::shownSelected(list), many - 1);
    EXPECT_EQ(hand::shownCell(list, many - 1, 0), "223999");
    EXPECT_TRUE(hand::row(list, 100'000, false)); // closes the window: the widgets are gone in the middle of the press
    EXPECT_FALSE(window->shown);
    EXPECT_EQ(frontend::topOf(*window), nullptr);
}

} // namespace kestrel
