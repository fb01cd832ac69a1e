// The databases of a server as wholes, and the connection texts that name one.
#pragma once

#include "platform/database/connection.hpp"

#include <string>
#include <string_view>

namespace kestrel::database {

// Where a connection text leads on its server: HOST[:PORT] and the database. With an Initial Catalog the whole Data
// Source is the host; without one what stands behind the last "/" of the Data Source is the database.
struct ServerPlace {
    std::string host, database;
};
ServerPlace serverPlace(std::string_view connectionText);

// The text that reaches another database of the same server as the same user: with an Initial Catalog where the text
// has one, else behind the Data Source's last "/".
std::string withDatabase(std::string_view connectionText, std::string_view database);

// Each asks any other database of the server, as a user who may do that. Names are taken to the letter. Fail with the
// server's word, or where its kind can't.
Status createServerDatabase(Connection& server, std::string_view name); // text compares by code point in it
Status cloneServerDatabase(Connection& server, std::string_view from, std::string_view name); // from: nobody is in it
bool canCloneDatabases(const Connection& server);                     // some servers have no statement for that
Status dropServerDatabase(Connection& server, std::string_view name); // with whoever is in it; not there: nothing to do

} // namespace kestrel::database
