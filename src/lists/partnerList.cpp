#include "lists/partnerList.hpp"

#include "lists/listFrame.hpp"
#include "lists/listWindows.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

namespace kestrel::partner {

constexpr NestedList nested[1] = {{"担当者コード", "btn_担当者コード", &wnd担当者一覧, "カナ"}};

void limitToStaffOfForm(ListWindow& list) {
    const screen::Control* onForm = screen::findControl(*rosterSession.currentForm, "担当者コード");
    const std::string& code = onForm ? onForm->text : staff.staffCode;
    heldValue(list, "担当者コード") = code;
    heldValue(list, "担当者名") = code.empty() ? "" : staffNameIfAny(code);
}

} // namespace kestrel::partner
