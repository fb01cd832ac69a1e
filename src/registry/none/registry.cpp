// This platform has no registry: nothing is there, nothing can be made.
#include "platform/registry.hpp"

namespace kestrel::platform {

RegistryKey openRegistryKey(std::string_view) {
    return {};
}

RegistryKey createRegistryKey(std::string_view) {
    return {};
}

std::optional<std::string> queryRegistryText(const RegistryKey&, std::string_view) {
    return std::nullopt;
}

bool setRegistryText(const RegistryKey&, std::string_view, std::string_view) {
    return false;
}

bool setRegistryNumber(const RegistryKey&, std::string_view, std::uint32_t) {
    return false;
}

std::optional<std::string> registrySubkey(const RegistryKey&, int) {
    return std::nullopt;
}

void closeRegistryKey(RegistryKey& key) {
    key = {};
}

} // namespace kestrel::platform
