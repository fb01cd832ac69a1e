// The database server that tools/test-server lends: databases of our own on it, and its own library, with nothing of
// the house in between.
#pragma once

#include "program.hpp"

#include <libpq-fe.h>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::bench {

// One session by the server's own library. Every operation ends the process when the server refuses.
class Libpq {
public:
    explicit Libpq(const std::string& connectionText); // the suite's, see driver_text.hpp
    ~Libpq() { PQfinish(session); }
    Libpq(const Libpq&) = delete;
    Libpq& operator=(const Libpq&) = delete;

    void run(const std::string& sql); // whatever it answers
    struct Read {
        std::size_t rows = 0, bytes = 0;
    };
    Read readAll(const std::string& sql,
                 const std::vector<std::string>& columns);              // these columns of every row, as
                                                                        // strings that are kept until the end
    std::vector<std::vector<std::string>> rows(const std::string& sql); // a null as an empty text
    std::string ask(const std::string& sql);                            // the first text
    void copyIn(const std::string& head, const std::string& lines);     // COPY … FROM STDIN
    int process() const { return PQbackendPID(session); }               // the server's, for this session

private:
    [[noreturn]] void end(const std::string& what);
    PGresult* answered(const std::string& sql);
    PGconn* session;
};

// The connection text that tools/test-server gives; the process ends when there is none.
std::string testServer();

// A database with the tables of an installation and its rows, dropped at the end.
class ServerDatabase {
public:
    ServerDatabase(std::string_view name, setup::What rows);           // the name: of this process, and for it alone
    ServerDatabase(std::string_view name, const ServerDatabase& from); // its copy; nobody is in the other one
    ~ServerDatabase();
    ServerDatabase(const ServerDatabase&) = delete;
    ServerDatabase& operator=(const ServerDatabase&) = delete;
    const std::string name;
    const std::string text; // the connection text
};

// From the program's next start on its main database is that one.
void useServer(const Installation& installation, const std::string& connectionText);

int serverProcessOfProgram(); // the server's process for the main connection

// The statements by the server's own library, and those of the local database by its engine's.
class ServerReplay {
public:
    ServerReplay(const Installation& installation, const std::string& connectionText)
        : server(connectionText), localDatabase(installation.localFile()) {}
    void run(const std::vector<Sent>& statements);
    Libpq server;

private:
    RawDatabase localDatabase;
};

} // namespace kestrel::bench
