// The addressees of one roster. The caller's condition is the roster's key: it stays through every search and clear,
// and without it the statement fails.
#include "lists/listWindows.hpp"

namespace kestrel {

namespace {

using enum screen::Kind;
using enum screen::InputMode;

// clang-format off: one line a control
constexpr ListControl controls[] = {
    {0, "宛先名称", xField, "", 1800, 480, 5115, 60, off},
    {1, "btn_宛先名称検索", SSCommand, "宛先名称検索", 120, 480, 1635},
    {2, "宛先住所", xField, "", 1800, 840, 5115, 60, off},
    {3, "btn_宛先住所検索", SSCommand, "宛先住所検索", 120, 840, 1635},
    {4, "btn_複合検索", SSCommand, "検索", 8220, 840, 1035},
    {5, "List名簿宛先No", ListView, "", 120, 1200, 9135},
    {6, "btn_戻る", SSCommand, "戻る", 8280, 6720, 975},
    {7, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 8220, 480, 1035},
    {8, "wnd_ttl", SSPanel, "名簿宛先No一覧", 0, 0, 9375},
    {9, "lab_注意", xLabel, "一回の検索で1000件までを表示します。", 120, 6720, 4095},
    {10, "btn_否定検索", SSCommand, "否検索", 7080, 840, 1035},
};
// clang-format on

constexpr ListWindowColumn columns[] = {
    {"宛先No", 1150, "名簿宛先No"},
    {"宛先名称", 3000, "宛先名称A"},
    {"宛先住所", 4600, "宛先住所A"},
};
constexpr std::string_view keyColumns[] = {"名簿宛先No"};

constexpr ListField fields[] = {{"宛先名称", Leaving::text}, {"宛先住所", Leaving::text}};

constexpr ListSelect selects[] = {{"ASO", "SELECT TOP 1000 T名簿明細.* FROM T名簿明細"}};

constexpr Clause fixed[] = {{ClauseKind::callerAlways, "", "({})"}};
// An address is found by its end: nothing stands behind the value.
constexpr Clause searched[] = {
    {ClauseKind::wordAsHeld, "宛先名称", "T名簿明細.宛先名称 LIKE  '%{}%'", "T名簿明細.宛先名称 NOT LIKE  '%{}%'"},
    {ClauseKind::wordAsHeld, "宛先住所", "T名簿明細.宛先住所 LIKE '%{}'", "T名簿明細.宛先住所 NOT LIKE '%{}'"},
};

// The negation has its text, kept beside the others; its button repeats the last search.
constexpr SearchMode modes[] = {
    {"btn_宛先名称検索", 1, "宛先名称", "T名簿明細.宛先名称"},
    {"btn_宛先住所検索", 2, "宛先住所", "T名簿明細.宛先住所"},
    {"btn_複合検索", compoundSearch, "", "T名簿明細.名簿宛先No"},
    {.button = "btn_否定検索", .number = negationSearch, .field = "", .order = "T名簿明細.名簿宛先No", .built = false},
};

} // namespace

constinit const ListSpec wnd名簿宛先No一覧 = {
    .name = "wnd名簿宛先No一覧",
    .list = "List名簿宛先No",
    .controls = controls,
    .columns = columns,
    .keyColumns = keyColumns,
    .fields = fields,
    .selects = selects,
    .fixed = fixed,
    .searched = searched,
    .modes = modes,
    .rowLimit = 1000,
    .unloads = true,
    .returnsKey = true,
    .clear = {.forgetsCondition = false},
};

} // namespace kestrel
