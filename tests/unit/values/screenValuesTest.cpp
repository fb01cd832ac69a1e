#include "screen/window.hpp"
#include "session/rosterSession.hpp"
#include "values/modFieldLength.hpp"
#include "values/modTabStop.hpp"

#include <gtest/gtest.h>

namespace kestrel {
namespace {

using namespace screen;

class Form : public testing::Test {
protected:
    Form() { rosterSession.currentForm = &form; }
    ~Form() override {
        rosterSession.currentForm = nullptr;
        rosterSession.lookupNextControl = nullptr;
    }
    Control& add(std::string_view name, Kind kind, int tabIndex) {
        return addControl(form, {.name = name, .kind = kind, .tabIndex = tabIndex});
    }
    const Control* nextFrom(Control& start) {
        rosterSession.lookupNextControl = &start;
        nextTabStop();
        return rosterSession.lookupNextControl;
    }
    Window form{"frm"};
};

TEST_F(Form, ATextThatFitsClearsTheNoticeOfAnEarlierKeystroke) {
    Control& notice = add("お知らせ", Kind::SSPanel, 1);
    checkFieldLength("山田太郎", 4);
    EXPECT_EQ(notice.caption, "2文字オーバーです。");
    checkFieldLength("山田", 4);
    EXPECT_EQ(notice.caption, "");
}

TEST_F(Form, WithoutAFormOrANoticeNothingHappens) {
    checkFieldLength("山田太郎", 4);
    rosterSession.currentForm = nullptr;
    checkFieldLength("山田太郎", 4);
    nextTabStop();
    EXPECT_EQ(rosterSession.lookupNextControl, nullptr);
}

TEST_F(Form, AStartThatCanTakeTheFocusIsFoundAgain) {
    Control& start = add("a", Kind::xField, 5);
    add("b", Kind::xField, 6);
    EXPECT_EQ(nextFrom(start), &start);
}

TEST_F(Form, ADisabledStartGivesTheNextInTabOrder) {
    Control& start = add("a", Kind::xField, 5);
    add("c", Kind::xField, 9);
    Control& next = add("b", Kind::xField, 7);
    start.enabled = false;
    EXPECT_EQ(nextFrom(start), &next);
}

TEST_F(Form, HiddenButtonsAndFieldsOutOfTheTabOrderAreSkipped) {
    Control& start = add("a", Kind::SSPanel, 5);
    add("hidden", Kind::SSCommand, 6).visible = false;
    add("no stop", Kind::xField, 7).tabStop = false;
    Control& next = add("button", Kind::SSCommand, 8);
    EXPECT_EQ(nextFrom(start), &next);
}

TEST_F(Form, OnlyFieldsAndButtonsAreStops) {
    Control& start = add("a", Kind::xLabel, 1);
    for (const Kind kind : {Kind::SSPanel, Kind::SSTab, Kind::ListView, Kind::ComboBox}) add("other", kind, 2);
    EXPECT_EQ(nextFrom(start), &start);
    for (const Kind kind :
         {Kind::SSCommand, Kind::xField, Kind::xNum, Kind::xText, Kind::xZip, Kind::xTel, Kind::xPass, Kind::xKana}) {
        Control& stop = add("stop", kind, 3);
        EXPECT_EQ(nextFrom(start), &stop);
        stop.visible = false;
    }
}

TEST_F(Form, AmongEqualTabIndexesTheLastWins) {
    Control& start = add("a", Kind::xField, 5);
    Control& last = add("b", Kind::xField, 5);
    EXPECT_EQ(nextFrom(start), &last);
}

TEST_F(Form, BehindTheLastStopNothingIsFound) {
    add("a", Kind::xField, 1);
    Control& start = add("b", Kind::SSPanel, 9);
    EXPECT_EQ(nextFrom(start), &start);
}

TEST_F(Form, TheStartMayStandOnAnotherWindow) {
    Window list("wnd");
    Control& start = addControl(list, {.name = "x", .kind = Kind::xField, .tabIndex = 3});
    Control& next = add("a", Kind::xField, 3);
    EXPECT_EQ(nextFrom(start), &next);
}

} // namespace
} // namespace kestrel
