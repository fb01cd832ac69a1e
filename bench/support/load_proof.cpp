#include "load_proof.hpp"

#include "text/numbers.hpp"

#include <algorithm>
#include <map>
#include <set>

namespace kestrel::bench {

namespace {

using Row = std::vector<std::string>;

// Rows of the load's rosters by roster and number, and how often each name stands in the whole table.
struct Table {
    std::map<std::pair<std::string, std::string>, Row> rows;
    std::map<std::string, int> names;
};

Table readTable(Libpq& server) {
    std::string columns;
    for (const char* column : typedColumns) columns += std::string(",\"") + column + "\"";
    Table table;
    for (const Row& row :
         server.rows("SELECT \"名簿No\",\"名簿宛先No\"" + columns + " FROM \"T名簿明細\" WHERE \"事業所コード\" = '" +
                     loadOffice + "' AND \"番号基準日付\" = '" + loadBaseDate + "'")) {
        ++table.names[row[2]];
        if (row[0] >= sharedRoster()) table.rows[{row[0], row[1]}] = {row.begin() + 2, row.end()};
    }
    return table;
}

void proveSave(const Table& table, const Typed& typed, Proof& proof) {
    const auto row = table.rows.find({typed.roster, typed.number});
    const auto names = table.names.find(typed.values[0]);
    const int count = names == table.names.end() ? 0 : names->second;
    const std::string which = typed.roster + "/" + typed.number + " " + typed.values[0];
    if (!typed.saved) {
        ++proof.failed;
        if (count != 0) proof.wrong.push_back("is there though its save failed: " + which);
        return;
    }
    ++proof.saved;
    if (count != 1) proof.wrong.push_back("is there " + std::to_string(count) + " times: " + which);
    if (row == table.rows.end() || row->second != typed.values)
        proof.wrong.push_back("is not what was typed: " + which);
}

void proveSaves(Libpq& server, const std::vector<OperatorReport>& reports, Proof& proof) {
    const Table table = readTable(server);
    for (const OperatorReport& report : reports)
        for (const Typed& typed : report.typed) proveSave(table, typed, proof);
    if (table.rows.size() != proof.saved)
        proof.wrong.push_back(std::to_string(table.rows.size()) + " rows are there of " + std::to_string(proof.saved) +
                              " saves");
}

// The register stands at the number of draws, each of which made one row of the view log.
void proveDraws(Libpq& server, const std::vector<OperatorReport>& reports, Proof& proof) {
    std::set<std::string> different;
    for (const OperatorReport& report : reports) {
        proof.drawn += report.drawn.size();
        different.insert(report.drawn.begin(), report.drawn.end());
    }
    if (different.size() != proof.drawn)
        proof.wrong.push_back(std::to_string(proof.drawn) + " numbers were drawn, " + std::to_string(different.size()) +
                              " different ones");
    const std::string last = server.ask("SELECT \"連番\" FROM \"A番号情報\" WHERE \"番号ID\" = '01110'");
    const std::string noted = server.ask("SELECT count(*) FROM \"T閲覧\" WHERE \"ユーザID\" LIKE 'operator%'");
    if (last != text::zeroFilled(static_cast<long long>(proof.drawn), 8) || noted != std::to_string(proof.drawn))
        proof.wrong.push_back(std::to_string(proof.drawn) + " numbers were drawn, the register stands at " + last +
                              ", the view log has " + noted + " rows");
}

// In a line of the run history each quote of the statement stands twice.
std::string asInHistory(const std::string& sql) {
    std::string text;
    for (const char c : sql) text.append(c == '\'' ? 2 : 1, c);
    return text;
}

void proveFailures(const std::filesystem::path& folder, const OperatorReport& report, Proof& proof) {
    RawDatabase history((folder / setup::localFile).string());
    std::vector<std::string> lines;
    history.eachRow("SELECT 摘要 FROM プログラム稼動履歴 WHERE 摘要 LIKE 'エラー %'",
                    [&](const std::vector<std::string>& row) { lines.push_back(row[0]); });
    std::size_t failed = 0;
    for (const Typed& typed : report.typed) {
        if (typed.saved) continue;
        ++failed;
        const auto its = std::ranges::count_if(
            lines, [&](const std::string& line) { return line.ends_with(asInHistory(typed.statement)); });
        if (its != 1) proof.wrong.push_back(std::to_string(its) + " lines tell of: " + typed.statement);
    }
    if (failed != lines.size())
        proof.wrong.push_back(folder.string() + ": " + std::to_string(lines.size()) + " error lines of " +
                              std::to_string(failed) +
                              " failed saves; the last one: " + (lines.empty() ? "" : lines.back()));
}

} // namespace

Proof proveLoad(Libpq& server, const std::filesystem::path& load, const std::vector<OperatorReport>& reports) {
    Proof proof;
    proveSaves(server, reports, proof);
    proveDraws(server, reports, proof);
    for (std::size_t i = 0; i < reports.size(); ++i)
        proveFailures(operatorFolder(load, static_cast<int>(i)), reports[i], proof);
    return proof;
}

} // namespace kestrel::bench
