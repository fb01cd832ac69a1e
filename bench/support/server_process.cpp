#include "server_process.hpp"

#include <filesystem>
#include <fstream>
#include <sstream>
#include <unistd.h>

namespace kestrel::bench {

namespace {

struct Process {
    int parent = 0;
    double own = 0, ended = 0; // ticks: its own, and of its children that have ended
};

// The fields behind the name, which stands in parentheses and may hold anything.
Process processOf(const std::string& id) {
    std::ifstream file("/proc/" + id + "/stat");
    std::string line;
    std::getline(file, line);
    const auto close = line.rfind(')');
    if (close == line.npos) return {};
    std::istringstream fields(line.substr(close + 1));
    std::vector<std::string> words;
    for (std::string word; fields >> word;) words.push_back(word);
    constexpr std::size_t parent = 1, user = 11, kernel = 12, endedUser = 13, endedKernel = 14;
    return {std::stoi(words[parent]), std::stod(words[user]) + std::stod(words[kernel]),
            std::stod(words[endedUser]) + std::stod(words[endedKernel])};
}

} // namespace

ServerProcess::ServerProcess(const std::string& connectionText) {
    const Libpq session(connectionText);
    parent = processOf(std::to_string(session.process())).parent;
}

double ServerProcess::processorTime() const {
    const Process itself = processOf(std::to_string(parent));
    double ticks = itself.own + itself.ended;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string id = entry.path().filename().string();
        if (id.find_first_not_of("0123456789") != id.npos) continue;
        if (const Process process = processOf(id); process.parent == parent) ticks += process.own;
    }
    return ticks * 1e6 / static_cast<double>(sysconf(_SC_CLK_TCK));
}

} // namespace kestrel::bench
