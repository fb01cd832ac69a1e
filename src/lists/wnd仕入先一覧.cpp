#include "lists/listWindows.hpp"
#include "lists/partnerList.hpp"

namespace kestrel {

static constexpr auto controls = [] {
    auto changed = partner::controls;
    partner::moveCode(changed);
    partner::setTabOrder(changed, {"コード", "btn_コード検索", "担当者コード", "担当者名"});
    return changed;
}();

constinit const ListSpec wnd仕入先一覧 =
    partnerList({.word = "仕入先", .controls = controls, .conditions = partner::codeAndStatus});

} // namespace kestrel
