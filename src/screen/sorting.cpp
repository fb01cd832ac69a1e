#include "screen/sorting.hpp"

#include "screen/ending.hpp"

#include <algorithm>
#include <cstdint>
#include <numeric>

namespace kestrel::screen {

namespace {

using Places = std::vector<std::uint32_t>; // which row comes where

// The bytes of UTF-8 stand in the order of the code points.
std::vector<std::string_view> shownTexts(const Control& list) {
    std::vector<std::string_view> texts;
    texts.reserve(list.rows.size());
    for (const ListRow& row : list.rows) texts.push_back(row.cell(static_cast<std::size_t>(list.sortKey)));
    return texts;
}

// Places are sorted and not the rows, so that their texts are found once; descending keeps equal rows in their order
// too.
Places orderOf(const Control& list) {
    const std::vector<std::string_view> texts = shownTexts(list);
    Places places(list.rows.size());
    std::iota(places.begin(), places.end(), 0U);
    const bool ascending = list.sortOrder == SortOrder::ascending;
    std::stable_sort(places.begin(), places.end(), [&](std::uint32_t a, std::uint32_t b) {
        return ascending ? texts[a] < texts[b] : texts[b] < texts[a];
    });
    return places;
}

int newPlace(const Places& places, int row) {
    if (row < 0) return row;
    return static_cast<int>(std::find(places.begin(), places.end(), static_cast<std::uint32_t>(row)) - places.begin());
}

} // namespace

void sortBy(Control& list, int column, SortOrder order) {
    if (ended()) return;
    list.sortKey = column;
    list.sortOrder = order;
    list.sorted = true;
    sortRows(list);
}

void sortRows(Control& list) {
    if (ended() || !list.sorted) return;
    const Places places = orderOf(list);
    std::vector<ListRow> rows;
    rows.reserve(list.rows.size());
    for (std::uint32_t place : places) rows.push_back(std::move(list.rows[place]));
    list.rows = std::move(rows);
    list.selected = newPlace(places, list.selected);
    ++list.rowsRevision;
}

} // namespace kestrel::screen
