#include "form_test.hpp"
#include "screen/frontend.hpp"
#include "script.hpp"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace kestrel {

using Lines = std::vector<std::string>;

class FieldsTest : public demo::FormTest {
protected:
    void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {},
               bool repeat = false) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers, text, repeat);
        QCoreApplication::sendEvent(&widget, &event);
    }
    void compose(QWidget& widget, const QString& preedit, const QString& commit) {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QCoreApplication::sendEvent(&widget, &event);
    }
};

TEST_F(FieldsTest, EachKeyIsAnEdit) {
    focusOn("名称");
    hand::typeOver("Abc");
    EXPECT_EQ(demo::happened, (Lines{"change 名称=A", "change 名称=Ab", "change 名称=Abc"}));
    EXPECT_EQ(hand::shownText(control("名称")), "Abc");
}

TEST_F(FieldsTest, JapaneseArrivesByTheInputMethodACharacterAtATime) {
    focusOn("名称");
    hand::typeOver("青葉 1");
    EXPECT_EQ(demo::happened,
              (Lines{"change 名称=青", "change 名称=青葉", "key 名称 5", "change 名称=青葉 ", "change 名称=青葉 1"}));
}

TEST_F(FieldsTest, TypingOverWithNothingEmptiesTheField) {
    control("名称").text = "前の値";
    focusOn("名称");
    hand::typeOver("");
    EXPECT_EQ(control("名称").text, "");
}

TEST_F(FieldsTest, ATextOfTheProgramIsWrittenBackWithoutAnEdit) {
    focusOn("名称");
    hand::typeOver("abcd");
    widget<QLineEdit>("名称").setCursorPosition(2);
    demo::happened.clear();
    control("名称").text = "xyzw5";
    frontend::sync();
    EXPECT_EQ(widget<QLineEdit>("名称").text(), "xyzw5");
    EXPECT_EQ(widget<QLineEdit>("名称").cursorPosition(), 2);
    EXPECT_TRUE(demo::happened.empty());
}

TEST_F(FieldsTest, ThePostalCodeGetsItsHyphenWhileTheCursorStaysBehindTheDigits) {
    focusOn("郵便番号");
    hand::typeOver("1000001");
    EXPECT_EQ(widget<QLineEdit>("郵便番号").text(), "100-0001");
    EXPECT_EQ(widget<QLineEdit>("郵便番号").cursorPosition(), 8);
}

TEST_F(FieldsTest, ANumberBeyondItsBoundsIsShownClamped) {
    focusOn("区分");
    hand::typeOver("7");
    EXPECT_EQ(widget<QLineEdit>("区分").text(), "1");
    EXPECT_EQ(hand::shownValue(control("区分")), 1);
}

TEST_F(FieldsTest, APasswordIsMaskedOnTheScreen) {
    EXPECT_NE(widget<QLineEdit>("暗証番号").displayText(), "1234");
    EXPECT_EQ(hand::shownText(control("暗証番号")), "1234");
}

TEST_F(FieldsTest, TheMemoHoldsCarriageReturnsAndShowsLines) {
    hand::page(control("tab_詳細"), 1);
    EXPECT_EQ(widget<QPlainTextEdit>("メモ").toPlainText(), "一行目\n二行目");
    EXPECT_TRUE(hand::click(control("メモ")));
    hand::typeOver("甲\n乙");
    EXPECT_EQ(control("メモ").text, "甲\r\n乙");
    EXPECT_EQ(hand::shownText(control("メモ")), "甲\r\n乙");
}

TEST_F(FieldsTest, ShowingAMemoAndLeavingItIsNoEdit) {
    hand::page(control("tab_詳細"), 1);
    hand::click(control("メモ"));
    hand::key(screen::Key::Tab);
    EXPECT_EQ(demo::happened, (Lines{"click tab_詳細"}));
    EXPECT_EQ(control("メモ").text, "一行目\r\n二行目");
}

TEST_F(FieldsTest, AMemoTextOfTheProgramIsNoEdit) {
    hand::page(control("tab_詳細"), 1);
    hand::click(control("メモ"));
    demo::happened.clear();
    control("メモ").text = "別の\r\n文";
    frontend::sync();
    EXPECT_EQ(widget<QPlainTextEdit>("メモ").toPlainText(), "別の\n文");
    EXPECT_TRUE(demo::happened.empty());
}

TEST_F(FieldsTest, AKeyWhoseHandlerMovesTheFocusEditsNothing) {
    focusOn("名称");
    hand::typeOver("ab");
    static screen::Control* next = nullptr;
    next = &control("電話");
    static const screen::Binding table[] = {
        {"名称", screen::Event::keyDown, [](const screen::Occurrence&) { setFocus(*next); }}};
    form->bindings = table;
    hand::key(screen::Key::Backspace);
    EXPECT_EQ(focusName(), "電話");
    EXPECT_EQ(widget<QLineEdit>("名称").text(), "ab");
    EXPECT_EQ(control("電話").text, "03-1234-5678");
}

