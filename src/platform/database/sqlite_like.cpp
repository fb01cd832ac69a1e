#include "platform/database/sqlite_like.hpp"

#include "platform/database/names.hpp"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

namespace kestrel::database {

namespace {

using Byte = unsigned char;

bool continues(Byte byte) {
    return (byte & 0xC0) == 0x80;
}

// How many bytes the character takes that stands there: one of ASCII, two or three in the only form that stands for it.
// 0 for everything else (the end, four bytes, what is no UTF-8), of which the engine has its own reading.
std::size_t plainCharacter(const char* text) {
    const auto at = [text](int place) { return static_cast<Byte>(text[place]); };
    const Byte lead = at(0);
    if (lead < 0x80) return lead == 0 ? 0 : 1;
    if (lead >= 0xE1 && lead <= 0xEF) return continues(at(1)) && continues(at(2)) ? 3 : 0;
    if (lead >= 0xC2 && lead <= 0xDF) return continues(at(1)) ? 2 : 0;
    return 0;
}

// The engine takes these for each other, or for what is no UTF-8: surrogates and the two marks behind U+FFFD.
bool readOtherwise(std::string_view character) {
    const auto lead = static_cast<Byte>(character[0]);
    return lead == 0xEF ? character >= "\xEF\xBF\xBD" : lead == 0xED && static_cast<Byte>(character[1]) >= 0xA0;
}

enum class Way {
    nothing,    // the pattern matches nothing at all
    engine,     // anything but one word between "%"
    characters, // a word that the text is gone through for character by character
    bytes,      // a word of ASCII, which is never a part of something else
};

struct Pattern {
    Way way = Way::engine;
    std::string whole; // as it was given
    std::string word;  // ASCII letters small
};

Way wayFor(std::string_view word) {
    bool ascii = true;
    for (std::size_t place = 0; place < word.size();) {
        if (word[place] == '%' || word[place] == '_') return Way::engine;
        const std::size_t length = plainCharacter(word.data() + place);
        if (length == 0 || readOtherwise(word.substr(place, length))) return Way::engine;
        ascii = ascii && length == 1;
        place += length;
    }
    return ascii ? Way::bytes : Way::characters;
}

Pattern understood(std::string_view pattern) {
    if (pattern.size() < 3 || pattern.front() != '%' || pattern.back() != '%')
        return {Way::engine, std::string(pattern), {}};
    Pattern result{Way::engine, std::string(pattern), std::string(pattern.substr(1, pattern.size() - 2))};
    result.way = wayFor(result.word);
    std::ranges::transform(result.word, result.word.begin(), lowerAscii);
    return result;
}

// Neither text nor word holds a NUL inside, and the text ends with one, so that it stops the comparison.
bool standsAt(const char* text, const std::string& word) {
    for (char wanted : word)
        if (lowerAscii(*text++) != wanted) return false;
    return true;
}

bool findBytes(const char* text, const std::string& word) {
    for (; *text != 0; ++text)
        if (lowerAscii(*text) == word[0] && standsAt(text, word)) return true;
    return false;
}

bool askEngine(const Pattern& pattern, const char* text) {
    return sqlite3_strlike(pattern.whole.c_str(), text, 0) == 0;
}

// Up to the match every character was plain, and nothing behind it may still belong to its last one; else the engine
// is asked after all.
bool findCharacters(const Pattern& pattern, const char* text) {
    const std::string& word = pattern.word;
    const std::size_t first = plainCharacter(word.data());
    for (const char* place = text; *place != 0;) {
        const std::size_t length = plainCharacter(place);
        if (length == 0) return askEngine(pattern, text);
        // The last byte of a character differs most often.
        if (length == first && lowerAscii(place[length - 1]) == word[length - 1] && standsAt(place, word))
            return !continues(static_cast<Byte>(place[word.size()])) || askEngine(pattern, text);
        place += length;
    }
    return false;
}

bool matches(const Pattern& pattern, const char* text) {
    switch (pattern.way) {
    case Way::bytes:
        return findBytes(text, pattern.word);
    case Way::characters:
        return findCharacters(pattern, text);
    default:
        return askEngine(pattern, text);
    }
}

const bool blobsNeverMatch = sqlite3_compileoption_used("LIKE_DOESNT_MATCH_BLOBS") != 0;

bool neverMatches(sqlite3_value* value) {
    return blobsNeverMatch && sqlite3_value_type(value) == SQLITE_BLOB;
}

const char* textOf(sqlite3_value* value) {
    return reinterpret_cast<const char*>(sqlite3_value_text(value));
}

bool tooLong(sqlite3_context* context, sqlite3_value* pattern) {
    return sqlite3_value_bytes(pattern) >
           sqlite3_limit(sqlite3_context_db_handle(context), SQLITE_LIMIT_LIKE_PATTERN_LENGTH, -1);
}

// Nothing for a null, and for what is refused.
std::unique_ptr<Pattern> readPattern(sqlite3_context* context, sqlite3_value* value) {
    if (neverMatches(value)) return std::make_unique<Pattern>(Pattern{Way::nothing, {}, {}});
    if (tooLong(context, value)) {
        sqlite3_result_error(context, "LIKE or GLOB pattern too complex", -1);
        return nullptr;
    }
    const char* text = textOf(value);
    return text ? std::make_unique<Pattern>(understood(text)) : nullptr;
}

void answer(sqlite3_context* context, const Pattern& pattern, sqlite3_value* value) {
    if (pattern.way == Way::nothing) return sqlite3_result_int(context, 0); // a null too
    if (const char* text = textOf(value)) sqlite3_result_int(context, matches(pattern, text) ? 1 : 0);
}

// What was understood of a pattern is kept with the statement as long as the pattern stays the same.
void like(sqlite3_context* context, int, sqlite3_value** values) {
    if (neverMatches(values[1])) return sqlite3_result_int(context, 0);
    if (const void* kept = sqlite3_get_auxdata(context, 0))
        return answer(context, *static_cast<const Pattern*>(kept), values[1]);
    std::unique_ptr<Pattern> pattern = readPattern(context, values[0]);
    if (!pattern) return;
    answer(context, *pattern, values[1]);
    sqlite3_set_auxdata(context, 0, pattern.release(), [](void* old) { delete static_cast<Pattern*>(old); });
}

} // namespace

int replaceLike(sqlite3* handle) {
    return sqlite3_create_function(handle, "like", 2, SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                   like, nullptr, nullptr);
}

} // namespace kestrel::database
