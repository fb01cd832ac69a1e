#include "setup/digest.hpp"

#include <algorithm>
#include <charconv>

namespace kestrel::setup {

namespace {

// Two hashes of one row, by different factors.
struct RowHash {
    std::uint64_t first = 0xcbf29ce484222325, second = 0x9ae16a3b2f90404f;

    void addByte(std::uint64_t byte) {
        first = (first ^ byte) * 0x100000001b3;
        second = (second ^ byte) * 0x9e3779b97f4a7c15;
    }
};

// The length in front keeps "ab","c" from "a","bc"; a null has a length that no text has.
void addValue(RowHash& hash, std::optional<std::string_view> value) {
    const std::uint64_t length = value ? value->size() : ~std::uint64_t{0};
    for (int shift = 0; shift < 64; shift += 8) hash.addByte((length >> shift) & 0xff);
    for (const char c : value.value_or("")) hash.addByte(static_cast<unsigned char>(c));
}

// Sums of row hashes are only as good as their high and low bits are mixed.
std::uint64_t mixed(std::uint64_t hash) {
    hash = (hash ^ (hash >> 30)) * 0xbf58476d1ce4e5b9;
    hash = (hash ^ (hash >> 27)) * 0x94d049bb133111eb;
    return hash ^ (hash >> 31);
}

bool isDigits(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

// "E+5", "e-3" or nothing, behind the digits; nothing at all where that is no exponent.
std::optional<int> exponentOf(std::string_view text) {
    if (text.empty()) return 0;
    text.remove_prefix(1);
    if (text.starts_with('+')) text.remove_prefix(1);
    int exponent = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), exponent);
    if (text.empty() || read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
    return exponent;
}

} // namespace

Counting countingFor(const Table& table, const std::vector<std::string>& columns, bool emptyIsNull) {
    Counting counting{{}, emptyIsNull};
    for (const std::string& name : columns) {
        const auto column = std::ranges::find(table.columns, name, &Column::name);
        counting.numbers.push_back(column != table.columns.end() && column->type == "number");
    }
    return counting;
}

void addRow(Digest& digest, const Counting& counting, const std::vector<std::optional<std::string_view>>& values) {
    RowHash hash;
    for (std::size_t i = 0; i < values.size(); ++i) {
        std::optional<std::string_view> value = values[i];
        if (counting.emptyIsNull && value && value->empty()) value.reset();
        const std::string number = value && counting.numbers[i] ? plainNumber(*value) : std::string();
        if (value && counting.numbers[i]) value = number;
        addValue(hash, value);
    }
    ++digest.rows;
    digest.first += mixed(hash.first);
    digest.second += mixed(hash.second);
}

std::string plainNumber(std::string_view text) {
    std::string_view rest = text;
    const bool negative = rest.starts_with('-');
    if (negative || rest.starts_with('+')) rest.remove_prefix(1);
    const std::string_view mantissa = rest.substr(0, rest.find_first_of("eE"));
    const auto exponent = exponentOf(rest.substr(mantissa.size()));
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::string_view whole = mantissa.substr(0, point),
                           part = mantissa.substr(std::min(point + 1, mantissa.size()));
    if (!exponent || whole.size() + part.size() == 0 || !isDigits(whole) || !isDigits(part)) return std::string(text);
    std::string digits = std::string(whole) + std::string(part);
    int power = *exponent - static_cast<int>(part.size());
    for (; !digits.empty() && digits.back() == '0'; digits.pop_back()) ++power;
    digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
    if (digits.empty()) return "0";
    return (negative ? "-" : "") + digits + "e" + std::to_string(power);
}

} // namespace kestrel::setup
