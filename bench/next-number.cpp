// The next free addressee number of a roster of 100,000 addressees against that of one of 100: it reads one row by the
// order of the key, however many there are.
#include "entry/modRosterRecords.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

#include <cstdio>

using namespace kestrel;

namespace {

constexpr int rounds = 41, steps = 200;
constexpr double limit = 3;

void fill(const bench::Installation& installation, const std::string& rosterNo, const std::string& addressees) {
    bench::RawDatabase(installation.mainFile())
        .run("INSERT INTO T名簿明細 (事業所コード, 番号基準日付, 名簿No, 名簿宛先No, 名簿日付, 宛先名称A, 宛先住所A) "
             "WITH RECURSIVE 番号(n) AS (SELECT 1 UNION ALL SELECT n + 1 FROM 番号 WHERE n < " +
             addressees + ") SELECT '000', '20250331', '" + rosterNo +
             "', printf('%06d', n), '20240410', '青葉印刷株式会社', '東京都千代田区千代田1-1' FROM 番号");
}

double assignMany(const char* rosterNo) {
    installation.sessionOffice = "000";
    rosterSession.番号基準日付 = "20250331";
    rosterSession.名簿No = rosterNo;
    return bench::spentOn([] {
        for (int i = 0; i < steps; ++i) assignNextAddresseeNo();
    });
}

bool proposes(const char* rosterNo, const char* next) {
    assignMany(rosterNo);
    if (rosterSession.名簿宛先No == next) return true;
    std::fprintf(stderr, "the next number is %s instead of %s\n", rosterSession.名簿宛先No.c_str(), next);
    return false;
}

} // namespace

int main() {
    const bench::Installation place(setup::What::minimal, bench::Where::memory);
    fill(place, "00000001", "100000");
    fill(place, "00000002", "100");
    bench::openOrEnd();
    if (!proposes("00000001", "100001") || !proposes("00000002", "000101")) return 2;
    const bench::Comparison comparison = bench::compare(
        rounds, steps, [] { return assignMany("00000001"); }, [] { return assignMany("00000002"); });
    return bench::tell("next number, 100,000 addressees against 100", comparison, limit);
}
