// A caller that looks for the destinations of one customer or supplier gets those with such a code first.
#include "lists/listWindows.hpp"
#include "lists/partnerList.hpp"
#include "session/rosterSession.hpp"
#include "text/characters.hpp"

namespace kestrel {

namespace {

constexpr auto controls = [] {
    auto changed = partner::controls;
    partner::moveCode(changed);
    partner::setTabOrder(changed, {"担当者コード", "担当者名", "コード", "btn_コード検索"});
    partner::named(changed, "住所").maxLength = 30;
    partner::named(changed, "btn_否定検索").caption = "否検索";
    return changed;
}();

std::string orderLead() {
    for (const char* column : {"得意先コード", "仕入先コード"})
        if (text::contains(rosterSession.lookupCondition, column)) return std::string("M納品先.") + column + " DESC,";
    return "";
}

} // namespace

constinit const ListSpec wnd納品先一覧 = partnerList({.word = "納品先",
                                                      .controls = controls,
                                                      .conditions = partner::codeAlone,
                                                      .takeMore = partner::limitToStaffOfForm,
                                                      .orderLead = orderLead});

} // namespace kestrel
