#include "platform/database/record_set.hpp"

#include "platform/database/names.hpp"

namespace kestrel::database {

namespace {

// A record set that holds nothing is one without rows and columns.
struct NoRows {
    bool none() const { return true; }
    bool atEnd() const { return true; }
    platform::Status next() { return platform::done(); }
    int columnCount() const { return 0; }
    std::string_view columnName(int) const { return {}; }
    std::optional<std::string_view> value(int) const { return std::nullopt; }
};

// Runs the step on the rows, whatever engine they come from.
template <class Rows, class Step> auto onRows(Rows& rows, Step step) {
    return std::visit(
        [&](auto& content) {
            NoRows nothing;
            if constexpr (requires { content.atEnd(); })
                return step(content);
            else
                return step(nothing);
        },
        rows);
}

template <class Rows> int indexOf(const Rows& rows, std::string_view column) {
    const int count = rows.columnCount();
    for (int i = 0; i < count; ++i)
        if (sameName(rows.columnName(i), column)) return i;
    throw DatabaseError("there is no column " + std::string(column));
}

template <class Rows> void needRow(const Rows& rows, std::string_view column) {
    if (rows.atEnd()) throw DatabaseError("there is no row to read " + std::string(column) + " from");
}

template <class Variant> std::optional<std::string_view> valueOf(const Variant& rows, std::string_view column) {
    return onRows(rows, [&](const auto& content) {
        needRow(content, column);
        return content.value(indexOf(content, column));
    });
}

} // namespace

bool RecordSet::bof() const {
    return onRows(rows, [](const auto& content) { return content.none(); });
}

bool RecordSet::eof() const {
    return onRows(rows, [](const auto& content) { return content.atEnd(); });
}

void RecordSet::moveNext() {
    const platform::Status moved = onRows(rows, [](auto& content) { return content.next(); });
    if (!moved) throw DatabaseError(moved.failure().description);
}

void RecordSet::close() {
    rows = std::monostate{};
}

std::string RecordSet::text(std::string_view column) const {
    const auto value = valueOf(rows, column);
    if (!value) throw DatabaseError("the column " + std::string(column) + " is null");
    return std::string(*value);
}

std::string RecordSet::text(std::string_view column, std::string_view whenNull) const {
    return std::string(valueOf(rows, column).value_or(whenNull));
}

std::optional<std::string> RecordSet::textOrNull(std::string_view column) const {
    const auto value = valueOf(rows, column);
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

int RecordSet::columnIndex(std::string_view column) const {
    return onRows(rows, [&](const auto& content) {
        needRow(content, column);
        return indexOf(content, column);
    });
}

std::optional<std::string_view> RecordSet::view(int index) const {
    return onRows(rows, [&](const auto& content) {
        if (content.atEnd()) throw DatabaseError("there is no row to read from");
        return content.value(index);
    });
}

int RecordSet::columnCount() const {
    return onRows(rows, [](const auto& content) { return content.columnCount(); });
}

std::string RecordSet::columnName(int index) const {
    return onRows(rows, [&](const auto& content) { return std::string(content.columnName(index)); });
}

} // namespace kestrel::database
