// The entry screen frm連絡台帳入力 as it stands: one line a control, each member called like its control. All measures
// are twips. The head, the pages and the foot share one grid, so that captions and fields stand under one another.
#pragma once

#include "screen/window.hpp"

namespace kestrel {

struct Frm連絡台帳入力 {
    Frm連絡台帳入力(); // what the lines below have no room for: captions of the pages, columns, fixed choices

    screen::Window window{"frm連絡台帳入力"};

private:
    using Control = screen::Control;
    using Place = screen::Place;
    using Spec = screen::ControlSpec;
    using enum screen::Kind;
    using enum screen::InputMode;

    static constexpr int high = 315;                     // a field, a caption, a button beside a field
    static constexpr int step = 375;                     // from one row to the next
    static constexpr int captionA = 120, fieldA = 1410;  // left column
    static constexpr int captionB = 4185, fieldB = 5295; // right column
    static constexpr int captionWide = 1260, captionNarrow = 1080, labelWide = 225;
    static constexpr int dayWide = 420, codeWide = 660, numberWide = 1050, nameWide = 2040, lineWide = 6030;
    static constexpr int stepWide = 450, choiceWide = 1635, phoneWide = 2100;

    static constexpr int head(int row) { return 600 + row * step; }
    static constexpr int body(int row) { return 2655 + row * step; } // rows of a page
    static constexpr Place at(int left, int top, int width) { return {left, top, width, high}; }
    static constexpr Place foot(int left) { return {left, 7710, 1275, 420}; }

    Control& add(const Spec& spec) { return screen::addControl(window, spec); }
    Control& onPage(int page, const Spec& spec) {
        Control& control = add(spec);
        screen::placeOnPage(control, tab_詳細, page);
        return control;
    }
    // A button outside the visible area that only catches the focus on its way through the tab order.
    Control& guard(std::string_view name, int tabIndex) {
        Control& control = add({name, SSCommand, "", {-1500, 600 + tabIndex * 210, 195, 195}, tabIndex});
        control.guard = true;
        return control;
    }

public:
    // Name, kind, caption, place, tab index, tab stop, limit in bytes, input method.
    // clang-format off: each control keeps its line, however wide
    Control& prg_ttl = add({"prg_ttl", SSPanel, "連絡台帳入力", {45, 60, 7440, 435}});
    Control& manualpanel = add({"manualpanel", SSPanel, "Manual", {7515, 60, 1095, 435}});

    Control& itm_ttl_名簿日付 = add({"itm_ttl_名簿日付", SSPanel, "登録日付", at(captionA, head(0), captionWide)});
    Control& 名簿日付年 = add({"名簿日付年", xField, "", at(fieldA, head(0), 600), 0, true, 4, disabled});
    Control& Lab_名簿日付年 = add({"Lab_名簿日付年", xLabel, "年", at(2025, head(0), labelWide)});
    Control& 名簿日付月 = add({"名簿日付月", xField, "", at(2265, head(0), dayWide), 1, true, 2, disabled});
    Control& Lab_名簿日付月 = add({"Lab_名簿日付月", xLabel, "月", at(2700, head(0), labelWide)});
    Control& 名簿日付日 = add({"名簿日付日", xField, "", at(2940, head(0), dayWide), 2, true, 2, disabled});
    Control& lab_名簿日付日 = add({"lab_名簿日付日", xLabel, "日", at(3375, head(0), labelWide)});
    Control& btn_名簿No = add({"btn_名簿No", SSCommand, "名簿No", at(captionB, head(0), captionNarrow), 39});
    Control& 名簿No = add({"名簿No", xField, "", at(fieldB, head(0), numberWide), 3, true, 8, off});
    Control& btn_前No = add({"btn_前No", SSCommand, "前", at(6375, head(0), stepWide), 41});
    Control& btn_次No = add({"btn_次No", SSCommand, "次", at(6855, head(0), stepWide), 40});

    Control& itm_ttl_発送日付 = add({"itm_ttl_発送日付", SSPanel, "最新発送日付", at(captionA, head(1), captionWide)});
    Control& 発送日付年 = add({"発送日付年", xField, "", at(fieldA, head(1), 600), 77, false, 4, disabled});
    Control& Lab_発送日付年 = add({"Lab_発送日付年", xLabel, "年", at(2025, head(1), labelWide)});
    Control& 発送日付月 = add({"発送日付月", xField, "", at(2265, head(1), dayWide), 78, false, 2, disabled});
    Control& Lab_発送日付月 = add({"Lab_発送日付月", xLabel, "月", at(2700, head(1), labelWide)});
    Control& 発送日付日 = add({"発送日付日", xField, "", at(2940, head(1), dayWide), 79, false, 2, disabled});
    Control& lab_発送日付日 = add({"lab_発送日付日", xLabel, "日", at(3375, head(1), labelWide)});
    Control& itm_ttl_名簿名称 = add({"itm_ttl_名簿名称", SSPanel, "名簿名称", at(captionB, head(1), captionNarrow)});
    Control& 名簿名称 = add({"名簿名称", xField, "", at(fieldB, head(1), 3210), 4, true, 32, hiragana});

