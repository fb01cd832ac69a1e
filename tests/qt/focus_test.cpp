#include "form_test.hpp"
#include "frontend/qt/events.hpp"

#include <QApplication>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>

namespace kestrel {

using Lines = std::vector<std::string>;
class FocusTest : public demo::FormTest {};

TEST_F(FocusTest, TheToolkitsFocusIsTheModels) {
    focusOn("名称");
    EXPECT_EQ(top().focusWidget(), &widget<QLineEdit>("名称"));
    hand::key(screen::Key::Tab);
    EXPECT_EQ(top().focusWidget(), &widget<QLineEdit>("郵便番号"));
    hand::key(screen::Key::BackTab);
    EXPECT_EQ(top().focusWidget(), &widget<QLineEdit>("名称"));
}

TEST_F(FocusTest, TabPassesOverWhatIsNoStopAndWhatStandsOnAnotherPage) {
    focusOn("コード");
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "名称");
    focusOn("暗証番号");
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "btn_コード");
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "tab_詳細");
}

TEST_F(FocusTest, APressRunsTheLeavingStepFirst) {
    focusOn("コード");
    hand::typeOver("ab");
    demo::happened.clear();
    EXPECT_TRUE(hand::click(control("名称")));
    EXPECT_EQ(demo::happened, (Lines{"lost コード", "got 名称"}));
    EXPECT_EQ(widget<QLineEdit>("コード").text(), "AB");
}

TEST_F(FocusTest, ALeavingStepThatSendsTheFocusElsewhereWins) {
    focusOn("名称");
    static screen::Control* wanted = nullptr;
    wanted = &control("年");
    static const screen::Binding table[] = {
        {"名称", screen::Event::lostFocus, [](const screen::Occurrence&) { setFocus(*wanted); }}};
    form->bindings = table;
    EXPECT_TRUE(hand::click(control("電話")));
    EXPECT_EQ(top().focusWidget(), &widget<QLineEdit>("年"));
}

TEST_F(FocusTest, APanelTakesItsClickButNotTheFocus) {
    focusOn("年");
    EXPECT_TRUE(hand::click(control("itm_ttl_名称")));
    EXPECT_EQ(demo::happened, (Lines{"click itm_ttl_名称"}));
    EXPECT_EQ(focusName(), "年");
}

TEST_F(FocusTest, AButtonTakesTheFocusAndIsPressedBySpaceAndEnter) {
    EXPECT_TRUE(hand::click(control("btn_登録")));
    EXPECT_EQ(focusName(), "btn_登録");
    hand::key(screen::Key::Space);
    hand::key(screen::Key::Enter);
    EXPECT_EQ(demo::happened, (Lines{"click btn_登録", "click btn_登録", "click btn_登録"}));
}

TEST_F(FocusTest, APressLetGoBesideTheButtonIsNone) {
    auto& button = widget<QPushButton>("btn_登録");
    QMouseEvent down(QEvent::MouseButtonPress, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &down);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(-50, 5), QPointF(-50, 5), Qt::LeftButton, Qt::NoButton,
                   Qt::NoModifier);
    QCoreApplication::sendEvent(&button, &up);
    EXPECT_TRUE(demo::happened.empty());
}

TEST_F(FocusTest, AGuardOutsideTheWindowHoldsTheFocusButTakesNoPress) {
    EXPECT_FALSE(hand::click(control("ヘッド終了")));
    focusOn("ヘッド終了");
    EXPECT_EQ(top().focusWidget(), &widget<QPushButton>("ヘッド終了"));
}

TEST_F(FocusTest, TheWindowKeepsTheKeyboardOfAFocusThatWasDisabled) {
    focusOn("名称");
    setEnabled(control("名称"), false);
    frontend::sync();
    EXPECT_EQ(top().focusWidget(), &top());
    EXPECT_EQ(hand::shownFocus(*form), &control("名称"));
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "郵便番号");
}

TEST_F(FocusTest, ADoubleClickReachesTheField) {
    EXPECT_TRUE(hand::doubleClick(control("名称")));
    EXPECT_EQ(demo::happened, (Lines{"got 名称", "twice 名称"}));
}

