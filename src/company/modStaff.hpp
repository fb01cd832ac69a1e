// The staff member for whom the program works, remembered by the installation.
#pragma once

#include <string_view>

namespace kestrel {

// Reads the member who signed in last from 動作環境定義 into staff.staffCode (empty when there is none). True: the code
// isn't blank. A table without the column 起動担当者コード raises.
bool readStartupStaff();

// Writes staff.staffCode back, so that the suite's next program starts without asking, and loads the member. A blank
// code does nothing; a failed write shows one message.
void writeStartupStaff();

// Name, place in the company, access level and rights of a member into the session; null columns leave what was there.
// False: no such row. Whether the member still works here isn't asked.
bool loadStaff(std::string_view code);

// True, and staff.signedIn with it: the start-up member exists and may do it (kinds of modRights.hpp).
bool authorizeStartupStaff(std::string_view menu, std::string_view programId, int rightKind);

} // namespace kestrel
