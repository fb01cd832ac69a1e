// A change deletes its row and inserts it again, and nothing holds the two together. What is to be inserted therefore
// lies on the disk in between, as a small file beside the local database: whatever cuts the change off there, the row
// can be put back from it. The files of one folder may be those of many users and computers: each change has its own.
#pragma once

#include "platform/files.hpp"

#include <string_view>

namespace kestrel {

// Before the DELETE, with the INSERT that will follow. A note that can't be written hinders nothing: nothing is held
// then, and nobody is told. The note stays, held by nobody, when it isn't removed: then the row may be gone.
platform::HeldFile noteChange(std::string_view table, std::string_view statement);

} // namespace kestrel
