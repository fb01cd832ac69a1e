// Database files as wholes: making, copying, and holding one so that others wait.
#pragma once

#include "platform/result.hpp"

#include <memory>
#include <string_view>

namespace kestrel::database {

// A new empty SQLite file in the house's journal mode. Fails when there is a file already.
platform::Status createDatabase(std::string_view path);

// The engine's own copy: all that was committed to the source is in the target, and others may have the source open. A
// database at the target is replaced as one transaction, any other file as a whole; what fails leaves the target as it
// was.
platform::Status copyDatabase(std::string_view source, std::string_view target);

// For tests: somebody else holds the database for so many seconds (of real time), or until released. Who opens it
// meanwhile waits. A connection that was open before can go on reading the committed state, but waits to write.
struct HeldDatabase;
class Hold {
public:
    Hold() = default; // holds nothing
    explicit Hold(std::unique_ptr<HeldDatabase> database);
    Hold(Hold&& other) noexcept;
    Hold& operator=(Hold&& other) noexcept;
    ~Hold();
    void release(); // harmless when nothing is held

private:
    std::unique_ptr<HeldDatabase> held;
};
platform::Result<Hold> holdExclusively(std::string_view path, double seconds);

} // namespace kestrel::database
