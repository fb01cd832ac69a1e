#include "platform/database/odbc_engine.hpp"

#include "platform/database/odbc_calls.hpp"
#include "platform/database/odbc_rows.hpp"
#include "platform/database/server_words.hpp"
#include "platform/database/statement_shape.hpp"

#include <algorithm>
#include <vector>

namespace kestrel::database {

using platform::done;
using platform::Failure;
using platform::Result;
using platform::Status;

struct OdbcSession {
    OdbcHandle handle; // none: closed, or lost
    DriverText driver;
    bool wasClosed = false;
    bool drawing = false;
    bool tookBack = false;   // the server has undone what the draw wrote so far
    bool byCursor = false;   // what the driver was told last
    bool givesRests = false; //
    int waiting = 0, running = 0;
    std::string lastState; // of the last failure
    const ServerWords* words = nullptr;
    RequiredColumns required;
    OdbcRooms rooms;
    std::vector<OdbcResult*> live; // with a cursor on the server
};

struct OdbcResult {
    std::shared_ptr<OdbcSession> session;
    std::optional<OdbcFetch> fetch;
    Cells cells;
    std::size_t columns = 0, row = 0, rows = 0;
    bool anyRow = false;
    std::optional<Failure> brokenOff; // what ended the fetching of the kept blocks

