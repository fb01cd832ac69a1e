// A search of a list window, from the click of its button to the rows in the list, against the engine's own interface
// running the rewritten text and reading the same columns. First searches that give as many rows as a list shows, then
// ones that go through all customers and find nothing.
#include "lists/listWindows.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "support/company.hpp"
#include "support/list_window.hpp"
#include "support/measure.hpp"

using namespace kestrel;

namespace {

constexpr std::size_t all = 1000; // rows that a list shows
constexpr double fullLimit = 1.3, nothingLimit = 1.1;

struct Search {
    const char *what, *field, *text, *button;
    std::size_t rows;
    int rounds, steps;
};

void require(std::size_t found, const Search& search) {
    if (found != search.rows) bench::standStill(std::string(search.what) + " finds " + std::to_string(found) + " rows");
}

int measure(ListWindow& list, bench::RawDatabase& raw, const Search& search) {
    bench::click(list, "btn_画面クリア");
    if (*search.text) bench::type(list, search.field, search.text);
    const std::string sql = bench::statementOf(list, search.button);
    const std::vector<std::string> columns = bench::columnsOf(list.spec);
    require(rowsOf(list).rows.size(), search);
    require(raw.readAll(sql, columns).rows, search);
    const auto ours = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < search.steps; ++i) bench::click(list, search.button);
        });
    };
    const auto theirs = [&] {
        return bench::spentOn([&] {
            for (int i = 0; i < search.steps; ++i) raw.readAll(sql, columns);
        });
    };
    return bench::tell(search.what, bench::compare(search.rounds, search.steps, ours, theirs),
                       search.rows == 0 ? nothingLimit : fullLimit);
}

int measureAll(ListWindow& list, bench::RawDatabase& raw, std::initializer_list<Search> searches) {
    int exceeded = 0;
    for (const Search& search : searches) exceeded |= measure(list, raw, search);
    return exceeded;
}

int measureCustomers(bench::RawDatabase& raw) {
    int exceeded = 0;
    bench::inList(wnd得意先一覧, "", "得意先コード", [&](ListWindow& list) {
        exceeded = measureAll(list, raw,
                              {{"1,000 customers by code", "コード", "150000", "btn_コード検索", all, 41, 10},
                               {"1,000 customers by name", "名称", "青葉", "btn_名称検索", all, 11, 1},
                               {"no customer by name", "名称", "名無しの会社", "btn_名称検索", 0, 11, 1},
                               {"no customer by address", "住所", "どこにもない町", "btn_住所検索", 0, 11, 1},
                               {"no customer by kana", "カナ", "ﾅﾅｼﾉｶｲｼｬ", "btn_カナ検索", 0, 11, 1},
                               {"no customer by telephone", "電話", "0888888888", "btn_電話番号検索", 0, 5, 1}});
    });
    return exceeded;
}

int measureRosters(bench::RawDatabase& raw) {
    int exceeded = 0;
    bench::inList(wnd名簿No一覧, "T名簿.番号基準日付 <> ''", "名簿No", [&](ListWindow& list) {
        exceeded = measureAll(list, raw,
                              {{"1,000 rosters by number", "名簿No", "00015000", "btn_名簿No検索", all, 21, 2},
                               {"1,000 rosters by name", "名簿名", "案内", "btn_名簿名検索", all, 21, 2}});
    });
    return exceeded;
}

int measureAddressees(bench::RawDatabase& raw) {
    int exceeded = 0;
    const std::string condition = std::string("T名簿明細.事業所コード = '") + bench::rosterOffice +
                                  "' AND T名簿明細.番号基準日付 = '" + bench::rosterBaseDate +
                                  "' AND T名簿明細.名簿No = '" + bench::largeRoster + "'";
    bench::inList(wnd名簿宛先No一覧, condition, "名簿宛先No", [&](ListWindow& list) {
        exceeded = measureAll(list, raw,
                              {{"1,000 addressees of a roster", "", "", "btn_複合検索", all, 41, 5},
                               {"1,000 addressees by name", "宛先名称", "会社", "btn_宛先名称検索", all, 21, 1}});
    });
    return exceeded;
}

} // namespace

int main() {
    const bench::Company company(bench::wholeCompany);
    startProgram("");
    bench::RawDatabase raw(company.place().mainFile());
    return measureCustomers(raw) | measureRosters(raw) | measureAddressees(raw);
}
