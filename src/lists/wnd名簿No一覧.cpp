// The rosters of this office. The two labels 以降 say that date and number are lower bounds.
#include "lists/listWindows.hpp"
#include "lists/modNames.hpp"

namespace kestrel {

namespace {

using enum screen::Kind;
using enum screen::InputMode;

// clang-format off: one line a control
constexpr ListControl controls[] = {
    {0, "名簿日付", xField, "", 1740, 480, 1095, 8, off},
    {1, "btn_名簿日付検索", SSCommand, "日付検索", 120, 480, 1575},
    {2, "名簿No", xField, "", 4920, 480, 1095, 8, off},
    {3, "btn_名簿No検索", SSCommand, "名簿No検索", 3420, 480, 1455},
    {4, "名簿名", xField, "", 1740, 840, 3735, 30, hiragana},
    {5, "btn_名簿名検索", SSCommand, "名簿名検索", 120, 840, 1575},
    {6, "氏名", xField, "", 1740, 1200, 2535, 30, hiragana},
    {7, "btn_担当者名検索", SSCommand, "担当者名検索", 120, 1200, 1575},
    {8, "担当者コード", xField, "", 5700, 1200, 855, 8, off},
    {9, "担当者名", xField, "", 6600, 1200, 2535, 20, hiragana},
    {10, "btn_複合検索", SSCommand, "検索", 9960, 1200, 1035},
    {11, "List名簿No", ListView, "", 120, 1560, 10875},
    {12, "btn_戻る", SSCommand, "戻る", 10020, 6780, 975},
    {13, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 9960, 480, 1035},
    {14, "btn_担当者コード検索", SSCommand, "担当者検索", 4320, 1200, 1335},
    {15, "wnd_ttl", SSPanel, "名簿No一覧", 0, 0, 11115},
    {16, "lab_注意", xLabel, "一回の検索で1000件までを表示します。", 120, 6780, 4095},
    {17, "lab_見積No", xLabel, "以降", 6060, 540, 555},
    {18, "lab_名簿日付", xLabel, "以降", 2880, 540, 555},
    {19, "btn_否定検索", SSCommand, "否検索", 9960, 840, 1035},
};
// clang-format on

constexpr ListWindowColumn columns[] = {
    {"名簿No", 1150, "名簿No"},     {"名簿日付", 1150, "名簿日付"},
    {"名簿名称", 3600, "名簿名称"}, {"担当者コード", 1450, "担当者コード"},
    {"担当者名", 2000, "担当者名"}, {"発送日付", 1150, "発送日付"},
};
constexpr std::string_view keyColumns[] = {"事業所コード", "番号基準日付", "名簿No"};

constexpr ListField fields[] = {
    {"名簿日付", Leaving::text},
    {"名簿No", Leaving::code, "00000000"},
    {"名簿名", Leaving::text},
    {"氏名", Leaving::text},
    {"担当者コード", Leaving::code, "00000", "担当者名", staffName},
    {"担当者名", Leaving::passedOn},
};

constexpr ConditionValue conditions[] = {
    {"T名簿.名簿日付", "T名簿.名簿日付", "名簿日付"},
    {"T名簿.名簿No", "T名簿.名簿No", "名簿No"},
    {"T名簿.担当者コード", "T名簿.担当者コード", "担当者コード"},
};

// Kind O has no mark for the outer join here: a roster without staff isn't listed there.
constexpr ListSelect selects[] = {
    {"AS", "SELECT TOP 1000 T名簿.事業所コード,T名簿.番号基準日付,T名簿.名簿No,T名簿.名簿日付,T名簿.名簿名称,"
           "T名簿.担当者コード,T名簿.発送日付, M担当者.氏名 AS 担当者名"
           " FROM M担当者 RIGHT JOIN T名簿 ON M担当者.コード = T名簿.担当者コード"},
    {"O",
     "SELECT TOP 1000 T名簿.事業所コード,T名簿.番号基準日付,T名簿.名簿No,T名簿.名簿日付,T名簿.名簿名称,"
     "T名簿.担当者コード,T名簿.発送日付, M担当者.氏名 AS 担当者名"
     " FROM M担当者,T名簿 WHERE M担当者.コード = T名簿.担当者コード",
     true},
};

constexpr Clause fixed[] = {
    {ClauseKind::office, "", "T名簿.事業所コード = '{}'"},
    {ClauseKind::callerIfAny, "", "({})"},
};
// The staff's name begins with WHERE wherever it stands, so that behind another clause the statement fails and the list
// stays empty. Wanted so; it finds something once the conditions are cleared.
constexpr Clause searched[] = {
    {ClauseKind::code, "名簿日付", "T名簿.名簿日付 >= '{}'", "T名簿.名簿日付 < '{}'"},
    {ClauseKind::code, "名簿No", "T名簿.名簿No >= '{}'", "T名簿.名簿No < '{}'"},
    {ClauseKind::word, "名簿名", "T名簿.名簿名称 LIKE  '%{}%'", "T名簿.名簿名称 NOT LIKE  '%{}%'"},
    {.kind = ClauseKind::word,
     .field = "氏名",
     .text = "M担当者.氏名 LIKE  '%{}%'",
     .negated = "M担当者.氏名 NOT LIKE  '%{}%'",
     .connective = Connective::where},
    {ClauseKind::code, "担当者コード", "T名簿.担当者コード = '{}'", "T名簿.担当者コード <> '{}'"},
};

constexpr std::string_view latestFirst = "T名簿.名簿日付 DESC, T名簿.名簿No DESC";
constexpr SearchMode modes[] = {
    {"btn_名簿日付検索", 1, "名簿日付", "T名簿.名簿日付, T名簿.名簿No"},
    {"btn_名簿No検索", 2, "名簿No", "T名簿.名簿No, T名簿.名簿日付 DESC"},
    {"btn_名簿名検索", 3, "名簿名", latestFirst},
    {"btn_担当者名検索", 4, "氏名", latestFirst},
    {"btn_担当者コード検索", 5, "担当者コード", latestFirst},
    {"btn_複合検索", compoundSearch, "", latestFirst},
    {"btn_否定検索", negationSearch, "", latestFirst},
};

constexpr NestedList nested[] = {{"担当者コード", "", &wnd担当者一覧, "btn_担当者コード検索"}};
constexpr std::string_view arming[] = {"名簿日付", "名簿No", "名簿名", "氏名"};

} // namespace

constinit const ListSpec wnd名簿No一覧 = {
    .name = "wnd名簿No一覧",
    .list = "List名簿No",
    .controls = controls,
    .columns = columns,
    .keyColumns = keyColumns,
    .fields = fields,
    .conditions = conditions,
    .selects = selects,
    .fixed = fixed,
    .searched = searched,
    .modes = modes,
    .nested = nested,
    .arming = arming,
    .rowLimit = 1000,
    .unloads = true,
    .returnsKey = true,
};

} // namespace kestrel
