// The search for a word in the names of 200,000 customers on a database server, from the click to the rows in the list:
// with the index of parts of texts against without it. By the clock, since it is the server that searches.
#include "lists/listWindows.hpp"
#include "session/modStart.hpp"
#include "support/both_times.hpp"
#include "support/list_window.hpp"
#include "support/server_company.hpp"

using namespace kestrel;

namespace {

constexpr double least = 10; // times
constexpr int rounds = 5;

struct Search {
    const char *what, *text;
    bool limited; // three characters or more: the index holds triples of them
};
constexpr Search searches[] = {
    {"a name of 8 characters", "名無しの株式会社", true},
    {"a name of 4 characters", "海山商会", true},
    {"a name of 3 characters", "海山商", true},
    {"a name of 2 characters", "海山", false},
    {"a name of 1 character", "鼎", false},
};

double searchTime(ListWindow& list, const Search& search) {
    bench::click(list, "btn_画面クリア");
    bench::type(list, "名称", search.text);
    std::vector<double> times;
    for (int round = 0; round <= rounds; ++round) {
        const double begin = bench::clockTime();
        bench::click(list, "btn_名称検索");
        if (round > 0) times.push_back(bench::clockTime() - begin);
    }
    return bench::median(times);
}

std::vector<double> searchTimes(ListWindow& list) {
    std::vector<double> times;
    for (const Search& search : searches) times.push_back(searchTime(list, search));
    return times;
}

std::string inMilliseconds(double microseconds) {
    return bench::withUnit(microseconds / 1000, "ms");
}

int tell(const Search& search, double with, double without) {
    const double faster = without / with;
    if (!search.limited) {
        bench::note(search.what, inMilliseconds(with), inMilliseconds(without), bench::asRatio(faster));
        return 0;
    }
    return bench::tell(search.what, inMilliseconds(with), inMilliseconds(without), bench::asRatio(faster),
                       ">= " + bench::asRatio(least), faster >= least);
}

} // namespace

int main() {
    const bench::ServerCompany company;
    startProgram("");
    std::vector<double> with, without;
    bench::inList(wnd得意先一覧, "", "得意先コード", [&](ListWindow& list) {
        with = searchTimes(list);
        bench::Libpq server(company.text());
        bench::dropSearchIndexes(server);
        without = searchTimes(list);
    });
    closeProgram();
    int exceeded = 0;
    for (std::size_t i = 0; i < with.size(); ++i) exceeded |= tell(searches[i], with[i], without[i]);
    return exceeded;
}
