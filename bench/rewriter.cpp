// What rewriting a text costs, against what SQLite needs to prepare it, in the same run. For a server nearly every
// token is looked at.
#include "platform/database/rewriter.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

namespace bench = kestrel::bench;
using kestrel::database::Dialect;
using kestrel::database::rewrite;

namespace {

constexpr int rounds = 41, steps = 500;

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

double rewriteMany(const char* sql, Dialect dialect) {
    std::size_t length = 0;
    const double spent = bench::spentOn([&] {
        for (int i = 0; i < steps; ++i) length += rewrite(sql, dialect).size();
    });
    return length > 0 ? spent : 0; // so that the work isn't taken for needless
}

int measure(bench::RawDatabase& database, const char* what, const char* sql, Dialect dialect, double limit) {
    const std::string text = rewrite(sql, Dialect::sqlite);
    const auto preparing = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < steps; ++i) database.prepare(text);
        });
    };
    return bench::tell(what,
                       bench::compare(
                           rounds, steps, [&] { return rewriteMany(sql, dialect); }, preparing),
                       limit);
}

} // namespace

int main() {
    const bench::Installation place(kestrel::setup::What::minimal, bench::Where::memory);
    bench::RawDatabase database(place.mainFile());
    const int roster =
        measure(database, "rewriting the roster read, against preparing it", rosterRead, Dialect::sqlite, 0.5);
    const int plain =
        measure(database, "rewriting a plain read, against preparing it", plainRead, Dialect::sqlite, 0.05);
    const int server = measure(database, "the roster read for PostgreSQL", rosterRead, Dialect::postgresql, 0.7);
    const int plainServer = measure(database, "the plain read for PostgreSQL", plainRead, Dialect::postgresql, 0.5);
    return roster | plain | server | plainServer;
}
