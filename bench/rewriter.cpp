// What rewriting a text costs, against what SQLite needs to prepare the rewritten one, in the same run.
#include "platform/database/rewriter.hpp"
#include "platform/clock.hpp"

#include <algorithm>
#include <cstdio>
#include <sqlite3.h>
#include <vector>

using kestrel::database::Dialect;
using kestrel::database::rewrite;

namespace {

constexpr int rounds = 15, repeats = 2000;

const char* const tables = "CREATE TABLE T名簿 (事業所コード TEXT, 番号基準日付 TEXT, 名簿No TEXT, 名簿日付 TEXT, "
                           "担当者コード TEXT, 部門コード TEXT, "
                           "セクションコード TEXT, 名簿名称 TEXT, 発送日付 TEXT, PRIMARY KEY (事業所コード, "
                           "番号基準日付, 名簿No)) WITHOUT ROWID;"
                           "CREATE TABLE M担当者 (コード TEXT PRIMARY KEY, 氏名 TEXT) WITHOUT ROWID;"
                           "CREATE TABLE M部門 (コード TEXT PRIMARY KEY, 名称 TEXT) WITHOUT ROWID;"
                           "CREATE TABLE Mセクション (コード TEXT PRIMARY KEY, 名称 TEXT) WITHOUT ROWID;";

const char* const rosterRead = "SELECT TOP 1 T名簿.*, M担当者.氏名 AS 担当者名, M部門.名称 AS 部門名, Mセクション.名称 "
                               "AS セクション名 FROM Mセクション RIGHT JOIN (M部門 "
                               "RIGHT JOIN (M担当者 RIGHT JOIN T名簿 ON M担当者.コード = T名簿.担当者コード) ON "
                               "M部門.コード = T名簿.部門コード) ON "
                               "Mセクション.コード = T名簿.セクションコード WHERE T名簿.名簿No = '00000012' AND "
                               "T名簿.事業所コード = '001' AND T名簿.番号基準日付 = "
                               "'20250331'";

const char* const plainRead =
    "SELECT T名簿.* FROM T名簿 WHERE T名簿.事業所コード = '001' AND T名簿.番号基準日付 = '20250331' AND "
    "T名簿.名簿No = '00000012'";

// Microseconds of one step: the best of several rounds, so that a neighbour on the machine doesn't count.
template <class Step> double best(Step step) {
    double least = 1e9;
    for (int round = 0; round < rounds; ++round) {
        double begin = kestrel::platform::secondsRunning();
        for (int i = 0; i < repeats; ++i) step();
        least = std::min(least, (kestrel::platform::secondsRunning() - begin) * 1e6 / repeats);
    }
    return least;
}

void prepare(sqlite3* handle, const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(handle, sql.c_str(), static_cast<int>(sql.size() + 1), &statement, nullptr) != SQLITE_OK)
        std::fprintf(stderr, "%s\n", sqlite3_errmsg(handle));
    sqlite3_finalize(statement);
}

double measure(sqlite3* handle, const char* name, const char* sql) {
    std::string text = rewrite(sql, Dialect::sqlite);
    std::size_t length = 0;
    double rewriting = best([&] { length += rewrite(sql, Dialect::sqlite).size(); });
    double preparing = best([&] { prepare(handle, text); });
    double ratio = rewriting / preparing;
    std::printf("%s: rewriting %.3f us, preparing %.3f us, ratio %.3f%s\n", name, rewriting, preparing, ratio,
                length ? "" : " (nothing)");
    return ratio;
}

} // namespace

int main() {
    sqlite3* handle = nullptr;
    sqlite3_open(":memory:", &handle);
    sqlite3_exec(handle, tables, nullptr, nullptr, nullptr);
    bool held = measure(handle, "roster read", rosterRead) <= 0.5;
    held = measure(handle, "plain read", plainRead) <= 0.05 && held;
    sqlite3_close(handle);
    return held ? 0 : 1;
}