    ~OdbcResult();
};

namespace {

Failure refuse(std::string why) {
    return Failure{1, std::move(why)};
}

Failure connectionLost() {
    return refuse("the connection was lost");
}

Failure drawTakenBack() {
    return refuse("the server took the draw back");
}

std::string withoutPassword(std::string text, const std::string& password) {
    if (password.empty()) return text;
    for (auto at = text.find(password); at != std::string::npos; at = text.find(password, at + 3))
        text.replace(at, password.size(), "***");
    return text;
}

// What the driver says, in a form that may be written down.
OdbcFailure failureOf(const OdbcSession& session, SQLSMALLINT kind, SQLHANDLE handle) {
    OdbcFailure failed = odbcFailure(kind, handle, session.driver.byBytes);
    failed.failure.description = withoutPassword(std::move(failed.failure.description), session.driver.password);
    return failed;
}

void forget(OdbcResult& result) {
    std::erase(result.session->live, &result);
}

// The results that stand open lose their cursors with the session.
void lose(OdbcSession& session) {
    for (OdbcResult* result : session.live) {
        result->fetch->stop();
        result->brokenOff = connectionLost();
    }
    session.live.clear();
    session.handle.free();
}

// With this state some servers have undone the whole transaction, and the next statement would begin another one.
constexpr std::string_view deadlock = "40001";

// How a failure of the session's own goes on: whoever asks next opens it anew.
Failure noted(OdbcSession& session, const OdbcFailure& failed) {
    session.lastState = failed.state;
    if (session.drawing && failed.state == deadlock) session.tookBack = true;
    if (tellsLoss(session.handle.get(), failed)) lose(session);
    return failed.failure;
}

bool setAttribute(OdbcSession& session, SQLINTEGER attribute, std::size_t value) {
    return SQL_SUCCEEDED(
        SQLSetConnectAttr(session.handle.get(), attribute, reinterpret_cast<SQLPOINTER>(value), SQL_IS_UINTEGER));
}

void readByCursor(OdbcSession& session, bool byCursor) {
    if (session.words->cursorAttribute == 0 || session.byCursor == byCursor) return;
    setAttribute(session, session.words->cursorAttribute, byCursor ? 1 : 0);
    session.byCursor = byCursor;
}

// The driver isn't to look for its own escapes in the text: the suite's texts hold none.
Result<OdbcHandle> send(OdbcSession& session, const std::string& sql) {
    if (!session.handle) return connectionLost(); // while the rests of other results were fetched
    OdbcHandle statement = newHandle(SQL_HANDLE_STMT, session.handle.get());
    if (!statement) return noted(session, failureOf(session, SQL_HANDLE_DBC, session.handle.get()));
    SQLSetStmtAttr(statement.get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
    if (!session.words->limitsStatements)
        SQLSetStmtAttr(statement.get(), SQL_ATTR_QUERY_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(static_cast<std::size_t>(session.running)), 0);
    const SQLRETURN code = executeText(statement.get(), sql, session.driver.byBytes);
    if (SQL_SUCCEEDED(code) || code == SQL_NO_DATA) return statement;
    const OdbcFailure failed = failureOf(session, SQL_HANDLE_STMT, statement.get());
    statement.free();
    return noted(session, failed);
}

Status run(OdbcSession& session, const std::string& sql) {
    auto sent = send(session, sql);
    return sent ? done() : Status(sent.failure());
}

// The first text that the statement answers; empty when it answers none.
Result<std::string> ask(OdbcSession& session, const std::string& sql) {
    auto sent = send(session, sql);
    if (!sent) return sent.failure();
    OdbcFetch fetch(std::move(sent.value()), {false, session.driver.byBytes}, session.rooms);
    Cells cells;
    if (fetch.names().empty()) return std::string();
    if (auto failed = fetch.fetch(cells)) return noted(session, *failed);
    return std::string(cells.count() > 0 ? cells.at(0).value_or("") : "");
}

std::string filled(const OdbcSession& session, std::string_view words) {
    return filledWords(words, session.waiting, session.running);
}

Status sendSettings(OdbcSession& session) {
    for (std::string_view words : session.words->session)
        if (Status status = run(session, filled(session, words)); !status) return status;
    return done();
}

Status learnColumns(OdbcSession& session) {
    session.required = {};
    if (session.words->requiredColumns.empty()) return done();
    auto sent = send(session, std::string(session.words->requiredColumns));
    if (!sent) return sent.failure();
    OdbcFetch fetch(std::move(sent.value()), {session.givesRests, session.driver.byBytes}, session.rooms);
    Cells cells;
    while (!fetch.isOver())
        if (auto failed = fetch.fetch(cells)) return noted(session, *failed);
    for (std::size_t i = 0; i + 1 < cells.count(); i += 2)
        session.required.add(cells.at(i).value_or(""), cells.at(i + 1).value_or(""));
    return done();
}

Status beginSession(OdbcSession& session) {
    if (Status status = sendSettings(session); !status) return status;
    return learnColumns(session);
}

void learnDriver(OdbcSession& session) {
    constexpr SQLUINTEGER needed = SQL_GD_BLOCK | SQL_GD_BOUND | SQL_GD_ANY_COLUMN;
    SQLUINTEGER able = 0;
    SQLGetInfo(session.handle.get(), SQL_GETDATA_EXTENSIONS, &able, sizeof(able), nullptr);
    session.words = &serverWords(dbmsName(session.handle.get()));
    session.givesRests = session.words->readsInBlocks && (able & needed) == needed;
    session.byCursor = false;
}

Status connect(OdbcSession& session) {
    OdbcHandle handle = newHandle(SQL_HANDLE_DBC, odbcEnvironment());
    if (!handle) return refuse("the driver manager gives no connection");
    const auto seconds = static_cast<std::size_t>(std::max(session.waiting, 1));
    SQLSetConnectAttr(handle.get(), SQL_ATTR_LOGIN_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds), SQL_IS_UINTEGER);
    const SQLRETURN code = driverConnect(handle.get(), session.driver.text, session.driver.byBytes);
    if (!SQL_SUCCEEDED(code)) return failureOf(session, SQL_HANDLE_DBC, handle.get()).failure;
    session.handle = std::move(handle);
    learnDriver(session);
    return beginSession(session);
}

// A session that was lost is tried once more; within a draw that would write without the draw's lock.
Status makeReady(OdbcSession& session) {
    if (session.handle) return session.tookBack ? Status(drawTakenBack()) : done();
    if (session.wasClosed) return refuse("the connection is not open");
    if (session.drawing) return connectionLost();
    Status status = connect(session);
    if (!status) session.handle.free();
    return status;
}

// What speaks against the text before anybody sees it.
std::optional<Failure> refuseText(const std::string& sql) {
    if (sql.find('\0') != sql.npos) return refuse("the text holds a NUL character");
    if (sql.find_first_not_of(" \t\r\n") == sql.npos) return refuse("the text holds no statement");
    if (holdsSecondStatement(sql)) return refuse("the text holds more than one statement");
    return std::nullopt;
}

std::size_t rowsIn(const OdbcResult& result) {
    return result.columns == 0 ? 0 : result.cells.count() / result.columns;
}

std::optional<Failure> fetchBlock(OdbcResult& result) {
    OdbcSession& session = *result.session;
    auto failed = result.fetch->fetch(result.cells);
    result.rows = rowsIn(result);
    if (result.fetch->isOver()) forget(result);
    if (!failed) return std::nullopt;
    failed->failure.description = withoutPassword(std::move(failed->failure.description), session.driver.password);
    return noted(session, *failed);
}

// Fetches what is left, so that the server is free for the next statement.
void keepRest(OdbcResult& result) {
    while (!result.fetch->isOver())
        if (auto failed = fetchBlock(result)) result.brokenOff = failed;
}

void keepAllRests(OdbcSession& session) {
    while (!session.live.empty()) keepRest(*session.live.back());
}

Result<std::unique_ptr<OdbcResult>> resultOf(const std::shared_ptr<OdbcSession>& session, OdbcHandle sent) {
    auto result = std::make_unique<OdbcResult>();
    result->session = session;
    result->fetch.emplace(std::move(sent), OdbcReading{session->givesRests, session->driver.byBytes}, session->rooms);
    result->columns = result->fetch->names().size();
    if (result->columns == 0) return refuse("the statement answers no rows");
    session->live.push_back(result.get());
    if (auto failed = fetchBlock(*result)) return *failed;
    result->anyRow = result->rows > 0;
    return result;
}

Result<std::unique_ptr<OdbcResult>> read(const std::shared_ptr<OdbcSession>& session, const std::string& sql,
                                         bool byCursor) {
    readByCursor(*session, byCursor);
    auto sent = send(*session, sql);
    if (!sent) return sent.failure();
    return resultOf(session, std::move(sent.value()));
}

// A bound behind the text would be read, and does no harm: for a part of a text a server would rather walk through the
// rows in their order than look the part up.
bool mayBeBounded(const std::string& sql) {
    return std::ranges::none_of(std::initializer_list<std::string_view>{";", "--", "/*", "LIKE"},
                                [&](std::string_view sign) { return sql.find(sign) != sql.npos; });
}

// The bound could stand where the server wants none: the statement itself is then asked what is wrong with it.
bool mayBeTheBounds(const OdbcSession& session) {
    return session.lastState == "42601"; // the standard's syntax error
}

// A cursor takes a second trip to the server, and most answers are one row: the read is bounded first, and goes by a
// cursor when it fills a block.
Result<std::unique_ptr<OdbcResult>> readUnbounded(const std::shared_ptr<OdbcSession>& session, const std::string& sql) {
    if (session->givesRests && mayBeBounded(sql)) {
        auto small = read(session, sql + std::string(session->words->bound) + std::to_string(rowsOfBlock), false);
        const bool whole = small && small.value()->fetch->isOver();
        if (whole || (!small && !mayBeTheBounds(*session))) return small;
    }
    return read(session, sql, true);
}

Status endTransaction(OdbcSession& session, bool keep) {
    if (!session.handle) return connectionLost();
    const SQLSMALLINT how = keep ? SQL_COMMIT : SQL_ROLLBACK;
    if (SQL_SUCCEEDED(SQLEndTran(SQL_HANDLE_DBC, session.handle.get(), how))) return done();
    return noted(session, failureOf(session, SQL_HANDLE_DBC, session.handle.get()));
}

} // namespace

OdbcResult::~OdbcResult() {
    if (session) forget(*this);
}

OdbcRows::OdbcRows(std::unique_ptr<OdbcResult> content) : result(std::move(content)) {}
OdbcRows::OdbcRows(OdbcRows&& other) noexcept = default;
OdbcRows& OdbcRows::operator=(OdbcRows&& other) noexcept = default;
OdbcRows::~OdbcRows() = default;

bool OdbcRows::none() const {
    return !result->anyRow;
}

bool OdbcRows::atEnd() const {
    return result->session->wasClosed || result->row >= result->rows;
}

Status OdbcRows::next() {
    if (atEnd()) return done();
    if (++result->row < result->rows) return done();
    if (!result->fetch->isOver()) {
        result->cells.clear();
        result->row = 0;
        if (auto failed = fetchBlock(*result)) {
            result->rows = 0;
            return *failed;
        }
    }
    if (!atEnd() || !result->brokenOff) return done();
    return *std::exchange(result->brokenOff, std::nullopt);
}

int OdbcRows::columnCount() const {
    return static_cast<int>(result->columns);
}

std::string_view OdbcRows::columnName(int index) const {
    return result->fetch->names()[static_cast<std::size_t>(index)];
}

std::optional<std::string_view> OdbcRows::value(int index) const {
    return result->cells.at(result->row * result->columns + static_cast<std::size_t>(index));
}

OdbcConnection& OdbcConnection::operator=(OdbcConnection&& other) noexcept {
    if (this == &other) return *this;
    close();
    session = std::move(other.session);
    return *this;
}

void OdbcConnection::close() {
    if (!session || session->wasClosed) return;
    if (session->drawing) (void)end(false); // with an open transaction not every driver ends a session
    lose(*session);
    session->wasClosed = true;
}

void OdbcConnection::limit(int waiting, int running) {
    if (session->waiting == waiting && session->running == running) return;
    session->waiting = waiting;
    session->running = running;
    if (session->handle) (void)sendSettings(*session); // a session that was lost learns it when it begins anew
}

Status OdbcConnection::execute(const std::string& sql) {
    if (auto refused = refuseText(sql)) return *refused;
    if (Status ready = makeReady(*session); !ready) return ready;
    keepAllRests(*session);
    readByCursor(*session, false);
    return run(*session, sql);
}

Result<OdbcRows> OdbcConnection::open(const std::string& sql) {
    if (auto refused = refuseText(sql)) return *refused;
    if (!readsRows(sql)) return refuse("the statement answers no rows");
    if (Status ready = makeReady(*session); !ready) return ready.failure();
    keepAllRests(*session);
    const bool unbounded = session->words->cursorAttribute != 0 && !session->drawing && !limitsRows(sql);
    auto result = unbounded ? readUnbounded(session, sql) : read(session, sql, false);
    if (!result) return result.failure();
    return OdbcRows(std::move(result.value()));
}

Status OdbcConnection::begin() {
    if (session->drawing) return refuse("a draw goes on already");
    if (Status ready = makeReady(*session); !ready) return ready;
    keepAllRests(*session);
    readByCursor(*session, false);
    if (!setAttribute(*session, SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_OFF))
        return noted(*session, failureOf(*session, SQL_HANDLE_DBC, session->handle.get()));
    session->drawing = true;
    for (std::string_view words : session->words->draw) {
        auto answer = ask(*session, filled(*session, words));
        if (answer && answer.value() != "0") continue;
        (void)end(false);
        return answer ? refuse("another draw goes on") : answer.failure();
    }
    return done();
}

Status OdbcConnection::end(bool keep) {
    const bool wasDrawing = std::exchange(session->drawing, false);
    const bool tookBack = std::exchange(session->tookBack, false);
    if (!session->handle || !wasDrawing) return keep ? Status(connectionLost()) : done();
    keepAllRests(*session);
    Status status = keep && tookBack ? Status(drawTakenBack()) : endTransaction(*session, keep && !tookBack);
    if (!status) (void)endTransaction(*session, false); // else what wasn't kept would be with what comes next
    // A session that would go on collecting is of no use: the next statement opens another.
    if (session->handle && !setAttribute(*session, SQL_ATTR_AUTOCOMMIT, SQL_AUTOCOMMIT_ON)) lose(*session);
    if (session->handle && !session->words->afterDraw.empty())
        (void)ask(*session, filled(*session, session->words->afterDraw));
    return status;
}

const RequiredColumns& OdbcConnection::requiredColumns() const {
    return session->required;
}

Dialect OdbcConnection::dialect() const {
    return session->words->dialect;
}

Result<OdbcConnection> openOdbc(std::string_view text, int waiting, int running) {
    auto driver = driverText(text, installedDrivers());
    if (!driver) return driver.failure();
    auto session = std::make_shared<OdbcSession>();
    session->driver = std::move(driver.value());
    session->waiting = waiting;
    session->running = running;
    if (Status status = connect(*session); !status) return status.failure();
    return OdbcConnection(std::move(session));
}

} // namespace kestrel::database
