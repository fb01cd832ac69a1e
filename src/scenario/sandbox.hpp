// The installation that a scenario plays on, and the folder of its own beside it.
#pragma once

#include "scenario/line.hpp"
#include "setup/installation.hpp"

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace kestrel::scenario {

// A folder for the whole process, removed at its end: templates of the samples, made when first asked for, and the
// places of one scenario after the other.
class Sandbox {
public:
    Sandbox();
    ~Sandbox();
    Sandbox(const Sandbox&) = delete;
    Sandbox& operator=(const Sandbox&) = delete;

    // A fresh scratch folder, and a fresh copy of the sample ("minimal" or "full"); or, with a root given, that one as
    // it stands. Raises ScenarioError when a sample can't be made.
    Places fresh(const std::string& sample, const std::string& root);
    void remove(const Places& places); // whatever of the places belongs to the sandbox

private:
    const std::filesystem::path& sampleTemplate(const std::string& sample);

    std::filesystem::path folder;
    std::map<std::string, std::filesystem::path> templates;
    int count = 0;
};

inline constexpr std::string_view sampleDay = "20240515"; // the dates of the demonstration data count from it
setup::What whatOf(std::string_view sample);              // raises ScenarioError for a word that is no sample

// The sample that the first line of a scenario asks for: "full" unless it says otherwise.
std::string sampleOf(std::string_view scenario);

} // namespace kestrel::scenario
