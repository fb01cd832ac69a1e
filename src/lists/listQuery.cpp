#include "lists/listQuery.hpp"

#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"
#include "text/numbers.hpp"
#include "values/modValues.hpp"

#include <algorithm>

namespace kestrel {

namespace {

bool blank(const std::string& text) {
    return text::trim(text).empty();
}

bool holdsWholeCompany(const std::string& office) {
    return office == zeroString(3);
}

const std::string& held(const ListWindow& list, const Clause& clause) {
    return list.held[fieldIndex(list.spec, clause.field)];
}

int selected(const ListWindow& list, const Clause& clause) {
    return list.selections[statusIndex(list.spec, clause.field)];
}

bool meansAll(ListWindow& list, const Clause& clause) {
    return selected(list, clause) == controlOf(list, clause.field).maxValue;
}

using L = ListWindow&;
using C = const Clause&;

struct KindRule {
    ClauseKind kind;
    bool (*stands)(L, C);
    std::string (*value)(L, C);
};

bool always(L, C) {
    return true;
}
bool notBlank(L list, C clause) {
    return !blank(held(list, clause));
}
bool notEmpty(L list, C clause) {
    return !held(list, clause).empty();
}
std::string caller(L, C) {
    return rosterSession.lookupCondition;
}
std::string office(L, C) {
    return installation.sessionOffice;
}
std::string asHeld(L list, C clause) {
    return held(list, clause);
}
std::string quotedAsHeld(L list, C clause) {
    return quoteSqlText(held(list, clause));
}

constexpr KindRule kindRules[] = {
    {ClauseKind::callerIfAny, [](L, C) { return !blank(rosterSession.lookupCondition); }, caller},
    {ClauseKind::callerAlways, always, caller},
    {ClauseKind::office, [](L, C) { return !holdsWholeCompany(installation.sessionOffice); }, office},
    {ClauseKind::staffOffice, [](L, C) { return !holdsWholeCompany(installation.operatingOffice); }, office},
    {ClauseKind::code, notBlank, asHeld},
    {ClauseKind::word, notBlank, [](L l, C c) { return quoteSqlText(text::trim(held(l, c))); }},
    {ClauseKind::wordAsHeld, notBlank, quotedAsHeld},
    {ClauseKind::digits, notBlank, [](L l, C c) { return quoteSqlText(digitsOnly(held(l, c))); }},
    {ClauseKind::filled, notEmpty, asHeld},
    {ClauseKind::filledWord, notEmpty, quotedAsHeld},
    {ClauseKind::status, [](L l, C c) { return !meansAll(l, c); },
     [](L l, C c) { return std::to_string(selected(l, c)); }},
};

const KindRule& ruleOf(ClauseKind kind) {
    return *std::find_if(std::begin(kindRules), std::end(kindRules),
                         [kind](const KindRule& rule) { return rule.kind == kind; });
}

// Only ASCII digits count, so that "-1" is no number here.
std::string nextPrefix(std::string_view value) {
    const std::string digits = text::trimLeft(value);
    const bool number = !digits.empty() && digits[0] >= '0' && digits[0] <= '9';
    return text::zeroFilled(number ? text::leadingNumber(digits) + 1 : 1, 3);
}

// Fills the places of a text in one pass: a value may hold any characters.
std::string filled(std::string_view text, const std::string& value) {
    std::string result;
    for (std::size_t brace = text.find('{'); brace != text.npos; brace = text.find('{')) {
        const std::size_t end = text.find('}', brace);
        result += text.substr(0, brace);
        result += text.substr(brace, end + 1 - brace) == "{}" ? value : nextPrefix(value);
        text.remove_prefix(end + 1);
    }
    return result + std::string(text);
}

struct Query {
    ListWindow& list;
    const SearchMode& mode;
    std::string text;
    bool hasWhere = false;
};

bool negating(const Query& query) {
    return query.mode.number == negationSearch;
}

// The text of the clause in this search; empty when it isn't there.
std::string_view textOf(const Query& query, const Clause& clause) {
    const bool stands = query.mode.ignoresTest || ruleOf(clause.kind).stands(query.list, clause);
    if (!negating(query)) return stands ? clause.text : std::string_view();
    if (!stands) return clause.kind == ClauseKind::status ? clause.negatedAll : std::string_view();
    return clause.negated.empty() ? clause.text : clause.negated;
}

void append(Query& query, const Clause& clause) {
    const std::string_view text = textOf(query, clause);
    if (text.empty()) return;
    const bool where = !query.hasWhere || clause.connective == Connective::where;
    query.text += where ? " WHERE " : " AND ";
    query.text += filled(worded(query.list.spec, text), ruleOf(clause.kind).value(query.list, clause));
    if (clause.countsAsWhere) query.hasWhere = true;
}

void appendAll(Query& query, std::span<const Clause> clauses) {
    for (const Clause& clause : clauses) append(query, clause);
}

void appendSearched(Query& query) {
    for (const Clause& clause : query.list.spec.searched)
        if (query.mode.field.empty() || query.mode.field == clause.field) append(query, clause);
}

void appendOrder(Query& query) {
    if (query.mode.order.empty()) return;
    const ListSpec& spec = query.list.spec;
    query.text += " ORDER BY " + (spec.orderLead ? spec.orderLead() : "") + worded(spec, query.mode.order);
}

const ListSelect* selectOf(const ListSpec& spec) {
    const std::string& kind = installation.databaseKind;
    const auto fits = [&](const ListSelect& select) {
        return select.kinds.empty() || (!kind.empty() && text::contains(select.kinds, kind));
    };
    const auto found = std::find_if(spec.selects.begin(), spec.selects.end(), fits);
    return found == spec.selects.end() ? nullptr : &*found;
}

} // namespace

std::string searchText(ListWindow& list, const SearchMode& mode) {
    const ListSelect* select = selectOf(list.spec);
    if (!select) return "";
    Query query{list, mode, worded(list.spec, select->text), select->hasWhere};
    appendAll(query, list.spec.fixed);
    appendSearched(query);
    appendAll(query, list.spec.standing);
    appendOrder(query);
    return query.text;
}

const SearchMode* findMode(const ListSpec& spec, int number) {
    const auto found = std::find_if(spec.modes.begin(), spec.modes.end(),
                                    [number](const SearchMode& mode) { return mode.number == number; });
    return found == spec.modes.end() ? nullptr : &*found;
}

} // namespace kestrel
