// The view log T閲覧: a row each time a record is read onto the screen.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// viewInfo: what was viewed (this program passes its ID); office, base date, number and detail key of the viewed
// record. The number comes from register "01110" of the operating office, the row stands under the session's office.
// Numbers that are taken already are skipped. Failures are silent, but for a missing register
// (numbering/modNumbers.hpp).
void writeViewRecord(std::string_view viewInfo, std::string_view slipOffice, std::string_view slipBaseDate,
                     std::string_view slipNo, std::string_view keyItem);

} // namespace kestrel
