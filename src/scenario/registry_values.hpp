// Reading the registry in memory the way a scenario writes its values.
#pragma once

#include <optional>
#include <string>

namespace kestrel::scenario {

std::optional<std::string> registryValue(const std::string& key, const std::string& name); // a number as "#1"
bool registryHasKey(const std::string& key);
void emptyRegistry();

} // namespace kestrel::scenario
