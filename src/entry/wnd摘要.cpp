#include "entry/wnd摘要.hpp"

#include "screen/window.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

using namespace screen;

namespace {

struct Wnd摘要 {
    Window window{"wnd摘要"};
    Control& 摘要 = addControl(window, {.name = "摘要",
                                        .kind = Kind::xText,
                                        .place = {180, 180, 6600, 3300},
                                        .tabIndex = 0,
                                        .inputMode = InputMode::hiragana});
    Control& btn_登録 = addControl(window, {.name = "btn_登録",
                                            .kind = Kind::SSCommand,
                                            .caption = "登録",
                                            .place = {3840, 3660, 1410, 420},
                                            .tabIndex = 1});
    Control& btn_終了 = addControl(window, {.name = "btn_終了",
                                            .kind = Kind::SSCommand,
                                            .caption = "ｷｬﾝｾﾙ",
                                            .place = {5370, 3660, 1410, 420},
                                            .tabIndex = 2});
};

void opened(Window& window) {
    setCaption(window, rosterSession.lookupCondition);
    if (rosterSession.lookupTarget) setText(*findControl(window, "摘要"), rosterSession.lookupTarget->text);
}

void accepted(const Occurrence& occurrence) {
    Window& window = *occurrence.control.window;
    if (rosterSession.lookupTarget) setText(*rosterSession.lookupTarget, findControl(window, "摘要")->text);
    unload(window);
}

void dropped(const Occurrence& occurrence) {
    unload(*occurrence.control.window);
}
void closed(Window& window) {
    unload(window);
}

constexpr Binding bindings[] = {{"btn_登録", Event::click, accepted}, {"btn_終了", Event::click, dropped}};

} // namespace

void showMemoWindow() {
    Wnd摘要 memo;
    memo.window.bindings = bindings;
    memo.window.load = opened;
    memo.window.closeRequest = closed;
    memo.window.cancelButton = &memo.btn_終了;
    setSize(memo.window, 6960, 4260);
    setCaption(memo.window, "摘要");
    showModal(memo.window);
}

} // namespace kestrel
