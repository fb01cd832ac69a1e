// The whole table of postal codes in its window, in the visible program off screen: shown, scrolled to the end, sorted,
// and what memory it takes. Nobody needs all of them at once, but nothing in the window keeps a person from asking.
#include "frontend/qt/application.hpp"
#include "lists/listWindows.hpp"
#include "screen/frontend.hpp"
#include "screen/hand.hpp"
#include "session/modStart.hpp"
#include "support/company.hpp"
#include "support/list_window.hpp"
#include "support/measure.hpp"

#include <malloc.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace kestrel;

namespace {

constexpr int rounds = 11, sortRounds = 6, pages = 200;
constexpr double sortLimit = 4, memoryLimit = 3;
constexpr const char* button = "btn_複合検索";

std::string inMilliseconds(double microseconds) {
    return bench::withUnit(microseconds / 1000, "ms");
}

void requireAll(ListWindow& list) {
    const int rows = hand::shownRowCount(rowsOf(list));
    if (rows != static_cast<int>(bench::wholeCompany.postalCodes))
        bench::standStill("the list shows " + std::to_string(rows) + " postal codes");
}

void searchAll(ListWindow& list) {
    bench::click(list, button);
    frontend::repaint();
}

// Showing

void measureShowing(ListWindow& list, bench::RawDatabase& raw) {
    const std::string sql = bench::statementOf(list, button);
    const std::vector<std::string> columns = bench::columnsOf(list.spec);
    const auto ours = [&] { return bench::spentOn([&] { searchAll(list); }); };
    const auto theirs = [&] { return bench::spentOn([&] { raw.readAll(sql, columns); }); };
    const bench::Comparison times = bench::compare(rounds, 1, ours, theirs);
    requireAll(list);
    bench::note("124,000 postal codes shown", inMilliseconds(times.ours), inMilliseconds(times.theirs),
                bench::asRatio(times.ratio));
}

// Scrolling

double spentOnKey(screen::Key which) {
    return bench::spentOn([which] {
        hand::key(which);
        frontend::repaint();
    });
}

void measureScrolling(ListWindow& list) {
    std::vector<double> ends, turned;
    for (int round = 0; round < rounds; ++round) {
        spentOnKey(screen::Key::Home);
        ends.push_back(spentOnKey(screen::Key::End));
    }
    if (hand::shownSelected(rowsOf(list)) != hand::shownRowCount(rowsOf(list)) - 1)
        bench::standStill("the list isn't at its end");
    spentOnKey(screen::Key::Home);
    for (int page = 0; page < pages; ++page) turned.push_back(spentOnKey(screen::Key::PageDown));
    bench::note("  from its first row to its last", inMilliseconds(bench::median(ends)), "", "");
    bench::note("  one page on", inMilliseconds(bench::median(turned)), "",
                inMilliseconds(*std::ranges::max_element(turned)) + " most");
}

// Sorting

std::vector<std::string> textsOf(const screen::Control& rows, int column) {
    std::vector<std::string> texts;
    texts.reserve(rows.rows.size());
    for (const screen::ListRow& row : rows.rows) texts.emplace_back(row.cell(static_cast<std::size_t>(column)));
    return texts;
}

double sortTexts(std::vector<std::string>& texts, screen::SortOrder order) {
    return bench::spentOn([&] {
        if (order == screen::SortOrder::ascending)
            std::stable_sort(texts.begin(), texts.end());
        else
            std::stable_sort(texts.begin(), texts.end(), std::greater<>());
    });
}

// Both begin with the rows as the search gave them, the one as with the other up and down in turn.
int measureSorting(ListWindow& list, int column) {
    screen::Control& rows = rowsOf(list);
    std::vector<double> ours, theirs, ratios;
    for (int round = 0; round <= sortRounds; ++round) {
        rows.sorted = false;
        bench::click(list, button);
        std::vector<std::string> texts = textsOf(rows, column);
        const double spent = bench::spentOn([&] { hand::header(rows, column); });
        const double spentOnTexts = sortTexts(texts, rows.sortOrder);
        if (textsOf(rows, column) != texts) bench::standStill("the order is another one");
        if (round == 0) continue;
        ours.push_back(spent);
        theirs.push_back(spentOnTexts);
        ratios.push_back(spent / spentOnTexts);
    }
    const double ratio = bench::median(ratios);
    return bench::tell("  sorted by " + rows.columns[static_cast<std::size_t>(column)].title,
                       inMilliseconds(bench::median(ours)), inMilliseconds(bench::median(theirs)),
                       bench::asRatio(ratio), bench::asRatio(sortLimit), ratio <= sortLimit);
}

// Memory

double bytesInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

double bytesOfTexts(const screen::Control& rows) {
    std::size_t bytes = 0;
    for (const screen::ListRow& row : rows.rows)
        for (std::size_t column = 0; column < row.columnCount(); ++column) bytes += row.cell(column).size();
    return static_cast<double>(bytes);
}

std::string inMegabytes(double bytes) {
    return bench::withUnit(bytes / 1e6, "MB");
}

// What engine and toolkit keep for themselves is there already: the same was shown in the window opened before.
int measureMemory(ListWindow& list, double before) {
    searchAll(list);
    requireAll(list);
    const double taken = bytesInUse() - before, texts = bytesOfTexts(rowsOf(list));
    return bench::tell("  memory, against the texts of its cells", inMegabytes(taken), inMegabytes(texts),
                       bench::asRatio(taken / texts), bench::asRatio(memoryLimit), taken <= memoryLimit * texts);
}

void inPostalCodes(const std::function<void(ListWindow&)>& work) {
    bench::inList(wnd郵便番号一覧, "", "宛先郵便番号", [&](ListWindow& list) {
        bench::click(list, "btn_画面クリア");
        work(list);
    });
}

} // namespace

int main(int, char** arguments) {
    const bench::Company company(bench::wholeCompany);
    frontend::drawOffScreen();
    const frontend::Application toolkit(arguments[0]);
    startProgram("");
    bench::RawDatabase raw(company.place().mainFile());
    int exceeded = 0;
    inPostalCodes([&](ListWindow& list) {
        measureShowing(list, raw);
        measureScrolling(list);
        for (int column = 0; column < 3; ++column) exceeded |= measureSorting(list, column);
    });
    const double before = bytesInUse();
    inPostalCodes([&](ListWindow& list) { exceeded |= measureMemory(list, before); });
    return exceeded;
}
