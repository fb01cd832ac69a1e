#include "pgbench.hpp"

#include "platform/database/connection_text.hpp"
#include "platform/database/server_databases.hpp"
#include "platform/database/server_words.hpp"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sys/resource.h>

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

void writeScript(const std::vector<OperatorReport>& reports, const fs::path& script) {
    std::ofstream file(script, std::ios::binary);
    for (std::size_t client = 0; client < reports.size(); ++client) {
        file << (client == 0 ? "\\if" : "\\elif") << " :client_id = " << client << "\n";
        for (const std::string& sql : withDraws(reports[client].statements)) file << unfailing(sql) << ";\n";
    }
    file << "\\endif\n";
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

double processorTimeOfChildren() {
    rusage used{};
    getrusage(RUSAGE_CHILDREN, &used);
    return static_cast<double>(used.ru_utime.tv_sec + used.ru_stime.tv_sec) * 1e6 +
           static_cast<double>(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
}

std::string commandFor(std::size_t clients, const fs::path& script, const std::string& connectionText) {
    const auto [place, name] = database::serverPlace(connectionText);
    const auto sign = place.rfind(':');
    return "'" + program().string() +
           "' --no-vacuum --protocol=simple --transactions=1 --jobs=2 --client=" + std::to_string(clients) +
           " --file='" + script.string() + "' --host='" + place.substr(0, sign) + "'" +
           (sign == place.npos ? "" : " --port=" + place.substr(sign + 1)) + " --username='" +
           database::connectionValue(connectionText, "User ID") + "' '" + name + "' 2>&1";
}

std::string outputOf(const std::string& command) {
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) giveUp("it can't be started");
    std::string output;
    char part[4096];
    while (std::fgets(part, sizeof part, pipe)) output += part;
    if (pclose(pipe) != 0) giveUp(output);
    return output;
}

// Each client is one transaction to it.
double secondsOf(const std::string& output, std::size_t clients) {
    const auto at = output.find("tps = ");
    if (at == output.npos) giveUp(output);
    return static_cast<double>(clients) / std::strtod(output.c_str() + at + 6, nullptr);
}

} // namespace

PgbenchRun runPgbench(const std::vector<OperatorReport>& reports, const fs::path& folder,
                      const std::string& connectionText) {
    const fs::path script = folder / "statements.sql";
    writeScript(reports, script);
    const double before = processorTimeOfChildren();
    const std::string output = outputOf(commandFor(reports.size(), script, connectionText));
    return {secondsOf(output, reports.size()), processorTimeOfChildren() - before};
}

} // namespace kestrel::bench
