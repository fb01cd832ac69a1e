// What the rewriter has to know of each family of SQL, as one table.
#pragma once

#include "platform/database/dialect.hpp"

#include <cstdint>
#include <string_view>

namespace kestrel::database {

// How the n of TOP n is written.
enum class LimitForm : std::uint8_t {
    top,        // SELECT TOP n …, as it stands
    limit,      // … LIMIT n
    fetchFirst, // … FETCH FIRST n ROWS ONLY
};

// How a LIKE that ignores letter case and has no escape character is written.
enum class LikeForm : std::uint8_t {
    asItStands,
    ilike, // a ILIKE 'p' ESCAPE ''
    upper, // UPPER(a) LIKE UPPER('p')
};

struct DialectWords {
    bool quotesNames;              // a bare name becomes "name"
    bool quotesBrackets;           // [name] becomes "name"
    LimitForm limit;               //
    bool flattensRightJoins;       // RIGHT JOIN becomes a flat chain
    bool flattensMarks;            // so does a comma list with (+)
    std::string_view betweenBases; // between the tables of a chain that nothing is joined to
    LikeForm like;                 //
    bool takesAsBeforeTableAlias;  // else the AS there is left out
    bool sortsNullsAsGreatest;     // else as least, as the suite expects it
    bool marksLiteralsAsNational;  // N'…' where a literal has more than ASCII
};

// Names in brackets aside, every token stands as it is.
constexpr bool keepsTokens(const DialectWords& words) {
    return !words.quotesNames && !words.marksLiteralsAsNational && words.like == LikeForm::asItStands &&
           words.takesAsBeforeTableAlias;
}

const DialectWords& wordsOf(Dialect dialect);

// A word of the grammar, in any letter case: never a name where it stands bare.
bool isSqlWord(std::string_view word);

} // namespace kestrel::database
