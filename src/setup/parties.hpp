// The invented companies and people of the demonstration. Each has a number and is always the same under it, so that a
// customer and an addressee can be one and the same.
#pragma once

#include "setup/generator.hpp"
#include "setup/rows.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace kestrel::setup {

struct Town {
    std::string postalCode;   // "999-9999"
    std::string municipality; // prefecture and city
    std::string name;
    std::string areaCode;
};

struct Person {
    std::string name, kana; // kana half-width
};

struct Party {
    std::string name; // of a company, with its legal form; empty for a private person
    std::string shortName, kana;
    Person person; // the private person, or who speaks for the company
    std::string postalCode, addressA, addressB;
    std::string telephone, fax;
    std::string homepage, email; // empty: has none
};

inline constexpr const char* areaCodes[] = {"03", "06", "092"}; // of the three offices, in their order

const std::vector<Town>& towns();
// The last column of words.tsv for that kind ("department", "building", "branch", "memo").
const std::vector<std::string>& words(std::string_view kind);
Person personOf(Generator& chance);
// Company names differ for numbers below 2,160. No two parties share a telephone number; its exchange begins
// with 0, which no exchange in use does.
Party company(std::size_t number, std::string_view areaCode);
Party privatePerson(std::size_t number, std::string_view areaCode);

std::string digitsOf(std::string_view text);
std::string padded(std::size_t number, int width); // with leading zeros

} // namespace kestrel::setup
