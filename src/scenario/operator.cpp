#include "scenario/operator.hpp"

#include "scenario/installation_row.hpp"
#include "scenario/reader.hpp"
#include "scenario/report.hpp"
#include "scenario/sandbox.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/server_main.hpp"
#include "scenario/world.hpp"
#include "screen/window.hpp"
#include "session/sessionValues.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <sstream>

namespace kestrel::scenario {

namespace {

constexpr int held = 0, notHeld = 1, wrongScenario = 2;

struct Options {
    std::string root, kind, mainText;
    bool trace = false;
    std::vector<std::string> files;
};

constexpr std::string_view usage =
    "usage: kestrel-operator [--root DIR] [--trace] [--kind A|S|O] [--main TEXT] FILE...";

struct TextOption {
    std::string_view name;
    std::string Options::*value;
};
constexpr std::array textOptions{TextOption{"--root", &Options::root}, TextOption{"--kind", &Options::kind},
                                 TextOption{"--main", &Options::mainText}};

Options readOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& word = arguments[i];
        const auto option = std::find_if(textOptions.begin(), textOptions.end(),
                                         [&](const TextOption& row) { return row.name == word; });
        if (option != textOptions.end() && i + 1 < arguments.size())
            options.*option->value = arguments[++i];
        else if (word == "--trace")
            options.trace = true;
        else if (word.starts_with("--"))
            throw ScenarioError(std::string(usage));
        else
            options.files.push_back(word);
    }
    const bool redirects = !options.kind.empty() || !options.mainText.empty();
    if (options.files.empty() || (redirects && !options.root.empty())) throw ScenarioError(std::string(usage));
    return options;
}

std::string readText(const std::string& file) {
    std::ostringstream text;
    if (file == "-") {
        text << std::cin.rdbuf();
        return text.str();
    }
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw ScenarioError("the file can't be read");
    text << stream.rdbuf();
    return text.str();
}

// What the scenarios of one command line stand on.
struct Ground {
    Sandbox sandbox;
    ServerMain server;
};

void play(const Options& options, Ground& ground, const std::string& text) {
    run().places = ground.sandbox.fresh(sampleOf(text), options.root);
    screen::resetScreens();
    resetSession();
    resetWorld();
    run().onServer = ground.server.isThere();
    redirectMain(options.kind, run().onServer ? ground.server.fresh(sampleOf(text), run().places.root) : "");
    takeMain();
    playScenario(text);
    resetSession(); // closes what the program left open before its files go
    ground.server.drop();
    ground.sandbox.remove(run().places);
}

int playFile(const Options& options, Ground& ground, const std::string& file, Program program) {
    run() = Run{};
    run().file = file;
    run().program = program;
    try {
        play(options, ground, readText(file));
    } catch (const std::exception& error) {
        run().wrong = true;
        reportWrong(error.what());
    }
    if (run().wrong) return wrongScenario;
    return run().failed > 0 ? notHeld : held;
}

struct Tally {
    int passed = 0, failed = 0, passedOver = 0;
};

void count(Tally& tally, int status) {
    if (status != held)
        ++tally.failed;
    else if (run().passedOver)
        ++tally.passedOver;
    else
        ++tally.passed;
}

void write(const Tally& tally) {
    std::cout << tally.passed << " passed, " << tally.failed << " failed";
    if (tally.passedOver > 0) std::cout << ", " << tally.passedOver << " passed over";
    std::cout << std::endl;
}

int playAll(const Options& options, Program program) {
    traceStatements(options.trace);
    Ground ground{{}, ServerMain(options.mainText)};
    Tally tally;
    int worst = held;
    for (const std::string& file : options.files) {
        const int status = playFile(options, ground, file, program);
        worst = std::max(worst, status);
        count(tally, status);
    }
    if (options.files.size() > 1) write(tally);
    std::cout.flush();
    return worst;
}

} // namespace

int runOperator(const std::vector<std::string>& arguments, Program program) {
    std::ios::sync_with_stdio(false);
    try {
        return playAll(readOptions(arguments), program);
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return wrongScenario;
    }
}

} // namespace kestrel::scenario
