#include "platform/database/required_columns.hpp"

namespace kestrel::database {

namespace {

std::string joined(std::string_view table, std::string_view column) {
    return std::string(table) + '\0' + std::string(column);
}

} // namespace

void RequiredColumns::add(std::string_view table, std::string_view column) {
    names.insert(joined(table, column));
}

bool RequiredColumns::holds(std::string_view table, std::string_view column) const {
    return names.contains(joined(table, column));
}

} // namespace kestrel::database
