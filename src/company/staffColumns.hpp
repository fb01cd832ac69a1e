// The rights of a staff member by the names of their columns, in the order of the session's arrays. M担当者 has both
// kinds, 担当者別操作許可プログラム the second.
#pragma once

#include "platform/database/record_set.hpp"
#include "session/sessionValues.hpp"

#include <array>
#include <string_view>

namespace kestrel {

inline constexpr std::array<std::string_view, 10> classRightColumns = {
    "処理分類0操作許可", "処理分類1操作許可", "処理分類2操作許可", "処理分類3操作許可", "処理分類4操作許可",
    "処理分類5操作許可", "処理分類6操作許可", "処理分類7操作許可", "処理分類8操作許可", "処理分類9操作許可"};

inline constexpr std::array<std::string_view, 8> operationRightColumns = {
    "操作許可", "入力許可", "修正許可", "削除許可", "印刷許可", "プレビュ許可", "テキスト出力許可", "イメージ出力許可"};

} // namespace kestrel
