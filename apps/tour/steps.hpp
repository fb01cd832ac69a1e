// The tour's script: what it does on the screen, one act at a time, and where it saves pictures.
#pragma once

#include <string>

namespace kestrel::tour {

void saveIn(std::string folder);
bool playNext(); // the source of acts; false at the end or where the tour can't go on
bool complete(); // every step was played

} // namespace kestrel::tour
