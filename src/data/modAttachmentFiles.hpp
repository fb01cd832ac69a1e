// Attached documents live in the company's document folder, each under its key, "_" and its own name. These three work
// on the copies; who is attached to what stands in the database.
#pragma once

#include <string>
#include <string_view>

namespace kestrel {

std::string attachmentPath(std::string_view key, std::string_view name);

// The first two keep the entry form out of a person's hands while they work; what goes wrong shows one box with its
// description.

// Copies a file under its own name, a folder whole under ownName with the wait dialog in front. A source that is gone
// copies nothing and says nothing, and so does a copy that fails.
void copyAttachment(std::string_view source, std::string_view key, std::string_view ownName);
// Deletes the folder of that name, else every file whose name begins with it.
void deleteAttachment(std::string_view name, std::string_view key);

// Opens the copy of what was picked at the path with the desktop's own program.
void openAttachment(std::string_view path, std::string_view key);

} // namespace kestrel
