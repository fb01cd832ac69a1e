// What is missing or wrong in an installation.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

// One line for each thing that is missing or wrong, in English with the names as they stand; none when all is in order.
// Only reads. Looks at the folders and files; at both databases, table by table and column by column; and at the rows
// without which the program does not start or its screens mean something else. The main database is the one that
// データベース定義 names, a file or on a server; one that can't be opened has one line with the driver's words.
std::vector<std::string> checkInstallation(std::string_view folder);

} // namespace kestrel::setup
