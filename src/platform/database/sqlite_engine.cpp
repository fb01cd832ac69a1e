#include "platform/database/sqlite_engine.hpp"

#include "platform/clock.hpp"
#include "platform/database/sqlite_handle.hpp"
#include "platform/database/sqlite_statements.hpp"

#include <algorithm>
#include <vector>

namespace kestrel::database {

using platform::done;
using platform::Failure;
using platform::Result;
using platform::Status;

struct SqliteDatabase {
    sqlite3* handle = nullptr; // null: closed
    int waiting = -1;          // what the engine was told last, seconds
    double waitingSince = 0;   // for a busy database
    int running = 0;
    std::optional<double> deadline; // of the statement that runs now
    std::vector<SqliteResult*> live;
    KeptStatements kept;
};

struct SqliteResult {
    std::shared_ptr<SqliteDatabase> database;
    sqlite3_stmt* statement = nullptr;
    bool anyRow = false;
    bool ended = false;
    bool kept = false; // the rows from the present one on stand in cells
    std::vector<std::optional<std::string>> cells;
    std::size_t firstCell = 0;        // of the present row
    std::optional<Failure> brokenOff; // what ended the fetching of the kept rows

    ~SqliteResult();
};

namespace {

constexpr int stepsBetweenLooks = 100000; // of the engine's own machine, about a millisecond

// The first look sets the deadline: most steps are over before it, and reading the clock for each row of a list would
// take longer than some of the steps.
int lateForDeadline(void* running) {
    auto& database = *static_cast<SqliteDatabase*>(running);
    const double now = platform::secondsRunning();
    if (!database.deadline) database.deadline = now + database.running;
    return now > *database.deadline ? 1 : 0;
}

void startTiming(SqliteDatabase& database) {
    database.deadline.reset();
}

// The engine's own waiting sleeps ever longer, so that of two processes that write again and again one could wait for
// all that the other has to do.
int waitForTurn(void* waiting, int tries) {
    constexpr int pause = 2; // milliseconds, less than one write to a disk takes
    auto& database = *static_cast<SqliteDatabase*>(waiting);
    const double now = platform::secondsRunning();
    if (tries == 0) database.waitingSince = now;
    if (now - database.waitingSince >= database.waiting) return 0;
    sqlite3_sleep(pause);
    return 1;
}

void forget(SqliteResult& result) {
    std::erase(result.database->live, &result);
}

bool usable(const SqliteResult& result) {
    return result.database && result.database->handle && result.statement;
}

// Back to a statement that holds no state of the database.
void letGo(SqliteResult& result) {
    sqlite3_reset(result.statement);
    forget(result);
}

std::optional<std::string> cellCopy(sqlite3_stmt* statement, int column) {
    if (sqlite3_column_type(statement, column) == SQLITE_NULL) return std::nullopt;
    auto text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return std::string(text ? text : "", static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

void keepRow(SqliteResult& result) {
    int columns = sqlite3_column_count(result.statement);
    for (int column = 0; column < columns; ++column) result.cells.push_back(cellCopy(result.statement, column));
}

// Fetches what is left, so that the engine is free for the next statement.
void keepRest(SqliteResult& result) {
    startTiming(*result.database);
    int code = SQLITE_ROW;
    for (; code == SQLITE_ROW; code = sqlite3_step(result.statement)) keepRow(result);
    if (code != SQLITE_DONE) result.brokenOff = sqliteFailure(result.database->handle, code);
    result.kept = true;
    letGo(result);
}

void keepAllRests(SqliteDatabase& database) {
    while (!database.live.empty()) keepRest(*database.live.back());
}

Status end(SqliteResult& result) {
    result.ended = true;
    if (!result.brokenOff) return done();
    return *std::exchange(result.brokenOff, std::nullopt);
}

Status stepKept(SqliteResult& result) {
    result.firstCell += static_cast<std::size_t>(sqlite3_column_count(result.statement));
    return result.firstCell < result.cells.size() ? done() : end(result);
}

Status stepEngine(SqliteResult& result) {
    startTiming(*result.database);
    int code = sqlite3_step(result.statement);
    if (code == SQLITE_ROW) return done();
    if (code != SQLITE_DONE) result.brokenOff = sqliteFailure(result.database->handle, code);
    letGo(result);
    return end(result);
}

bool onlyBlanks(sqlite3* handle, const char* rest, const char* textEnd) {
    if (rest == textEnd) return true;
    sqlite3_stmt* second = nullptr;
    int code = sqlite3_prepare_v2(handle, rest, static_cast<int>(textEnd - rest), &second, nullptr);
    bool nothing = code == SQLITE_OK && second == nullptr;
    sqlite3_finalize(second);
    return nothing;
}

Failure refuse(std::string why) {
    return Failure{SQLITE_ERROR, std::move(why)};
}

// The one statement of the text, ready to run. Compiling runs nothing of it.
Result<sqlite3_stmt*> prepare(sqlite3* handle, const std::string& sql) {
    if (sql.find('\0') != sql.npos) return refuse("the text holds a NUL character");
    sqlite3_stmt* statement = nullptr;
    const char* rest = nullptr;
    int code = sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size() + 1), &statement, &rest);
    if (code != SQLITE_OK) return sqliteFailure(handle, code);
    if (!statement) return refuse("the text holds no statement");
    if (onlyBlanks(handle, rest, sql.c_str() + sql.size())) return statement;
    sqlite3_finalize(statement);
    return refuse("the text holds more than one statement");
}

// The engine makes up names such as "コード:2" for the columns of a parenthesised join. A caller would not find its
// column.
bool madeUpName(std::string_view name) {
    auto colon = name.rfind(':');
    if (colon == name.npos || colon + 1 == name.size()) return false;
    return std::all_of(name.begin() + colon + 1, name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::optional<Failure> refuseColumns(sqlite3_stmt* statement) {
    int columns = sqlite3_column_count(statement);
    if (columns == 0) return refuse("the statement answers no rows");
    for (int column = 0; column < columns; ++column) {
        std::string_view name = sqlite3_column_name(statement, column);
        if (madeUpName(name)) return refuse("the engine made up the column name " + std::string(name));
    }
    return std::nullopt;
}

// A statement that answers rows under names that a caller can find.
Result<sqlite3_stmt*> prepareRead(SqliteDatabase& database, const std::string& sql) {
    if (sqlite3_stmt* kept = database.kept.take(sql)) return kept;
    auto statement = prepare(database.handle, sql);
    if (!statement) return statement;
    auto refused = refuseColumns(statement.value());
    if (!refused) return statement;
    sqlite3_finalize(statement.value());
    return *refused;
}

} // namespace

SqliteResult::~SqliteResult() {
    if (!usable(*this)) return;
    forget(*this);
    database->kept.give(statement);
}

SqliteRows::SqliteRows(std::unique_ptr<SqliteResult> content) : result(std::move(content)) {}
SqliteRows::SqliteRows(SqliteRows&& other) noexcept = default;
SqliteRows& SqliteRows::operator=(SqliteRows&& other) noexcept = default;
SqliteRows::~SqliteRows() = default;

bool SqliteRows::none() const {
    return !result->anyRow;
}

bool SqliteRows::atEnd() const {
    return result->ended || !usable(*result);
}

Status SqliteRows::next() {
    if (atEnd()) return done();
    return result->kept ? stepKept(*result) : stepEngine(*result);
}

int SqliteRows::columnCount() const {
    return usable(*result) ? sqlite3_column_count(result->statement) : 0;
}

std::string_view SqliteRows::columnName(int index) const {
    const char* name = usable(*result) ? sqlite3_column_name(result->statement, index) : nullptr;
    return name ? name : std::string_view();
}

std::optional<std::string_view> SqliteRows::value(int index) const {
    if (result->kept) return result->cells[result->firstCell + static_cast<std::size_t>(index)];
    auto text = reinterpret_cast<const char*>(sqlite3_column_text(result->statement, index));
    if (text) return std::string_view(text, static_cast<std::size_t>(sqlite3_column_bytes(result->statement, index)));
    if (sqlite3_column_type(result->statement, index) == SQLITE_NULL) return std::nullopt;
    return "";
}

SqliteConnection& SqliteConnection::operator=(SqliteConnection&& other) noexcept {
    if (this == &other) return *this;
    close();
    database = std::move(other.database);
    return *this;
}

void SqliteConnection::close() {
    if (!database || !database->handle) return;
    database->live.clear();
    database->kept.clear();
    while (sqlite3_stmt* open = sqlite3_next_stmt(database->handle, nullptr)) sqlite3_finalize(open);
    sqlite3_close(database->handle);
    database->handle = nullptr;
}

void SqliteConnection::limit(int waiting, int running) {
    if (database->waiting != waiting) sqlite3_busy_handler(database->handle, waitForTurn, database.get());
    if (database->running != running)
        sqlite3_progress_handler(database->handle, stepsBetweenLooks, running > 0 ? lateForDeadline : nullptr,
                                 database.get());
    database->waiting = waiting;
    database->running = running;
}

Status SqliteConnection::execute(const std::string& sql) {
    keepAllRests(*database);
    startTiming(*database);
    auto statement = prepare(database->handle, sql);
    if (!statement) return statement.failure();
    int code = SQLITE_ROW;
    while (code == SQLITE_ROW) code = sqlite3_step(statement.value());
    Status status = code == SQLITE_DONE ? done() : Status(sqliteFailure(database->handle, code));
    sqlite3_finalize(statement.value());
    return status;
}

Result<SqliteRows> SqliteConnection::open(const std::string& sql) {
    keepAllRests(*database);
    startTiming(*database);
    auto statement = prepareRead(*database, sql);
    if (!statement) return statement.failure();
    auto result = std::make_unique<SqliteResult>();
    result->database = database;
    result->statement = statement.value();
    database->live.push_back(result.get());
    if (auto stepped = stepEngine(*result); !stepped) return stepped.failure();
    result->anyRow = !result->ended;
    return SqliteRows(std::move(result));
}

Status SqliteConnection::begin() {
    return execute("BEGIN IMMEDIATE");
}

Status SqliteConnection::end(bool keep) {
    // A full disk, for one, makes the engine take everything back on its own.
    if (sqlite3_get_autocommit(database->handle)) return keep ? Status(refuse("the writes were taken back")) : done();
    Status status = execute(keep ? "COMMIT" : "ROLLBACK");
    if (!status && keep) runSqlite(database->handle, "ROLLBACK");
    return status;
}

Result<SqliteConnection> openSqlite(const std::string& path, int waiting, int running) {
    auto handle = openSqliteHandle(path, waiting);
    if (!handle) return handle.failure();
    auto database = std::make_shared<SqliteDatabase>();
    database->handle = handle.value();
    SqliteConnection connection(database);
    connection.limit(waiting, running);
    return connection;
}

} // namespace kestrel::database
