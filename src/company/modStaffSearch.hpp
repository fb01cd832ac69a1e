// Who may sign in here: members in service, or retired ones whose last day is still to come, of this office or of the
// whole company ("000").
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

struct FoundStaff {
    std::string code, name;
    std::string pin; // plain; empty when the member has none
};

// By logon name: only code and name are taken. By code: the member's rights, access level and logon name also go to the
// session. False: no such member, nothing was changed.
bool findStaffByLogin(std::string_view loginName, FoundStaff& found);
bool findStaffByCode(std::string_view code, FoundStaff& found);

} // namespace kestrel
