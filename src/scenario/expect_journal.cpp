// Expectations about what was written down and what was sent, in one order of time.
#include "platform/journal.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"

#include <array>
#include <optional>

namespace kestrel::scenario {

using journal::Channel;
using journal::Entry;

namespace {

enum class Match { whole, part };

struct Search {
    Channel channel;
    Match match;
    std::string text;
    std::size_t from; // first entry looked at
};

bool fits(const Search& search, const Entry& entry) {
    if (entry.channel != search.channel) return false;
    return search.match == Match::whole ? entry.text == search.text : text::contains(entry.text, search.text);
}

std::string listed(Channel channel, std::size_t from) {
    std::string result;
    const auto& entries = journal::entries();
    for (std::size_t i = from; i < entries.size(); ++i)
        if (entries[i].channel == channel) result += "\n        " + entries[i].text;
    return result.empty() ? "nothing" : result;
}

std::vector<std::size_t> hits(const Search& search) {
    std::vector<std::size_t> result;
    for (std::size_t i = search.from; i < journal::entries().size(); ++i)
        if (fits(search, journal::entries()[i])) result.push_back(i);
    return result;
}

// Without a count: at least one, and what follows is looked for behind the first. With a count: exactly so many, and
// behind the last.
Finding found(const Search& search, std::optional<int> count) {
    const std::vector<std::size_t> all = hits(search);
    const bool holds = count ? static_cast<int>(all.size()) == *count : !all.empty();
    if (holds && !all.empty()) run().searchFrom = (count ? all.back() : all.front()) + 1;
    const std::string number = count ? std::to_string(all.size()) + " of them in:" : "";
    return {holds, number + listed(search.channel, search.from)};
}

Channel sentChannel(std::string_view word) {
    if (word != "main" && word != "local") throw ScenarioError("a database is main or local");
    return word == "main" ? Channel::sentMain : Channel::sentLocal;
}

// "TEXT...", "like TEXT..." or "N like TEXT..."
Finding lookForStatement(const Arguments& arguments, std::size_t from) {
    std::string_view rest = arguments[1];
    Search search{sentChannel(arguments[0]), Match::whole, "", from};
    std::optional<int> count;
    std::string_view behindNumber = rest;
    const std::string number = cutWord(behindNumber).value_or("");
    if (text::isWholeNumber(number) && cutName(behindNumber, "like")) {
        count = static_cast<int>(text::wholeNumber(number));
        search.match = Match::part;
        rest = behindNumber;
    } else if (cutName(rest, "like")) {
        search.match = Match::part;
    }
    search.text = restText(rest);
    return found(search, count);
}

Finding sent(const Arguments& arguments) {
    return lookForStatement(arguments, run().actionStart);
}

Finding thenSent(const Arguments& arguments) {
    return lookForStatement(arguments, run().searchFrom);
}

Finding nothingSent(const Arguments& arguments) {
    bool nothing = true;
    std::string there;
    for (std::string_view word : {"main", "local"}) {
        if (!arguments.empty() && arguments[0] != word) continue;
        const Channel channel = sentChannel(word);
        nothing = nothing && hits({channel, Match::part, "", run().actionStart}).empty();
        there += std::string(there.empty() ? "" : ", ") + std::string(word) + ": " + listed(channel, run().actionStart);
    }
    if (there.empty()) throw ScenarioError("a database is main or local");
    return {nothing, there};
}

Finding seen(const Arguments& arguments) {
    return found({Channel::seen, Match::whole, arguments[0], run().actionStart}, std::nullopt);
}

Finding thenSeen(const Arguments& arguments) {
    return found({Channel::seen, Match::whole, arguments[0], run().searchFrom}, std::nullopt);
}

// The text of the last line of this run that begins with the word: started "TEXT" or opened "TEXT".
std::optional<std::string> lastOf(const std::string& word) {
    std::optional<std::string> last;
    for (std::size_t i = run().runStart; i < journal::entries().size(); ++i) {
        const Entry& entry = journal::entries()[i];
        if (entry.channel == Channel::seen && entry.text.starts_with(word + " \""))
            last = restText(std::string_view(entry.text).substr(word.size()));
    }
    return last;
}

Finding lastIs(const std::string& word, const std::string& expected) {
    const auto last = lastOf(word);
    return {last == expected, last.value_or("nothing " + word)};
}

Finding lastHolds(const std::string& word, const std::string& part) {
    const auto last = lastOf(word);
    return {last && text::contains(*last, part), last.value_or("nothing " + word)};
}

Finding nothingOf(const std::string& word) {
    const auto last = lastOf(word);
    return {!last, last.value_or("nothing " + word)};
}

constexpr std::array expectations{
    Expectation{"seen", "l", seen},
    Expectation{"then seen", "l", thenSeen},
    Expectation{"sent", "wl", sent},
    Expectation{"then sent", "wl", thenSent},
    Expectation{"nothing sent", "o", nothingSent},
    Expectation{"started", "t", [](const Arguments& a) { return lastIs("started", a[0]); }},
    Expectation{"started like", "t", [](const Arguments& a) { return lastHolds("started", a[0]); }},
    Expectation{"nothing started", "", [](const Arguments&) { return nothingOf("started"); }},
    Expectation{"opened", "t", [](const Arguments& a) { return lastIs("opened", a[0]); }},
    Expectation{"opened like", "t", [](const Arguments& a) { return lastHolds("opened", a[0]); }},
    Expectation{"nothing opened", "", [](const Arguments&) { return nothingOf("opened"); }},
};

} // namespace

std::span<const Expectation> journalExpectations() {
    return expectations;
}

} // namespace kestrel::scenario
