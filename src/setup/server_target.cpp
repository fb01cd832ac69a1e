#include "setup/server_target.hpp"

#include "platform/database/server_databases.hpp"
#include "setup/main_database.hpp"
#include "setup/words.hpp"

namespace kestrel::setup {

using database::Dialect;
using platform::Failure;

namespace {

constexpr const char* anyDatabase = "postgres"; // every server of that family has one of this name

// 'B' before 'a' is so by code point and in no language. A letter beyond ASCII has to count as one, else no part of a
// Japanese text is found by its index.
constexpr const char* orderSql = "SELECT datname AS name, pg_encoding_to_char(encoding) AS encoding, "
                                 "datcollate AS locale, CASE WHEN encoding = pg_char_to_encoding('UTF8') AND "
                                 "'B' < 'a' AND '亜' ~ '[[:alpha:]]' THEN 'right' END AS answer "
                                 "FROM pg_database WHERE datname = current_database()";

std::string commandFor(const std::string& name, const std::string& user) {
    return "createdb --owner=" + user + " --encoding=UTF8 --locale=C.UTF-8 --template=template0 " + name;
}

// The name of the database and the user's, as a person wrote them.
std::string catalogOf(const MainDefinition& definition) {
    return database::serverPlace(database::mainConnectionText(definition)).database;
}

std::string userOf(const MainDefinition& definition) {
    return database::connectionValue(database::mainConnectionText(definition), "User ID");
}

Result<Connection> open(const std::string& text) {
    return database::openConnection(text, database::Role::beside, {.connectionTimeout = secondsForServer});
}

// A session in another database of the same server.
Result<Connection> openBeside(const MainDefinition& definition) {
    return open(database::withDatabase(database::mainConnectionText(definition), anyDatabase));
}

bool isThere(Connection& server, const std::string& name) {
    const auto rows = server.openNative("SELECT datname FROM pg_database WHERE datname = " +
                                        literal(name, wordsOf(Dialect::postgresql)));
    return !rows || !rows.value().eof();
}

Status makeDatabase(const MainDefinition& definition, const Failure& whyNotOpen) {
    auto server = openBeside(definition);
    const std::string name = catalogOf(definition);
    if (!server || server.value().dialect() != Dialect::postgresql || isThere(server.value(), name)) return whyNotOpen;
    Status made = database::createServerDatabase(server.value(), name);
    if (made) return made;
    return Failure{made.failure().number, "the server has no database " + name +
                                              ", and it can't be made: " + made.failure().description +
                                              ". Who may do so makes it with: " + commandFor(name, userOf(definition))};
}

} // namespace

Status refuseOrder(Connection& store) {
    if (store.dialect() != Dialect::postgresql) return platform::done();
    const auto rows = store.openNative(orderSql);
    if (!rows) return rows.failure();
    if (rows.value().text("answer", "") == "right") return platform::done();
    return Failure{0, "the database " + rows.value().text("name") + " (encoding " + rows.value().text("encoding") +
                          ", locale " + rows.value().text("locale") +
                          ") can't serve: texts have to be in UTF8, compare by code point and know Japanese letters, "
                          "as in one that was made with --encoding=UTF8 --locale=C.UTF-8 --template=template0"};
}

Result<ServerTarget> openTarget(std::string_view kind, std::string_view connectionText) {
    auto definition = definitionFor(kind, connectionText);
    if (!definition) return definition.failure();
    ServerTarget target{std::move(definition.value()), {}, false};
    const std::string text = database::mainConnectionText(target.definition);
    auto store = open(text);
    if (!store) {
        if (Status made = makeDatabase(target.definition, store.failure()); !made) return made.failure();
        target.made = true;
        store = open(text);
        if (!store) return store.failure();
    }
    target.store = std::move(store.value());
    for (const auto check : {refuseOrder, refuseOwnTables}) {
        if (Status status = check(target.store); !status) {
            undoTarget(target);
            return status.failure();
        }
    }
    return target;
}

void tellOf(ServerTarget& target, std::ostream& words) {
    if (target.made) words << "the database " << catalogOf(target.definition) << " was made" << std::endl;
    if (searchesAreIndexed(target.store)) return;
    words << "the extension pg_trgm is not in this database: searches for a part of a name read whole tables"
          << std::endl;
}

void undoTarget(ServerTarget& target) {
    target.store.close();
    if (!target.made) return;
    auto server = openBeside(target.definition);
    if (server) (void)database::dropServerDatabase(server.value(), catalogOf(target.definition));
}

} // namespace kestrel::setup
