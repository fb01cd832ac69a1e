// The staff list. The field 名称 searches the column 氏名.
#include "lists/listWindows.hpp"
#include "lists/modNames.hpp"

namespace kestrel {

namespace {

using enum screen::Kind;
using enum screen::InputMode;

// clang-format off: one line a control
constexpr ListControl controls[] = {
    {0, "名称", xField, "", 1320, 480, 2595, 30, hiragana},
    {1, "btn_名称検索", SSCommand, "名称検索", 120, 480, 1155},
    {2, "カナ", xField, "", 5580, 480, 1575, 20, halfKatakana},
    {3, "btn_カナ検索", SSCommand, "カナ検索", 4440, 480, 1095},
    {4, "部門コード", xField, "", 1320, 840, 495, 3, off},
    {5, "部門名", xField, "", 1860, 840, 2535, 20, hiragana},
    {6, "セクションコード", xField, "", 5580, 840, 495, 3, off},
    {7, "セクション名", xField, "", 6120, 840, 2535, 20, hiragana},
    {8, "コード", xField, "", 1320, 1200, 735, 5, off},
    {9, "btn_コード検索", SSCommand, "コード検索", 120, 1200, 1155},
    {10, "在籍区分", xNum, "", 3720, 1200, 255},
    {11, "在籍区分名称", ComboBox, "", 3990, 1200, 945},
    {12, "社員区分", xNum, "", 6060, 1200, 255},
    {13, "社員区分名称", ComboBox, "", 6330, 1200, 1545},
    {14, "btn_複合検索", SSCommand, "検索", 9540, 1200, 975},
    {15, "List担当者", ListView, "", 120, 1560, 10455},
    {16, "btn_戻る", SSCommand, "戻る", 9600, 7260, 975},
    {17, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 9540, 480, 975},
    {18, "btn_部門コード検索", SSCommand, "部門検索", 120, 840, 1155},
    {19, "btn_セクションコード検索", SSCommand, "部署検索", 4440, 840, 1095},
    {20, "wnd_ttl", SSPanel, "担当者一覧", 0, 0, 10695},
    {21, "lab_コード", xLabel, "以降", 2100, 1260, 555},
    {22, "lab_注意", xLabel, "一回の検索で1000件までを表示します。", 180, 7260, 4095},
    {23, "itm_ttl_在籍区分", SSPanel, "在籍区分", 2640, 1200, 1035},
    {24, "itm_ttl_社員区分", SSPanel, "社員区分", 4980, 1200, 1035},
    {25, "btn_否定検索", SSCommand, "否検索", 8400, 1200, 1035},
};
// clang-format on

constexpr ListWindowColumn columns[] = {
    {"コード", 750, "コード"},
    {"氏名", 2500, "氏名"},
    {"事業所", 2300, "事業所名"},
    {"部門", 2300, "部門名"},
    {"セクション", 2300, "セクション名"},
};
constexpr std::string_view keyColumns[] = {"コード"};

constexpr ListField fields[] = {
    {"コード", Leaving::code, "00000"},
    {"カナ", Leaving::text},
    {"名称", Leaving::text},
    {"部門コード", Leaving::code, "000", "部門名", departmentName},
    {"部門名", Leaving::passedOn},
    {"セクションコード", Leaving::code, "000", "セクション名", sectionName},
    {"セクション名", Leaving::passedOn},
};

constexpr StatusPair statuses[] = {
    {"在籍区分", "在籍区分名称", "K在籍区分", 0},
    {"社員区分", "社員区分名称", "K社員区分", everything},
};

constexpr ConditionValue conditions[] = {
    {"M担当者.コード", "M担当者.コード", "コード"},
    {"M担当者.部門コード", "M担当者.部門コード", "部門コード"},
    {"M担当者.セクションコード", "M担当者.セクションコード", "セクションコード"},
};

constexpr ListSelect selects[] = {
    {"AS", "SELECT TOP 1000"
           " M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,"
           "Mセクション.名称 AS セクション名"
           " FROM Mセクション RIGHT JOIN (M部門 RIGHT JOIN (M事業所 RIGHT JOIN M担当者"
           " ON M事業所.コード = M担当者.事業所コード) ON M部門.コード = M担当者.部門コード)"
           " ON Mセクション.コード = M担当者.セクションコード"},
    {"O",
     "SELECT TOP 1000"
     " M担当者.コード,M担当者.氏名,M事業所.名称 AS 事業所名,M部門.名称 AS 部門名,"
     "Mセクション.名称 AS セクション名"
     " FROM Mセクション,M部門,M事業所,M担当者"
     " WHERE M事業所.コード(+) = M担当者.事業所コード AND M部門.コード(+) = M担当者.部門コード"
     " AND Mセクション.コード(+) = M担当者.セクションコード",
     true},
};

// An operating office that isn't the head office sees the staff of the office on the screen and of the whole company.
constexpr Clause fixed[] = {
    {ClauseKind::callerIfAny, "", "({})"},
    {ClauseKind::staffOffice, "", "(M担当者.事業所コード = '{}' OR M担当者.事業所コード = '000')"},
};
constexpr Clause searched[] = {
    {ClauseKind::code, "コード", "M担当者.コード >= '{}'", "M担当者.コード < '{}'"},
    {ClauseKind::word, "名称", "M担当者.氏名 LIKE '%{}%'", "M担当者.氏名 NOT LIKE '%{}%'"},
    {ClauseKind::word, "カナ", "M担当者.カナ LIKE '%{}%'", "M担当者.カナ NOT LIKE '%{}%'"},
    {ClauseKind::code, "部門コード", "M担当者.部門コード = '{}'", "M担当者.部門コード <> '{}'"},
    {ClauseKind::code, "セクションコード", "M担当者.セクションコード = '{}'", "M担当者.セクションコード <> '{}'"},
};
constexpr Clause standing[] = {
    {ClauseKind::status, "在籍区分", "M担当者.在籍区分 = '{}'", "M担当者.在籍区分 <> '{}'"},
    {ClauseKind::status, "社員区分", "M担当者.社員区分 = '{}'", "M担当者.社員区分 <> '{}'"},
};

constexpr SearchMode modes[] = {
    {"btn_コード検索", 1, "コード", "M担当者.コード"},
    {"btn_カナ検索", 2, "カナ", "M担当者.カナ"},
    {"btn_名称検索", 3, "名称", "M担当者.氏名"},
    {"btn_部門コード検索", 4, "部門コード", "M担当者.コード"},
    {"btn_セクションコード検索", 5, "セクションコード", "M担当者.コード"},
    {"btn_複合検索", compoundSearch, "", "M担当者.コード"},
    {"btn_否定検索", negationSearch, "", "M担当者.コード"},
};

constexpr NestedList nested[] = {
    {"部門コード", "", &wnd部門一覧, "btn_部門コード検索"},
    {"セクションコード", "", &wndセクション一覧, "btn_セクションコード検索"},
};

constexpr std::string_view arming[] = {"名称", "カナ", "在籍区分", "在籍区分名称", "社員区分", "社員区分名称"};

} // namespace

constinit const ListSpec wnd担当者一覧 = {
    .name = "wnd担当者一覧",
    .list = "List担当者",
    .controls = controls,
    .columns = columns,
    .keyColumns = keyColumns,
    .fields = fields,
    .statuses = statuses,
    .conditions = conditions,
    .selects = selects,
    .fixed = fixed,
    .searched = searched,
    .standing = standing,
    .modes = modes,
    .nested = nested,
    .arming = arming,
    .rowLimit = 1000,
    .registrationWord = "担当者登録",
};

} // namespace kestrel
