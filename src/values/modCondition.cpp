#include "values/modCondition.hpp"

#include "text/characters.hpp"
#include "values/modValues.hpp"

#include <algorithm>
#include <vector>

namespace kestrel {

namespace {

// Where the search for the connective in front of a condition is anchored. Which operator has which anchor decides how
// much of the text goes with the condition; the list windows count on it.
enum class Anchor {
    ownKey,        // the condition itself
    lowerBound,    // the condition too, but behind WHERE the key of its lower bound is looked for
    lowerBoundOnly // the key of its lower bound alone, so nowhere
};

struct Operator {
    std::string_view text;
    Anchor anchor;
};

constexpr std::string_view lowerBoundOperator = " >= '";
constexpr std::string_view likeOperator = " LIKE '";

// In the order in which they are tried.
constexpr Operator operators[] = {
    {lowerBoundOperator, Anchor::ownKey}, {" <= '", Anchor::ownKey},        {" = '", Anchor::lowerBound},
    {" > '", Anchor::lowerBoundOnly},     {" < '", Anchor::lowerBoundOnly}, {likeOperator, Anchor::lowerBoundOnly},
};

// The text as characters that compare without regard to letter case. Positions count from 1; 0 means not found.
using Characters = std::vector<std::string>;

// Full-width "Ａ" to "Ｚ" share their first two bytes and end in A1 to BA; "ａ" to "ｚ" in "\xEF\xBD" end in 81 to 9A.
std::string folded(std::string_view character) {
    if (character.size() != 3 || character < "Ａ" || character > "Ｚ") return text::lowerAscii(character);
    return {'\xEF', '\xBD', static_cast<char>(character[2] - 0x20)};
}

Characters foldedCharacters(std::string_view text) {
    Characters result;
    for (const std::string_view character : text::characters(text)) result.push_back(folded(character));
    return result;
}

int find(const Characters& text, std::string_view what, int from = 1) {
    const Characters part = foldedCharacters(what);
    const auto start = text.begin() + std::clamp<std::ptrdiff_t>(from - 1, 0, std::ssize(text));
    const auto found = std::search(start, text.end(), part.begin(), part.end());
    return found == text.end() ? 0 : static_cast<int>(found - text.begin()) + 1;
}

bool standsAt(const Characters& text, std::string_view what, int position) {
    return position >= 1 && find(text, what, position) == position;
}

// One condition found in the text, by positions.
struct Found {
    const Operator* op = nullptr;
    int key = 0;          // where its column begins
    int value = 0;        // where its value begins
    int end = 0;          // its closing apostrophe, moved behind the connective when that goes too
    int anchor = 0;       // r of the rules below
    std::string boundKey; // what is looked for behind WHERE
};

Found findCondition(const Characters& text, std::string_view column) {
    for (const Operator& op : operators) {
        const std::string key = std::string(column) + std::string(op.text);
        const int position = find(text, key);
        if (position == 0) continue;
        const int value = position + static_cast<int>(text::length(key));
        return {&op, position, value, find(text, "'", value), 0, key};
    }
    return {};
}

void setAnchor(const Characters& text, std::string_view column, Found& found) {
    if (found.op->anchor == Anchor::ownKey) {
        found.anchor = found.key;
        return;
    }
    found.boundKey = std::string(column) + std::string(lowerBoundOperator);
    found.anchor = found.op->anchor == Anchor::lowerBound ? found.key : find(text, found.boundKey);
}

void skipConnective(const Characters& text, int& end) {
    if (standsAt(text, " AND ", end + 1))
        end += 5;
    else if (standsAt(text, " OR ", end + 1))
        end += 4;
}

// A group that opens right in front of the column goes with the connective before its parenthesis.
int connectiveBeforeGroup(const Characters& text, const Found& found) {
    if (!standsAt(text, "(", found.key - 1)) return 0;
    if (standsAt(text, " AND ", found.anchor - 6)) return found.anchor - 6;
    return standsAt(text, " OR ", found.anchor - 5) ? found.anchor - 5 : 0;
}

int firstOf(int candidate, const Characters& text, std::string_view what, int from) {
    return candidate != 0 ? candidate : find(text, what, from);
}

int cutBehindWhere(const Characters& text, Found& found) {
    const int cut = find(text, found.boundKey);
    skipConnective(text, found.end);
    return cut;
}

// Where the cut begins; may move the end of the cut behind a connective.
int findCut(const Characters& text, Found& found) {
    const int r = found.anchor;
    int cut = 0;
    if (r >= 8) {
        if (find(text, " WHERE ", r - 7) != 0)
            cut = cutBehindWhere(text, found);
        else
            cut = firstOf(connectiveBeforeGroup(text, found), text, " AND ", r - 5);
    } else if (r >= 6) {
        cut = find(text, " AND ", r - 5);
    } else if (r == 1) {
        skipConnective(text, found.end);
    }
    if (r >= 5) cut = firstOf(cut, text, " OR ", r - 4);
    return cut != 0 ? cut : 1;
}

// The last character that goes: a group that opens inside the cut goes as a whole. A group that never closes ends
// nowhere (0), and everything is kept behind the cut.
int findCutEnd(const Characters& text, const Found& found, int cut) {
    const int group = find(text, "(", cut);
    if (cut == 1 || group <= cut || group >= found.end) return found.end;
    return find(text, ")", found.end);
}

} // namespace

std::string takeConditionValue(std::string_view column, std::string& condition) {
    const Characters text = foldedCharacters(condition);
    Found found = findCondition(text, column);
    if (found.op == nullptr || found.end == 0) return "";
    const std::string value = text::slice(condition, found.value - 1, found.end - found.value);
    setAnchor(text, column, found);
    const int cut = findCut(text, found);
    const int end = findCutEnd(text, found, cut);
    condition = text::first(condition, cut - 1) + text::slice(condition, end, text.size());
    return found.op->text == likeOperator ? stripPercent(value) : value;
}

bool conditionHolds(std::string_view condition, std::string_view words) {
    return find(foldedCharacters(condition), words) != 0;
}

} // namespace kestrel
