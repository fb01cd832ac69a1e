#include "company/msg暗証番号確認.hpp"

#include "company/modStaff.hpp"
#include "company/modStaffSearch.hpp"
#include "screen/focus.hpp"
#include "screen/message.hpp"
#include "session/companyValues.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "values/modValues.hpp"

namespace kestrel {

using namespace screen;

namespace {

struct Msg暗証番号確認 {
    Window window{"msg暗証番号確認"};
    Control& panel(std::string_view name, std::string_view caption, Place place) {
        return addControl(window, {.name = name, .kind = Kind::SSPanel, .caption = caption, .place = place});
    }
    Control& button(std::string_view name, std::string_view caption, Place place, int tabIndex) {
        return addControl(
            window, {.name = name, .kind = Kind::SSCommand, .caption = caption, .place = place, .tabIndex = tabIndex});
    }
    Control& itm_ttl_担当者コード = panel("itm_ttl_担当者コード", "コード", {240, 240, 1050, 285});
    Control& itm_ttl_担当者名 = panel("itm_ttl_担当者名", "担当者氏名", {1350, 240, 2700, 285});
    Control& itm_ttl_暗証番号 = panel("itm_ttl_暗証番号", "暗証番号", {4110, 240, 1800, 285});
    Control& 担当者コード = addControl(window, {.name = "担当者コード",
                                                .kind = Kind::xField,
                                                .place = {240, 540, 1050, 330},
                                                .tabIndex = 0,
                                                .maxLength = 5,
                                                .inputMode = InputMode::off});
    Control& 担当者名 = addControl(window, {.name = "担当者名",
                                            .kind = Kind::xField,
                                            .place = {1350, 540, 2700, 330},
                                            .tabIndex = 1,
                                            .tabStop = false,
                                            .maxLength = 20,
                                            .inputMode = InputMode::on});
    Control& 暗証番号 =
        addControl(window, {.name = "暗証番号", .kind = Kind::xPass, .place = {4110, 540, 1800, 330}, .tabIndex = 2});
    Control& btn_OK = button("btn_OK", "OK", {3000, 1110, 1395, 390}, 3);
    Control& btn_キャンセル = button("btn_キャンセル", "ｷｬﾝｾﾙ", {4515, 1110, 1395, 390}, 4);
    std::string expectedPin; // plain; empty when nobody was found
};

Msg暗証番号確認* dialog = nullptr; // the one that is shown

void showStaff(const FoundStaff& found) {
    setText(dialog->担当者コード, found.code);
    setText(dialog->担当者名, found.name);
}

// A code that finds nobody leaves everything as it is, the expected PIN of the member before included.
bool lookUpByCode(std::string_view code) {
    FoundStaff found;
    if (!findStaffByCode(code, found)) return false;
    showStaff(found);
    dialog->expectedPin = found.pin;
    return true;
}

bool lookUpByLogin() {
    FoundStaff found;
    if (!findStaffByLogin(installation.userName, found)) return false;
    showStaff(found);
    return lookUpByCode(dialog->担当者コード.text);
}

void opened(Window&) {
    staff.staffCode.clear();
    if (lookUpByLogin()) setTabStop(dialog->担当者コード, false);
}

void codeLeft(const Occurrence& occurrence) {
    setText(occurrence.control, formatToMask(occurrence.control.text, "00000"));
    lookUpByCode(dialog->担当者コード.text);
}

void toCode(const Occurrence&) {
    setFocus(dialog->担当者コード);
}
void toPin(const Occurrence&) {
    setFocus(dialog->暗証番号);
}

void pinEntered(const Occurrence&) {
    if (dialog->担当者コード.text.empty()) setFocus(dialog->担当者コード);
}

void refuse(std::string_view words) {
    staff.staffCode.clear();
    staff.signedIn = false;
    message(words);
    setFocus(dialog->暗証番号);
}

void signIn() {
    staff.staffCode = dialog->担当者コード.text;
    writeStartupStaff();
    staff.signedIn = true;
    unload(dialog->window);
}

// Only what was typed goes to upper case, so a stored PIN with lower-case letters never matches.
void confirmed(const Occurrence&) {
    constexpr std::size_t shortestPin = 4;
    const std::string pin = text::upperAscii(dialog->暗証番号.text);
    if (text::length(pin) < shortestPin)
        refuse("暗証番号を入力してください。");
    else if (pin == company.officePrivilegedPin || pin == dialog->expectedPin)
        signIn();
    else
        refuse("暗証番号が違います。");
}

void cancel() {
    staff.signedIn = false;
    unload(dialog->window);
}

void cancelled(const Occurrence&) {
    cancel();
}
void closed(Window&) {
    cancel();
}

constexpr Binding bindings[] = {
    {"担当者コード", Event::lostFocus, codeLeft}, {"担当者名", Event::gotFocus, toPin},
    {"暗証番号", Event::gotFocus, pinEntered},    {"itm_ttl_担当者コード", Event::click, toCode},
    {"itm_ttl_担当者名", Event::click, toPin},    {"itm_ttl_暗証番号", Event::click, toPin},
    {"btn_OK", Event::click, confirmed},          {"btn_キャンセル", Event::click, cancelled},
};

} // namespace

void showSignIn(const std::string& caption) {
    Msg暗証番号確認 fresh;
    Msg暗証番号確認* const outer = dialog;
    dialog = &fresh;
    fresh.window.bindings = bindings;
    fresh.window.load = opened;
    fresh.window.closeRequest = closed;
    fresh.window.defaultButton = &fresh.btn_OK;
    fresh.window.cancelButton = &fresh.btn_キャンセル;
    setSize(fresh.window, 6150, 1740);
    setCaption(fresh.window, caption);
    showModal(fresh.window);
    dialog = outer;
}

} // namespace kestrel
