// The ten list windows. Each is told in the file of its name.
#pragma once

#include "lists/listSpec.hpp"

namespace kestrel {

extern const ListSpec wnd得意先一覧, wnd納品先一覧, wnd仕入先一覧, wndメーカ一覧;
extern const ListSpec wnd担当者一覧;
extern const ListSpec wnd名簿No一覧, wnd名簿宛先No一覧;
extern const ListSpec wnd郵便番号一覧;
extern const ListSpec wnd部門一覧, wndセクション一覧;

const ListSpec* findListSpec(std::string_view window); // by the window's name; null when there is none

} // namespace kestrel