    Control& btn_担当者コード = add({"btn_担当者コード", SSCommand, "担当者", at(captionA, head(2), captionWide), 44});
    Control& 担当者コード = add({"担当者コード", xField, "", at(fieldA, head(2), codeWide), 5, true, 5, off});
    Control& 担当者名 = add({"担当者名", xField, "", at(2085, head(2), nameWide), 6, false, 20, on});
    Control& btn_部門コード = add({"btn_部門コード", SSCommand, "部門", at(captionB, head(2), captionNarrow), 50});
    Control& 部門コード = add({"部門コード", xField, "", at(fieldB, head(2), codeWide), 7, false, 3, off});
    Control& 部門名 = add({"部門名", xField, "", at(5970, head(2), nameWide), 8, false, 20, on});

    Control& btn_セクションコード =
        add({"btn_セクションコード", SSCommand, "所属", at(captionA, head(3), captionWide), 51});
    Control& セクションコード = add({"セクションコード", xField, "", at(fieldA, head(3), codeWide), 9, false, 3, off});
    Control& セクション名 = add({"セクション名", xField, "", at(2085, head(3), nameWide), 10, false, 20, on});
    Control& btn_名簿宛先No = add({"btn_名簿宛先No", SSCommand, "宛先No", at(captionB, head(3), captionNarrow), 54});
    Control& 名簿宛先No = add({"名簿宛先No", xField, "", at(fieldB, head(3), numberWide), 11, true, 6, off});
    Control& btn_前明細No = add({"btn_前明細No", SSCommand, "前", at(6375, head(3), stepWide), 55});
    Control& btn_次明細No = add({"btn_次明細No", SSCommand, "次", at(6855, head(3), stepWide), 56});

    Control& ヘッド終了 = guard("ヘッド終了", 12);
    Control& テイル終了 = guard("テイル終了", 32);
    Control& 頁開始 = guard("頁開始", 67);
    Control& 頁1終了 = guard("頁1終了", 68);

    Control& tab_詳細 = add({"tab_詳細", SSTab, "", {45, 2190, 8565, 5400}, 42});

