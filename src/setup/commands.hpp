// The commands of kestrel-setup.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kestrel::setup {

// words: a command and what belongs to it, as typed. Answers the exit status: 0 when the command did what it is for,
// else 1. Results go to out, complaints to complaints; words that make no sense are answered there with all commands.
int runCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& complaints);

} // namespace kestrel::setup
