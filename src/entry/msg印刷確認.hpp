// The question in front of every save, which also offers printing.
#pragma once

#include <string_view>

namespace kestrel {

// Modal. caption: the window's; secondLine: a further line above the question, may be empty. Answers and leaves in
// rosterSession.printChoice: 0 save and print, 1 save only, 2 no (closing and Esc too).
int confirmSave(std::string_view caption, std::string_view secondLine);

} // namespace kestrel
