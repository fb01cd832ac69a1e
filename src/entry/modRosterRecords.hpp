// T名簿 (read only) and T名簿明細: every read and write of them. Keys are zero-filled texts: office 3, base date 8,
// roster number 8, addressee number 6 characters; they go into the statements as they stand. A failed read counts as no
// row.
#pragma once

#include <string_view>

namespace kestrel {

inline constexpr std::string_view rosterRegister = "16310"; // the register of roster numbers

// A row that was found stays open in rosterRecords or addresseeRecords until it is taken or cleared. Taking leaves a
// session value as it was where the column is null.
bool readRosterHeader(std::string_view office, std::string_view baseDate, std::string_view rosterNo);
void takeRosterHeader();
void clearRosterHeader(); // empties the head but for its dates
// Of the roster on the screen; a line in the view log is written first, whether or not there is such an addressee.
bool readAddressee(std::string_view addresseeNo);
void takeAddressee();         // newEntry and dirty become false
void clearAddressee();        // empties the addressee and proposes the next free number
void assignNextAddresseeNo(); // one above the highest of the roster, not reserved; newEntry true, dirty false

// What the session holds, as one row. They set writeResult and writeMessage; only a failed delete shows its message.
void insertAddressee(); // and keeps the telephone directory
void deleteAddressee();
void replaceAddressee(); // delete, then insert, also when the delete failed; no transaction around the two

} // namespace kestrel
