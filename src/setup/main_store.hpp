// Opening the main database of an installation, wherever it lies.
#pragma once

#include "setup/rows.hpp"
#include "setup/store.hpp"

#include <string>

namespace kestrel::setup {

// The connection text that the program itself makes of the row of データベース定義.
std::string mainConnectionText(const Row& definition);

// Reads that row from the master local database of the installation at root. Fails where there is none, where its kind
// is unknown, and where the engine can't open what it names.
Result<Connection> openMainStore(const std::string& root);

} // namespace kestrel::setup
