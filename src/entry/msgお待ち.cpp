#include "entry/msgお待ち.hpp"

#include "screen/frontend.hpp"
#include "screen/window.hpp"

#include <memory>

namespace kestrel {

using namespace screen;

namespace {

struct Msgお待ち {
    Window window{"msgお待ち"};
    Control& ttl = addControl(
        window, {.name = "ttl", .kind = Kind::SSPanel, .caption = "Kestrel Book", .place = {0, 0, 4500, 420}});
    Control& lab_msg = addControl(window, {.name = "lab_msg",
                                           .kind = Kind::xLabel,
                                           .caption = "しばらくお待ちください。",
                                           .place = {360, 660, 3780, 330}});
};

std::unique_ptr<Msgお待ち> dialog;

} // namespace

void showWaitDialog() {
    if (!dialog) dialog = std::make_unique<Msgお待ち>();
    setSize(dialog->window, 4500, 1230);
    show(dialog->window);
    frontend::repaint();
}

void closeWaitDialog() {
    if (dialog) unload(dialog->window);
}

} // namespace kestrel
