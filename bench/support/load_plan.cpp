#include "load_plan.hpp"

#include "text/numbers.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace kestrel::bench {

namespace fs = std::filesystem;

namespace {

constexpr int firstRoster = 90'000'000;
constexpr const char* reportFile = "load-report";
constexpr char endOfCell = '\x1f', endOfRow = '\x1e'; // nobody types them

void addRow(std::string& text, std::initializer_list<std::string> cells) {
    for (const std::string& cell : cells) (text += cell) += endOfCell;
    text += endOfRow;
}

std::vector<std::string> cut(const std::string& text, char end) {
    std::vector<std::string> parts;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t next = text.find(end, at);
        parts.push_back(text.substr(at, next - at));
        at = next + 1;
    }
    return parts;
}

void takeRow(OperatorReport& report, const std::vector<std::string>& cells) {
    if (cells[0] == "times") {
        report.begin = std::stod(cells[1]);
        report.mark = std::stod(cells[2]);
        report.processor = std::stod(cells[3]);
        report.all = std::stoul(cells[4]);
        report.end = std::stod(cells[5]);
    } else if (cells[0] == "drawn") {
        report.drawn.push_back(cells[1]);
    } else if (cells[0] == "sent") {
        report.statements.push_back(cells[1]);
    } else {
        report.typed.push_back({cells[0] == "saved", cells[1], cells[2], {cells.begin() + 4, cells.end()}, cells[3]});
    }
}

std::string textOf(const Typed& typed) {
    std::string text;
    addRow(text, {typed.saved ? "saved" : "failed", typed.roster, typed.number, typed.statement});
    text.pop_back();
    for (const std::string& value : typed.values) (text += value) += endOfCell;
    return text += endOfRow;
}

} // namespace

std::string sharedRoster() {
    return text::zeroFilled(firstRoster, 8);
}

std::string ownRoster(int itsOperator, int which) {
    return text::zeroFilled(firstRoster + 1 + itsOperator * rostersOfOperator + which, 8);
}

fs::path operatorFolder(const fs::path& load, int itsOperator) {
    return load / ("operator-" + std::to_string(itsOperator));
}

void writeReport(const fs::path& folder, const OperatorReport& report) {
    std::string text;
    addRow(text, {"times", std::to_string(report.begin), std::to_string(report.mark), std::to_string(report.processor),
                  std::to_string(report.all), std::to_string(report.end)});
    for (const Typed& typed : report.typed) text += textOf(typed);
    for (const std::string& number : report.drawn) addRow(text, {"drawn", number});
    for (const std::string& sql : report.statements) addRow(text, {"sent", sql});
    std::ofstream(folder / reportFile, std::ios::binary) << text;
}

OperatorReport readReport(const fs::path& folder) {
    std::ifstream file(folder / reportFile, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    if (text.empty()) {
        std::fprintf(stderr, "an operator told nothing: %s\n", folder.string().c_str());
        std::exit(2);
    }
    OperatorReport report;
    for (const std::string& row : cut(text, endOfRow)) takeRow(report, cut(row, endOfCell));
    return report;
}

} // namespace kestrel::bench
