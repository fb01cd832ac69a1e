#include "platform/database/faults.hpp"

#include "platform/database/fault_state.hpp"

#include <algorithm>
#include <vector>

namespace kestrel::database {

namespace {

constexpr std::string_view historyTable = "プログラム稼動履歴";
constexpr std::string_view historyInsert = "INSERT INTO プログラム稼動履歴";

struct Break {
    Role role;
    std::string containing;
};

struct Faults {
    std::vector<Break> statements;
    std::vector<Role> openings;
    int waiting = 0;
};

Faults& faults() {
    static Faults present;
    return present;
}

bool hits(const Break& fault, Role role, std::string_view sql) {
    if (fault.role != role || sql.find(fault.containing) == sql.npos) return false;
    return !sql.starts_with(historyInsert) || fault.containing.find(historyTable) != std::string::npos;
}

} // namespace

void breakStatements(Role role, std::string containing) {
    faults().statements.push_back({role, std::move(containing)});
}

void breakOpening(Role role) {
    faults().openings.push_back(role);
}

void mendAll() {
    faults().statements.clear();
    faults().openings.clear();
}

void limitWaiting(int seconds) {
    faults().waiting = seconds;
}

bool isBroken(Role role, std::string_view sql) {
    return std::ranges::any_of(faults().statements, [&](const Break& fault) { return hits(fault, role, sql); });
}

bool isOpeningBroken(Role role) {
    return std::ranges::find(faults().openings, role) != faults().openings.end();
}

Failure brokenOnPurpose() {
    return Failure{1, "broken on purpose"};
}

std::optional<int> faultyWaiting() {
    return faults().waiting > 0 ? std::optional(faults().waiting) : std::nullopt;
}

} // namespace kestrel::database
