// Making an installation as a person asked for it.
#pragma once

#include "setup/installation.hpp"

#include <ostream>
#include <string>
#include <string_view>

namespace kestrel::setup {

struct CreateRequest {
    std::string folder;
    What what = What::full;
    std::string day;        // as typed
    std::string mainText;   // a server's connection text, as typed; empty: the main database is a file
    std::string kind = "S"; // as typed; only for a server
};

// createInstallation, with a database that is opened or made on a server where the request names one. What a person
// should know of that database goes to words. Fails with one line, nothing left behind.
platform::Status create(const CreateRequest& request, std::string_view program, std::ostream& words);

} // namespace kestrel::setup
