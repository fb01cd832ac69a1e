#include "tiny_program.hpp"

#include "scenario/reader.hpp"
#include "scenario/report.hpp"
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/sessionValues.hpp"

#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <unistd.h>

namespace kestrel::tests {

using namespace kestrel::screen;

namespace {

std::unique_ptr<Window> form, listWindow;

Control& on(const char* name) {
    return *findControl(*form, name);
}

void ask(const Occurrence&) {
    setCaption(on("note"), question("続けますか？\rいいえもできます。") ? "はい" : "いいえ");
}

void twice(const Occurrence&) {
    message("一");
    message("二");
}

void openList(const Occurrence&) {
    showModal(*listWindow);
    setCaption(on("note"), "閉");
}

void closeList(const Occurrence&) {
    hide(*listWindow);
}

void pickPath(const Occurrence& occurrence) {
    const auto path = occurrence.control.name == "file" ? pickFile({"全て|*", 1, "", 0}) : pickFolder({"どれ", ""});
    setText(on("名称"), path.value_or("なし"));
}

void quit(const Occurrence&) {
    if (question("終了しますか？", false)) endProcess(0);
}

void fail(const Occurrence&) {
    throw std::runtime_error("壊れた");
}

// The field can't be left while it holds "x": the focus stays there, after a box.
void leaveName(const Occurrence& occurrence) {
    if (occurrence.control.text == "x") message("xは不可");
}

constexpr Binding formBindings[] = {
    {"ask", Event::click, ask},       {"twice", Event::click, twice},        {"list", Event::click, openList},
    {"file", Event::click, pickPath}, {"folder", Event::click, pickPath},    {"quit", Event::click, quit},
    {"fail", Event::click, fail},     {"名称", Event::lostFocus, leaveName},
};

constexpr Binding listBindings[] = {{"ok", Event::click, closeList}, {"rows", Event::doubleClick, closeList}};

void add(Window& window, const char* name, Kind kind, int tabIndex, const char* caption = "") {
    const int height = kind == Kind::ListView ? 3000 : 300;
    const int top = (tabIndex + 1) * 300 + (window.name == "wnd" ? tabIndex * 3000 : 0);
    addControl(window, {name, kind, caption, {0, top, 3000, height}, tabIndex});
}

void makeForm() {
    form = std::make_unique<Window>("frm");
    form->caption = "窓";
    form->width = form->height = 9000;
    form->bindings = formBindings;
    form->closeRequest = [](Window&) { endProcess(3); };
    add(*form, "名称", Kind::xField, 0);
    add(*form, "住所", Kind::xField, 1);
    add(*form, "摘要", Kind::xText, 2);
    add(*form, "区分", Kind::xNum, 3);
    setBounds(on("区分"), 0, 12);
    for (const char* button : {"ask", "twice", "list", "file", "folder", "quit", "fail", "hidden"})
        add(*form, button, Kind::SSCommand, static_cast<int>(form->controls.size()), button);
    setVisible(on("hidden"), false);
    add(*form, "選択", Kind::ComboBox, 20);
    setItems(on("選択"), {"個人", "法人"});
    add(*form, "頁", Kind::SSTab, 21);
    setItems(on("頁"), {"一", "二"});
    add(*form, "裏", Kind::xField, 22);
    placeOnPage(on("裏"), on("頁"), 1);
    add(*form, "note", Kind::SSPanel, -1);
    on("note").notice = true;
}

void makeList() {
    listWindow = std::make_unique<Window>("wnd");
    listWindow->caption = "一覧";
    listWindow->width = listWindow->height = 9000;
    listWindow->bindings = listBindings;
    add(*listWindow, "rows", Kind::ListView, 0);
    Control& rows = *findControl(*listWindow, "rows");
    setColumns(rows, {{"コード", 900}, {"名称", 1800}});
    addRow(rows, {"001", "C001", {"青葉"}, false});
    addRow(rows, {"002", "C002", {"若葉"}, true});
    add(*listWindow, "ok", Kind::SSCommand, 1, "OK");
}

} // namespace

void startTinyProgram(const std::string& commandLine) {
    resetScreens();
    setMessageTitle("試");
    makeForm();
    makeList();
    if (commandLine == "refuse") {
        message("だめ");
        endProcess(1);
        return;
    }
    setText(on("住所"), commandLine);
    show(*form);
    setFocus(on("名称"));
}

Outcome playTiny(const std::string& scenario) {
    std::ostringstream out, err;
    std::streambuf* const oldOut = std::cout.rdbuf(out.rdbuf());
    std::streambuf* const oldErr = std::cerr.rdbuf(err.rdbuf());
    scenario::run() = scenario::Run{};
    scenario::run().file = "tiny";
    scenario::run().places = {"/nowhere", "/nowhere"};
    scenario::run().program = startTinyProgram;
    scenario::playScenario(scenario);
    resetScreens();
    resetSession();
    std::cout.rdbuf(oldOut);
    std::cerr.rdbuf(oldErr);
    return {scenario::run().failed, scenario::run().wrong, scenario::run().passedOver, out.str(), err.str()};
}

std::filesystem::path ownPlace(const std::string& name) {
    return std::filesystem::temp_directory_path() / (name + "-" + std::to_string(getpid()));
}

} // namespace kestrel::tests
