// What the signed-in member may do, the key fields that the program registers in its menu, and the title of the form.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kestrel {

// kind: 0 start, 1 new, 2 change, 3 delete, 4 print, 5 preview, 6 text output, 7 image output. A row for this member
// and program decides and puts its eight rights in the session for the rest of the run; without one the process class
// of the program's row in the menu decides. An empty right and "0" permit, as does a text that is no number. A program
// that the menu doesn't know is refused.
bool checkOperationRight(std::string_view menu, std::string_view programId, int rightKind);

// 条件項目名A to 条件項目名Z of the program's row in the menu. A failed write shows one message.
void registerKeyFields(std::string_view menu, std::string_view programId, const std::array<std::string, 26>& names);
void registerLinkKeys(std::string_view menu, std::string_view programId); // what a handoff to this program consists of

// Program, office and member into the caption of prg_ttl on the entry form.
void showProgramTitle();

} // namespace kestrel
