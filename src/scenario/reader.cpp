#include "scenario/reader.hpp"

#include "platform/journal.hpp"
#include "scenario/report.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"
#include "screen/message.hpp"
#include "screen/window.hpp"

#include <algorithm>
#include <array>

namespace kestrel::scenario {

static Run present;

Run& run() {
    return present;
}

void beginAction() {
    present.actionStart = present.searchFrom = journal::entries().size();
}

void refuse(const std::string& name) {
    journal::record(journal::Channel::seen, "refused " + name);
}

namespace {

// Nothing more is read, and every wait of the program that is still open returns.
void stopReading() {
    present.over = true;
    if (present.running) screen::endProcess(0);
}

void callWrong(const std::string& what) {
    present.wrong = true;
    reportWrong(what);
    stopReading();
}

void noteFocus() {
    const screen::Window* window = screen::activeWindow();
    if (!window || !window->focus) return;
    const std::string& control = window->focus->name;
    if (window->name == present.focusWindow && control == present.focusControl) return;
    present.focusWindow = window->name;
    present.focusControl = control;
    journal::record(journal::Channel::seen, "focus " + control);
}

void settle() {
    if (present.running && !screen::ended()) noteFocus();
    writeSeen();
}

bool isOfKind(const Arguments& kinds) {
    return std::ranges::find(kinds, present.kind) != kinds.end();
}

bool isOfEngine(const Arguments& engines) {
    if (engines[0] != "file") throw ScenarioError("the only engine to name is file");
    return !present.onServer;
}

bool isOfSample(const Arguments&) {
    return true; // it was heeded before the installation was copied
}

// What a scenario demands of the world it is played in.
struct HeadLine {
    const char* name;
    const char* shape;
    bool (*holds)(const Arguments&);
};
constexpr std::array headLines{HeadLine{"sample", "w", isOfSample}, HeadLine{"kinds", "wm", isOfKind},
                               HeadLine{"engine", "w", isOfEngine}};

// A demand that doesn't hold passes the file over.
bool isHeadLine(std::string_view line) {
    for (const HeadLine& head : headLines) {
        if (!cutName(line, head.name)) continue;
        if (present.headOver) throw ScenarioError(std::string(head.name) + " stands in the first lines only");
        if (head.holds(splitArguments(line, head.shape, present.places))) return true;
        present.passedOver = true;
        stopReading();
        return true;
    }
    return false;
}

void judge(const Expectation& expectation, std::string_view rest, bool turned, std::string_view line) {
    const Finding finding = expectation.look(splitArguments(rest, expectation.shape, present.places));
    ++present.expected;
    if (finding.holds != turned) return;
    ++present.failed;
    reportFailure(line, finding.there);
}

void expect(std::string_view rest) {
    const std::string line(rest);
    const bool turned = cutName(rest, "not");
    const std::array tables{screenExpectations(), journalExpectations(), worldExpectations()};
    const Expectation* expectation = cutRow<Expectation>(tables, rest);
    judge(*expectation, rest, turned, line);
}

void checkRules(const Verb& verb) {
    if ((verb.rules & whileRunning) && !present.running) throw ScenarioError("the program is not running");
    if ((verb.rules & beforeStart) && present.running) throw ScenarioError("the program is running");
    if ((verb.rules & atRest) && screen::waiting()) throw ScenarioError("a box or dialog waits for its answer");
}

void playVerb(std::string_view line) {
    const std::array tables{worldVerbs(), fileVerbs(), registryVerbs(), databaseVerbs(), actVerbs(), lookVerbs()};
    const Verb* verb = cutRow<Verb>(tables, line);
    if (!verb) throw ScenarioError("unknown verb");
    checkRules(*verb);
    const Arguments arguments = splitArguments(line, verb->shape, present.places);
    if (verb->rules & action) beginAction();
    verb->play(arguments);
}

void playLine(std::string_view line) {
    try {
        if (isHeadLine(line)) return;
        present.headOver = true;
        cutName(line, "expect") ? expect(line) : playVerb(line);
    } catch (const std::exception& error) {
        callWrong(trimmed(line) + ": " + error.what());
    }
}

// The next line that says something; nothing at the end.
const std::string* readLine() {
    while (present.nextLine < present.lines.size()) {
        const std::string& line = present.lines[present.nextLine++];
        if (!trimmed(line).empty() && line.front() != '#') return &line;
    }
    return nullptr;
}

void reachEnd() {
    if (screen::waiting()) callWrong("a box or dialog is left waiting at the end");
    stopReading();
}

bool playNext() {
    if (present.over || (present.running && screen::ended())) return false;
    settle();
    const std::string* line = readLine();
    if (!line) {
        reachEnd();
        return false;
    }
    const int outerLine = present.lineNumber;
    present.lineNumber = static_cast<int>(present.nextLine);
    playLine(*line);
    present.lineNumber = outerLine;
    return !present.over;
}

void splitLines(std::string_view text) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        present.lines.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

} // namespace

void playScenario(std::string_view text) {
    splitLines(text);
    journal::start();
    beginWriting();
    screen::setActSource(playNext);
    while (playNext()) {
    }
    screen::setActSource(nullptr);
    settle();
    journal::stop();
}

} // namespace kestrel::scenario
