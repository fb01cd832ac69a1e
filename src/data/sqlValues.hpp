// The list of values of an INSERT.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace kestrel {

// "('A','B')": each value in single quotes, as it stands.
inline std::string valueList(std::initializer_list<std::string_view> values) {
    std::string list;
    for (const std::string_view value : values) list.append(list.empty() ? "('" : "','").append(value);
    return list + "')";
}

} // namespace kestrel
