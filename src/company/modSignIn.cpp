#include "company/modSignIn.hpp"

#include "company/modRights.hpp"
#include "company/modStaff.hpp"
#include "company/msg暗証番号確認.hpp"
#include "session/companyValues.hpp"
#include "session/sessionValues.hpp"

namespace kestrel {

int authorizeOperation(std::string_view menu, std::string_view programId, int rightKind) {
    constexpr int permitted = -1, cancelled = 0, refused = 1;
    authorizeStartupStaff(menu, programId, rightKind); // what counts is staff.signedIn
    if (company.pinRequired != 1 || staff.signedIn) return permitted;
    showSignIn(std::string(menu) + "/暗証確認");
    if (!staff.signedIn) return cancelled;
    return checkOperationRight(menu, programId, rightKind) ? permitted : refused;
}

} // namespace kestrel
