// The postal codes, by their first three digits or by parts of the address. The window begins with the codes around the
// one in the field that it was opened from, or around the company's.
#include "lists/listFrame.hpp"
#include "lists/listWindows.hpp"
#include "session/companyValues.hpp"
#include "session/rosterSession.hpp"
#include "text/characters.hpp"

namespace kestrel {

namespace {

using enum screen::Kind;
using enum screen::InputMode;

// clang-format off: one line a control
constexpr ListControl controls[] = {
    {0, "List郵便番号", ListView, "", 120, 1560, 8355},
    {1, "郵便番号", xField, "", 1860, 480, 495, 3, off},
    {2, "btn_郵便番号検索", SSCommand, "郵便番号頭３桁", 120, 480, 1695},
    {3, "都道府県市町村", xField, "", 1860, 840, 3975, 30, hiragana},
    {4, "btn_都道府県市町村検索", SSCommand, "都道府県市町村", 120, 840, 1695},
    {5, "町域名", xField, "", 1860, 1200, 3975, 30, hiragana},
    {6, "btn_町域名検索", SSCommand, "町域名", 120, 1200, 1695},
    {7, "btn_戻る", SSCommand, "戻る", 7500, 5700, 975},
    {8, "wnd_ttl", SSPanel, "郵便番号一覧", 0, 0, 8595},
    {9, "btn_画面クリア", SSCommand, "条件ｸﾘｱ", 7380, 480, 1095},
    {10, "btn_複合検索", SSCommand, "複合検索", 7380, 1200, 1095},
};
// clang-format on

constexpr ListWindowColumn columns[] = {
    {"番号", 1050, "郵便番号"},
    {"都道府県市町村", 3500, "住所A"},
    {"町域名", 3500, "住所B"},
};
constexpr std::string_view keyColumns[] = {"郵便番号"};

constexpr ListField fields[] = {
    {"郵便番号", Leaving::code}, {"都道府県市町村", Leaving::text}, {"町域名", Leaving::text}};

constexpr ListSelect selects[] = {{"", "SELECT 郵便番号,住所A,住所B FROM M郵便番号"}};

constexpr Clause searched[] = {
    {ClauseKind::filled, "郵便番号", "郵便番号 >= '{}' AND 郵便番号 < '{+1}'"},
    {ClauseKind::filledWord, "都道府県市町村", "住所A LIKE '%{}%'"},
    {ClauseKind::filledWord, "町域名", "住所B LIKE '%{}%'"},
};

constexpr std::string_view byCode = "M郵便番号.郵便番号";
constexpr SearchMode modes[] = {
    {"btn_郵便番号検索", 1, "郵便番号", byCode, true},
    {"btn_都道府県市町村検索", 2, "都道府県市町村", byCode, true},
    {"btn_町域名検索", 3, "町域名", byCode, true},
    {"btn_複合検索", compoundSearch, "", ""},
};

constexpr std::size_t prefixLength = 3;

bool hasPrefix(const std::string& code) {
    return text::length(text::trim(code)) >= prefixLength;
}

std::string startPrefix() {
    for (const std::string& code : {rosterSession.lookupTarget->text, company.郵便番号})
        if (hasPrefix(code)) return text::first(code, prefixLength);
    return "100";
}

void prepare(ListWindow& list) {
    screen::setEnabled(controlOf(list, "btn_郵便番号検索"), true);
    screen::setEnabled(controlOf(list, "btn_都道府県市町村検索"), false);
    screen::setEnabled(controlOf(list, "btn_町域名検索"), false);
    heldValue(list, "郵便番号") = startPrefix();
}

} // namespace

constinit const ListSpec wnd郵便番号一覧 = {
    .name = "wnd郵便番号一覧",
    .list = "List郵便番号",
    .controls = controls,
    .columns = columns,
    .keyColumns = keyColumns,
    .fields = fields,
    .selects = selects,
    .searched = searched,
    .modes = modes,
    .unloads = true,
    .liveButtons = LiveButtons::ofThisField,
    .showsFieldsAfterSearch = true,
    .clear = {.searches = false},
    .prepare = prepare,
};

} // namespace kestrel
