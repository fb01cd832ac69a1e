// The operator's registry in memory: what a scenario puts there before the program looks.
#include "scenario/registry_values.hpp"

#include "registry/memory/memory_registry.hpp"
#include "scenario/names.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "text/numbers.hpp"

#include <array>

namespace kestrel::scenario {

namespace {

// "#1" is a 32-bit number, anything else a text.
registry::Value valueNamed(const std::string& text) {
    const bool number = text.size() > 1 && text.front() == '#' && text::isWholeNumber(text.substr(1));
    if (number) return static_cast<std::uint32_t>(text::wholeNumber(text.substr(1)));
    return text;
}

std::string written(const std::string& text) {
    return text;
}
std::string written(std::uint32_t number) {
    return "#" + std::to_string(number);
}

constexpr std::array verbs{
    Verb{"registry set", "wwt", anytime, [](const Arguments& a) { registry::set(a[0], a[1], valueNamed(a[2])); }},
    Verb{"registry key", "w", anytime, [](const Arguments& a) { registry::makeKey(a[0]); }},
    Verb{"registry deny", "w", anytime, [](const Arguments& a) { registry::deny(a[0]); }},
    Verb{"registry readonly", "w", anytime, [](const Arguments& a) { registry::makeReadonly(a[0]); }},
};

} // namespace

std::optional<std::string> registryValue(const std::string& key, const std::string& name) {
    const auto value = registry::read(key, name);
    if (!value) return std::nullopt;
    return std::visit([](const auto& each) { return written(each); }, *value);
}

bool registryHasKey(const std::string& key) {
    return registry::hasKey(key);
}

void emptyRegistry() {
    registry::reset();
}

std::span<const Verb> registryVerbs() {
    return verbs;
}

} // namespace kestrel::scenario
