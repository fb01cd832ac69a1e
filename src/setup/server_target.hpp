// A database on a server that is to become an installation's main database.
#pragma once

#include "setup/main_place.hpp"

#include <ostream>
#include <string>
#include <string_view>

namespace kestrel::setup {

inline constexpr int secondsForServer = 10; // that a server which doesn't answer is waited for

struct ServerTarget {
    MainDefinition definition; // how it is reached
    Connection store;
    bool made = false; // the database was made for this and holds nothing
};

// Opens the database that the connection text names, by the text that the suite's programs will use under that kind.
// Where the server hasn't got that database it is made, if the user may do so; else the failure holds the command by
// which somebody else makes it. Fails where texts would not compare by code point, or where one of the main tables is
// there already. No failure holds the password.
Result<ServerTarget> openTarget(std::string_view kind, std::string_view connectionText);
// Takes away what openTarget made, with all that was put into it.
void undoTarget(ServerTarget& target);

// What a person should know of it once the tables are made: that it is new, that searches have no index.
void tellOf(ServerTarget& target, std::ostream& words);

// Whether the database keeps and compares texts as the suite needs it: every character, by code point. Only asked of
// servers where that is a matter of the database; in the others each table says it.
Status refuseOrder(Connection& store);

} // namespace kestrel::setup
