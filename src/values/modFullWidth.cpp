#include "values/modFullWidth.hpp"

#include "text/characters.hpp"

#include <span>
#include <vector>

namespace kestrel {

namespace {

using Characters = std::vector<std::string_view>;

// Two rows of the same length: the character below stands for the one above it.
struct Rows {
    std::string_view from, to;
};

constexpr Rows asciiRows[] = {
    {"0123456789", "０１２３４５６７８９"},
    {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", "ＡＢＣＤＥＦＧＨＩＪＫＬＭＮＯＰＱＲＳＴＵＶＷＸＹＺ"},
    {"abcdefghijklmnopqrstuvwxyz", "ａｂｃｄｅｆｇｈｉｊｋｌｍｎｏｐｑｒｓｔｕｖｗｘｙｚ"},
    {"!#$%&()=~|-+*[]@:;.,/?<>{}_", "！＃＄％＆（）＝～｜－＋＊［］＠：；．，／？＜＞｛｝＿"},
    {"'\\", "\u2019\uFFE5"}, // not the forms that lie 0xFEE0 above, on purpose
    {"ｰ", "ー"},
};

constexpr Rows voicedRows[] = {{"ｳｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾊﾋﾌﾍﾎ", "ヴガギグゲゴザジズゼゾダヂヅデドバビブベボ"}};

constexpr Rows semiVoicedRows[] = {{"ﾊﾋﾌﾍﾎ", "パピプペポ"}};

constexpr Rows kanaRows[] = {
    {"ｱｲｳｴｵｶｷｸｹｺｻｼｽｾｿﾀﾁﾂﾃﾄﾅﾆﾇﾈﾉﾊﾋﾌﾍﾎﾏﾐﾑﾒﾓﾔﾕﾖﾗﾘﾙﾚﾛﾜﾝ",
     "アイウエオカキクケコサシスセソタチツテトナニヌネノハヒフヘホマミムメモヤユヨラリルレロワン"},
    {"ｦｧｨｩｪｫｯｬｭｮ", "ヲァィゥェォッャュョ"},
};

// The character of the second row, or nothing.
std::string_view lookUp(std::span<const Rows> table, std::string_view character) {
    for (const Rows& rows : table) {
        const Characters from = text::characters(rows.from), to = text::characters(rows.to);
        for (std::size_t i = 0; i < from.size(); ++i)
            if (from[i] == character) return to[i];
    }
    return {};
}

std::string_view lookUpMarked(std::string_view base, std::string_view mark) {
    if (mark == "ﾞ") return lookUp(voicedRows, base);
    if (mark == "ﾟ") return lookUp(semiVoicedRows, base);
    return {};
}

} // namespace

std::string toFullWidth(std::string_view text) {
    const Characters all = text::characters(text);
    std::string result;
    for (std::size_t at = 0; at < all.size(); ++at) {
        std::string_view wide = lookUp(asciiRows, all[at]);
        if (wide.empty() && at + 1 < all.size()) {
            wide = lookUpMarked(all[at], all[at + 1]);
            if (!wide.empty()) ++at; // the mark went with its base
        }
        if (wide.empty()) wide = lookUp(kanaRows, all[at]);
        result += wide.empty() ? all[at] : wide;
    }
    return result;
}

} // namespace kestrel
