// Two processes that draw 1,000 numbers each from one register at the same time: no number twice, none missing.
#include "numbering/modNumbers.hpp"
#include "platform/clock.hpp"
#include "support/line_up.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <set>
#include <sys/wait.h>
#include <unistd.h>

using namespace kestrel;

namespace {

constexpr int processes = 2, draws = 1000;
constexpr const char* rosterRegister = "16310";

std::string listOf(const bench::Installation& place, int process) {
    return (place.root / ("numbers-" + std::to_string(process))).string();
}

void draw(const bench::Installation& place, int process, const bench::LineUp& line) {
    bench::openOrEnd();
    const std::string base = numberBaseDate(rosterRegister, std::string(bench::sampleDay));
    std::ofstream list(listOf(place, process));
    if (!line.wait()) return;
    for (int i = 0; i < draws; ++i) list << takeNextNumber(rosterRegister, base, "000") << "\n";
}

pid_t startDrawing(const bench::Installation& place, int process, const bench::LineUp& line) {
    const pid_t id = fork();
    if (id != 0) return id;
    draw(place, process, line);
    _exit(0);
}

std::vector<std::string> drawnBy(const bench::Installation& place, int process) {
    std::ifstream list(listOf(place, process));
    std::vector<std::string> numbers;
    for (std::string number; std::getline(list, number);) numbers.push_back(number);
    return numbers;
}

// One behind the other would prove nothing.
bool atTheSameTime(const std::vector<std::string>& a, const std::vector<std::string>& b) {
    return !a.empty() && !b.empty() && a.front() < b.back() && b.front() < a.back();
}

} // namespace

int main() {
    const bench::Installation place(setup::What::minimal, bench::Where::disk);
    const bench::LineUp line;
    pid_t ids[processes];
    for (int process = 0; process < processes; ++process) ids[process] = startDrawing(place, process, line);
    line.start(processes);
    const double begin = platform::secondsRunning();
    for (const pid_t id : ids) waitpid(id, nullptr, 0);
    const double seconds = platform::secondsRunning() - begin;
    const std::vector<std::string> first = drawnBy(place, 0), second = drawnBy(place, 1);
    std::set<std::string> different(first.begin(), first.end());
    different.insert(second.begin(), second.end());
    const bool held = different.size() == processes * draws && atTheSameTime(first, second);
    return bench::tell("numbers drawn by two processes at once", bench::withUnit(processes * draws / seconds, "/s"), "",
                       std::to_string(different.size()) + " different", std::to_string(processes * draws), held);
}
