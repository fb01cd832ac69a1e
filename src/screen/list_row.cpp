#include "screen/list_row.hpp"

#include <cstdint>
#include <cstring>

namespace kestrel::screen {

namespace {

using Number = std::uint32_t;

// Places a row's numbers and texts one behind the other.
class Writer {
public:
    Writer(char* block, std::size_t numbers) : numberPlace(block), textPlace(block + numbers * sizeof(Number)) {}

    void number(std::size_t value) {
        const auto kept = static_cast<Number>(value);
        std::memcpy(numberPlace, &kept, sizeof kept);
        numberPlace += sizeof kept;
    }
    void text(std::string_view text) {
        std::memcpy(textPlace, text.data(), text.size());
        textPlace += text.size();
        end += text.size();
        number(end);
    }

private:
    char *numberPlace, *textPlace;
    std::size_t end = 0;
};

std::size_t sizeOf(const RowTexts& texts) {
    std::size_t size = texts.text.size() + texts.key.size();
    for (std::string_view item : texts.subItems) size += item.size();
    return size;
}

} // namespace

ListRow::ListRow(const RowTexts& texts) {
    const std::size_t columns = 1 + texts.subItems.size(), numbers = columns + 2;
    block = std::make_unique_for_overwrite<char[]>(numbers * sizeof(Number) + sizeOf(texts));
    Writer writer(block.get(), numbers);
    writer.number(2 * columns + (texts.flag ? 1 : 0));
    writer.text(texts.key);
    writer.text(texts.text);
    for (std::string_view item : texts.subItems) writer.text(item);
}

std::size_t ListRow::number(std::size_t place) const {
    Number kept;
    std::memcpy(&kept, block.get() + place * sizeof kept, sizeof kept);
    return kept;
}

std::size_t ListRow::columnCount() const {
    return number(0) / 2;
}

bool ListRow::flag() const {
    return number(0) % 2 == 1;
}

std::string_view ListRow::part(std::size_t index) const {
    const char* texts = block.get() + (columnCount() + 2) * sizeof(Number);
    const std::size_t begin = index == 0 ? 0 : number(index);
    return {texts + begin, number(index + 1) - begin};
}

std::string_view ListRow::cell(std::size_t column) const {
    return column < columnCount() ? part(column + 1) : std::string_view();
}

} // namespace kestrel::screen
