// Taking an installation's main database from its file to a server.
#pragma once

#include "platform/result.hpp"

#include <ostream>
#include <string>

namespace kestrel::setup {

struct MoveRequest {
    std::string folder;        // of the installation
    std::string mainText;      // connection text of the database on the server
    std::string kind = "S";    // "A", "S" or "O"
    bool leaveUnknown = false; // tables and columns that the suite's definition doesn't know stay behind
};

// Copies all main tables, one line of progress each, compares the copy with the file, and only then lets the
// configuration name the server: first the installation's, then the copies of its users (one that can't be written has
// a line of its own; the programs read the installation's). The file stays where it is. While this runs nobody else
// may have the file open, and nobody can open it.
// Fails with one line, the installation as it was and nothing left on the server, where somebody has the file open (the
// line says who), where the file holds tables or columns that would stay behind, and for every reason of openTarget.
platform::Status moveMainDatabase(const MoveRequest& request, std::ostream& progress);

} // namespace kestrel::setup
