// The staff member for whom the program works, remembered by the installation.
#pragma once

namespace kestrel {

// Reads the member who signed in last from 動作環境定義 into staff.staffCode (empty when there is none). True: the code
// isn't blank. A table without the column 起動担当者コード raises.
bool readStartupStaff();

} // namespace kestrel
