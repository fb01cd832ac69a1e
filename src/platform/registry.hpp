// The platform's registry, by free functions named after the calls that programs know. Two implementations are chosen
// at link time: the one of this platform opens nothing (there is no registry), tests bring one in memory. Keys begin
// with the hive's full name, parts separated by "\".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kestrel::platform {

struct RegistryKey {
    std::string path; // empty: not open
    explicit operator bool() const { return !path.empty(); }
};

RegistryKey openRegistryKey(std::string_view path);   // not open when it isn't there
RegistryKey createRegistryKey(std::string_view path); // opens or makes
std::optional<std::string> queryRegistryText(const RegistryKey& key, std::string_view name); // nothing: no such text
bool setRegistryText(const RegistryKey& key, std::string_view name, std::string_view value);
bool setRegistryNumber(const RegistryKey& key, std::string_view name, std::uint32_t value);
std::optional<std::string> registrySubkey(const RegistryKey& key, int index); // name of the subkey at that place
void closeRegistryKey(RegistryKey& key);

} // namespace kestrel::platform
