#include "lists/listWindows.hpp"

#include "lists/listFrame.hpp"

#include <algorithm>

namespace kestrel {

static constexpr const ListSpec* windows[] = {
    &wnd得意先一覧, &wnd納品先一覧,     &wnd仕入先一覧,   &wndメーカ一覧, &wnd担当者一覧,
    &wnd名簿No一覧, &wnd名簿宛先No一覧, &wnd郵便番号一覧, &wnd部門一覧,   &wndセクション一覧,
};

const ListSpec* findListSpec(std::string_view window) {
    const auto found = std::find_if(std::begin(windows), std::end(windows),
                                    [window](const ListSpec* spec) { return worded(*spec, spec->name) == window; });
    return found == std::end(windows) ? nullptr : *found;
}

} // namespace kestrel
