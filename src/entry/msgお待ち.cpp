#include "entry/msgお待ち.hpp"

#include "screen/frontend.hpp"
#include "screen/window.hpp"

namespace kestrel {

using namespace screen;

struct Msgお待ち {
    Window window{"msgお待ち"};
    Control& ttl = addControl(
        window, {.name = "ttl", .kind = Kind::SSPanel, .caption = "Kestrel Book", .place = {90, 90, 4320, 420}});
    Control& lab_msg = addControl(window, {.name = "lab_msg",
                                           .kind = Kind::xLabel,
                                           .caption = "しばらくお待ちください。",
                                           .place = {240, 690, 4020, 330}});
};

WaitDialog::WaitDialog() : dialog(std::make_unique<Msgお待ち>()) {
    setSize(dialog->window, 4500, 1260);
    show(dialog->window);
    frontend::repaint();
}

WaitDialog::~WaitDialog() {
    unload(dialog->window);
}

} // namespace kestrel
