// A registry in memory, empty at first, for tests: putting things in and reading them back past the program.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace kestrel::registry {

using Value = std::variant<std::string, std::uint32_t>;

// Keys as in platform/registry.hpp, without regard to letter case (ASCII); a key is made with all above it.
void set(std::string_view key, std::string_view name, Value value);
void makeKey(std::string_view key);
void deny(std::string_view key);         // it can be neither opened nor made
void makeReadonly(std::string_view key); // writing values or new keys into it fails
void reset();

bool hasKey(std::string_view key);
std::optional<Value> read(std::string_view key, std::string_view name);

} // namespace kestrel::registry
