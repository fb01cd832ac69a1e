// The lists of the four kinds of partner are one design: one text with a word changed. It is written for the customers;
// each window's own file tells what is different there.
#pragma once

#include "lists/listSpec.hpp"
#include "lists/modNames.hpp"

#include <array>

namespace kestrel {

namespace partner {

using enum screen::Kind;
using enum screen::InputMode;

// clang-format off: one line a control
inline constexpr std::array controls = std::to_array<ListControl>({
    {0, "名称", xField, "", 1260, 480, 3735, 30, hiragana},
    {1, "btn_名称検索", SSCommand, "名称検索", 120, 480, 1095},
    {2, "住所", xField, "", 1260, 840, 3735, 40, hiragana},
    {3, "btn_住所検索", SSCommand, "住所検索", 120, 840, 1095},
    {4, "カナ", xField, "", 1260, 1200, 1575, 20, halfKatakana},
    {5, "btn_カナ検索", SSCommand, "カナ検索", 120, 1200, 1095},
    {6, "電話", xField, "", 6720, 480, 2475, 16, disabled},
    {7, "btn_電話番号検索", SSCommand, "電話番号検索", 5100, 480, 1575},
    {8, "郵便番号", xZip, "", 6720, 840, 1215, 8},
    {9, "btn_郵便番号検索", SSCommand, "郵便番号検索", 5100, 840, 1575},
    {10, "コード", xField, "", 6720, 1200, 1215, 8, off},
    {11, "btn_コード検索", SSCommand, "コード検索", 5100, 1200, 1575},
    {12, "取引状況区分", xNum, "", 9600, 1200, 255},
    {13, "取引状況区分名称", ComboBox, "", 9900, 1200, 1740},
    {14, "btn_複合検索", SSCommand, "検索", 12840, 1200, 1035},
    {15, "List得意先", ListView, "", 120, 1560, 13755},
    {16, "btn_戻る", SSCommand, "戻る", 13020, 7500, 855},
    {17, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 12840, 480, 1035},
    {18, "wnd_ttl", SSPanel, "得意先一覧", 0, 0, 13995},
    {19, "lab_注意", xLabel, "一回の検索で1000件までを表示します。", 120, 7500, 4035},
    {20, "lab_コード", xLabel, "以降", 7980, 1260, 555},
    {21, "itm_ttl_取引状況区分", SSPanel, "取引状況", 8580, 1200, 975},
    {22, "担当者名", xField, "", 10380, 840, 2535, 20, on},
    {23, "担当者コード", xField, "", 9600, 840, 735, 5, off},
    {24, "btn_否定検索", SSCommand, "否定検索", 11700, 1200, 1035},
    {25, "btn_担当者コード", SSCommand, "担当者", 8580, 840, 975},
});
// clang-format on

using Controls = std::remove_const_t<decltype(controls)>;

constexpr ListControl& named(Controls& table, std::string_view name) {
    for (ListControl& control : table)
        if (control.name == name) return control;
    throw "no such control"; // never at run time: all tables are made by the compiler
}

// The code and its button stand a little further right than the customers'.
constexpr void moveCode(Controls& table) {
    named(table, "コード").left = 6780;
    named(table, "btn_コード検索").left = 5160;
}

// Four places in the tab order for staff and code, in the order given; what followed them moves back by two.
constexpr void setTabOrder(Controls& table, std::array<std::string_view, 4> names) {
    constexpr int first = 10, moved = 12, last = 21;
    for (ListControl& control : table)
        if (control.tabIndex >= moved && control.tabIndex <= last) control.tabIndex += 2;
    for (std::size_t i = 0; i < names.size(); ++i) named(table, names[i]).tabIndex = first + static_cast<int>(i);
}

inline constexpr ListWindowColumn columns[] = {
    {"コード", 1100, "コード"}, {"略称", 2550, "略称"},       {"担当者", 1600, "担当者名"}, {"電話", 1850, "電話"},
    {"カナ", 1150, "カナ"},     {"郵便No", 1150, "郵便番号"}, {"住所A", 2000, "住所A"},     {"住所B", 2000, "住所B"},
};
inline constexpr std::string_view keyColumns[] = {"コード"};

inline constexpr ListField fields[] = {
    {"コード", Leaving::code, "000000"},
    {"カナ", Leaving::text},
    {"名称", Leaving::text},
    {"住所", Leaving::text},
    {"電話", Leaving::telephone},
    {"郵便番号", Leaving::postalCode},
    {"担当者コード", Leaving::code, "00000", "担当者名", staffNameIfAny},
    {"担当者名", Leaving::passedOn},
};

inline constexpr StatusPair statuses[] = {{"取引状況区分", "取引状況区分名称", "K取引状況区分", 1}};

// A window takes the first one or both.
inline constexpr ConditionValue conditions[] = {
    {"M得意先.コード", "M得意先.コード", "コード"},
    {"M得意先.取引状況区分", "M得意先.取引状況区分 =", "取引状況区分"},
};

// A partner whose staff isn't there is not listed.
inline constexpr ListSelect selects[] = {
    {"AS", "SELECT TOP 1000"
           " M得意先.コード, M得意先.略称, M得意先.カナ, M得意先.電話, M得意先.郵便番号, M得意先.住所A, M得意先.住所B,"
           " M担当者.氏名 AS 担当者名"
           " FROM M担当者 INNER JOIN M得意先 ON M得意先.担当者コード = M担当者.コード"},
    {"O",
     "SELECT TOP 1000"
     " M得意先.コード, M得意先.略称, M得意先.カナ, M得意先.電話, M得意先.郵便番号, M得意先.住所A, M得意先.住所B,"
     " M担当者.氏名 AS 担当者名"
     " FROM M担当者, M得意先 WHERE M得意先.担当者コード = M担当者.コード",
     true},
};

// A partner belongs to the office of its staff.
inline constexpr Clause fixed[] = {
    {ClauseKind::callerIfAny, "", "({})"},
    {ClauseKind::office, "", "M担当者.事業所コード = '{}'"},
};

inline constexpr Clause searched[] = {
    {ClauseKind::code, "コード", "M得意先.コード >= '{}'", "M得意先.コード < '{}'"},
    {ClauseKind::word, "名称", "(M得意先.名称A LIKE '%{}%' OR M得意先.名称B LIKE '%{}%' OR M得意先.略称 LIKE '%{}%')",
     "(M得意先.名称A NOT LIKE '%{}%' AND M得意先.名称B NOT LIKE '%{}%' AND M得意先.略称 NOT LIKE '%{}%')"},
    {ClauseKind::word, "カナ", "M得意先.カナ LIKE '%{}%'", "M得意先.カナ NOT LIKE '%{}%'"},
    {ClauseKind::word, "住所", "(M得意先.住所A LIKE '%{}%' OR M得意先.住所B LIKE '%{}%' OR M得意先.住所C LIKE '%{}%')",
     "(M得意先.住所A NOT LIKE '%{}%' AND M得意先.住所B NOT LIKE '%{}%' AND M得意先.住所C NOT LIKE '%{}%')"},
    {ClauseKind::word, "郵便番号", "M得意先.郵便番号 LIKE '%{}%'", "M得意先.郵便番号 NOT LIKE '%{}%'"},
    {ClauseKind::digits, "電話",
     "(M得意先.電話番号 LIKE '%{}%' OR EXISTS (SELECT * FROM M得意先御担当者"
     " WHERE 得意先コード = M得意先.コード AND 電話番号 LIKE '%{}%'))",
     "(M得意先.電話番号 NOT LIKE '%{}%' AND NOT EXISTS (SELECT * FROM M得意先御担当者"
     " WHERE 得意先コード = M得意先.コード AND 電話番号 LIKE '%{}%'))"},
};

// The staff doesn't count as a clause that stands in front: with nothing else before it the status begins with WHERE
// once more, the statement fails and the list stays empty. Wanted so; the operator frees the status or the staff first.
inline constexpr Clause standing[] = {
    {.kind = ClauseKind::filled,
     .field = "担当者コード",
     .text = "M得意先.担当者コード = '{}'",
     .negated = "M得意先.担当者コード <> '{}'",
     .countsAsWhere = false},
    {ClauseKind::status, "取引状況区分", "M得意先.取引状況区分 = '{}'", "M得意先.取引状況区分 <> '{}'",
     "M得意先.取引状況区分 >= '{}'"},
};

inline constexpr SearchMode modes[] = {
    {"btn_コード検索", 1, "コード", "M得意先.コード"},
    {"btn_カナ検索", 2, "カナ", "M得意先.カナ"},
    {"btn_名称検索", 3, "名称", "M得意先.名称A"},
    {"btn_電話番号検索", 4, "電話", "M得意先.電話"},
    {"btn_郵便番号検索", 5, "郵便番号", "M得意先.郵便番号"},
    {"btn_住所検索", 6, "住所", "M得意先.住所A"},
    {"btn_複合検索", compoundSearch, "", "M得意先.コード"},
    {"btn_否定検索", negationSearch, "", "M得意先.コード"},
};

extern const NestedList nested[1];

// The list begins with the partners of the staff on the entry form; of the signed-in member where the form has none.
void limitToStaffOfForm(ListWindow& list);

inline constexpr std::span codeAlone = std::span(conditions).first<1>();
inline constexpr std::span codeAndStatus = std::span(conditions);

struct Differences {
    std::string_view word;
    std::span<const ListControl> controls;
    std::span<const ConditionValue> conditions;
    void (*takeMore)(ListWindow&) = nullptr;
    bool checksButtonsOnLeaving = false;
    std::string (*orderLead)() = nullptr;
};

} // namespace partner

constexpr ListSpec partnerList(const partner::Differences& window) {
    using namespace partner;
    return {.name = "wnd得意先一覧",
            .list = "List得意先",
            .word = {"得意先", window.word},
            .controls = window.controls,
            .columns = columns,
            .keyColumns = keyColumns,
            .fields = fields,
            .statuses = statuses,
            .conditions = window.conditions,
            .selects = selects,
            .fixed = fixed,
            .searched = searched,
            .standing = standing,
            .modes = modes,
            .nested = nested,
            .rowLimit = 1000,
            .registrationWord = "得意先登録",
            .checksButtonsOnLeaving = window.checksButtonsOnLeaving,
            .takeMore = window.takeMore,
            .orderLead = window.orderLead};
}

} // namespace kestrel
