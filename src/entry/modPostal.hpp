// The postal code of an addressee, and the address that M郵便番号 knows for it.
#pragma once

#include <string_view>

namespace kestrel {

bool readPostalCode(std::string_view code); // as it stands, "999-9999"; true: found, the row stays open
// The row's code and, where no address stands yet, its address: in one line when both parts have 15 characters or fewer
// together, else in two. Closes the row.
void takePostalCode();
// A code as the field shows it: -1 found, 0 not found, 1 nothing to do. Emptying it alone is no input.
int changePostalCode(std::string_view typed);

} // namespace kestrel
