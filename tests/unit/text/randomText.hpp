// Texts by chance, the same in every run: for proving that a function answers whatever it is given.
#pragma once

#include <random>
#include <string>
#include <vector>

namespace kestrel::test {

inline std::string randomText(std::mt19937& random, const std::vector<std::string>& pieces, std::size_t most = 12) {
    std::string text;
    for (std::size_t left = random() % (most + 1); left > 0; --left) text += pieces[random() % pieces.size()];
    return text;
}

// Every kind of character and of broken UTF-8 that makes a difference somewhere.
inline const std::vector<std::string> oddPieces = {"a",
                                                   "Z",
                                                   "0",
                                                   "9",
                                                   "7",
                                                   " ",
                                                   "-",
                                                   "+",
                                                   "'",
                                                   "%",
                                                   "(",
                                                   ")",
                                                   ".",
                                                   ",",
                                                   "山",
                                                   "ア",
                                                   "ｱ",
                                                   "ﾞ",
                                                   "ﾟ",
                                                   "ｶ",
                                                   "ー",
                                                   "é",
                                                   "𠮟",
                                                   "\x80",
                                                   "\xE3",
                                                   "\xE3\x81",
                                                   "\xF0\x9F",
                                                   "\xC0",
                                                   "\xFF",
                                                   "\x01",
                                                   "\xED\xA0\x80",
                                                   "９９９９",
                                                   "9223372036854775807"};

} // namespace kestrel::test
