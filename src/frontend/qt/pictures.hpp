// Pictures of the screen, for readers of the documents and for those who look after its looks.
#pragma once

#include <string>

namespace kestrel::frontend {

// The windows in use, the box or dialog that waits over them, as folder/name.png and, at twice the size as a finer
// screen shows it, folder/name@2x.png. False when a file can't be written.
bool savePictures(const std::string& folder, const std::string& name);

} // namespace kestrel::frontend
