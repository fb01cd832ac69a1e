// T名簿 (read only) and T名簿明細: every read and write of them.
#pragma once

#include <string_view>

namespace kestrel {

inline constexpr std::string_view rosterRegister = "16310"; // the register of roster numbers

bool readRosterHeader(std::string_view office, std::string_view baseDate, std::string_view rosterNo); // row stays open
void takeRosterHeader();                                                                              // closes it
void clearRosterHeader();
bool readAddressee(std::string_view addresseeNo); // row stays open
void takeAddressee();                             // newEntry and dirty become false
void clearAddressee();                            // empties the addressee and proposes the next free number
void assignNextAddresseeNo();                     // newEntry true, dirty false
void insertAddressee();                           // sets writeResult, writeMessage
void deleteAddressee();                           // likewise; a failure shows its message
void replaceAddressee();                          // delete, then insert, with no transaction around the two

} // namespace kestrel
