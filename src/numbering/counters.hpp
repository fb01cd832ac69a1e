// The tables that hold counters, as data: which row a number comes from, and the texts around it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

struct NumberKey {
    std::string id, baseDate, office;
};

struct Counter {
    std::string table;
    std::string row;                        // condition that names the counter's row
    std::string peekedRow;                  // the same for a peek
    std::string sourceText = {};            // statement that finds the register of a row that is to be made
    std::optional<std::string> office = {}; // of a new row, for the tables that have the column
    std::optional<std::string> date = {};   // likewise
};

// Two of these conditions name a table that their FROM doesn't: the peek of an office's counter without a scope, and
// the source of an office's row for a date. They fail on the engine, and the callers live with what follows from that.
Counter registerCounter(const NumberKey& key);   // A番号情報: one for the company, never made here
Counter dateCounter(const NumberKey& key);       // A期日別番号情報
Counter officeCounter(const NumberKey& key);     // A事業所別番号情報
Counter officeDateCounter(const NumberKey& key); // A事業所別期日別番号情報

std::string registerText(std::string_view id);
std::string selectText(const Counter& counter, const std::string& condition);
std::string updateText(const Counter& counter, const std::string& number);
std::string insertText(const Counter& counter, const std::string& id); // both its counters begin at "00000000"

} // namespace kestrel
