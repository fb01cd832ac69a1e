// The sign-in dialog: a staff code and a PIN, or the PIN alone for a member known by the logon name.
#pragma once

#include <string>

namespace kestrel {

// Shows the dialog modally, fresh, and returns when it is closed. Signed in: staff.signedIn is true, staff.staffCode is
// the code given, and it is written back as the start-up member. Cancelled: signedIn is false and staffCode empty.
void showSignIn(const std::string& caption);

} // namespace kestrel
