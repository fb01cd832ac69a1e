// The model of windows as a person meets it: pressing, typing, keys, pages, modality, the end.
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "screen/person.hpp"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace kestrel::screen;

namespace {

std::string steps; // what handlers ran, in order

void note(const Occurrence& occurrence) {
    constexpr std::string_view names[] = {"change", "in", "out", "key", "click", "double", "header"};
    steps += std::string(names[static_cast<std::size_t>(occurrence.event)]) + " " + occurrence.control.name + ", ";
}

Control* goTo = nullptr; // where the leaving step of 移動 sends the focus

void sendAway(const Occurrence& occurrence) {
    note(occurrence);
    if (goTo) setFocus(*goTo);
}

void disableTarget(const Occurrence& occurrence) {
    note(occurrence);
    if (goTo) setEnabled(*goTo, false);
}

void fail(const Occurrence&) {
    throw std::runtime_error("壊れた");
}

void finish(const Occurrence&) {
    endProcess(5);
    steps += "rest";
}

constexpr Binding bindings[] = {
    {"甲", Event::gotFocus, note},        {"甲", Event::lostFocus, note},
    {"甲", Event::change, note},          {"甲", Event::keyDown, note},
    {"乙", Event::gotFocus, note},        {"乙", Event::lostFocus, note},
    {"移動", Event::lostFocus, sendAway}, {"停止", Event::lostFocus, disableTarget},
    {"ok", Event::click, note},           {"ok", Event::gotFocus, note},
    {"題", Event::click, note},           {"題", Event::gotFocus, note},
    {"bad", Event::click, fail},          {"end", Event::click, finish},
    {"選", Event::change, note},          {"表", Event::click, note},
    {"表", Event::doubleClick, note},     {"表", Event::columnClick, note},
    {"頁", Event::click, note},           {"甲", Event::doubleClick, note},
};

class Person : public testing::Test {
protected:
    void SetUp() override {
        resetScreens();
        steps.clear();
        goTo = nullptr;
        window.width = window.height = 1000;
        window.bindings = bindings;
    }
    void TearDown() override { resetScreens(); }

    Control& add(const char* name, Kind kind, int tabIndex) {
        return addControl(window, {name, kind, name, {10, 10, 100, 100}, tabIndex});
    }
    std::string focus() const { return window.focus ? window.focus->name : ""; }

