#include "setup/parties.hpp"

#include "setup/tsv.hpp"
#include "text/numbers.hpp"

#include <map>

namespace kestrel::setup {

namespace {

using Fields = std::vector<std::string_view>;

std::vector<Town> readTowns() {
    std::vector<Town> result;
    for (const Fields& line : fieldsOf("places")) {
        for (const std::string_view town : split(line[3], ' ')) {
            result.push_back({std::string(line[2]) + "-" + std::string(town.substr(0, 4)), std::string(line[0]),
                              std::string(town.substr(4)), std::string(line[1])});
        }
    }
    return result;
}

std::vector<Fields> linesOf(std::string_view file, std::string_view kind) {
    std::vector<Fields> result;
    for (Fields& line : fieldsOf(file)) {
        if (line[0] == kind) result.push_back(std::move(line));
    }
    return result;
}

// Throws std::out_of_range for an area that no town has.
const std::vector<Town>& townsIn(std::string_view areaCode) {
    static const auto all = [] {
        std::map<std::string, std::vector<Town>> byArea;
        for (const Town& town : towns()) byArea[town.areaCode].push_back(town);
        return byArea;
    }();
    return all.at(std::string(areaCode));
}

std::string wideDigits(std::size_t number) {
    static constexpr const char* digits[] = {"０", "１", "２", "３", "４", "５", "６", "７", "８", "９"};
    std::string text;
    for (const char c : std::to_string(number)) text += digits[c - '0'];
    return text;
}

void settle(Party& party, Generator& chance, std::string_view areaCode) {
    const Town& town = chance.from(townsIn(areaCode));
    party.postalCode = town.postalCode;
    // One statement a choice: inside one expression each compiler would draw in an order of its own.
    const std::string house = wideDigits(1 + chance.below(28));
    const std::string block = wideDigits(1 + chance.below(5));
    party.addressA = town.municipality + town.name + block + "－" + house;
    if (chance.oneIn(2)) party.addressA += "－" + wideDigits(1 + chance.below(15));
    if (chance.oneIn(3)) party.addressB = chance.from(words("building"));
}

// Ten digits in three groups. Multiplying by a number without common factors spreads the numbers and keeps them apart.
std::string telephoneOf(std::size_t number, std::string_view areaCode) {
    const std::size_t exchange = 6 - areaCode.size() - 1; // its digits behind the leading 0
    const std::string digits =
        padded((number + 40961) * 7919 % (exchange == 3 ? 10'000'000 : 1'000'000), int(exchange) + 4);
    return std::string(areaCode) + "-0" + digits.substr(0, exchange) + "-" + digits.substr(exchange);
}

struct LegalForm {
    const char* before;
    const char* after;
};
constexpr LegalForm forms[] = {{"", "株式会社"}, {"株式会社", ""}, {"", "株式会社"}, {"有限会社", ""},
                               {"株式会社", ""}, {"", "株式会社"}, {"", "有限会社"}, {"合同会社", ""},
                               {"株式会社", ""}, {"", "株式会社"}};

void name(Party& party, std::size_t number) {
    static const auto stems = linesOf("companies", "stem"), trades = linesOf("companies", "trade");
    const std::size_t stemAt = number % stems.size();
    const Fields& stem = stems[stemAt];
    const Fields& trade = trades[(number / stems.size() + stemAt * 7) % trades.size()];
    party.shortName = std::string(stem[1]) + std::string(trade[1]);
    party.kana = std::string(stem[2]) + std::string(trade[2]);
    const LegalForm& form = forms[number % std::size(forms)];
    party.name = form.before + party.shortName + form.after;
    const std::string domain = std::string(stem[3]) + "-" + std::string(trade[3]) + ".example.jp";
    if (number % 5 != 4) party.homepage = "https://www." + domain + "/";
    if (number % 3 != 2) party.email = "info@" + domain;
}

} // namespace

const std::vector<Town>& towns() {
    static const std::vector<Town> all = readTowns();
    return all;
}

const std::vector<std::string>& words(std::string_view kind) {
    static const auto all = [] {
        std::map<std::string, std::vector<std::string>, std::less<>> byKind;
        for (const Fields& line : fieldsOf("words")) byKind[std::string(line[0])].emplace_back(line[1]);
        return byKind;
    }();
    return all.find(kind)->second;
}

Person personOf(Generator& chance) {
    static const auto families = linesOf("people", "family"), givens = linesOf("people", "given");
    const Fields& family = chance.from(families);
    const Fields& given = chance.from(givens);
    return {std::string(family[1]) + std::string(given[1]), std::string(family[2]) + std::string(given[2])};
}

Party company(std::size_t number, std::string_view areaCode) {
    Generator chance(number);
    Party party;
    name(party, number);
    party.person = personOf(chance);
    settle(party, chance, areaCode);
    party.telephone = telephoneOf(2 * number, areaCode);
    if (number % 4 != 3) party.fax = telephoneOf(2 * number + 1, areaCode);
    return party;
}

Party privatePerson(std::size_t number, std::string_view areaCode) {
    Generator chance(number + 1'000'000);
    Party party;
    party.person = personOf(chance);
    settle(party, chance, areaCode);
    party.telephone = chance.oneIn(2) ? telephoneOf(500'000 + number, areaCode) : "";
    if (party.telephone.empty() && !chance.oneIn(4)) {
        const std::string digits = padded(number * 7919 % 10'000'000, 7);
        party.telephone = "090-0" + digits.substr(0, 3) + "-" + digits.substr(3);
    }
    return party;
}

std::string digitsOf(std::string_view text) {
    std::string digits;
    for (const char c : text) {
        if (c >= '0' && c <= '9') digits += c;
    }
    return digits;
}

std::string padded(std::size_t number, int width) {
    return text::zeroFilled(static_cast<long long>(number), width);
}

} // namespace kestrel::setup
