// One row of a list view. A list may hold more than 100,000 of them, so a row keeps all its texts in one block.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace kestrel::screen {

// What a row is made of. The texts are only read from while the row is being made.
struct RowTexts {
    std::string_view text; // first column
    std::string_view key;
    std::vector<std::string_view> subItems; // second column on
    bool flag = false;                      // in a marked list: what the row stands for is there
};

class ListRow {
public:
    explicit ListRow(const RowTexts& texts);

    // Each is valid as long as the row.
    std::string_view text() const { return cell(0); }
    std::string_view key() const { return part(0); }
    std::string_view cell(std::size_t column) const; // 0: the text, 1: the first sub-item; empty behind the last
    std::size_t columnCount() const;
    bool flag() const;

private:
    std::size_t number(std::size_t place) const;
    std::string_view part(std::size_t index) const;

    // Numbers first: the columns and the flag, then where the key and each cell end; behind them the texts.
    std::unique_ptr<char[]> block;
};

} // namespace kestrel::screen
