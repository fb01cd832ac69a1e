// A search of a list window on a database server that gives as many rows as a list shows, from the click of its button
// to the rows in the list, against the server's own library reading the same columns of the same statement into
// strings. By the clock, and by the processor time of this process and of the server's for its session.
#include "lists/listWindows.hpp"
#include "session/modStart.hpp"
#include "support/both_times.hpp"
#include "support/list_window.hpp"
#include "support/server_company.hpp"

using namespace kestrel;

namespace {

constexpr std::size_t all = 1000; // rows that a list shows
constexpr double limit = 1.5;
constexpr int rounds = 31;

struct Search {
    const char *what, *field, *text, *button;
    std::size_t rows;
};

struct Sides {
    bench::Libpq& raw;
    bench::Meter ours, theirs;
};

void require(std::size_t found, const Search& search) {
    if (found != search.rows) bench::standStill(std::string(search.what) + " finds " + std::to_string(found) + " rows");
}

int measure(ListWindow& list, const Sides& sides, const Search& search) {
    bench::click(list, "btn_画面クリア");
    if (*search.text) bench::type(list, search.field, search.text);
    const std::string sql = bench::statementOf(list, search.button);
    const std::vector<std::string> columns = bench::columnsOf(list.spec);
    require(rowsOf(list).rows.size(), search);
    require(sides.raw.readAll(sql, columns).rows, search);
    const auto ours = [&] { return sides.ours.spentOn([&] { bench::click(list, search.button); }); };
    const auto theirs = [&] { return sides.theirs.spentOn([&] { sides.raw.readAll(sql, columns); }); };
    const bench::BothTimes times = bench::compareBoth(rounds, 1, ours, theirs);
    return bench::tell(search.what, times.clock, limit) | bench::tell("  processor time", times.processor, limit);
}

int measureIn(const ListSpec& spec, std::string_view condition, std::string_view field, const Sides& sides,
              std::initializer_list<Search> searches) {
    int exceeded = 0;
    bench::inList(spec, condition, field, [&](ListWindow& list) {
        for (const Search& search : searches) exceeded |= measure(list, sides, search);
    });
    return exceeded;
}

int measureAll(const Sides& sides) {
    const std::string roster = std::string("T名簿明細.事業所コード = '") + bench::rosterOffice +
                               "' AND T名簿明細.番号基準日付 = '" + bench::rosterBaseDate +
                               "' AND T名簿明細.名簿No = '" + bench::largeRoster + "'";
    return measureIn(wnd得意先一覧, "", "得意先コード", sides,
                     {{"1,000 customers by code", "コード", "150000", "btn_コード検索", all},
                      {"1,000 customers by name", "名称", "青葉", "btn_名称検索", all}}) |
           measureIn(wnd仕入先一覧, "", "仕入先コード", sides,
                     {{"1,000 suppliers by code", "コード", "010000", "btn_コード検索", all}}) |
           measureIn(wnd郵便番号一覧, "", "宛先郵便番号", sides,
                     {{"828 postal codes by town", "町域名", "神田東", "btn_町域名検索", 828}}) |
           measureIn(wnd名簿宛先No一覧, roster, "名簿宛先No", sides,
                     {{"1,000 addressees of a roster", "", "", "btn_複合検索", all}});
}

} // namespace

int main() {
    const bench::ServerCompany company;
    startProgram("");
    bench::Libpq raw(company.text());
    const int exceeded = measureAll({raw, bench::Meter(bench::serverProcessOfProgram()), bench::Meter(raw.process())});
    closeProgram();
    return exceeded;
}
