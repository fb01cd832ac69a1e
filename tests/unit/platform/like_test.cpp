// LIKE as the house answers it, against the engine's own: not one answer may differ.
#include "platform/database/sqlite_like.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <variant>
#include <vector>

namespace kestrel::test {

namespace {

struct Blob {
    std::string bytes;
};
using Value = std::variant<std::monostate, std::string, std::int64_t, double, Blob>;

class Engine {
public:
    explicit Engine(bool replaced) {
        sqlite3_open(":memory:", &handle);
        if (replaced) {
            EXPECT_EQ(database::replaceLike(handle), SQLITE_OK);
        }
        sqlite3_exec(handle, "CREATE TABLE 表 (番号 INTEGER PRIMARY KEY, 値)", nullptr, nullptr, nullptr);
    }
    ~Engine() { sqlite3_close(handle); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    void add(const Value& value) { run("INSERT INTO 表 (値) VALUES (?1)", {value}); }

    // One character a row: 1, 0, or - for a null; the engine's word instead when it refuses.
    std::string answers(const std::string& condition, const std::vector<Value>& values) {
        return run("SELECT group_concat(ifnull(答, '-'), '') FROM (SELECT " + condition +
                       " AS 答 FROM 表 ORDER BY 番号)",
                   values);
    }

private:
    std::string run(const std::string& sql, const std::vector<Value>& values) {
        sqlite3_stmt* statement = nullptr;
        EXPECT_EQ(sqlite3_prepare_v2(handle, sql.c_str(), -1, &statement, nullptr), SQLITE_OK) << sql;
        for (std::size_t i = 0; i < values.size(); ++i) bind(statement, static_cast<int>(i) + 1, values[i]);
        const int code = sqlite3_step(statement);
        std::string result = code == SQLITE_ROW    ? reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))
                             : code == SQLITE_DONE ? ""
                                                   : sqlite3_errmsg(handle);
        sqlite3_finalize(statement);
        return result;
    }

    static void bind(sqlite3_stmt* statement, int place, const Value& value) {
        if (const auto* text = std::get_if<std::string>(&value))
            sqlite3_bind_text(statement, place, text->data(), static_cast<int>(text->size()), SQLITE_TRANSIENT);
        else if (const auto* number = std::get_if<std::int64_t>(&value))
            sqlite3_bind_int64(statement, place, *number);
        else if (const auto* real = std::get_if<double>(&value))
            sqlite3_bind_double(statement, place, *real);
        else if (const auto* blob = std::get_if<Blob>(&value))
            sqlite3_bind_blob(statement, place, blob->bytes.data(), static_cast<int>(blob->bytes.size()),
                              SQLITE_TRANSIENT);
    }

    sqlite3* handle = nullptr;
};

// Whole characters of one to four bytes, two forms of the same, halves of characters, and what is no UTF-8 at all.
const std::vector<std::string> whole = {
    "a", "A", "z", "Z", "0", "3", "9", "あ",   "い", "ぁ", "ア", "ｱ",  "東",           "京",
    "é", "É", "©", "[", "{", "@", "`", "\x7F", "𠮷", "😀",  "ก",  "가", "\xEE\x80\x80", "\xEF\xBC\xA1"};
const std::vector<std::string> broken = {"\x81",
                                         "\xA9",
                                         "\xBF",
                                         "\xE3",
                                         "\xE3\x81",
                                         "\xC0\x81",
                                         "\xC1\xA9",
                                         "\xC2",
                                         "\xE0\x82\xA9",
                                         "\xE0\x80\xA9",
                                         "\xF0\x82\x82\xA9",
                                         "\xF0\x9F",
                                         "\xED\xA0\x80",
                                         "\xED\xA1\x81",
                                         "\xEF\xBF\xBD",
                                         "\xEF\xBF\xBE",
                                         "\xEF\xBF\xBF",
                                         "\xFF",
                                         "\xF8\x88",
                                         std::string(1, '\0')};

class Chance {
public:
    std::size_t below(std::size_t count) { return numbers() % count; }
    const std::string& from(const std::vector<std::string>& list) { return list[below(list.size())]; }

