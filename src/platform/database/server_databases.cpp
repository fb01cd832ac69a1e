#include "platform/database/server_databases.hpp"

#include "platform/database/connection_text.hpp"

#include <algorithm>
#include <array>

namespace kestrel::database {

namespace {

// "%1" stands for the name of the database, "%2" for that of the one it is copied from. No text: the server can't.
struct Words {
    Dialect dialect;
    const char* create;
    const char* clone;
    const char* drop;
};

// A database of its own locale can only be made from the empty template; a copy takes everything from its source.
constexpr std::array words{
    Words{Dialect::postgresql, "CREATE DATABASE %1 ENCODING 'UTF8' LOCALE 'C.UTF-8' TEMPLATE template0",
          "CREATE DATABASE %1 TEMPLATE %2", "DROP DATABASE IF EXISTS %1 WITH (FORCE)"},
    Words{Dialect::mariadb, "CREATE DATABASE %1 CHARACTER SET utf8mb4 COLLATE utf8mb4_nopad_bin", nullptr,
          "DROP DATABASE IF EXISTS %1"},
};

std::string quoted(std::string_view name) {
    std::string text = "\"";
    for (const char c : name) text.append(c == '"' ? 2 : 1, c);
    return text + "\"";
}

std::string filled(std::string_view pattern, std::string_view name, std::string_view from) {
    std::string text;
    for (std::size_t i = 0; i < pattern.size(); ++i) {
        if (pattern[i] == '%')
            text += quoted(pattern[++i] == '1' ? name : from);
        else
            text += pattern[i];
    }
    return text;
}

const char* wordsFor(const Connection& server, const char* Words::*pattern) {
    const auto row = std::ranges::find(words, server.dialect(), &Words::dialect);
    return row != words.end() ? (*row).*pattern : nullptr;
}

Status run(Connection& server, const char* Words::*pattern, std::string_view name, std::string_view from = {}) {
    const char* text = wordsFor(server, pattern);
    if (!text) return Failure{0, "databases of such a server are not made from here: " + std::string(name)};
    return server.executeNative(filled(text, name, from));
}

void addPair(std::string& text, std::string_view key, const std::string& value) {
    text += std::string(key) + "=" + pairValue(value) + ";";
}

} // namespace

ServerPlace serverPlace(std::string_view connectionText) {
    const std::string source = connectionValue(connectionText, "Data Source");
    const std::string catalog = connectionValue(connectionText, "Initial Catalog");
    if (!catalog.empty()) return {source, catalog};
    const std::size_t slash = source.rfind('/');
    if (slash == source.npos) return {source, {}};
    return {source.substr(0, slash), source.substr(slash + 1)};
}

std::string withDatabase(std::string_view connectionText, std::string_view database) {
    std::string text;
    for (const char* key : {"Provider", "User ID", "Password"})
        addPair(text, key, connectionValue(connectionText, key));
    const std::string host = serverPlace(connectionText).host;
    if (connectionValue(connectionText, "Initial Catalog").empty()) {
        addPair(text, "Data Source", host + "/" + std::string(database));
    } else {
        addPair(text, "Data Source", host);
        addPair(text, "Initial Catalog", std::string(database));
    }
    return text;
}

Status createServerDatabase(Connection& server, std::string_view name) {
    return run(server, &Words::create, name);
}

Status cloneServerDatabase(Connection& server, std::string_view from, std::string_view name) {
    return run(server, &Words::clone, name, from);
}

bool canCloneDatabases(const Connection& server) {
    return wordsFor(server, &Words::clone);
}

Status dropServerDatabase(Connection& server, std::string_view name) {
    return run(server, &Words::drop, name);
}

} // namespace kestrel::database
