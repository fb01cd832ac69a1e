// The database engine by its own interface, with nothing of the house in between: what everything is measured against.
#pragma once

#include <sqlite3.h>
#include <string>
#include <vector>

namespace kestrel::bench {

class RawDatabase {
public:
    explicit RawDatabase(const std::string& path); // a file that is there, in the house's mode; ends the process if not
    ~RawDatabase() { sqlite3_close(handle); }
    RawDatabase(const RawDatabase&) = delete;
    RawDatabase& operator=(const RawDatabase&) = delete;

    void prepare(const std::string& sql); // and lets it go again
    void run(const std::string& sql);     // a SELECT up to its first row, anything else to its end
    struct Read {
        std::size_t rows = 0, bytes = 0;
    };
    Read readAll(const std::string& sql, const std::vector<std::string>& columns); // these columns of every row
    std::string plan(const std::string& sql); // the engine's own words, one line a step
    sqlite3_stmt* prepared(const std::string& sql);
    [[noreturn]] void end(const std::string& what); // the process, with the engine's last word on it

private:
    sqlite3* handle = nullptr;
};

} // namespace kestrel::bench