    std::string text(std::size_t most, std::size_t brokenOneIn) {
        std::string text;
        for (std::size_t left = below(most + 1); left > 0; --left)
            text += below(brokenOneIn) == 0 ? from(broken) : from(whole);
        return text;
    }

private:
    std::mt19937 numbers{20240515};
};

// A piece of a text, often, so that there is something to find; its letters sometimes in the other case.
std::string wordFrom(Chance& chance, const std::string& text) {
    if (text.empty() || chance.below(4) == 0) return chance.text(3, 12);
    const std::size_t begin = chance.below(text.size());
    std::string word = text.substr(begin, 1 + chance.below(8));
    for (char& c : word)
        if ((c == 'a' || c == 'A' || c == 'z' || c == 'Z') && chance.below(2) == 0) c = static_cast<char>(c ^ 0x20);
    return word;
}

std::string patternFor(Chance& chance, const std::string& text) {
    static const std::vector<std::string> ends = {"%", "%", "%", "%", "%", "%%", "_", "%_", "_%", ""};
    std::string pattern = chance.from(ends) + wordFrom(chance, text);
    if (chance.below(6) == 0) pattern += chance.from(ends) + wordFrom(chance, text);
    return pattern + chance.from(ends);
}

struct Like : testing::Test {
    Engine house{true}, own{false};
    void add(const Value& value) {
        house.add(value);
        own.add(value);
    }
    void expectSame(const std::string& condition, const std::vector<Value>& values) {
        EXPECT_EQ(house.answers(condition, values), own.answers(condition, values))
            << testing::PrintToString(condition);
    }
};

} // namespace

TEST_F(Like, answersAsTheEngineForManyRandomPairs) {
    constexpr std::size_t texts = 500, patterns = 400;
    Chance chance;
    std::vector<std::string> all;
    for (std::size_t i = 0; i < texts; ++i) add(all.emplace_back(chance.text(9, i % 3 == 0 ? 6 : 1000)));
    std::size_t found = 0;
    for (std::size_t i = 0; i < patterns; ++i) {
        const std::string pattern = patternFor(chance, chance.from(all));
        const std::string answers = own.answers("値 LIKE ?1", {pattern});
        ASSERT_EQ(house.answers("値 LIKE ?1", {pattern}), answers) << testing::PrintToString(pattern);
        found += static_cast<std::size_t>(std::ranges::count(answers, '1'));
    }
    EXPECT_GT(found, patterns * texts / 50); // there was something to find
}

TEST_F(Like, takesForEachOtherWhatTheEngineDoes) {
    std::vector<std::string> pieces = whole;
    pieces.insert(pieces.end(), broken.begin(), broken.end());
    for (const std::string& piece : pieces) add("東" + piece + "京");
    for (const std::string& piece : pieces) {
        expectSame("値 LIKE ?1", {"%" + piece + "%"});
        expectSame("値 LIKE ?1", {"%" + piece + "京%"});
        expectSame("値 LIKE ?1", {"%東" + piece + "%"});
    }
}

TEST_F(Like, answersAsTheEngineForWhatIsNoText) {
    const std::vector<Value> values = {std::monostate(), std::int64_t{1234},  std::int64_t{-5}, 12.5,     1e300,
                                       std::string(),    std::string("1234"), Blob{"1234"},     Blob{""}, Blob{"東京"}};
    for (const Value& value : values) add(value);
    for (const Value& pattern : values) expectSame("値 LIKE ?1", {pattern});
    for (const char* pattern : {"%23%", "%5%", "%2.5%", "%e+%", "%", "%%", "%京%", "%-%"}) {
        expectSame("値 LIKE ?1", {std::string(pattern)});
        expectSame("値 NOT LIKE ?1", {std::string(pattern)});
    }
}

TEST_F(Like, readsAPatternAnewForEachRowWhereItChanges) {
    for (const char* text : {"%青%", "%葉%", "%", "青葉", "a%"}) add(std::string(text));
    expectSame("?1 LIKE 値", {std::string("青葉")});
    expectSame("値 LIKE '%' || substr(値, 2, 1) || '%'", {});
}

TEST_F(Like, leavesEscapesToTheEngine) {
    for (const char* text : {"100%", "100円", "a_b", "axb"}) add(std::string(text));
    expectSame("値 LIKE '%!%%' ESCAPE '!'", {});
    expectSame("値 LIKE '%!_%' ESCAPE '!'", {});
}

TEST_F(Like, refusesWhatTheEngineRefuses) {
    add(std::string("青葉"));
    add(std::monostate());
    const std::string tooLong = "%" + std::string(50'000, 'a') + "%";
    expectSame("値 LIKE ?1", {tooLong});
    EXPECT_NE(house.answers("値 LIKE ?1", {tooLong}).find("too complex"), std::string::npos);
}

} // namespace kestrel::test
