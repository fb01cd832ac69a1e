#include "platform/registry.hpp"

#include "registry/memory/memory_registry.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace kestrel::registry {

namespace {

struct Key {
    std::string path; // as it was first written
    std::map<std::string, Value> values;
};

// All by folded path. Paths of keys that are denied or read-only need not be there.
struct Registry {
    std::map<std::string, Key> keys;
    std::set<std::string> denied, readonly;
};

Registry& theRegistry() {
    static Registry present;
    return present;
}

// Small letters, one separator between parts, none at the ends.
std::string folded(std::string_view path) {
    std::string result;
    for (char c : path) {
        if (c == '\\' && (result.empty() || result.back() == '\\')) continue;
        result += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    if (!result.empty() && result.back() == '\\') result.pop_back();
    return result;
}

std::string cleaned(std::string_view path) {
    std::string result;
    for (char c : path)
        if (c != '\\' || (!result.empty() && result.back() != '\\')) result += c;
    if (!result.empty() && result.back() == '\\') result.pop_back();
    return result;
}

std::string parentOf(const std::string& path) {
    auto separator = path.rfind('\\');
    return separator == path.npos ? std::string() : path.substr(0, separator);
}

bool isChild(const std::string& path, const std::string& parent) {
    return path.size() > parent.size() && path.starts_with(parent + "\\") && parentOf(path) == parent;
}

} // namespace

void makeKey(std::string_view key) {
    std::string path = cleaned(key);
    for (; !path.empty(); path = parentOf(path)) theRegistry().keys.try_emplace(folded(path), Key{path, {}});
}

void set(std::string_view key, std::string_view name, Value value) {
    makeKey(key);
    theRegistry().keys[folded(key)].values[folded(name)] = std::move(value);
}

void deny(std::string_view key) {
    theRegistry().denied.insert(folded(key));
}

void makeReadonly(std::string_view key) {
    theRegistry().readonly.insert(folded(key));
}

void reset() {
    theRegistry() = {};
}

bool hasKey(std::string_view key) {
    return theRegistry().keys.contains(folded(key));
}

std::optional<Value> read(std::string_view key, std::string_view name) {
    auto& keys = theRegistry().keys;
    auto found = keys.find(folded(key));
    if (found == keys.end()) return std::nullopt;
    auto value = found->second.values.find(folded(name));
    return value == found->second.values.end() ? std::nullopt : std::optional(value->second);
}

namespace {

bool write(const platform::RegistryKey& key, std::string_view name, Value value) {
    if (!key || theRegistry().readonly.contains(folded(key.path))) return false;
    set(key.path, name, std::move(value));
    return true;
}

// A new key is written into the nearest one above it that is there.
bool mayMake(std::string_view path) {
    std::string above = parentOf(folded(path));
    while (!above.empty() && !hasKey(above)) above = parentOf(above);
    return !theRegistry().readonly.contains(above);
}

} // namespace

} // namespace kestrel::registry

namespace kestrel::platform {

using namespace kestrel::registry;

RegistryKey openRegistryKey(std::string_view path) {
    bool open = hasKey(path) && !theRegistry().denied.contains(folded(path));
    return RegistryKey{open ? std::string(path) : std::string()};
}

RegistryKey createRegistryKey(std::string_view path) {
    if (theRegistry().denied.contains(folded(path))) return {};
    if (!hasKey(path) && !mayMake(path)) return {};
    makeKey(path);
    return RegistryKey{std::string(path)};
}

std::optional<std::string> queryRegistryText(const RegistryKey& key, std::string_view name) {
    auto value = key ? read(key.path, name) : std::nullopt;
    if (!value || !std::holds_alternative<std::string>(*value)) return std::nullopt;
    return std::get<std::string>(*value);
}

bool setRegistryText(const RegistryKey& key, std::string_view name, std::string_view value) {
    return write(key, name, std::string(value));
}

bool setRegistryNumber(const RegistryKey& key, std::string_view name, std::uint32_t value) {
    return write(key, name, value);
}

std::optional<std::string> registrySubkey(const RegistryKey& key, int index) {
    std::string parent = folded(key.path);
    for (const auto& [path, content] : theRegistry().keys)
        if (key && isChild(path, parent) && index-- == 0) return content.path.substr(parentOf(content.path).size() + 1);
    return std::nullopt;
}

void closeRegistryKey(RegistryKey& key) {
    key = {};
}

} // namespace kestrel::platform
