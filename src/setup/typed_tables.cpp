#include "setup/typed_tables.hpp"

#include <algorithm>

namespace kestrel::setup {

namespace {

constexpr std::string_view rosterScope[] = {"事業所コード", "番号基準日付"};
constexpr std::string_view rosterNames[] = {"名簿名称"};
constexpr std::string_view rosterContent[] = {"名簿日付", "担当者コード", "部門コード", "セクションコード", "発送日付"};

constexpr std::string_view addresseeScope[] = {"事業所コード", "番号基準日付", "名簿No"};
constexpr std::string_view addresseeNames[] = {"宛先名称A", "宛先名称B", "宛先名称C"};
constexpr std::string_view addresseeContent[] = {
    "名簿日付",  "担当者コード", "部門コード",   "セクションコード", "宛先郵便番号", "宛先住所A", "宛先住所B",
    "宛先住所C", "宛先電話",     "宛先FAX",      "宛先HOMEPAGE",     "宛先EMAIL",    "宛先摘要",  "法人個人区分",
    "発送区分",  "得意先コード", "納品先コード", "仕入先コード",     "メーカコード"};

constexpr std::string_view partnerNames[] = {"名称A", "名称B"};
constexpr std::string_view partnerContent[] = {"郵便番号", "住所A", "住所B",    "住所C",
                                               "電話",     "FAX",   "HOMEPAGE", "EMAIL"};

constexpr TypedTable typedTables[] = {
    {"T名簿", rosterScope, "名簿No", rosterNames, rosterContent, 0},
    {"T名簿明細", addresseeScope, "名簿宛先No", addresseeNames, addresseeContent, 6},
    {"M得意先", {}, "コード", partnerNames, partnerContent, 0},
    {"M納品先", {}, "コード", partnerNames, partnerContent, 0},
    {"M仕入先", {}, "コード", partnerNames, partnerContent, 0},
    {"Mメーカ", {}, "コード", partnerNames, partnerContent, 0},
};

bool sameIn(ColumnNames columns, const InsertText& one, const InsertText& other) {
    return std::ranges::all_of(columns, [&](std::string_view name) { return one.value(name) == other.value(name); });
}

bool holds(ColumnNames columns, const Row& row, const InsertText& insert) {
    return std::ranges::all_of(columns, [&](std::string_view name) {
        return !insert.has(name) || row.get(name).value_or("") == insert.value(name);
    });
}

std::string joined(ColumnNames columns, const InsertText& insert) {
    std::string text;
    for (const std::string_view name : columns) {
        const std::string value = insert.value(name);
        if (!value.empty()) text += (text.empty() ? "" : " ") + value;
    }
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

} // namespace

const TypedTable* typedTableNamed(std::string_view name) {
    const auto found = std::ranges::find(typedTables, name, &TypedTable::name);
    return found == std::end(typedTables) ? nullptr : found;
}

bool namesKey(const TypedTable& table, const InsertText& insert) {
    return insert.has(table.number) &&
           std::ranges::all_of(table.scope, [&](std::string_view name) { return insert.has(name); });
}

bool sameTypedRow(const TypedTable& table, const InsertText& one, const InsertText& other) {
    if (!sameIn(table.scope, one, other) || !sameIn(table.names, one, other)) return false;
    return one.value(table.number) == other.value(table.number) || sameIn(table.content, one, other);
}

bool holdsContent(const TypedTable& table, const Row& row, const InsertText& insert) {
    return holdsNames(table, row, insert) && holds(table.content, row, insert);
}

bool holdsNames(const TypedTable& table, const Row& row, const InsertText& insert) {
    return holds(table.names, row, insert);
}

std::string keyText(const TypedTable& table, const InsertText& insert) {
    const std::string scope = joined(table.scope, insert);
    return scope + (scope.empty() ? "" : " ") + insert.value(table.number);
}

std::string nameText(const TypedTable& table, const InsertText& insert) {
    return joined(table.names, insert);
}

} // namespace kestrel::setup
