// The telephone search of the customers, whose EXISTS goes through the contact persons of each of them: with twice the
// customers it takes twice the time, because an index serves it. With the time of going through them all for each
// customer it would be four times as much.
#include "lists/listWindows.hpp"
#include "session/modStart.hpp"
#include "support/company.hpp"
#include "support/list_window.hpp"
#include "support/measure.hpp"

using namespace kestrel;

namespace {

constexpr int rounds = 9;
constexpr double limit = 2.4;
constexpr const char* button = "btn_電話番号検索";

void requireIndex(const std::string& plan) {
    if (plan.find("SEARCH M得意先御担当者 USING") == plan.npos)
        bench::standStill("no index serves the contact persons:\n" + plan);
}

// Microseconds of each round, of a number that nobody has.
std::vector<double> measured(const bench::CompanySize& size) {
    const bench::Company company(size);
    startProgram("");
    bench::RawDatabase raw(company.place().mainFile());
    std::vector<double> times;
    bench::inList(wnd得意先一覧, "", "得意先コード", [&](ListWindow& list) {
        bench::type(list, "電話", "0888888888");
        requireIndex(raw.plan(bench::statementOf(list, button)));
        for (int round = 0; round < rounds; ++round)
            times.push_back(bench::spentOn([&] { bench::click(list, button); }));
    });
    return times;
}

std::string inMilliseconds(double microseconds) {
    return bench::withUnit(microseconds / 1000, "ms");
}

} // namespace

int main() {
    const double whole = bench::median(measured(bench::wholeCompany));
    const double half = bench::median(measured(bench::halfTheCustomers));
    return bench::tell("telephone of 200,000 customers, of 100,000", inMilliseconds(whole), inMilliseconds(half),
                       bench::asRatio(whole / half), bench::asRatio(limit), whole / half <= limit);
}
