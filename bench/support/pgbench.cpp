#include "pgbench.hpp"

#include "both_times.hpp"
#include "platform/database/connection_text.hpp"
#include "platform/database/server_databases.hpp"
#include "platform/database/server_words.hpp"
#include "server.hpp"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <thread>

namespace kestrel::bench {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void giveUp(const std::string& why) {
    std::fprintf(stderr, "pgbench: %s\n", why.c_str());
    std::exit(2);
}

// The journal knows of a draw's statements, not of what holds them together: a draw begins with the last reading of the
// register in front of the number that is written back.
std::vector<std::string> withDraws(const std::vector<std::string>& statements) {
    const std::string lock(database::serverWords("PostgreSQL").draw.front());
    std::vector<std::string> all;
    std::size_t registerRead = 0;
    for (const std::string& sql : statements) {
        if (sql.starts_with("SELECT \"A番号情報\".*")) registerRead = all.size();
        all.push_back(sql);
        if (!sql.starts_with("UPDATE \"A番号情報\"")) continue;
        all.insert(all.begin() + static_cast<std::ptrdiff_t>(registerRead), {"BEGIN", lock});
        all.push_back("COMMIT");
    }
    return all;
}

// What failed there because another operator came first must not end a client here.
std::string unfailing(const std::string& sql) {
    return sql.starts_with("INSERT INTO \"T名簿明細\"") ? sql + " ON CONFLICT DO NOTHING" : sql;
}

// The gate: a lock that the clients share when it is let go.
constexpr const char* closeGate = "SELECT pg_advisory_lock(1)";
constexpr const char* openGate = "SELECT pg_advisory_unlock(1)";
constexpr const char* passGate = "SELECT pg_advisory_lock_shared(1)";
constexpr const char* standingAtGate = "SELECT count(*) FROM pg_stat_activity WHERE datname = current_database() AND "
                                       "wait_event = 'advisory'";

void writeScript(const OperatorReport& report, const fs::path& script) {
    std::ofstream file(script, std::ios::binary);
    file << passGate << ";\n";
    for (const std::string& sql : withDraws(report.statements)) file << unfailing(sql) << ";\n";
}

// Debian keeps the server's programs off the path.
fs::path program() {
    fs::path newest;
    std::error_code ignored;
    for (const auto& release : fs::directory_iterator("/usr/lib/postgresql", ignored)) {
        const fs::path found = release.path() / "bin" / "pgbench";
        if (fs::exists(found) && found > newest) newest = found;
    }
    if (newest.empty()) giveUp("it isn't there; tools/install-packages test installs it");
    return newest;
}

std::string commandFor(const fs::path& script, const std::string& connectionText) {
    const auto [place, name] = database::serverPlace(connectionText);
    const auto sign = place.rfind(':');
    return "'" + program().string() + "' --no-vacuum --protocol=simple --transactions=1 --client=1 --file='" +
           script.string() + "' --host='" + place.substr(0, sign) + "'" +
           (sign == place.npos ? "" : " --port=" + place.substr(sign + 1)) + " --username='" +
           database::connectionValue(connectionText, "User ID") + "' '" + name + "' 2>&1";
}

FILE* startClient(const std::string& command) {
    FILE* client = popen(command.c_str(), "r");
    if (!client) giveUp("it can't be started");
    return client;
}

void waitFor(FILE* client) {
    std::string output;
    char part[4096];
    while (std::fgets(part, sizeof part, client)) output += part;
    if (pclose(client) != 0) giveUp(output);
}

void waitAtGate(Libpq& gate, std::size_t clients) {
    constexpr int patience = 3000;
    for (int tries = 0; gate.ask(standingAtGate) != std::to_string(clients); ++tries) {
        if (tries == patience) giveUp("it doesn't come to its first statement");
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
}

} // namespace

double runPgbench(const std::vector<OperatorReport>& reports, const fs::path& folder,
                  const std::string& connectionText) {
    Libpq gate(connectionText);
    gate.run(closeGate);
    std::vector<FILE*> clients;
    for (std::size_t i = 0; i < reports.size(); ++i) {
        const fs::path script = folder / ("statements-" + std::to_string(i) + ".sql");
        writeScript(reports[i], script);
        clients.push_back(startClient(commandFor(script, connectionText)));
    }
    waitAtGate(gate, clients.size());
    const double begin = clockTime();
    gate.run(openGate);
    for (FILE* client : clients) waitFor(client);
    return (clockTime() - begin) / 1e6;
}

} // namespace kestrel::bench
