// A connection to a database, whatever engine is behind it, and the rules that hold for all engines: one statement per
// text (anything behind the first fails, and nothing of it runs), opening never creates a file and reads the header at
// once, a busy database is waited for up to the connection timeout.
#pragma once

#include "platform/database/dialect.hpp"
#include "platform/database/record_set.hpp"
#include "platform/database/sqlite_engine.hpp"
#include "platform/result.hpp"

#include <string>
#include <string_view>
#include <variant>

namespace kestrel::database {

using platform::Failure;
using platform::Result;
using platform::Status;

// Which of the program's two connections this is; tests break, trace and lock by it. What is sent beside the program
// (making an installation, a tester's own statement) is neither recorded nor broken.
enum class Role { main, local, beside };

struct Settings {
    int connectionTimeout = 60; // seconds that opening, and each statement, waits for a busy database
    int commandTimeout = 30000; // seconds a statement may run
};

class Connection {
public:
    Connection() = default;                              // nothing is open
    explicit Connection(Role itsRole) : role(itsRole) {} // likewise; what is sent to it is told as that one's
    bool isOpen() const { return engine.index() != 0; }
    void close(); // harmless when nothing is open

    // Runs one statement that answers no rows. The text is the suite's own; the engine gets it in its own dialect.
    Status execute(std::string_view sql);
    // Runs one SELECT and stands on its first row; later rows are fetched as they are asked for.
    Result<RecordSet> open(std::string_view sql);

    // The same with a text in the engine's own words, which nobody rewrites: for the house's tools, which make tables.
    Status executeNative(const std::string& sql);
    Result<RecordSet> openNative(const std::string& sql);
    Dialect dialect() const; // of what is open; sqlite when nothing is

    // From here to the end of the draw no other process writes, so that what is read may be counted on in what is
    // written. Draws don't nest. A statement that fails inside one spoils nothing of it. beginDraw fails when the
    // database stays busy or can't be written; endDraw fails when the writes could not be kept (then none of them is).
    // Without keep they go back.
    Status beginDraw();
    Status endDraw(bool keep);

private:
    friend Result<Connection> openConnection(std::string_view, Role, const Settings&);
    std::string textForEngine(std::string_view sql) const;
    std::variant<std::monostate, SqliteConnection, OdbcConnection> engine;
    Role role = Role::main;
    Settings settings;
};

// text: "Key=value;" pairs (letter case of keys and blanks around both ignored, a later pair wins, a value may stand in
// quotes). The providers "Microsoft.ACE.OLEDB.12.0" and
// "Microsoft.Jet.OLEDB.4.0" open the file at "Data Source" by its content; with any other one a server is reached
// through its ODBC driver (see driver_text.hpp). A failure holds the engine's number, and never the password.
Result<Connection> openConnection(std::string_view text, Role role, const Settings& settings = {});

} // namespace kestrel::database
