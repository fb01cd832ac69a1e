// The operating office of the installation and the business systems that are linked to the suite.
#pragma once

#include "platform/database/record_set.hpp"

#include <string>
#include <string_view>

namespace kestrel {

// The row of one office, without a history line. True: there is one.
bool openOffice(database::RecordSet& slot, std::string_view code);

// Reads the operating office into the session; "000" (also written to the installation) when it isn't there. Another
// office than "000" overrides some values of the company.
void loadOffice();
void setOperatingOffice(const std::string& code); // in the session and in 動作環境定義; a failed write is passed over
void loadLinkedBusiness();

} // namespace kestrel
