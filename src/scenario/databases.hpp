// The scenario's own statements: beside the program, with no gateway, no history, no faults and no trace.
#pragma once

#include "platform/database/record_set.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::scenario {

enum class Which { main, local, localMaster };

std::string mainFileText(const std::string& root); // connection text of the main database of an installation
std::string mainFile();                            // the file behind it
std::string localFile();                           // the local database in use

// The database named by word ("main" or "local"), where sql may begin with "master " behind "local"; that word is cut
// off.
Which databaseNamed(std::string_view word, std::string& sql);

void executeBeside(Which which, const std::string& sql); // a failure raises ScenarioError

using Rows = std::vector<std::vector<std::string>>; // a null as "NULL"
Rows rowsBeside(Which which, const std::string& sql);

// Every 摘要 that the run history holds; none when there is no local database to read.
std::vector<std::string> historyLines();

} // namespace kestrel::scenario
