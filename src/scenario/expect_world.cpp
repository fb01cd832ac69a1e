// Expectations about databases, session, registry, files, operations and the end of the process.
#include "platform/files.hpp"
#include "scenario/calls.hpp"
#include "scenario/databases.hpp"
#include "scenario/names.hpp"
#include "scenario/registry_values.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/session_values.hpp"
#include "scenario/tables.hpp"
#include "screen/ending.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/quoting.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

namespace {

// What the run history holds now and did not hold when the program started.
std::vector<std::string> historyOfThisRun() {
    std::vector<std::string> lines = historyLines();
    for (const std::string& before : run().historyBefore) {
        const auto found = std::find(lines.begin(), lines.end(), before);
        if (found != lines.end()) lines.erase(found);
    }
    return lines;
}

Finding historyHas(bool (*fits)(std::string_view, std::string_view), const std::string& expected) {
    const std::vector<std::string> lines = historyOfThisRun();
    std::string there;
    for (const std::string& line : lines) there += "\n        " + text::quoted(line);
    const bool holds =
        std::any_of(lines.begin(), lines.end(), [&](const std::string& line) { return fits(line, expected); });
    return {holds, there.empty() ? "nothing" : there};
}

bool isWhole(std::string_view line, std::string_view expected) {
    return line == expected;
}

Rows rowsOf(const Arguments& arguments) {
    std::string sql = arguments[2];
    const Which which = databaseNamed(arguments[1], sql);
    return rowsBeside(which, sql);
}

Finding rows(const Arguments& arguments) {
    const int count = static_cast<int>(rowsOf(arguments).size());
    return {count == wholeArgument(arguments[0]), std::to_string(count)};
}

Finding value(const Arguments& arguments) {
    const Rows all = rowsOf(arguments);
    if (all.empty()) return {false, "no row"};
    return {all[0].at(0) == arguments[0], text::quoted(all[0][0])};
}

Finding session(const Arguments& arguments) {
    const std::string there = readSessionValue(arguments[0]);
    return {there == arguments[1], text::quoted(there)};
}

Finding connection(const Arguments& arguments) {
    if (arguments[0] != "main" && arguments[0] != "local") throw ScenarioError("a connection is main or local");
    const std::string& there = arguments[0] == "main" ? connections.mainText : connections.localText;
    return {there == arguments[1], text::quoted(there)};
}

Finding registryHas(const Arguments& arguments) {
    const auto there = registryValue(arguments[0], arguments[1]);
    return {there == arguments[2], there ? text::quoted(*there) : "no such value"};
}

Finding noRegistryKey(const Arguments& arguments) {
    const bool there = registryHasKey(arguments[0]);
    return {!there, there ? "the key" : "none"};
}

bool isThere(const std::string& path) {
    return platform::fileExists(path) || platform::folderExists(path);
}

Finding file(const Arguments& arguments) {
    return {isThere(arguments[0]), isThere(arguments[0]) ? "the file" : "none"};
}

Finding noFile(const Arguments& arguments) {
    return {!isThere(arguments[0]), isThere(arguments[0]) ? "the file" : "none"};
}

Finding call(const Arguments& arguments) {
    const std::string there = resultOf({arguments.begin() + 1, arguments.end()});
    return {there == arguments[0], text::quoted(there)};
}

Finding ended(const Arguments& arguments) {
    if (run().running || !run().started) return {false, run().started ? "the program running" : "no run"};
    const std::string status = std::to_string(screen::endStatus());
    return {arguments.empty() || arguments[0] == status, "ended " + status};
}

constexpr std::array expectations{
    Expectation{"history", "t", [](const Arguments& a) { return historyHas(isWhole, a[0]); }},
    Expectation{"history like", "t", [](const Arguments& a) { return historyHas(text::contains, a[0]); }},
    Expectation{"rows", "wwq", rows},
    Expectation{"value", "wwq", value},
    Expectation{"session", "wt", session},
    Expectation{"connection", "wt", connection},
    Expectation{"registry", "wwt", registryHas},
    Expectation{"no registry", "w", noRegistryKey},
    Expectation{"file", "w", file},
    Expectation{"no file", "w", noFile},
    Expectation{"call", "wwm", call},
    Expectation{"ended", "o", ended},
};

} // namespace

std::span<const Expectation> worldExpectations() {
    return expectations;
}

} // namespace kestrel::scenario
