#include "platform/database/connection.hpp"

#include "platform/database/connection_text.hpp"
#include "platform/database/fault_state.hpp"
#include "platform/database/file_kind.hpp"
#include "platform/database/names.hpp"
#include "platform/database/rewriter.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"

namespace kestrel::database {

using platform::systemPath;

namespace {

// Primary numbers of the engine for what is found out before it is asked.
constexpr int generalError = 1;
constexpr int cannotOpen = 14;
constexpr int notADatabase = 26;

Failure refuse(int number, std::string why) {
    return Failure{number, std::move(why)};
}

Failure notOpen() {
    return refuse(generalError, "the connection is not open");
}

bool fileProvider(std::string_view provider) {
    return sameName(provider, "Microsoft.ACE.OLEDB.12.0") || sameName(provider, "Microsoft.Jet.OLEDB.4.0");
}

std::optional<Failure> refuseFile(const std::string& path) {
    switch (fileKind(path)) {
    case FileKind::sqlite:
        return std::nullopt;
    case FileKind::missing:
        return refuse(cannotOpen, "there is no database file " + path);
    case FileKind::folder:
        return refuse(cannotOpen, path + " is a folder, not a database file");
    case FileKind::unreadable:
        return refuse(cannotOpen, "the database file " + path + " can't be read");
    case FileKind::access:
        return refuse(cannotOpen, path + " is an Access database, and no ODBC driver for Access is installed");
    case FileKind::other:
        break;
    }
    return refuse(notADatabase, path + " is not a database file");
}

int waitingOf(const Settings& settings) {
    return faultyWaiting().value_or(settings.connectionTimeout);
}

void recordSent(Role role, std::string_view sql) {
    if (role == Role::beside) return;
    journal::record(role == Role::main ? journal::Channel::sentMain : journal::Channel::sentLocal, sql);
}

// What speaks against sending the statement at all.
std::optional<Failure> refuseStatement(bool open, Role role, std::string_view sql) {
    recordSent(role, sql);
    if (!open) return notOpen();
    if (isBroken(role, sql)) return brokenOnPurpose();
    return std::nullopt;
}

Result<SqliteConnection> openFile(std::string_view text, const Settings& settings) {
    const std::string path = systemPath(connectionValue(text, "Data Source"));
    if (path.empty()) return refuse(cannotOpen, "the connection names no Data Source");
    if (auto refused = refuseFile(path)) return *refused;
    auto opened = openSqlite(path, waitingOf(settings), settings.commandTimeout);
    if (!opened) return Failure{opened.failure().number, opened.failure().description + ": " + path};
    return opened;
}

// Runs the step on the engine that is open, told first what the settings say.
template <class Engine, class Step> auto onEngine(Engine& engine, const Settings& settings, Step step) {
    using Answer = decltype(step(std::get<SqliteConnection>(engine)));
    return std::visit(
        [&](auto& open) -> Answer {
            if constexpr (requires { open.begin(); }) {
                open.limit(waitingOf(settings), settings.commandTimeout);
                return step(open);
            } else {
                return notOpen();
            }
        },
        engine);
}

} // namespace

void Connection::close() {
    engine = std::monostate{};
}

// The statement goes into the journal as the program sent it and, where the engine gets another text, as that one too.
std::string Connection::textForEngine(std::string_view sql) const {
    const auto server = std::get_if<OdbcConnection>(&engine);
    std::string text = rewrite(sql, dialect(), server ? &server->requiredColumns() : nullptr);
    if (role != Role::beside && text != sql) journal::record(journal::Channel::engine, text);
    return text;
}

Status Connection::execute(std::string_view sql) {
    if (auto refused = refuseStatement(isOpen(), role, sql)) return *refused;
    return executeNative(textForEngine(sql));
}

Result<RecordSet> Connection::open(std::string_view sql) {
    if (auto refused = refuseStatement(isOpen(), role, sql)) return *refused;
    return openNative(textForEngine(sql));
}

Status Connection::executeNative(const std::string& sql) {
    return onEngine(engine, settings, [&](auto& open) { return open.execute(sql); });
}

Result<RecordSet> Connection::openNative(const std::string& sql) {
    return onEngine(engine, settings, [&](auto& open) -> Result<RecordSet> {
        auto rows = open.open(sql);
        if (!rows) return rows.failure();
        return RecordSet(std::move(rows.value()));
    });
}

Dialect Connection::dialect() const {
    const auto server = std::get_if<OdbcConnection>(&engine);
    return server ? server->dialect() : Dialect::sqlite;
}

Status Connection::beginDraw() {
    return onEngine(engine, settings, [](auto& open) { return open.begin(); });
}

Status Connection::endDraw(bool keep) {
    return onEngine(engine, settings, [&](auto& open) { return open.end(keep); });
}

Result<Connection> openConnection(std::string_view text, Role role, const Settings& settings) {
    if (isOpeningBroken(role)) return brokenOnPurpose();
    Connection connection(role);
    connection.settings = settings;
    if (fileProvider(connectionValue(text, "Provider"))) {
        auto opened = openFile(text, settings);
        if (!opened) return opened.failure();
        connection.engine = std::move(opened.value());
    } else {
        auto opened = openOdbc(text, waitingOf(settings), settings.commandTimeout);
        if (!opened) return opened.failure();
        connection.engine = std::move(opened.value());
    }
    return connection;
}

} // namespace kestrel::database
