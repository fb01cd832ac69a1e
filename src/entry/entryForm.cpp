// The life of the entry form: how it is made, and the step that loads it.
#include "entry/entryForm.hpp"

#include "company/modRights.hpp"
#include "data/modGateway.hpp"
#include "entry/entryBindings.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "lists/listFrame.hpp"
#include "screen/focus.hpp"
#include "session/companyValues.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "values/modTabStop.hpp"

#include <memory>
#include <stdexcept>

namespace kestrel {

Frm連絡台帳入力::Frm連絡台帳入力() {
    screen::setItems(tab_詳細, {"住所", "メモ", "付属書類"});
    List付属書類.marked = true;
    お知らせ.notice = true;
}

namespace {

// Never destroyed at the end of the process: the windows it would take leave of may be gone by then.
std::unique_ptr<Frm連絡台帳入力>& holder() {
    static auto* form = new std::unique_ptr<Frm連絡台帳入力>;
    return *form;
}

void setSizeAndCaption(Frm連絡台帳入力& form) {
    constexpr int besideNotice = 90;
    constexpr int belowNotice = 380; // what a desktop of no known version leaves under the notice
    const screen::Place& notice = form.お知らせ.place;
    screen::setSize(form.window, notice.width + besideNotice, notice.top + notice.height + belowNotice);
    screen::setCaption(form.window, installation.programId + "（" + company.名称 + "）");
}

std::vector<std::string> readDispatchClasses() {
    std::vector<std::string> names;
    database::RecordSet classes;
    if (!openRecordset(classes, "SELECT * FROM K発送区分 ORDER BY 区分", false)) return names;
    for (; !classes.eof(); classes.moveNext()) names.push_back(classes.text("名称", ""));
    classes.close();
    return names;
}

void fillChoices(screen::Control& number, screen::Control& list, std::vector<std::string> names) {
    screen::setBounds(number, 0, static_cast<int>(names.size()) - 1);
    screen::setItems(list, std::move(names));
}

void loadEntryForm(screen::Window&) {
    Frm連絡台帳入力& form = entryForm();
    setSizeAndCaption(form);
    fillChoices(form.法人個人区分, form.法人個人区分名称, {"個人", "法人"});
    fillChoices(form.発送区分, form.発送区分名称, readDispatchClasses());
    showProgramTitle();
    rosterSession.firstField = rosterSession.lastEnteredField = rosterSession.lastLeftField = &form.宛先名称A;
    if (rosterSession.newEntry)
        newEntryScreen();
    else
        loadLinkedEntry();
    refreshScreen();
    clearNotice();
}

} // namespace

Frm連絡台帳入力& entryForm() {
    if (!holder()) throw std::logic_error("the entry form hasn't been made");
    return *holder();
}

screen::Control& entryControl(std::string_view name) {
    screen::Control* control = screen::findControl(entryForm().window, name);
    if (!control) throw std::logic_error("frm連絡台帳入力 has no control " + std::string(name));
    return *control;
}

void makeEntryForm() {
    forgetLists();
    holder() = std::make_unique<Frm連絡台帳入力>();
    screen::Window& window = holder()->window;
    window.bindings = entryBindings();
    window.load = loadEntryForm;
    window.closeRequest = [](screen::Window&) { requestExit(); };
    rosterSession.currentForm = &window;
}

void showEntryForm() {
    screen::show(entryForm().window);
}

void giveFirstFocus() {
    rosterSession.lookupNextControl = rosterSession.firstField;
    nextTabStop();
    screen::setFocus(*rosterSession.lookupNextControl);
}

} // namespace kestrel
