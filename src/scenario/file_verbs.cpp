// Files and folders that a scenario makes, changes and removes.
#include "scenario/names.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "text/numbers.hpp"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>

namespace kestrel::scenario {

namespace fs = std::filesystem;

namespace {

void write(const fs::path& path, const std::string& content) {
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file) throw ScenarioError("the file can't be written: " + path.string());
}

// Noon, so that the day is the same in every time zone that an office works in.
fs::file_time_type dayOf(const std::string& day) {
    if (day.size() != 8 || !text::isWholeNumber(day)) throw ScenarioError("a day is written YYYYMMDD");
    const auto part = [&](std::size_t from, std::size_t count) {
        return static_cast<unsigned>(text::wholeNumber(day.substr(from, count)));
    };
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(part(0, 4))),
                                           std::chrono::month(part(4, 2)), std::chrono::day(part(6, 2))};
    const std::chrono::sys_seconds noon = std::chrono::sys_days(date) + std::chrono::hours(12);
    return std::chrono::file_clock::from_sys(noon);
}

void makeFile(const Arguments& arguments) {
    const int size = arguments.size() > 1 ? wholeArgument(arguments[1]) : 0;
    if (size < 0) throw ScenarioError("a size is not negative");
    write(arguments[0], std::string(static_cast<std::size_t>(size), 'x'));
    if (arguments.size() > 2) fs::last_write_time(arguments[0], dayOf(arguments[2]));
}

void makeReadOnly(const Arguments& arguments) {
    constexpr auto writers = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(arguments[0], writers, fs::perm_options::remove);
}

void copy(const Arguments& arguments) {
    fs::copy_file(arguments[0], arguments[1], fs::copy_options::overwrite_existing);
}

void removeFile(const Arguments& arguments) {
    if (fs::is_directory(arguments[0]) || !fs::remove(arguments[0]))
        throw ScenarioError("there is no file " + arguments[0]);
}

void removeFolder(const Arguments& arguments) {
    if (!fs::is_directory(arguments[0])) throw ScenarioError("there is no folder " + arguments[0]);
    fs::remove_all(arguments[0]);
}

constexpr std::array verbs{
    Verb{"file make", "woo", anytime, makeFile},
    Verb{"file readonly", "w", anytime, makeReadOnly},
    Verb{"file write", "wt", anytime, [](const Arguments& a) { write(a[0], a[1]); }},
    Verb{"file copy", "ww", anytime, copy},
    Verb{"file remove", "w", anytime, removeFile},
    Verb{"folder make", "w", anytime, [](const Arguments& a) { fs::create_directories(a[0]); }},
    Verb{"folder remove", "w", anytime, removeFolder},
};

} // namespace

std::span<const Verb> fileVerbs() {
    return verbs;
}

} // namespace kestrel::scenario
