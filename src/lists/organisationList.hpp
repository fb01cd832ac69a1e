// The windows of the short masters are one design: a status and two columns. Their texts are written for the
// departments.
#pragma once

#include "lists/listSpec.hpp"

namespace kestrel {

namespace organisation {

using enum screen::Kind;

// clang-format off: one line a control
inline constexpr ListControl controls[] = {
    {0, "稼動状況区分", xNum, "", 1200, 480, 255},
    {1, "稼動状況区分名称", ComboBox, "", 1500, 480, 1380},
    {2, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 2940, 480, 975},
    {3, "List部門", ListView, "", 120, 840, 3795},
    {4, "btn_戻る", SSCommand, "戻る", 2940, 4620, 975},
    {5, "wnd_ttl", SSPanel, "部門一覧", 0, 0, 4035},
    {6, "itm_ttl_稼動状況区分", SSPanel, "稼動状況", 120, 480, 1035},
};
// clang-format on

inline constexpr ListWindowColumn columns[] = {{"コード", 750, "コード"}, {"名称", 2500, "名称"}};
inline constexpr std::string_view keyColumns[] = {"コード"};
inline constexpr StatusPair statuses[] = {{"稼動状況区分", "稼動状況区分名称", "K稼動状況区分", 1}};
inline constexpr ConditionValue conditions[] = {{"M部門.稼動状況区分", "M部門.稼動状況区分", "稼動状況区分"}};
inline constexpr ListSelect selects[] = {{"", "SELECT コード,名称 FROM M部門"}};
inline constexpr Clause standing[] = {{ClauseKind::status, "稼動状況区分", "M部門.稼動状況区分 = '{}'"}};
inline constexpr SearchMode modes[] = {{"", compoundSearch, "", "M部門.コード"}};
inline constexpr std::string_view arming[] = {"稼動状況区分", "稼動状況区分名称"};

} // namespace organisation

// The caption of btn_画面クリア says that it clears; it searches with the status as it stands.
constexpr ListSpec organisationList(std::string_view word) {
    using namespace organisation;
    return {.name = "wnd部門一覧",
            .list = "List部門",
            .word = {"部門", word},
            .controls = controls,
            .columns = columns,
            .keyColumns = keyColumns,
            .fields = {},
            .statuses = statuses,
            .conditions = conditions,
            .selects = selects,
            .standing = standing,
            .modes = modes,
            .arming = arming,
            .registrationWord = "部門登録",
            .clear = {.forgetsCondition = false, .forgetsSearch = false, .emptiesFields = false}};
}

} // namespace kestrel
