#include "lists/listWindows.hpp"
#include "lists/partnerList.hpp"

namespace kestrel {

static constexpr auto controls = [] {
    auto changed = partner::controls;
    partner::moveCode(changed);
    return changed;
}();

constinit const ListSpec wndメーカ一覧 = partnerList(
    {.word = "メーカ", .controls = controls, .conditions = partner::codeAlone, .checksButtonsOnLeaving = true});

} // namespace kestrel
