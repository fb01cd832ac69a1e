// Splitting a line of a scenario into its verb and arguments.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::scenario {

// What "%/" and "@/" stand for: folders without a closing separator.
struct Places {
    std::string root, scratch;
};

using Arguments = std::vector<std::string>;

std::string trimmed(std::string_view text); // blanks, tabs and a carriage return at both ends

// "%/" and "@/" where a path begins: at the start of the text, or behind a character that no path part ends with.
std::string withPlaces(std::string_view text, const Places& places);
std::string unescaped(std::string_view text); // \" \\ \n \r \t; any other backslash stands for itself

// Cuts one argument off the front of rest (in double quotes, or up to the next blank); nothing at the end of the line.
std::optional<std::string> cutWord(std::string_view& rest);

// The rest of a line as one text: the whole in double quotes, or as it stands; escapes understood.
std::string restText(std::string_view rest);

// SQL stands as it is, but for places and {pin TEXT}.
std::string restSql(std::string_view rest, const Places& places);

// Cuts words off the front of rest when they stand there, one or more blanks between them ("file make"); false, and
// rest untouched, otherwise.
bool cutName(std::string_view& rest, std::string_view words);

// Splits what stands behind a verb by the verb's shape, one letter an argument:
//   w a word   o a word that may be absent   m any number of words
//   t TEXT...  T TEXT... that may be absent   q SQL...   l the rest of the line as it stands
// Raises ScenarioError when there is too little or too much.
Arguments splitArguments(std::string_view rest, std::string_view shape, const Places& places);

} // namespace kestrel::scenario
