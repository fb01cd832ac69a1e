// One code to one name, for the fields beside codes. Empty when nobody has the code. The code goes into the statement
// as it stands, an empty one too.
#pragma once

#include <string>

namespace kestrel {

std::string staffName(const std::string& code);
std::string staffNameIfAny(const std::string& code); // a blank code sends nothing
std::string departmentName(const std::string& code);
std::string sectionName(const std::string& code);

} // namespace kestrel
