#include "steps.hpp"

#include "company/msg暗証番号確認.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "entry/msgお待ち.hpp"
#include "entry/wnd摘要.hpp"
#include "frontend/qt/pictures.hpp"
#include "platform/files.hpp"
#include "platform/paths.hpp"
#include "screen/hand.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

#include <array>
#include <cstdio>
#include <string_view>

namespace kestrel::tour {

namespace {

std::string folder;
bool failed = false;

screen::Control* find(std::string_view name) {
    screen::Window* window = screen::activeWindow();
    return window ? findControl(*window, name) : nullptr;
}

void fail(std::string_view what) {
    std::fprintf(stderr, "the tour stands still: %.*s\n", static_cast<int>(what.size()), what.data());
    failed = true;
}

void picture(std::string_view name) {
    if (!frontend::savePictures(folder, std::string(name))) return fail(name);
    std::printf("%s/%.*s.png\n", folder.c_str(), static_cast<int>(name.size()), name.data());
}

void click(std::string_view name) {
    screen::Control* control = find(name);
    if (!control || !hand::click(*control)) fail(name);
}

void typeOver(std::string_view text) {
    hand::typeOver(text);
}

void answer(std::string_view caption) {
    if (!hand::answer(caption)) fail(caption);
}

void page(std::string_view number) {
    screen::Control* tab = find("tab_詳細");
    if (!tab || !hand::page(*tab, number[0] - '0')) fail(number);
}

void press(std::string_view key) {
    hand::key(key == "Tab" ? screen::Key::Tab : key == "Ctrl" ? screen::Key::Ctrl : screen::Key::Esc);
}

void sortBySecondColumn(std::string_view list) {
    screen::Control* rows = find(list);
    if (!rows || !hand::header(*rows, 1)) fail(list);
}

// The windows that an addressee looked at and left as it is doesn't come upon. Each waits here for its close.
void signIn(std::string_view caption) {
    showSignIn(std::string(caption));
}

void memo(std::string_view field) {
    rosterSession.lookupTarget = find(field);
    rosterSession.lookupCondition = "摘要";
    showMemoWindow();
}

void wait(std::string_view pictureName) {
    const WaitDialog shown;
    picture(pictureName);
}

// A file or folder of the installation, picked in the dialog that waits.
void pick(std::string_view inInstallation) {
    if (!hand::pick(platform::joinPath(installation.programRoot, inInstallation))) fail(inInstallation);
}

// The copy goes behind the program's back; the list tells as soon as it is built again.
void loseCopy(std::string_view ending) {
    const auto names = platform::filesIn(company.documentFolder);
    for (const std::string& name : names ? names.value() : std::vector<std::string>())
        if (name.ends_with(ending) && !platform::removeFile(platform::joinPath(company.documentFolder, name)))
            fail(ending);
    refreshScreen();
}

void firstAttachment(std::string_view) {
    screen::Control* list = find("List付属書類");
    if (!list || !hand::row(*list, 0, false)) fail("List付属書類");
}

struct Step {
    void (*act)(std::string_view);
    std::string_view with;
};

constexpr std::array steps{
    Step{picture, "1-addressee"},
    Step{click, "宛先名称B"},
    Step{typeOver, "資材部　購買第一課"},
    Step{picture, "2-typing"},
    Step{typeOver, "資材部購買第一課　印刷資材および包装資材の調達を担当する窓口の皆様"},
    Step{picture, "3-too-long"},
    Step{typeOver, "資材部　購買第一課"},
    Step{page, "1"},
    Step{click, "宛先摘要"},
    Step{picture, "4-memo"},
    Step{page, "2"},
    Step{click, "btn_付属書類追加"},
    Step{picture, "5-file-dialog"},
    Step{pick, "manual/連絡台帳入力.doc"},
    Step{click, "btn_フォルダ"},
    Step{pick, "report"},
    Step{click, "btn_付属書類追加"},
    Step{pick, "data/gnrdb.accdb"},
    Step{loseCopy, "_gnrdb.accdb"},
    Step{picture, "6-attachments"},
    Step{firstAttachment, ""},
    Step{click, "btn_付属書類削除"},
    Step{answer, "はい"},
    Step{firstAttachment, ""},
    Step{click, "btn_付属書類削除"},
    Step{answer, "はい"},
    Step{firstAttachment, ""},
    Step{click, "btn_付属書類削除"},
    Step{answer, "はい"},
    Step{answer, "OK"},
    Step{page, "0"},
    Step{click, "btn_メーカ登録"},
    Step{picture, "7-partner"},
    Step{answer, "いいえ"},
    Step{click, "btn_名簿No"},
    Step{click, "btn_画面クリア"},
    Step{sortBySecondColumn, "List名簿No"},
    Step{picture, "8-rosters"},
    Step{press, "Esc"},
    Step{click, "btn_担当者コード"},
    Step{picture, "9-staff"},
    Step{press, "Esc"},
    Step{click, "btn_部門コード"},
    Step{picture, "10-departments"},
    Step{press, "Esc"},
    Step{click, "宛先郵便番号"},
    Step{press, "Ctrl"},
    Step{picture, "11-postal-codes"},
    Step{press, "Esc"},
    Step{click, "得意先コード"},
    Step{press, "Ctrl"},
    Step{picture, "12-customers"},
    Step{press, "Esc"},
    Step{memo, "宛先摘要"},
    Step{picture, "13-memo-window"},
    Step{press, "Esc"},
    Step{click, "btn_登録"},
    Step{picture, "14-save"},
    Step{press, "Esc"},
    Step{wait, "15-wait"},
    Step{signIn, "営業支援/暗証確認"},
    Step{typeOver, "1"},
    Step{press, "Tab"},
    Step{typeOver, "1234"},
    Step{picture, "16-sign-in"},
    Step{typeOver, "4321"},
    Step{click, "btn_OK"},
    Step{picture, "17-wrong-pin"},
    Step{answer, "OK"},
    Step{press, "Esc"},
    Step{click, "btn_画面クリア"},
    Step{picture, "18-question"},
    Step{answer, "はい"},
    Step{picture, "19-new-entry"},
    Step{click, "btn_終了"},
};

std::size_t next = 0;

} // namespace

void saveIn(std::string newFolder) {
    folder = std::move(newFolder);
}

bool playNext() {
    if (failed || next == steps.size()) return false;
    const Step& step = steps[next++];
    step.act(step.with);
    return true;
}

bool complete() {
    return !failed && next == steps.size();
}

} // namespace kestrel::tour