TEST_F(FocusTest, WhatAPersonCannotPressIsRefused) {
    EXPECT_FALSE(hand::click(control("btn_削除")));
    EXPECT_FALSE(hand::click(control("メモ")));
    setVisible(control("電話"), false);
    frontend::sync();
    EXPECT_FALSE(hand::click(control("電話")));
    EXPECT_FALSE(hand::shownVisible(control("電話")));
    EXPECT_TRUE(hand::shownVisible(control("メモ")));
    form->blocked = true;
    EXPECT_FALSE(hand::click(control("名称")));
}

TEST_F(FocusTest, ARealPressOnABlockedWindowDoesNothing) {
    focusOn("名称");
    form->blocked = true;
    auto& button = widget<QPushButton>("btn_登録");
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QMouseEvent event(type, QPointF(5, 5), QPointF(5, 5), Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&button, &event);
    }
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "名称");
    EXPECT_TRUE(demo::happened.empty());
}

TEST_F(FocusTest, ThePressAWindowRefusesMovesNoFocus) {
    focusOn("名称");
    form->blocked = true;
    const QPoint point = widget<QLineEdit>("電話").mapTo(&top(), QPoint(5, 5));
    frontend::clickAt(top(), point);
    EXPECT_EQ(top().focusWidget(), &widget<QLineEdit>("名称"));
}

TEST_F(FocusTest, AGroundIsPressedBesideWhatLiesOnIt) {
    EXPECT_TRUE(hand::click(control("bak_頁")));
    EXPECT_EQ(demo::happened, (Lines{"click bak_頁"}));
}

TEST_F(FocusTest, PagesTurnByTheirCaptionsAndByTheArrows) {
    EXPECT_TRUE(hand::page(control("tab_詳細"), 2));
    EXPECT_EQ(hand::shownValue(control("tab_詳細")), 2);
    EXPECT_EQ(focusName(), "tab_詳細");
    EXPECT_FALSE(frontend::widgetOf(control("名称"))->isVisible());
    EXPECT_TRUE(frontend::widgetOf(control("List書類"))->isVisible());
    hand::key(screen::Key::Left);
    EXPECT_EQ(hand::shownValue(control("tab_詳細")), 1);
}

TEST_F(FocusTest, APressBesideThePageCaptionsTurnsNoPage) {
    EXPECT_TRUE(hand::click(control("tab_詳細")));
    EXPECT_EQ(hand::shownValue(control("tab_詳細")), 0);
    EXPECT_EQ(focusName(), "tab_詳細");
}

TEST_F(FocusTest, ADropDownIsPickedFromItsList) {
    focusOn("年");
    EXPECT_TRUE(hand::choose(control("区分名称"), 1));
    EXPECT_EQ(control("区分名称").listIndex, 1);
    EXPECT_EQ(hand::shownText(control("区分名称")), "法人");
    EXPECT_EQ(focusName(), "区分名称");
    EXPECT_FALSE(hand::choose(control("区分名称"), 2));
    hand::key(screen::Key::Up);
    EXPECT_EQ(hand::shownText(control("区分名称")), "個人");
}

TEST_F(FocusTest, EverythingHasASpokenName) {
    EXPECT_EQ(widget<QLineEdit>("名称").accessibleName(), "法人名称");
    EXPECT_EQ(widget<QLineEdit>("年").accessibleName(), "登録日付");
    EXPECT_EQ(widget<QLineEdit>("コード").accessibleName(), "担当者");
    EXPECT_EQ(widget<QLineEdit>("電話").accessibleName(), "ＴＥＬ");
    EXPECT_EQ(widget<QLineEdit>("暗証番号").accessibleName(), "個人・法人");
    EXPECT_EQ(widget<QLineEdit>("名称カナ").accessibleName(), "個人・法人");
    EXPECT_EQ(widget<QPushButton>("btn_登録").accessibleName(), "登録");
}

TEST_F(FocusTest, AColourIsShownAndTakenBack) {
    setColor(control("lab_年"), 192);
    frontend::sync();
    QWidget* label = frontend::widgetOf(control("lab_年"));
    EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(192, 0, 0));
    setColor(control("lab_年"), std::nullopt);
    frontend::sync();
    EXPECT_EQ(label->palette().color(QPalette::WindowText), QApplication::palette().color(QPalette::WindowText));
}

} // namespace kestrel
