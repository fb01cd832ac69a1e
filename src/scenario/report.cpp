#include "scenario/report.hpp"

#include "platform/journal.hpp"
#include "scenario/run.hpp"

#include <array>
#include <iostream>

namespace kestrel::scenario {

static bool tracing = false;
static std::size_t written = 0;

void traceStatements(bool on) {
    tracing = on;
}

static void writeEntry(const journal::Entry& entry) {
    struct Row {
        journal::Channel channel;
        std::string_view prefix;
        bool always;
    };
    constexpr std::array rows{
        Row{journal::Channel::seen, "", true}, Row{journal::Channel::sentMain, "sql main ", false},
        Row{journal::Channel::sentLocal, "sql local ", false}, Row{journal::Channel::engine, "engine ", false}};
    for (const Row& row : rows)
        if (row.channel == entry.channel && (row.always || tracing)) std::cout << row.prefix << entry.text << '\n';
}

void writeSeen() {
    const auto& entries = journal::entries();
    for (; written < entries.size(); ++written) writeEntry(entries[written]);
}

void beginWriting() {
    written = 0;
}

void writeLine(std::string_view line) {
    writeSeen();
    std::cout << line << '\n';
}

// Everything seen so far stands in front of what is said about it.
static std::ostream& complaint() {
    writeSeen();
    std::cout.flush();
    return std::cerr << run().file << ':' << run().lineNumber << ": ";
}

void reportFailure(std::string_view expected, std::string_view there) {
    complaint() << "expected " << expected << "\n    there was " << there << std::endl;
}

void reportWrong(std::string_view what) {
    complaint() << what << std::endl;
}

} // namespace kestrel::scenario
