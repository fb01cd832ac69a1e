// Inside the engine only: compiled reads, kept for the next time the same text comes. The program asks the same things
// again and again (rights, registers, settings), and compiling a read costs several times what running it does.
#pragma once

#include <sqlite3.h>
#include <string_view>
#include <vector>

namespace kestrel::database {

class KeptStatements {
public:
    // The compiled statement of exactly this text, no longer kept; null when there is none.
    sqlite3_stmt* take(std::string_view sql);
    // Keeps a statement that nobody reads any more; of many the one that was not asked for longest goes for good. When
    // the tables have changed meanwhile, the engine compiles it anew by itself.
    void give(sqlite3_stmt* statement);
    void clear();

private:
    struct Kept {
        std::string_view text; // the engine's own copy, as long as the statement lives
        sqlite3_stmt* statement;
    };
    std::vector<Kept> kept; // the latest last
};

} // namespace kestrel::database