    Window window{"frm"};
};

TEST_F(Person, APressLeavesTheOldFieldEntersTheNewAndClicksLast) {
    Control& first = add("甲", Kind::xField, 0);
    Control& button = add("ok", Kind::SSCommand, 1);
    show(window);
    setFocus(first);
    EXPECT_TRUE(press(button));
    EXPECT_EQ(steps, "in 甲, out 甲, in ok, click ok, ");
}

TEST_F(Person, PanelsAndLabelsAreClickedWithoutTakingTheFocus) {
    Control& first = add("甲", Kind::xField, 0);
    Control& panel = add("題", Kind::SSPanel, -1);
    show(window);
    setFocus(first);
    EXPECT_TRUE(press(panel));
    EXPECT_EQ(steps, "in 甲, click 題, ");
    EXPECT_EQ(focus(), "甲");
}

TEST_F(Person, FocusOnTheSameControlIsNothing) {
    Control& first = add("甲", Kind::xField, 0);
    show(window);
    setFocus(first);
    setFocus(first);
    EXPECT_EQ(steps, "in 甲, ");
}

TEST_F(Person, FocusThatCannotBeTakenLeavesEverythingAlone) {
    Control& first = add("甲", Kind::xField, 0);
    Control& second = add("乙", Kind::xField, 1);
    show(window);
    setFocus(first);
    setEnabled(second, false);
    setFocus(second);
    setEnabled(second, true);
    setVisible(second, false);
    setFocus(second);
    EXPECT_EQ(steps, "in 甲, ");
    EXPECT_EQ(focus(), "甲");
}

TEST_F(Person, ALeavingStepThatMovesTheFocusEndsTheMove) {
    Control& away = add("移動", Kind::xField, 0);
    Control& first = add("甲", Kind::xField, 1);
    Control& second = add("乙", Kind::xField, 2);
    show(window);
    setFocus(away);
    goTo = &first;
    setFocus(second);
    EXPECT_EQ(focus(), "甲");
    EXPECT_EQ(steps.find("in 乙"), std::string::npos);
}

TEST_F(Person, AClickIsLostWhenTheLeavingStepDisablesItsButton) {
    Control& first = add("停止", Kind::xField, 0);
    Control& button = add("ok", Kind::SSCommand, 1);
    show(window);
    setFocus(first);
    goTo = &button;
    EXPECT_TRUE(press(button));
    EXPECT_EQ(steps, "out 停止, ");
    EXPECT_EQ(focus(), "停止");
}

TEST_F(Person, WhatCannotBeReachedTakesNoPress) {
    Control& tab = add("頁", Kind::SSTab, 0);
    setItems(tab, {"一", "二"});
    Control& button = add("ok", Kind::SSCommand, 1);
    EXPECT_FALSE(press(button)) << "the window isn't shown";
    show(window);
    setVisible(button, false);
    EXPECT_FALSE(press(button));
    setVisible(button, true);
    setEnabled(button, false);
    EXPECT_FALSE(press(button));
    setEnabled(button, true);
    placeOnPage(button, tab, 1);
    EXPECT_FALSE(press(button));
    EXPECT_TRUE(turnPage(tab, 1));
    button.place.left = 1000;
    EXPECT_FALSE(press(button)) << "wholly outside the window";
    button.place.left = -50;
    EXPECT_TRUE(press(button)) << "partly inside";
    button.guard = true;
    EXPECT_FALSE(press(button));
    button.guard = false;
    setEnabled(window, false);
    EXPECT_FALSE(press(button));
}

TEST_F(Person, TypingRaisesChangeForEachDifferentText) {
    Control& first = add("甲", Kind::xField, 0);
    show(window);
    EXPECT_FALSE(edit(first, "x")) << "without the focus";
    setFocus(first);
    EXPECT_TRUE(edit(first, "x"));
    EXPECT_TRUE(edit(first, "x"));
    EXPECT_EQ(steps, "in 甲, change 甲, ");
}

TEST_F(Person, TheFirstKeyBringsTheHiddenPageToTheFrontAndIsNotLost) {
    Control& tab = add("頁", Kind::SSTab, 0);
    setItems(tab, {"一", "二"});
    Control& field = add("甲", Kind::xField, 1);
    placeOnPage(field, tab, 1);
    show(window);
    setFocus(field);
    EXPECT_EQ(tab.value, 0) << "a step turns no page";
    EXPECT_TRUE(edit(field, "か"));
    EXPECT_EQ(tab.value, 1);
    EXPECT_EQ(field.text, "か");
}

TEST_F(Person, TabWrapsAndSkipsWhatIsNoStop) {
    Control& tab = add("頁", Kind::SSTab, 40);
    setItems(tab, {"一", "二"});
    add("甲", Kind::xField, 0);
    add("乙", Kind::xField, 1);
    placeOnPage(add("裏", Kind::xField, 2), tab, 1);
    setTabStop(add("無", Kind::xField, 3), false);
    setEnabled(add("止", Kind::xField, 4), false);
    show(window);
    setFocus(*findControl(window, "甲"));
    key(window, Key::Tab);
    EXPECT_EQ(focus(), "乙");
    key(window, Key::Tab);
    EXPECT_EQ(focus(), "頁");
    key(window, Key::Tab);
    EXPECT_EQ(focus(), "甲");
    key(window, Key::BackTab);
    EXPECT_EQ(focus(), "頁");
}

TEST_F(Person, EnterAndEscPressTheirButtons) {
    Control& field = add("甲", Kind::xField, 0);
    Control& memo = add("摘要", Kind::xText, 1);
    Control& button = add("ok", Kind::SSCommand, 2);
    window.defaultButton = window.cancelButton = &button;
    show(window);
    setFocus(field);
    key(window, Key::Enter);
    EXPECT_TRUE(steps.ends_with("in ok, click ok, ")) << steps;
    setFocus(memo);
    steps.clear();
    key(window, Key::Enter);
    EXPECT_EQ(steps, "") << "Enter belongs to the memo";
    key(window, Key::Esc);
    EXPECT_EQ(steps, "in ok, click ok, ");
    key(window, Key::Space);
    EXPECT_EQ(steps, "in ok, click ok, click ok, ");
}

TEST_F(Person, AutoRepeatOfCtrlIsIgnored) {
    setFocus(add("甲", Kind::xField, 0));
    show(window);
    setFocus(*findControl(window, "甲"));
    steps.clear();
    key(window, Key::Ctrl);
    key(window, Key::Ctrl, true);
    EXPECT_EQ(steps, "key 甲, ");
}

TEST_F(Person, ListsAndDropDownsMoveByKeys) {
    Control& list = add("表", Kind::ListView, 0);
    for (const char* name : {"一", "二", "三"}) addRow(list, {name, name, {}, false});
    Control& dropDown = add("選", Kind::ComboBox, 1);
    setItems(dropDown, {"個人", "法人"});
    show(window);
    setFocus(list);
    key(window, Key::Down);
    EXPECT_EQ(list.selected, 0) << "with nothing selected the first row";
    key(window, Key::End);
    EXPECT_EQ(list.selected, 2);
    key(window, Key::Down);
    EXPECT_EQ(list.selected, 2);
    key(window, Key::Up);
    EXPECT_EQ(list.selected, 1);
    setFocus(dropDown);
    key(window, Key::Down);
    key(window, Key::Down);
    EXPECT_EQ(dropDown.listIndex, 1);
    EXPECT_EQ(steps, "change 選, change 選, ");
}

TEST_F(Person, RowsHeadersAndItemsArePicked) {
    Control& list = add("表", Kind::ListView, 0);
    setColumns(list, {{"名称", 900}});
    addRow(list, {"一", "C1", {}, false});
    Control& dropDown = add("選", Kind::ComboBox, 1);
    setItems(dropDown, {"個人"});
    show(window);
    EXPECT_TRUE(pressRow(list, 0));
    EXPECT_TRUE(pressRow(list, 0, true));
    EXPECT_TRUE(pressHeader(list, 0));
    EXPECT_FALSE(pressRow(list, 1));
    EXPECT_FALSE(pressHeader(list, 1));
    EXPECT_TRUE(choose(dropDown, 0));
    EXPECT_FALSE(choose(dropDown, 1));
    EXPECT_TRUE(choose(dropDown, 0));
    EXPECT_EQ(steps, "click 表, click 表, double 表, header 表, change 選, ");
}

TEST_F(Person, TheSecondPressOfADoubleClickIsAPressAndMore) {
    Control& field = add("甲", Kind::xField, 0);
    Control& button = add("ok", Kind::SSCommand, 1);
    show(window);
    EXPECT_TRUE(press(field));
    EXPECT_TRUE(pressAgain(field));
    EXPECT_TRUE(press(button));
    EXPECT_TRUE(pressAgain(button)); // a button takes both for itself
    EXPECT_EQ(steps, "in 甲, double 甲, out 甲, in ok, click ok, click ok, ");
}

TEST_F(Person, AModalWindowBlocksTheOthersAndEnablingUnblocks) {
    Control& button = add("ok", Kind::SSCommand, 0);
    show(window);
    Window other("wnd");
    other.width = other.height = 1000;
    static Window* opener = nullptr;
    static bool pressed = true, pressedAfterEnabling = false;
    static Control* behind = nullptr;
    opener = &window;
    behind = &button;
    other.load = [](Window&) { EXPECT_EQ(activeWindow(), opener); };
    // Nobody acts, so that the modal wait returns at once; what holds meanwhile is looked at from the first entry step.
    Control& field = addControl(other, {"中", Kind::xField, "", {0, 0, 10, 10}, 0});
    constexpr static Binding inside[] = {{"中", Event::gotFocus, [](const Occurrence&) {
                                              pressed = press(*behind);
                                              setEnabled(*opener, true);
                                              pressedAfterEnabling = press(*behind);
                                          }}};
    other.bindings = inside;
    showModal(other);
    EXPECT_EQ(other.focus, &field);
    EXPECT_FALSE(pressed);
    EXPECT_TRUE(pressedAfterEnabling);
}

TEST_F(Person, AHandlersErrorIsShownAndTheWindowUsableAgain) {
    Control& button = add("bad", Kind::SSCommand, 0);
    show(window);
    EXPECT_TRUE(press(button));
    EXPECT_TRUE(window.enabled);
    EXPECT_TRUE(press(button));
}

TEST_F(Person, AfterTheEndNothingIsTouched) {
    Control& button = add("end", Kind::SSCommand, 0);
    Control& field = add("甲", Kind::xField, 1);
    show(window);
    EXPECT_TRUE(press(button));
    EXPECT_EQ(steps, "rest") << "the handler runs out";
    EXPECT_TRUE(ended());
    endProcess(7);
    EXPECT_EQ(endStatus(), 5) << "the first end counts";
    setText(field, "x");
    setFocus(field);
    EXPECT_EQ(field.text, "");
    EXPECT_NE(focus(), "甲");
    EXPECT_FALSE(question("？"));
    EXPECT_EQ(waiting(), nullptr);
    resetScreens();
    EXPECT_FALSE(ended());
}

} // namespace
