// A window with every kind of control, laid out like a form of the suite, for tests of the visible front end.
#pragma once

#include "screen/window.hpp"

#include <memory>
#include <string>
#include <vector>

namespace kestrel::demo {

// What the handlers saw, in order: "lost 名称", "got 区分", "change 名称=あ", "click btn_登録"…
extern std::vector<std::string> happened;

std::unique_ptr<screen::Window> makeForm();
std::unique_ptr<screen::Window> makeList(int rows);
screen::Control& in(screen::Window& window, std::string_view name);

} // namespace kestrel::demo
