#include "scenario/sandbox.hpp"

#include "platform/instances.hpp"
#include "scenario/scenario_error.hpp"

#include <cstdlib>
#include <random>
#include <vector>

namespace kestrel::scenario {

namespace fs = std::filesystem;

namespace {

// Every commit of the program waits for its disk; in memory a scenario takes a tenth of the time. Where that can't be
// written, or somebody named a place, the usual one serves.
std::vector<fs::path> temporaryPlaces() {
    std::vector<fs::path> places{fs::temp_directory_path()};
    if (!std::getenv("TMPDIR")) places.insert(places.begin(), "/dev/shm");
    return places;
}

fs::path newFolder() {
    std::random_device random;
    const std::string name = "kestrel-operator-" + std::to_string(random()) + std::to_string(random());
    for (const fs::path& place : temporaryPlaces()) {
        std::error_code failure;
        if (fs::create_directory(place / name, failure)) return place / name;
    }
    throw ScenarioError("no folder can be made for the samples");
}

void check(const platform::Status& status) {
    if (!status) throw ScenarioError("the sample can't be made: " + status.failure().description);
}

// Folders that a scenario left without write permission would keep their content.
void removeAll(const fs::path& folder) {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
}

} // namespace

Sandbox::Sandbox() : folder(newFolder()) {}

Sandbox::~Sandbox() {
    removeAll(folder);
}

const fs::path& Sandbox::sampleTemplate(const std::string& sample) {
    const auto known = templates.find(sample);
    if (known != templates.end()) return known->second;
    const fs::path made = folder / sample;
    check(setup::createInstallation(made.string(), whatOf(sample), sampleDay));
    return templates.emplace(sample, made).first->second;
}

Places Sandbox::fresh(const std::string& sample, const std::string& root) {
    const fs::path place = folder / std::to_string(++count);
    const Places places{root.empty() ? (place / "root").string() : fs::absolute(root).lexically_normal().string(),
                        (place / "scratch").string()};
    fs::create_directories(places.scratch);
    if (root.empty()) check(setup::copyInstallation(sampleTemplate(sample).string(), places.root));
    return places;
}

void Sandbox::remove(const Places& places) {
    const fs::path place = fs::path(places.scratch).parent_path();
    if (fs::path(places.root).parent_path() == place) platform::forgetInstances(places.root);
    removeAll(place);
}

setup::What whatOf(std::string_view sample) {
    if (sample == "minimal") return setup::What::minimal;
    if (sample == "full") return setup::What::full;
    throw ScenarioError("there is no sample " + std::string(sample));
}

std::string sampleOf(std::string_view scenario) {
    while (!scenario.empty()) {
        const std::size_t end = std::min(scenario.find('\n'), scenario.size());
        std::string_view line = scenario.substr(0, end);
        scenario.remove_prefix(std::min(end + 1, scenario.size()));
        if (trimmed(line).empty() || line.front() == '#') continue;
        return cutName(line, "sample") ? cutWord(line).value_or("") : "full";
    }
    return "full";
}

} // namespace kestrel::scenario
