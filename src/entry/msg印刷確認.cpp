#include "entry/msg印刷確認.hpp"

#include "screen/window.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

using namespace screen;

namespace {

struct Msg印刷確認 {
    Window window{"msg印刷確認"};
    Control& label(std::string_view name, Place place) {
        return addControl(window, {.name = name, .kind = Kind::xLabel, .place = place});
    }
    Control& button(std::string_view name, std::string_view caption, Place place, int tabIndex) {
        return addControl(
            window, {.name = name, .kind = Kind::SSCommand, .caption = caption, .place = place, .tabIndex = tabIndex});
    }
    Control& lab_inpmsg = label("lab_inpmsg", {360, 660, 4920, 300});
    Control& lab_msg = label("lab_msg", {360, 300, 4920, 330});
    Control& btn_登録 = button("btn_登録", "登録のみ", {360, 1140, 1560, 420}, 0);
    Control& btn_いいえ = button("btn_いいえ", "いいえ", {2040, 1140, 1560, 420}, 1);
    Control& btn_登録印刷 = button("btn_登録印刷", "登録と印刷", {3720, 1140, 1560, 420}, 2);
};

struct Choice {
    std::string_view button;
    std::int16_t printChoice;
};
constexpr Choice choices[] = {{"btn_登録印刷", 0}, {"btn_登録", 1}, {"btn_いいえ", 2}};
constexpr std::int16_t no = 2;
constexpr Color red = 192;

void opened(Window&) {
    rosterSession.printChoice = no;
}
void closed(Window& window) {
    unload(window);
}

void chosen(const Occurrence& occurrence) {
    for (const Choice& choice : choices)
        if (choice.button == occurrence.control.name) rosterSession.printChoice = choice.printChoice;
    unload(*occurrence.control.window);
}

constexpr Binding bindings[] = {
    {"btn_登録", Event::click, chosen}, {"btn_いいえ", Event::click, chosen}, {"btn_登録印刷", Event::click, chosen}};

void ask(Msg印刷確認& dialog) {
    const bool change = !rosterSession.newEntry;
    setCaption(dialog.lab_msg, change ? "修正します。よろしいですか？" : "登録します。よろしいですか？");
    setColor(dialog.lab_msg, change ? std::optional(red) : std::nullopt);
}

} // namespace

// Made anew for each question, so that the focus begins on the safe choice, which takes Enter.
int confirmSave(std::string_view caption, std::string_view secondLine) {
    Msg印刷確認 dialog;
    dialog.window.bindings = bindings;
    dialog.window.load = opened;
    dialog.window.closeRequest = closed;
    dialog.window.cancelButton = &dialog.btn_いいえ;
    setSize(dialog.window, 5640, 1800);
    setCaption(dialog.window, caption);
    setCaption(dialog.lab_inpmsg, secondLine);
    ask(dialog);
    showModal(dialog.window);
    return rosterSession.printChoice;
}

} // namespace kestrel
