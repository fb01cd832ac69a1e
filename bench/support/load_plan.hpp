// What the operators of the load do, and what each of them tells of it in a file of its own.
#pragma once

#include "program.hpp"

#include <filesystem>
#include <string>
#include <vector>

namespace kestrel::bench {

struct LoadPlan {
    int operators = 16;
    int ownSaves = 200;   // of each, in rosters of its own
    int sharedSaves = 50; // of each, in the one that all of them write into
    bool proveOnly = false;
};

inline constexpr const char* loadOffice = "001";
inline constexpr const char* loadBaseDate = "20250331";
inline constexpr int rostersOfOperator = 4;
std::string sharedRoster();                        // eight digits
std::string ownRoster(int itsOperator, int which); // which: below rostersOfOperator

// An addressee that was typed, and what came of its save as the program told it.
struct Typed {
    bool saved = false;
    std::string roster, number;
    std::vector<std::string> values; // in the order of typedColumns
    std::string statement;           // the INSERT, as the program sent it
};
inline constexpr const char* typedColumns[] = {"宛先名称A", "宛先名称B", "宛先郵便番号",
                                               "宛先住所A", "宛先住所B", "宛先電話"};

struct OperatorReport {
    std::vector<Typed> typed;
    std::vector<std::string> drawn;      // numbers of the view log's register
    std::vector<std::string> statements; // of the main connection, as the server got them, in order, up to the mark
    double begin = 0, mark = 0;          // by the clock, microseconds
    double processor = 0;                // microseconds, up to the mark
    std::size_t all = 0;                 // statements
    double end = 0;                      // by the clock
};

// So many statements (and what is left of the addressee they fall into) lie in front of the mark. They are what is
// compared with pgbench, which takes a time that grows with the square of a script to read one.
inline constexpr std::size_t statementsToMark = 2000;

std::filesystem::path operatorFolder(const std::filesystem::path& load, int itsOperator); // its installation
void writeReport(const std::filesystem::path& folder, const OperatorReport& report);
OperatorReport readReport(const std::filesystem::path& folder); // ends the process when there is none

} // namespace kestrel::bench
