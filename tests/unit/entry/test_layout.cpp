// The entry screen as a person meets it: nothing lies over anything else, nothing is cut off, every caption can be
// read.
#include "entry/entryForm.hpp"
#include "text/characters.hpp"

#include <gtest/gtest.h>

#include <map>
#include <set>

using namespace kestrel;
using screen::Control;
using screen::InputMode;
using screen::Kind;

namespace {

bool holdsOthers(const Control& control) {
    return control.kind == Kind::SSTab || control.name == "bak_dtla";
}

bool seenTogether(const Control& a, const Control& b) {
    return a.page == -1 || b.page == -1 || a.page == b.page;
}

bool overlap(const screen::Place& a, const screen::Place& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

bool inside(const screen::Place& inner, const screen::Place& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.left + inner.width <= outer.left + outer.width &&
           inner.top + inner.height <= outer.top + outer.height;
}

// A full-width character of the screen's font takes 195 twips, a half-width one half of that.
int textWidth(std::string_view text) {
    return static_cast<int>(text::byteLength932(text)) * 195 / 2;
}

struct Expected {
    std::string_view name;
    int tabIndex;
    bool tabStop;
    int maxLength;
    InputMode mode;
};

constexpr Expected stops[] = {
    {"名簿日付年", 0, true, 4, InputMode::disabled},
    {"名簿日付月", 1, true, 2, InputMode::disabled},
    {"名簿日付日", 2, true, 2, InputMode::disabled},
    {"名簿No", 3, true, 8, InputMode::off},
    {"名簿名称", 4, true, 32, InputMode::hiragana},
    {"担当者コード", 5, true, 5, InputMode::off},
    {"担当者名", 6, false, 20, InputMode::on},
    {"部門コード", 7, false, 3, InputMode::off},
    {"部門名", 8, false, 20, InputMode::on},
    {"セクションコード", 9, false, 3, InputMode::off},
    {"セクション名", 10, false, 20, InputMode::on},
    {"名簿宛先No", 11, true, 6, InputMode::off},
    {"ヘッド終了", 12, true, 0, InputMode::none},
    {"宛先名称A", 13, true, 60, InputMode::hiragana},
    {"宛先名称B", 14, true, 60, InputMode::hiragana},
    {"宛先名称C", 15, true, 60, InputMode::hiragana},
    {"宛先郵便番号", 16, true, 8, InputMode::none},
    {"宛先住所A", 17, true, 60, InputMode::hiragana},
    {"宛先住所B", 18, true, 60, InputMode::hiragana},
    {"宛先住所C", 19, true, 60, InputMode::hiragana},
    {"宛先電話", 20, true, 20, InputMode::none},
    {"宛先FAX", 21, true, 20, InputMode::none},
    {"法人個人区分", 22, true, 0, InputMode::none},
    {"法人個人区分名称", 23, true, 0, InputMode::none},
    {"発送区分", 24, true, 0, InputMode::none},
    {"発送区分名称", 25, true, 0, InputMode::none},
    {"宛先HOMEPAGE", 26, true, 127, InputMode::off},
    {"宛先EMAIL", 27, true, 127, InputMode::off},
    {"得意先コード", 28, true, 8, InputMode::off},
    {"納品先コード", 29, true, 8, InputMode::off},
    {"仕入先コード", 30, true, 8, InputMode::off},
    {"メーカコード", 31, true, 8, InputMode::off},
    {"テイル終了", 32, true, 0, InputMode::none},
    {"宛先摘要", 33, true, 0, InputMode::hiragana},
    {"btn_登録", 34, true, 0, InputMode::none},
    {"btn_削除", 35, true, 0, InputMode::none},
    {"btn_印刷", 36, true, 0, InputMode::none},
    {"btn_プレビュ", 37, true, 0, InputMode::none},
    {"btn_終了", 38, true, 0, InputMode::none},
    {"btn_名簿No", 39, true, 0, InputMode::none},
    {"btn_次No", 40, true, 0, InputMode::none},
    {"btn_前No", 41, true, 0, InputMode::none},
    {"tab_詳細", 42, true, 0, InputMode::none},
    {"btn_画面クリア", 43, true, 0, InputMode::none},
    {"btn_担当者コード", 44, true, 0, InputMode::none},
    {"btn_部門コード", 50, true, 0, InputMode::none},
    {"btn_セクションコード", 51, true, 0, InputMode::none},
    {"btn_名簿宛先No", 54, true, 0, InputMode::none},
    {"btn_前明細No", 55, true, 0, InputMode::none},
    {"btn_次明細No", 56, true, 0, InputMode::none},
    {"btn_EMAIL", 65, true, 0, InputMode::none},
    {"btn_HOMEPAGE", 66, true, 0, InputMode::none},
    {"頁開始", 67, true, 0, InputMode::none},
    {"頁1終了", 68, true, 0, InputMode::none},
    {"btn_得意先登録", 69, true, 0, InputMode::none},
    {"btn_納品先登録", 70, true, 0, InputMode::none},
    {"btn_仕入先登録", 71, true, 0, InputMode::none},
    {"btn_メーカ登録", 72, true, 0, InputMode::none},
    {"btn_付属書類追加", 73, true, 0, InputMode::none},
    {"btn_付属書類削除", 74, true, 0, InputMode::none},
    {"btn_フォルダ", 75, true, 0, InputMode::none},
    {"List付属書類", 76, true, 0, InputMode::none},
    {"発送日付年", 77, false, 4, InputMode::disabled},
    {"発送日付月", 78, false, 2, InputMode::disabled},
    {"発送日付日", 79, false, 2, InputMode::disabled},
};

} // namespace

TEST(EntryLayout, NoTwoControlsOfAPageOverlap) {
    Frm連絡台帳入力 form;
    for (const Control& a : form.window.controls)
        for (const Control& b : form.window.controls) {
            if (&a >= &b || holdsOthers(a) || holdsOthers(b) || !seenTogether(a, b)) continue;
            EXPECT_FALSE(overlap(a.place, b.place)) << a.name << " and " << b.name;
        }
}

TEST(EntryLayout, EverythingButTheGuardsStandsInsideTheWindow) {
    Frm連絡台帳入力 form;
    const screen::Place& notice = form.お知らせ.place;
    const screen::Place window{0, 0, notice.width + 90, notice.top + notice.height};
    EXPECT_EQ(window.width, 8655);
    for (const Control& control : form.window.controls)
        EXPECT_EQ(inside(control.place, window), !control.guard) << control.name;
}

TEST(EntryLayout, APageHoldsItsControls) {
    Frm連絡台帳入力 form;
    for (const Control& control : form.window.controls) {
        if (control.page == -1) continue;
        EXPECT_EQ(control.tab, &form.tab_詳細) << control.name;
        EXPECT_TRUE(inside(control.place, form.tab_詳細.place)) << control.name;
        EXPECT_TRUE(control.page != 0 || inside(control.place, form.bak_dtla.place)) << control.name;
    }
}

TEST(EntryLayout, CaptionsFit) {
    Frm連絡台帳入力 form;
    for (const Control& control : form.window.controls) {
        const int margin = control.kind == Kind::xLabel ? 30 : 90;
        EXPECT_LE(textWidth(control.caption) + margin, control.place.width) << control.name;
    }
}

TEST(EntryLayout, FieldsShowAllTheyMayHoldUpToAFullLine) {
    Frm連絡台帳入力 form;
    constexpr int margin = 90, line = 7000;
    for (const Control& control : form.window.controls) {
        const int wanted = control.maxLength * 195 / 2 + margin;
        EXPECT_TRUE(control.maxLength == 0 || control.place.width >= std::min(wanted, line)) << control.name;
    }
}

TEST(EntryLayout, TabOrderLimitsAndInputModes) {
    Frm連絡台帳入力 form;
    for (const Expected& expected : stops) {
        const Control* control = screen::findControl(form.window, expected.name);
        ASSERT_TRUE(control) << expected.name;
        EXPECT_EQ(control->tabIndex, expected.tabIndex) << expected.name;
        EXPECT_EQ(control->tabStop, expected.tabStop) << expected.name;
        EXPECT_EQ(control->maxLength, expected.maxLength) << expected.name;
        EXPECT_EQ(control->inputMode, expected.mode) << expected.name;
    }
}

TEST(EntryLayout, EveryStopHasItsOwnPlaceInTheTabOrder) {
    Frm連絡台帳入力 form;
    std::map<int, std::string> seen;
    for (const Control& control : form.window.controls) {
        EXPECT_EQ(screen::takesFocus(control), control.tabIndex >= 0) << control.name;
        if (control.tabIndex < 0) continue;
        EXPECT_TRUE(seen.emplace(control.tabIndex, control.name).second)
            << control.name << " and " << seen[control.tabIndex];
    }
    EXPECT_EQ(seen.size(), std::size(stops));
}

TEST(EntryLayout, FourGuards) {
    Frm連絡台帳入力 form;
    std::set<std::string> guards;
    for (const Control& control : form.window.controls) {
        if (!control.guard) continue;
        guards.insert(control.name);
        EXPECT_EQ(control.place.width, 195);
        EXPECT_EQ(control.place.height, 195);
    }
    EXPECT_EQ(guards, (std::set<std::string>{"ヘッド終了", "頁開始", "頁1終了", "テイル終了"}));
}
