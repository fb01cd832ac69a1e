// The running count of characters over a field's limit, on the notice line of the entry form.
#pragma once

#include <string_view>

namespace kestrel {

// The text is never changed; a text that fits empties the notice.
void checkFieldLength(std::string_view text, int maximumBytes);

} // namespace kestrel
