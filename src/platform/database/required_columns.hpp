// The columns of a database that can't be null.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace kestrel::database {

class RequiredColumns {
public:
    void add(std::string_view table, std::string_view column); // names to the letter
    bool holds(std::string_view table, std::string_view column) const;

private:
    std::set<std::string, std::less<>> names; // table, a zero byte, column
};

} // namespace kestrel::database
