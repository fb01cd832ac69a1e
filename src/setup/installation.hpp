// Making and copying an installation: the folder tree, the databases and their rows. Callable from kestrel-setup, from
// the scenario operator and from benchmarks; nothing in the program itself makes a table.
#pragma once

#include "platform/database/connection.hpp"
#include "platform/result.hpp"
#include "setup/rows.hpp"

#include <string>
#include <string_view>

namespace kestrel::setup {

struct ServerTarget;

enum class What {
    minimal, // the rows without which the program does not start
    full,    // and the demonstration data
};

// Where the parts of an installation lie, below its folder.
inline constexpr const char* mainFile = "data/maindb.accdb";
inline constexpr const char* localFile = "conf/usrcnfg.accdb";
inline constexpr const char* programFile = "prgbin/連絡台帳入力";
inline constexpr const char* manualFile = "manual/連絡台帳入力.doc"; // the program ID in full width

// Makes an installation in folder, which must be empty or not there yet. day: "yyyymmdd"; the demonstration data are
// counted from it, and the same day gives the same rows. program: the file to become prgbin/連絡台帳入力; empty puts a
// small text file in its place, for those who bring the program along themselves. server: the database on a server that
// becomes the main database, in place of the file, which is then not made. Fails with one clear line; what was made by
// then is taken away again (the caller takes back the server's database itself).
platform::Status createInstallation(std::string_view folder, What what, std::string_view day,
                                    std::string_view program = {}, ServerTarget* server = nullptr);

// The rows of a new installation, of both databases.
Rows installationRows(What what, const Place& place);
// Lets a main database that was made for another installation name the document folder of the one at root.
platform::Status nameDocumentFolder(database::Connection& main, std::string_view root);

// Copies an installation that nobody has open, file by file, and lets the paths inside name the new place. The target
// must be empty or not there yet. Fails where a database has a write-ahead log beside it: someone is still at work.
platform::Status copyInstallation(std::string_view from, std::string_view to);

} // namespace kestrel::setup