    Control& bak_dtla = onPage(0, {"bak_dtla", SSPanel, "", {75, 2580, 8505, 4965}});
    Control& itm_ttl_宛先名称 =
        onPage(0, {"itm_ttl_宛先名称", SSPanel, "法人名称", at(captionA, body(0), captionWide)});
    Control& 宛先名称A = onPage(0, {"宛先名称A", xField, "", at(fieldA, body(0), lineWide), 13, true, 60, hiragana});
    Control& 宛先名称B = onPage(0, {"宛先名称B", xField, "", at(fieldA, body(1), lineWide), 14, true, 60, hiragana});
    Control& itm_ttl_宛先名称C =
        onPage(0, {"itm_ttl_宛先名称C", SSPanel, "個人名称", at(captionA, body(2), captionWide)});
    Control& 宛先名称C = onPage(0, {"宛先名称C", xField, "", at(fieldA, body(2), lineWide), 15, true, 60, hiragana});
    Control& itm_ttl_宛先住所 = onPage(0, {"itm_ttl_宛先住所", SSPanel, "住所", at(captionA, body(3), captionWide)});
    Control& 宛先郵便番号 = onPage(0, {"宛先郵便番号", xZip, "", at(fieldA, body(3), numberWide), 16, true, 8});
    Control& 宛先住所A = onPage(0, {"宛先住所A", xField, "", at(fieldA, body(4), lineWide), 17, true, 60, hiragana});
    Control& 宛先住所B = onPage(0, {"宛先住所B", xField, "", at(fieldA, body(5), lineWide), 18, true, 60, hiragana});
    Control& 宛先住所C = onPage(0, {"宛先住所C", xField, "", at(fieldA, body(6), lineWide), 19, true, 60, hiragana});
    Control& itm_ttl_宛先電話 = onPage(0, {"itm_ttl_宛先電話", SSPanel, "ＴＥＬ", at(captionA, body(7), captionWide)});
    Control& 宛先電話 = onPage(0, {"宛先電話", xTel, "", at(fieldA, body(7), phoneWide), 20, true, 20});
    Control& itm_ttl_宛先FAX = onPage(0, {"itm_ttl_宛先FAX", SSPanel, "ＦＡＸ", at(captionB, body(7), captionNarrow)});
    Control& 宛先FAX = onPage(0, {"宛先FAX", xTel, "", at(fieldB, body(7), phoneWide), 21, true, 20});
    Control& itm_ttl_法人個人区分 =
        onPage(0, {"itm_ttl_法人個人区分", SSPanel, "個人・法人", at(captionA, body(8), captionWide)});
    Control& 法人個人区分 = onPage(0, {"法人個人区分", xNum, "", at(fieldA, body(8), dayWide), 22});
    Control& 法人個人区分名称 = onPage(0, {"法人個人区分名称", ComboBox, "", at(1860, body(8), choiceWide), 23});
    Control& itm_ttl_発送区分 =
        onPage(0, {"itm_ttl_発送区分", SSPanel, "発送区分", at(captionB, body(8), captionNarrow)});
    Control& 発送区分 = onPage(0, {"発送区分", xNum, "", at(fieldB, body(8), dayWide), 24});
    Control& 発送区分名称 = onPage(0, {"発送区分名称", ComboBox, "", at(5745, body(8), choiceWide), 25});
    Control& btn_HOMEPAGE = onPage(0, {"btn_HOMEPAGE", SSCommand, "homepage", at(captionA, body(9), captionWide), 66});
    Control& 宛先HOMEPAGE = onPage(0, {"宛先HOMEPAGE", xField, "", at(fieldA, body(9), 7095), 26, true, 127, off});
    Control& btn_EMAIL = onPage(0, {"btn_EMAIL", SSCommand, "e-mail", at(captionA, body(10), captionWide), 65});
    Control& 宛先EMAIL = onPage(0, {"宛先EMAIL", xField, "", at(fieldA, body(10), 7095), 27, true, 127, off});
    Control& btn_得意先登録 =
        onPage(0, {"btn_得意先登録", SSCommand, "得意先登録", at(captionA, body(11), captionWide), 69});
    Control& 得意先コード = onPage(0, {"得意先コード", xField, "", at(fieldA, body(11), numberWide), 28, true, 8, off});
    Control& btn_納品先登録 =
        onPage(0, {"btn_納品先登録", SSCommand, "納品先登録", at(captionB, body(11), captionNarrow), 70});
    Control& 納品先コード = onPage(0, {"納品先コード", xField, "", at(fieldB, body(11), numberWide), 29, true, 8, off});
    Control& btn_仕入先登録 =
        onPage(0, {"btn_仕入先登録", SSCommand, "仕入先登録", at(captionA, body(12), captionWide), 71});
    Control& 仕入先コード = onPage(0, {"仕入先コード", xField, "", at(fieldA, body(12), numberWide), 30, true, 8, off});
    Control& btn_メーカ登録 =
        onPage(0, {"btn_メーカ登録", SSCommand, "メーカ登録", at(captionB, body(12), captionNarrow), 72});
    Control& メーカコード = onPage(0, {"メーカコード", xField, "", at(fieldB, body(12), numberWide), 31, true, 8, off});

    Control& 宛先摘要 = onPage(1, {"宛先摘要", xText, "", {120, 2655, 8385, 4815}, 33, true, 0, hiragana});

    Control& btn_付属書類追加 = onPage(2, {"btn_付属書類追加", SSCommand, "追加", at(120, body(0), 1275), 73});
    Control& btn_付属書類削除 = onPage(2, {"btn_付属書類削除", SSCommand, "削除", at(2790, body(0), 1275), 74});
    Control& btn_フォルダ = onPage(2, {"btn_フォルダ", SSCommand, "フォルダ", at(1455, body(0), 1275), 75});
    Control& List付属書類 = onPage(2, {"List付属書類", ListView, "", {120, 3060, 8385, 4410}, 76});

    Control& btn_登録 = add({"btn_登録", SSCommand, "登録", foot(45), 34});
    Control& btn_画面クリア = add({"btn_画面クリア", SSCommand, "画面ｸﾘｱ", foot(1380), 43});
    Control& btn_削除 = add({"btn_削除", SSCommand, "削除", foot(2715), 35});
    Control& btn_印刷 = add({"btn_印刷", SSCommand, "印刷", foot(4230), 36});
    Control& btn_プレビュ = add({"btn_プレビュ", SSCommand, "プレビュ", foot(5565), 37});
    Control& btn_終了 = add({"btn_終了", SSCommand, "終了", foot(7335), 38});

    Control& お知らせ = add({"お知らせ", SSPanel, "", {45, 8220, 8565, 360}});
    // clang-format on
};

Frm連絡台帳入力& entryForm();                         // once makeEntryForm has run
screen::Control& entryControl(std::string_view name); // raises when the screen has no such control

} // namespace kestrel
