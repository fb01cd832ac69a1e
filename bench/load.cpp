// Operators at work at once on one database server, each the real program in a process and an installation of its own:
// they add addressees to rosters of their own and to one that all share, look back, step, and search. Then it is proved
// from the databases that nothing was lost between them, and the same statements go to the server once more, on a
// database as they found it, by its own load program.
//
//     bench-load [--operators N] [--own N] [--shared N] [--prove-only]
#include "support/both_times.hpp"
#include "support/load_operator.hpp"
#include "support/load_proof.hpp"
#include "support/measure.hpp"
#include "support/pgbench.hpp"
#include "support/server_process.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <sys/wait.h>

using namespace kestrel;

namespace {

namespace fs = std::filesystem;

constexpr double limit = 0.7;

bench::LoadPlan readPlan(int count, char** arguments) {
    bench::LoadPlan plan;
    for (int i = 1; i < count; ++i) {
        const std::string option = arguments[i];
        int* number = option == "--operators" ? &plan.operators
                      : option == "--own"     ? &plan.ownSaves
                      : option == "--shared"  ? &plan.sharedSaves
                                              : nullptr;
        if (option == "--prove-only") {
            plan.proveOnly = true;
        } else if (number && i + 1 < count && std::atoi(arguments[i + 1]) > 0) {
            *number = std::atoi(arguments[++i]);
        } else {
            std::fprintf(stderr, "bench-load [--operators N] [--own N] [--shared N] [--prove-only]\n");
            std::exit(2);
        }
    }
    return plan;
}

// Where the operators' installations lie; gone at the end.
struct LoadFolder {
    explicit LoadFolder(const bench::Installation& beside) : path(beside.root.string() + "-load") {
        fs::create_directories(path);
    }
    ~LoadFolder() {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
    LoadFolder(const LoadFolder&) = delete;
    LoadFolder& operator=(const LoadFolder&) = delete;
    const fs::path path;
};

void addRoster(bench::Libpq& server, const std::string& roster) {
    server.run("INSERT INTO \"T名簿\" "
               "(\"事業所コード\",\"番号基準日付\",\"名簿No\",\"名簿日付\",\"担当者コード\",\"名簿名称\") VALUES ('" +
               std::string(bench::loadOffice) + "','" + bench::loadBaseDate + "','" + roster + "','" +
               std::string(bench::sampleDay) + "','00001','負荷')");
}

void addRosters(const std::string& text, const bench::LoadPlan& plan) {
    bench::Libpq server(text);
    addRoster(server, bench::sharedRoster());
    for (int who = 0; who < plan.operators; ++who)
        for (int which = 0; which < bench::rostersOfOperator; ++which) addRoster(server, bench::ownRoster(who, which));
}

void makeInstallations(const bench::Installation& from, const fs::path& load, const bench::LoadPlan& plan) {
    for (int who = 0; who < plan.operators; ++who) {
        const auto copied = setup::copyInstallation(from.root.string(), bench::operatorFolder(load, who).string());
        if (copied) continue;
        std::fprintf(stderr, "%s\n", copied.failure().description.c_str());
        std::exit(2);
    }
}

pid_t startOperator(const fs::path& load, int who, const bench::LoadPlan& plan, const bench::LineUp& line) {
    const pid_t id = fork();
    if (id != 0) return id;
    bench::workAsOperator(load, who, plan, line);
    std::fflush(nullptr);
    _exit(0);
}

std::vector<bench::OperatorReport> work(const fs::path& load, const bench::LoadPlan& plan) {
    const bench::LineUp line;
    std::vector<pid_t> ids;
    for (int who = 0; who < plan.operators; ++who) ids.push_back(startOperator(load, who, plan, line));
    line.start(plan.operators);
    for (const pid_t id : ids) waitpid(id, nullptr, 0);
    std::vector<bench::OperatorReport> reports;
    for (int who = 0; who < plan.operators; ++who)
        reports.push_back(bench::readReport(bench::operatorFolder(load, who)));
    return reports;
}

struct Totals {
    std::size_t all = 0;        // statements
    double seconds = 0;         // from the first one's start to the last one's end
    double toMark = 0;          // statements in front of the mark
    double secondsToMark = 0;   //
    double processorToMark = 0; // microseconds
};

Totals totalsOf(const std::vector<bench::OperatorReport>& reports) {
    Totals totals;
    double begin = reports[0].begin, mark = 0, end = 0;
    for (const bench::OperatorReport& report : reports) {
        totals.all += report.all;
        totals.toMark += static_cast<double>(report.statements.size());
        totals.processorToMark += report.processor;
        begin = std::min(begin, report.begin);
        mark = std::max(mark, report.mark);
        end = std::max(end, report.end);
    }
    totals.seconds = (end - begin) / 1e6;
    totals.secondsToMark = (mark - begin) / 1e6;
    return totals;
}

int tellProof(const bench::Proof& proof) {
    for (const std::string& line : proof.wrong) std::printf("%s\n", line.c_str());
    return bench::tell("saves that are there, failed ones told, numbers", std::to_string(proof.saved),
                       std::to_string(proof.failed), std::to_string(proof.drawn), "all", proof.wrong.empty());
}

std::string aSecond(double statements, double seconds) {
    return bench::withUnit(statements / seconds, "/s");
}

} // namespace

int main(int count, char** arguments) {
    const bench::LoadPlan plan = readPlan(count, arguments);
    const bench::ServerDatabase database("load", setup::What::full);
    addRosters(database.text, plan);
    const bench::ServerDatabase untouched("pgbench", database);
    const bench::Installation place(setup::What::full, bench::Where::memory);
    const LoadFolder load(place);
    bench::useServer(place, database.text);
    makeInstallations(place, load.path, plan);

    const bench::ServerProcess server(database.text);
    const double serverBefore = server.processorTime();
    const std::vector<bench::OperatorReport> reports = work(load.path, plan);
    const double serverOurs = server.processorTime() - serverBefore;
    const Totals totals = totalsOf(reports);
    bench::Libpq afterwards(database.text);
    const int exceeded = tellProof(bench::proveLoad(afterwards, load.path, reports));
    bench::note(std::to_string(plan.operators) + " operators, all of their statements",
                aSecond(static_cast<double>(totals.all), totals.seconds), "", "");
    if (plan.proveOnly) return exceeded;

    const double serverBetween = server.processorTime();
    const double seconds = bench::runPgbench(reports, load.path, untouched.text);
    const double serverTheirs = server.processorTime() - serverBetween, ratio = seconds / totals.secondsToMark;
    bench::note("  processor time of a statement: the programs'",
                bench::withUnit(totals.processorToMark / totals.toMark, "us"), "", "");
    bench::note("  the server's", bench::withUnit(serverOurs / static_cast<double>(totals.all), "us"),
                bench::withUnit(serverTheirs / totals.toMark, "us"), "");
    return exceeded | bench::tell("their first statements, against pgbench",
                                  aSecond(totals.toMark, totals.secondsToMark), aSecond(totals.toMark, seconds),
                                  bench::asRatio(ratio), ">= " + bench::asRatio(limit), ratio >= limit);
}
