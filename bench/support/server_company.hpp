// The company of real volumes in a database of the test server.
#pragma once

#include "company.hpp"
#include "server.hpp"

namespace kestrel::bench {

// What the searches on a server go through; suppliers are the first of the customers.
inline constexpr CompanySize serverCompany = {200'000, 0, 2'000, 22'000, 124'000};
inline constexpr std::size_t suppliers = 20'000;

// An empty database, filled with the company's rows, every index in place and its statistics taken. The program's
// installation uses it from its next start on.
class ServerCompany {
public:
    ServerCompany();
    const std::string& text() const { return database.text; }

private:
    const std::string file; // made first: making it takes an installation too, and the last one is the program's
    const Installation installed;
    const ServerDatabase database;
};

// The indexes that find a part of a text, dropped and made anew.
void dropSearchIndexes(Libpq& server);
void makeSearchIndexes(Libpq& server);

} // namespace kestrel::bench
