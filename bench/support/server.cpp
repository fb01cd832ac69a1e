#include "server.hpp"

#include "data/modGateway.hpp"
#include "platform/database/connection_text.hpp"
#include "platform/database/server_databases.hpp"
#include "setup/main_database.hpp"

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace kestrel::bench {

using database::connectionValue;

namespace {

void endUnless(const platform::Status& status) {
    if (status) return;
    std::fprintf(stderr, "%s\n", status.failure().description.c_str());
    std::exit(2);
}

database::Connection connected(const std::string& text) {
    auto opened = database::openConnection(text, database::Role::beside);
    if (opened) return std::move(opened.value());
    endUnless(opened.failure());
    return {};
}

// Name and value of the library's own connection text.
std::string pair(const char* word, const std::string& value) {
    std::string text = std::string(word) + "='";
    for (const char c : value) (c == '\'' || c == '\\' ? text += '\\' : text) += c;
    return text + "' ";
}

std::string libraryText(const std::string& text) {
    const auto [place, name] = database::serverPlace(text);
    const auto sign = place.rfind(':');
    return pair("host", place.substr(0, sign)) + (sign == place.npos ? "" : pair("port", place.substr(sign + 1))) +
           pair("dbname", name) + pair("user", connectionValue(text, "User ID")) +
           pair("password", connectionValue(text, "Password")) + pair("client_encoding", "UTF8");
}

std::string textAt(const PGresult* result, int row, int column) {
    return {PQgetvalue(result, row, column), static_cast<std::size_t>(PQgetlength(result, row, column))};
}

std::string nameOfOurs(std::string_view name) {
    return "kestrel_bench_" + std::to_string(getpid()) + "_" + std::string(name);
}

} // namespace

Libpq::Libpq(const std::string& connectionText) : session(PQconnectdb(libraryText(connectionText).c_str())) {
    if (PQstatus(session) != CONNECTION_OK) end("the server can't be reached");
    run("SET client_min_messages = error");
}

void Libpq::end(const std::string& what) {
    std::fprintf(stderr, "%s: %s\n", what.c_str(), PQerrorMessage(session));
    std::exit(2);
}

PGresult* Libpq::answered(const std::string& sql) {
    PGresult* result = PQexec(session, sql.c_str());
    const ExecStatusType status = PQresultStatus(result);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK && status != PGRES_COPY_IN) end(sql);
    return result;
}

void Libpq::run(const std::string& sql) {
    PQclear(answered(sql));
}

Libpq::Read Libpq::readAll(const std::string& sql, const std::vector<std::string>& columns) {
    PGresult* result = answered(sql);
    std::vector<int> places;
    for (const std::string& column : columns) places.push_back(PQfnumber(result, ("\"" + column + "\"").c_str()));
    std::vector<std::vector<std::string>> kept(static_cast<std::size_t>(PQntuples(result)));
    Read read{kept.size(), 0};
    for (int row = 0; row < PQntuples(result); ++row) {
        std::vector<std::string>& texts = kept[static_cast<std::size_t>(row)];
        texts.reserve(places.size());
        for (const int place : places) read.bytes += texts.emplace_back(textAt(result, row, place)).size();
    }
    PQclear(result);
    return read;
}

std::vector<std::vector<std::string>> Libpq::rows(const std::string& sql) {
    PGresult* result = answered(sql);
    std::vector<std::vector<std::string>> all(static_cast<std::size_t>(PQntuples(result)));
    for (int row = 0; row < PQntuples(result); ++row)
        for (int column = 0; column < PQnfields(result); ++column)
            all[static_cast<std::size_t>(row)].push_back(textAt(result, row, column));
    PQclear(result);
    return all;
}

std::string Libpq::ask(const std::string& sql) {
    const auto all = rows(sql);
    return all.empty() || all[0].empty() ? std::string() : all[0][0];
}

void Libpq::copyIn(const std::string& head, const std::string& lines) {
    run(head);
    if (PQputCopyData(session, lines.data(), static_cast<int>(lines.size())) != 1) end(head);
    if (PQputCopyEnd(session, nullptr) != 1) end(head);
    while (PGresult* result = PQgetResult(session)) {
        if (PQresultStatus(result) != PGRES_COMMAND_OK) end(head);
        PQclear(result);
    }
}

std::string testServer() {
    const char* text = std::getenv("KESTREL_TEST_SERVER");
    if (text && *text) return text;
    std::fprintf(stderr, "there is no server: run it under tools/test-server\n");
    std::exit(2);
}

ServerDatabase::ServerDatabase(std::string_view itsName, setup::What rows)
    : name(nameOfOurs(itsName)), text(database::withDatabase(testServer(), name)) {
    database::Connection server = connected(testServer());
    endUnless(database::createServerDatabase(server, name));
    database::Connection made = connected(text);
    endUnless(setup::fillMainDatabase(made, setup::installationRows(rows, {"", std::string(sampleDay)})));
}

ServerDatabase::ServerDatabase(std::string_view itsName, const ServerDatabase& from)
    : name(nameOfOurs(itsName)), text(database::withDatabase(testServer(), name)) {
    database::Connection server = connected(testServer());
    endUnless(database::cloneServerDatabase(server, from.name, name));
}

ServerDatabase::~ServerDatabase() {
    database::Connection server = connected(testServer());
    if (const auto dropped = database::dropServerDatabase(server, name); !dropped)
        std::fprintf(stderr, "%s\n", dropped.failure().description.c_str());
}

void useServer(const Installation& installation, const std::string& connectionText) {
    const auto [host, name] = database::serverPlace(connectionText);
    const std::string row = "UPDATE データベース定義 SET プロバイダ名 = '" +
                            connectionValue(connectionText, "Provider") + "', ユーザーID = '" +
                            connectionValue(connectionText, "User ID") + "', パスワード = '" +
                            connectionValue(connectionText, "Password") + "', データソース名 = '" + host + "/" + name +
                            "' WHERE 情報種類 = 'GNR'";
    endUnless(setup::changeStore(installation.localFile(), {row}));
}

int serverProcessOfProgram() {
    database::RecordSet records;
    openRecordset(records, "SELECT pg_backend_pid() AS process", false);
    return std::stoi(records.text("process"));
}

void ServerReplay::run(const std::vector<Sent>& statements) {
    for (const Sent& sent : statements) {
        if (sent.local)
            localDatabase.run(sent.text);
        else
            server.run(sent.text);
    }
}

} // namespace kestrel::bench
