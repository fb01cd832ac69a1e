#include "demo.hpp"

#include "screen/message.hpp"

#include <array>

namespace kestrel::demo {

std::vector<std::string> happened;

namespace {

using screen::Event;
using screen::InputMode;
using screen::Kind;
using screen::Occurrence;

void note(const Occurrence& what) {
    constexpr const char* names[] = {"change", "got", "lost", "key", "click", "twice", "column"};
    std::string line = std::string(names[static_cast<int>(what.event)]) + " " + what.control.name;
    if (what.event == Event::change) line += "=" + what.control.text;
    if (what.event == Event::keyDown) line += " " + std::to_string(static_cast<int>(what.key));
    if (what.event == Event::columnClick) line += " " + std::to_string(what.column);
    happened.push_back(line);
}

void askAndClose(const Occurrence& what) {
    note(what);
    if (screen::question("入力がありました。\rクリアしますか？")) screen::hide(*what.control.window);
}

void upperCase(const Occurrence& what) {
    note(what);
    std::string text = what.control.text;
    for (char& c : text)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    setText(what.control, text);
}

void closeOnPick(const Occurrence& what) {
    note(what);
    screen::hide(*what.control.window);
}

constexpr std::array formTable{
    screen::Binding{"名称", Event::gotFocus, note},
    screen::Binding{"名称", Event::lostFocus, note},
    screen::Binding{"名称", Event::change, note},
    screen::Binding{"名称", Event::keyDown, note},
    screen::Binding{"名称", Event::doubleClick, note},
    screen::Binding{"コード", Event::gotFocus, note},
    screen::Binding{"コード", Event::lostFocus, upperCase},
    screen::Binding{"コード", Event::keyDown, note},
    screen::Binding{"区分", Event::change, note},
    screen::Binding{"区分名称", Event::change, note},
    screen::Binding{"メモ", Event::change, note},
    screen::Binding{"btn_登録", Event::click, note},
    screen::Binding{"btn_画面クリア", Event::click, askAndClose},
    screen::Binding{"itm_ttl_名称", Event::click, note},
    screen::Binding{"bak_頁", Event::click, note},
    screen::Binding{"tab_詳細", Event::click, note},
    screen::Binding{"List書類", Event::click, note},
    screen::Binding{"List書類", Event::doubleClick, note},
    screen::Binding{"List書類", Event::columnClick, note},
};

constexpr std::array listTable{
    screen::Binding{"List得意先", Event::click, closeOnPick},
    screen::Binding{"List得意先", Event::columnClick, note},
};

void addHead(screen::Window& form) {
    addControl(form,
               {.name = "prg_ttl", .kind = Kind::SSPanel, .caption = "連絡台帳入力", .place = {90, 90, 6500, 420}});
    addControl(form,
               {.name = "manualpanel", .kind = Kind::SSPanel, .caption = "Manual", .place = {6690, 90, 975, 420}});
    addControl(
        form,
        {.name = "itm_ttl_登録日付", .kind = Kind::SSPanel, .caption = "登録日付", .place = {90, 660, 1200, 330}});
    addControl(form, {.name = "年",
                      .kind = Kind::xField,
                      .place = {1350, 660, 600, 330},
                      .tabIndex = 0,
                      .maxLength = 4,
                      .inputMode = InputMode::disabled})
        .text = "2024";
    addControl(form, {.name = "lab_年", .kind = Kind::xLabel, .caption = "年", .place = {1980, 660, 240, 330}});
    addControl(form, {.name = "btn_コード",
                      .kind = Kind::SSCommand,
                      .caption = "担当者",
                      .place = {3600, 660, 1200, 330},
                      .tabIndex = 20});
    addControl(form, {.name = "コード",
                      .kind = Kind::xField,
                      .place = {4860, 660, 750, 330},
                      .tabIndex = 1,
                      .maxLength = 5,
                      .inputMode = InputMode::off});
    addControl(
        form,
        {.name = "担当者名", .kind = Kind::xField, .place = {5670, 660, 1995, 330}, .tabIndex = 2, .tabStop = false})
        .text = "山田太郎";
}

void addPages(screen::Window& form) {
    screen::Control& tab =
        addControl(form, {.name = "tab_詳細", .kind = Kind::SSTab, .place = {90, 1140, 7575, 3000}, .tabIndex = 40});
    setItems(tab, {"住所", "メモ", "付属書類"});
    const auto page0 = [&](const screen::ControlSpec& spec) -> screen::Control& {
        screen::Control& control = addControl(form, spec);
        placeOnPage(control, tab, 0);
        return control;
    };
    page0({.name = "bak_頁", .kind = Kind::SSPanel, .place = {150, 1600, 5000, 2150}});
    page0({.name = "itm_ttl_名称", .kind = Kind::SSPanel, .caption = "法人名称", .place = {240, 1680, 1200, 330}});
    page0({.name = "名称",
           .kind = Kind::xField,
           .place = {1500, 1680, 5500, 330},
           .tabIndex = 3,
           .maxLength = 60,
           .inputMode = InputMode::hiragana});
    page0({.name = "itm_ttl_郵便", .kind = Kind::SSPanel, .caption = "郵便番号", .place = {240, 2070, 1200, 330}});
    page0({.name = "郵便番号", .kind = Kind::xZip, .place = {1500, 2070, 1000, 330}, .tabIndex = 4});
    page0({.name = "itm_ttl_電話", .kind = Kind::SSPanel, .caption = "ＴＥＬ", .place = {3600, 2070, 1200, 330}});
    page0({.name = "電話", .kind = Kind::xTel, .place = {4860, 2070, 2100, 330}, .tabIndex = 5}).text = "03-1234-5678";
    page0({.name = "itm_ttl_区分", .kind = Kind::SSPanel, .caption = "個人・法人", .place = {240, 2460, 1200, 330}});
    screen::Control& number =
        page0({.name = "区分", .kind = Kind::xNum, .place = {1500, 2460, 450, 330}, .tabIndex = 6});
    setBounds(number, 0, 1);
    screen::Control& names =
        page0({.name = "区分名称", .kind = Kind::ComboBox, .place = {2010, 2460, 1300, 330}, .tabIndex = 7});
    setItems(names, {"個人", "法人"});
    setListIndex(names, 0);
    page0({.name = "暗証番号", .kind = Kind::xPass, .place = {4860, 2460, 1000, 330}, .tabIndex = 8}).text = "1234";
    screen::Control& off =
        page0({.name = "名称カナ", .kind = Kind::xKana, .place = {1500, 2850, 2500, 330}, .tabIndex = 9});
    off.text = "ﾐﾎﾝ";
    off.enabled = false;
    screen::Control& memo = addControl(form, {.name = "メモ",
                                              .kind = Kind::xText,
                                              .place = {240, 1680, 7200, 2300},
                                              .tabIndex = 30,
                                              .inputMode = InputMode::hiragana});
    memo.text = "一行目\r\n二行目";
    placeOnPage(memo, tab, 1);
    screen::Control& list = addControl(
        form, {.name = "List書類", .kind = Kind::ListView, .place = {240, 1680, 7200, 2300}, .tabIndex = 31});
    setColumns(list, {{"書類名", 4000}, {"サイズ", 1050}, {"更新日付", 1400}});
    list.marked = true;
    addRow(list, {"見積書", "C001", {"12", "2024/05/15"}, true});
    addRow(list, {"図面", "C002", {"", ""}, false});
    placeOnPage(list, tab, 2);
}

void addFoot(screen::Window& form) {
    int left = 90;
    int index = 50;
    for (const char* caption : {"登録", "画面クリア", "削除"}) {
        const std::string name = std::string("btn_") + caption;
        addControl(form, {.name = name,
                          .kind = Kind::SSCommand,
                          .caption = caption,
                          .place = {left, 4290, 1200, 420},
                          .tabIndex = index++});
        left += 1290;
    }
    in(form, "btn_削除").enabled = false;
    screen::Control& guard =
        addControl(form, {.name = "ヘッド終了", .kind = Kind::SSCommand, .place = {-600, 0, 195, 195}, .tabIndex = 60});
    guard.guard = true;
    screen::Control& notice = addControl(form, {.name = "お知らせ",
                                                .kind = Kind::SSPanel,
                                                .caption = "必須項目が未入力です。",
                                                .place = {90, 4830, 7575, 345}});
    notice.notice = true;
}

} // namespace

screen::Control& in(screen::Window& window, std::string_view name) {
    return *findControl(window, name);
}

std::unique_ptr<screen::Window> makeForm() {
    auto form = std::make_unique<screen::Window>("frm見本");
    form->caption = "連絡台帳入力（株式会社見本）";
    form->bindings = formTable;
    setSize(*form, 7755, 5265);
    addHead(*form);
    addPages(*form);
    addFoot(*form);
    return form;
}

std::unique_ptr<screen::Window> makeList(int rows) {
    auto window = std::make_unique<screen::Window>("wnd得意先一覧");
    window->caption = "得意先一覧";
    window->bindings = listTable;
    setSize(*window, 7500, 5000);
    screen::Control& list = addControl(
        *window, {.name = "List得意先", .kind = Kind::ListView, .place = {90, 90, 7320, 4800}, .tabIndex = 0});
    setColumns(list, {{"コード", 900}, {"名称", 4000}, {"電話", 1800}});
    for (int i = 0; i < rows; ++i) {
        const std::string code = std::to_string(100000 + i);
        addRow(list, {code, "C" + code, {"青葉印刷株式会社 " + code, "03-0000-0000"}, false});
    }
    return window;
}

} // namespace kestrel::demo
