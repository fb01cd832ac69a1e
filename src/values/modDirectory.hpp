// The shared telephone directory M電話番号: one row for each telephone number, kept as addressees are saved.
#pragma once

#include <string_view>

namespace kestrel {

// Inserts or overwrites the row of the telephone's digits; does nothing with fewer than seven. A failure is silent: the
// directory is a convenience and must not stop the save that caused it.
void updatePhoneDirectory(std::string_view telephone, std::string_view name, std::string_view postalCode,
                          std::string_view addressA, std::string_view addressB, std::string_view addressC,
                          int classValue);

} // namespace kestrel
