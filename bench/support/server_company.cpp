#include "server_company.hpp"

#include "setup/definition.hpp"

#include <algorithm>

namespace kestrel::bench {

namespace {

constexpr database::Dialect postgresql = database::Dialect::postgresql;

std::string joined(const std::vector<std::string>& names, const char* quote) {
    std::string text;
    for (const std::string& name : names) text += (text.empty() ? "" : ",") + (quote + name) + quote;
    return text;
}

// A value as COPY reads it.
void addCell(std::string& lines, const unsigned char* text) {
    if (!text) lines += "\\N";
    for (; text && *text; ++text) {
        if (*text == '\\' || *text == '\t' || *text == '\n' || *text == '\r') lines += '\\';
        lines += static_cast<char>(*text);
    }
}

std::string linesOf(RawDatabase& from, const std::string& sql) {
    std::string lines;
    sqlite3_stmt* statement = from.prepared(sql);
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            if (i > 0) lines += '\t';
            addCell(lines, sqlite3_column_text(statement, i));
        }
        lines += '\n';
    }
    sqlite3_finalize(statement);
    return lines;
}

void copyTable(RawDatabase& from, Libpq& to, const setup::Table& table) {
    const std::vector<std::string> columns = setup::writtenColumns(table);
    to.copyIn("COPY \"" + table.name + "\" (" + joined(columns, "\"") + ") FROM STDIN",
              linesOf(from, "SELECT " + joined(columns, "") + " FROM " + table.name));
}

void addSuppliers(Libpq& server) {
    const std::vector<std::string> theirs = setup::writtenColumns(setup::tableNamed("M仕入先"));
    std::vector<std::string> shared;
    for (const std::string& column : setup::writtenColumns(setup::tableNamed("M得意先")))
        if (std::ranges::find(theirs, column) != theirs.end()) shared.push_back(column);
    const std::string columns = joined(shared, "\"");
    server.run("TRUNCATE \"M仕入先\"");
    server.run("INSERT INTO \"M仕入先\" (" + columns + ") SELECT " + columns +
               " FROM \"M得意先\" ORDER BY \"コード\" LIMIT " + std::to_string(suppliers));
}

void fill(const std::string& text, const std::string& file) {
    RawDatabase company(file);
    Libpq server(text);
    dropSearchIndexes(server);
    for (const setup::Table& table : setup::tables()) {
        if (table.database != "main") continue;
        server.run("TRUNCATE \"" + table.name + "\"");
        copyTable(company, server, table);
    }
    addSuppliers(server);
    makeSearchIndexes(server);
    server.run("VACUUM ANALYZE");
}

} // namespace

ServerCompany::ServerCompany()
    : file(companyFile(serverCompany)), installed(setup::What::full, Where::memory),
      database("company", setup::What::full) {
    fill(database.text, file);
    useServer(installed, database.text);
}

void dropSearchIndexes(Libpq& server) {
    for (const auto& row : server.rows("SELECT indexname FROM pg_indexes WHERE schemaname = current_schema() AND "
                                       "indexdef LIKE '% USING gin %'"))
        server.run("DROP INDEX \"" + row[0] + "\"");
}

void makeSearchIndexes(Libpq& server) {
    for (const std::string& sql : setup::searchStatements("main", postgresql)) server.run(sql);
}

} // namespace kestrel::bench