TEST_F(FieldsTest, EnteringByTabSelectsTheWholeText) {
    focusOn("名称");
    hand::key(screen::Key::Tab);
    hand::key(screen::Key::Tab);
    EXPECT_EQ(focusName(), "電話");
    EXPECT_EQ(widget<QLineEdit>("電話").selectedText(), "03-1234-5678");
}

TEST_F(FieldsTest, EnteringByAPressPutsTheCursorWhereItIsPressed) {
    EXPECT_TRUE(hand::click(control("電話")));
    EXPECT_EQ(focusName(), "電話");
    EXPECT_EQ(widget<QLineEdit>("電話").selectedText(), "");
}

TEST_F(FieldsTest, EnterThatConfirmsAConversionIsNoKeyOfTheForm) {
    focusOn("名称");
    auto& line = widget<QLineEdit>("名称");
    compose(line, "あおば", "");
    press(line, Qt::Key_Return, Qt::NoModifier, "\r");
    EXPECT_TRUE(demo::happened.empty());
    compose(line, "", "青葉");
    EXPECT_EQ(demo::happened, (Lines{"change 名称=青葉"}));
    press(line, Qt::Key_Return, Qt::NoModifier, "\r");
    EXPECT_EQ(demo::happened.back(), "key 名称 2");
}

TEST_F(FieldsTest, AHeldCtrlCountsOnce) {
    focusOn("コード");
    hand::hold(screen::Key::Ctrl);
    EXPECT_EQ(demo::happened, (Lines{"key コード 4"}));
}

TEST_F(FieldsTest, AHeldKeyGoesOnInTheWindowThatItOpened) {
    static screen::Window* opened = nullptr;
    const auto list = demo::makeList(20);
    opened = list.get();
    static const screen::Binding table[] = {
        {"名称", screen::Event::keyDown, [](const screen::Occurrence&) { screen::showModal(*opened); }}};
    form->bindings = table;
    focusOn("名称");
    int selected = -1;
    demo::play({[] { hand::hold(screen::Key::Down); },
                [&] {
                    selected = opened->controls[0].selected;
                    hand::row(opened->controls[0], 0, false);
                }},
               [] { frontend::waitUntilEnded(); });
    EXPECT_EQ(selected, 4); // the press opens the window, five repeats go on in it
    EXPECT_FALSE(list->shown);
}

TEST_F(FieldsTest, BackspaceTakesTheLastCharacterAfterTheFormHasSeenTheKey) {
    focusOn("名称");
    hand::typeOver("ab");
    demo::happened.clear();
    hand::key(screen::Key::Backspace);
    EXPECT_EQ(demo::happened, (Lines{"key 名称 14", "change 名称=a"}));
}

TEST_F(FieldsTest, TheFirstKeyForAHiddenPageBringsItToTheFrontAndIsNotLost) {
    focusOn("メモ");
    EXPECT_EQ(control("tab_詳細").value, 0);
    EXPECT_EQ(hand::shownFocus(*form), &control("メモ"));
    hand::typeOver("x");
    EXPECT_EQ(hand::shownValue(control("tab_詳細")), 1);
    EXPECT_EQ(control("メモ").text, "一行目\r\n二行目x");
    EXPECT_EQ(top().focusWidget(), &widget<QPlainTextEdit>("メモ"));
}

TEST_F(FieldsTest, AConvertedTextForAHiddenPageIsNotLostEither) {
    focusOn("メモ");
    hand::typeOver("漢字");
    EXPECT_EQ(hand::shownValue(control("tab_詳細")), 1);
    EXPECT_EQ(control("メモ").text, "一行目\r\n二行目漢字");
}

TEST_F(FieldsTest, TheInputModeTellsTheInputMethod) {
    EXPECT_FALSE(widget<QLineEdit>("年").testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_TRUE(widget<QLineEdit>("コード").inputMethodHints().testFlag(Qt::ImhPreferLatin));
    EXPECT_TRUE(widget<QLineEdit>("名称").testAttribute(Qt::WA_InputMethodEnabled));
    EXPECT_FALSE(widget<QLineEdit>("名称").inputMethodHints().testFlag(Qt::ImhPreferLatin));
}

TEST_F(FieldsTest, AnEditThatTheModelRefusesIsTakenBack) {
    focusOn("名称");
    form->blocked = true;
    auto& line = widget<QLineEdit>("名称");
    compose(line, "", "青");
    EXPECT_EQ(control("名称").text, "");
    EXPECT_EQ(line.text(), "");
}

} // namespace kestrel
