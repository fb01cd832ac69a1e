// The manual that an installation brings along, in rich text, which every office program opens.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::setup {

// A line that begins with "# " is the title, with "## " a heading, with "- " a point; any other line is a paragraph.
std::string richText(std::string_view plain);
std::string manualText(); // the manual, as the file holds it

} // namespace kestrel::setup
