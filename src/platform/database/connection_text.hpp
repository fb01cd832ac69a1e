// Reading and building connection texts.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::database {

// The value of the key in a text of "Key=value;" pairs, empty when it isn't there. Letter case of keys (ASCII) and
// blanks around keys and values are ignored, the last of several pairs counts. A value that holds ";" stands in single
// or double quotes, a quote within it doubled.
std::string connectionValue(std::string_view text, std::string_view key);

// The value as it stands in a connection text: in double quotes where it would not be read back otherwise.
std::string pairValue(std::string_view value);

// What the row GNR of データベース定義 says of the main database, each part as it is stored, trimmed.
struct MainDefinition {
    std::string kind; // "A", "S" or "O"
    std::string provider, user, password;
    std::string dataSource;      // of the kinds "A" and "O"
    std::string server, catalog; // of the kind "S"
};

// The text by which every program of the suite opens the main database: the parts joined as they stand.
std::string mainConnectionText(const MainDefinition& definition);

} // namespace kestrel::database
