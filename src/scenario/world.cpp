// The world around the program: clock, identity, programs and desktop, trouble with the databases.
#include "scenario/world.hpp"
#include "platform/clock.hpp"
#include "platform/database/faults.hpp"
#include "platform/database/files.hpp"
#include "platform/identity.hpp"
#include "platform/instances.hpp"
#include "platform/paths.hpp"
#include "platform/process.hpp"
#include "platform/shell.hpp"
#include "scenario/databases.hpp"
#include "scenario/names.hpp"
#include "scenario/registry_values.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <array>
#include <set>

namespace kestrel::scenario {

namespace {

std::vector<database::Hold> holds;
std::set<std::string> environmentNames; // set by the present scenario

int digitsAt(const std::string& text, std::size_t from, std::size_t count) {
    return static_cast<int>(text::wholeNumber(text::slice(text, from, count)));
}

void standClock(const Arguments& arguments) {
    const std::string& day = arguments[0];
    const std::string& time = arguments[1];
    if (day.size() != 8 || time.size() != 6 || !text::isWholeNumber(day) || !text::isWholeNumber(time))
        throw ScenarioError("a moment is written YYYYMMDD HHNNSS");
    platform::standClock({digitsAt(day, 0, 4), digitsAt(day, 4, 2), digitsAt(day, 6, 2), digitsAt(time, 0, 2),
                          digitsAt(time, 2, 2), digitsAt(time, 4, 2)});
}

database::Role roleNamed(const std::string& word) {
    if (word != "main" && word != "local") throw ScenarioError("a database is main or local");
    return word == "main" ? database::Role::main : database::Role::local;
}

void lock(const Arguments& arguments) {
    const std::string file = roleNamed(arguments[0]) == database::Role::main ? mainFile() : localFile();
    auto hold = database::holdExclusively(file, wholeArgument(arguments[1]));
    if (!hold) throw ScenarioError("the database can't be locked: " + hold.failure().description);
    holds.push_back(std::move(hold.value()));
}

void setEnvironment(const Arguments& arguments) {
    environmentNames.insert(arguments[0]);
    platform::setEnvironment(arguments[0], arguments[1]);
}

using platform::Pretend;

constexpr std::array verbs{
    Verb{"now", "ww", anytime, standClock},
    Verb{"pass", "w", anytime, [](const Arguments& a) { platform::passTime(wholeArgument(a[0])); }},
    Verb{"tick", "w", anytime, [](const Arguments& a) { platform::tickClock(wholeArgument(a[0])); }},
    Verb{"user", "w", beforeStart, [](const Arguments& a) { platform::setUserName(a[0]); }},
    Verb{"computer", "w", beforeStart, [](const Arguments& a) { platform::setComputerName(a[0]); }},
    Verb{"environment", "wt", beforeStart, setEnvironment},
    Verb{"programid", "w", beforeStart, [](const Arguments& a) { installation.programId = a[0]; }},
    Verb{"program at", "w", beforeStart, [](const Arguments& a) { platform::setExecutableFolder(a[0]); }},
    Verb{"break", "wt", anytime, [](const Arguments& a) { database::breakStatements(roleNamed(a[0]), a[1]); }},
    Verb{"break open", "w", anytime, [](const Arguments& a) { database::breakOpening(roleNamed(a[0])); }},
    Verb{"mend", "", anytime, [](const Arguments&) { database::mendAll(); }},
    Verb{"lock", "ww", anytime, lock},
    Verb{"timeout", "w", anytime, [](const Arguments& a) { database::limitWaiting(wholeArgument(a[0])); }},
    Verb{"programs none", "", anytime, [](const Arguments&) { platform::pretendPrograms(Pretend::none); }},
    Verb{"programs all", "", anytime, [](const Arguments&) { platform::pretendPrograms(Pretend::all); }},
    Verb{"shell none", "", anytime, [](const Arguments&) { platform::pretendShell(Pretend::none); }},
    Verb{"shell all", "", anytime, [](const Arguments&) { platform::pretendShell(Pretend::all); }},
    Verb{"instance running", "", anytime, [](const Arguments&) { platform::pretendInstance(true); }},
};

} // namespace

std::span<const Verb> worldVerbs() {
    return verbs;
}

void resetWorld() {
    holds.clear();
    emptyRegistry();
    for (const std::string& name : environmentNames) platform::setEnvironment(name, "");
    environmentNames.clear();
    database::mendAll();
    database::limitWaiting(0);
    platform::tickClock(0);
    platform::freeClock();
    platform::setUserName("operator");
    platform::setComputerName("KESTREL");
    platform::setExecutableFolder(run().places.root + "/prgbin");
    platform::pretendPrograms(Pretend::all);
    platform::pretendShell(Pretend::all);
    platform::pretendInstance(false);
    installation.programId = InstallationValues{}.programId;
}

} // namespace kestrel::scenario
