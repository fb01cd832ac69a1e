#include "installations.hpp"

#include "company/pinCodec.hpp"
#include "setup/demonstration.hpp"
#include "text/characters.hpp"

#include <algorithm>
#include <map>

namespace kestrel::setup {

// Made once: every test here only reads.
class DemonstrationTest : public Installations {
protected:
    static Rows made(const std::string& day) {
        Place place{"/srv/kestrel", day};
        Rows rows = rowsOf("minimal", place);
        addDemonstration(rows, place);
        return rows;
    }
    static const Rows& rows() {
        static const Rows all = made("20240515");
        return all;
    }
    static Rows rowsOfTable(std::string_view table, const Rows& from = rows()) {
        Rows found;
        for (const Row& row : from) {
            if (row.table == table) found.push_back(row);
        }
        return found;
    }
    static std::string text(const Row& row, std::string_view column) { return row.get(column).value_or(""); }
};

TEST_F(DemonstrationTest, thereIsAsMuchAsAnOfficeHas) {
    const std::map<std::string, std::size_t> counts{{"M事業所", 4},     {"M担当者", 14},   {"T名簿", 24},
                                                    {"T名簿明細", 600}, {"M得意先", 1300}, {"M納品先", 380},
                                                    {"M仕入先", 150},   {"Mメーカ", 110},  {"M郵便番号", 300}};
    for (const auto& [table, count] : counts) EXPECT_EQ(rowsOfTable(table).size(), count) << table;
    for (const char* kind : {"M得意先", "M納品先", "M仕入先", "Mメーカ"}) {
        EXPECT_GT(rowsOfTable(std::string(kind) + "御担当者").size(), 50u) << kind;
    }
}

TEST_F(DemonstrationTest, theSameDayGivesTheSameRows) {
    EXPECT_EQ(insertStatements("main", rows()), insertStatements("main", made("20240515")));
    EXPECT_NE(insertStatements("main", rows()), insertStatements("main", made("20240516")));
}

TEST_F(DemonstrationTest, theExampleOfTheFirstStepsIsThereAndHasANextOne) {
    const std::string root = make("a", What::full);
    const std::string key =
        " FROM T名簿明細 WHERE 事業所コード = '001' AND 番号基準日付 = '20250331' AND 名簿No = '00000012'";
    EXPECT_EQ(valueIn(root, mainFile, "SELECT 宛先名称A" + key + " AND 名簿宛先No = '000003'"), "青葉印刷株式会社");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT 宛先名称B" + key + " AND 名簿宛先No = '000003'"), "");
    EXPECT_NE(valueIn(root, mainFile, "SELECT 宛先名称A" + key + " AND 名簿宛先No > '000003' ORDER BY 名簿宛先No"),
              "nothing");
    EXPECT_EQ(
        valueIn(root, mainFile, "SELECT 名簿名称 FROM T名簿 WHERE 名簿No = '00000012' AND 番号基準日付 = '20250331'"),
        "新製品発表会ご招待");
    EXPECT_EQ(valueIn(root, localFile, "SELECT 運用事業所コード FROM 動作環境定義"), "001");
    EXPECT_EQ(valueIn(root, localFile, "SELECT 起動担当者コード FROM 動作環境定義"), "00001");
    EXPECT_EQ(valueIn(root, mainFile, "SELECT アクセス権限 FROM M担当者 WHERE コード = '00001'"), "6");
}

// A roster belongs to the fiscal year of its date, the register of that year stands at its highest number.
void checkYears(const Rows& rosters, const Rows& registers, const std::string& day) {
    std::map<std::string, std::string> highest;
    for (const Row& roster : rosters) {
        const std::string base = *roster.get("番号基準日付"), date = *roster.get("名簿日付");
        EXPECT_LE(date, day);
        EXPECT_LE(date, base);
        EXPECT_LE(*roster.get("発送日付"), day);
        EXPECT_GT(date, std::to_string(std::stoi(base) - 10000));
        highest[base] = std::max(highest[base], *roster.get("名簿No"));
    }
    ASSERT_EQ(registers.size(), highest.size());
    for (const Row& row : registers) {
        EXPECT_EQ(*row.get("番号ID"), "16310");
        EXPECT_EQ(*row.get("連番"), highest[*row.get("期日")]);
    }
}

TEST_F(DemonstrationTest, datesAndRegistersFitTheFiscalYearOfAnyDay) {
    for (const char* day : {"20240515", "20240331", "20240401", "20240229", "20251231"}) {
        const Rows all = made(day);
        checkYears(rowsOfTable("T名簿", all), rowsOfTable("A期日別番号情報", all), day);
    }
    EXPECT_EQ(*rowsOfTable("A期日別番号情報", made("20240331"))[1].get("期日"), "20240331");
    EXPECT_EQ(*rowsOfTable("A期日別番号情報", made("20240401"))[1].get("期日"), "20250331");
}

TEST_F(DemonstrationTest, everyAddresseeBelongsToItsRoster) {
    std::map<std::string, const Row*> rosters;
    const Rows headers = rowsOfTable("T名簿");
    const auto key = [](const Row& row) {
        return text(row, "事業所コード") + text(row, "番号基準日付") + text(row, "名簿No");
    };
    for (const Row& row : headers) rosters[key(row)] = &row;
    for (const Row& row : rowsOfTable("T名簿明細")) {
        ASSERT_TRUE(rosters.contains(key(row)));
        for (const char* column : {"名簿日付", "担当者コード", "部門コード"}) {
            EXPECT_EQ(row.get(column), rosters[key(row)]->get(column)) << column;
        }
    }
}

TEST_F(DemonstrationTest, everyAddressFitsItsPostalCode) {
    std::map<std::string, std::string> towns;
    for (const Row& row : rowsOfTable("M郵便番号")) {
        EXPECT_TRUE(towns.emplace(text(row, "郵便番号"), text(row, "住所A") + text(row, "住所B")).second);
        EXPECT_EQ(text(row, "郵便番号").size(), 8u);
        EXPECT_EQ(text(row, "郵便番号")[3], '-');
    }
    const auto check = [&](const char* table, const char* code, const char* address) {
        for (const Row& row : rowsOfTable(table)) {
            if (text(row, address).empty()) continue;
            ASSERT_TRUE(towns.contains(text(row, code))) << table << text(row, code);
            EXPECT_TRUE(text(row, address).starts_with(towns[text(row, code)])) << text(row, address);
        }
    };
    check("T名簿明細", "宛先郵便番号", "宛先住所A");
    for (const char* table : {"M得意先", "M納品先", "M仕入先", "Mメーカ", "M事業所"}) check(table, "郵便番号", "住所A");
}

TEST_F(DemonstrationTest, namesAndAddressesFitTheirFields) {
    for (const Row& row : rowsOfTable("T名簿明細")) {
        for (const char* column : {"宛先名称A", "宛先名称B", "宛先名称C", "宛先住所A", "宛先住所B", "宛先住所C"}) {
            EXPECT_LE(text::byteLength932(text(row, column)), 60u) << text(row, column);
        }
        for (const char* column : {"宛先HOMEPAGE", "宛先EMAIL"}) EXPECT_LE(text(row, column).size(), 127u);
    }
    for (const Row& row : rowsOfTable("T名簿")) EXPECT_LE(text::byteLength932(text(row, "名簿名称")), 32u);
}

TEST_F(DemonstrationTest, telephoneNumbersHaveTenDigitsAndAnExchangeThatIsNotInUse) {
    std::map<std::string, std::string> owners;
    for (const Row& row : rowsOfTable("T名簿明細")) {
        const std::string number = text(row, "宛先電話");
        if (number.empty()) continue;
        EXPECT_EQ(digitsOf(number).size(), number.starts_with("090") ? 11u : 10u) << number;
        EXPECT_EQ(number[number.find('-') + 1], '0') << number;
        const auto [owner, isNew] = owners.emplace(number, text(row, "宛先名称A"));
        EXPECT_EQ(owner->second, text(row, "宛先名称A")) << number;
    }
    EXPECT_EQ(rowsOfTable("M電話番号").size(), owners.size());
}

TEST_F(DemonstrationTest, searchFormsOfTelephoneNumbersAreStoredBesideThem) {
    for (const Row& row : rowsOfTable("T名簿明細")) {
        if (text(row, "宛先名称A") != "青葉印刷株式会社") continue;
        EXPECT_EQ(text(row, "宛先電話"), "03-0437-0159");
        EXPECT_EQ(text(row, "宛先電話番号"), "03-04370159");
        return;
    }
    FAIL() << "no example";
}

TEST_F(DemonstrationTest, customersAreTheSameUnderTheirCodeEverywhere) {
    std::map<std::string, std::string> names;
    for (const Row& row : rowsOfTable("M得意先")) names[text(row, "コード")] = text(row, "名称A") + text(row, "電話");
    std::size_t linked = 0;
    for (const Row& row : rowsOfTable("T名簿明細")) {
        if (text(row, "得意先コード").empty()) continue;
        ++linked;
        EXPECT_EQ(names[text(row, "得意先コード")], text(row, "宛先名称A") + text(row, "宛先電話"));
        EXPECT_EQ(text(row, "得意先登録日付"), text(row, "名簿日付"));
    }
    EXPECT_GT(linked, 50u);
    for (const Row& row : rowsOfTable("M納品先")) EXPECT_TRUE(names.contains(text(row, "得意先コード")));
}

TEST_F(DemonstrationTest, someStaffHaveRetiredAndAllHaveAPin) {
    std::size_t retired = 0;
    for (const Row& row : rowsOfTable("M担当者")) {
        EXPECT_GE(decode(text(row, "暗証番号")).size(), 4u);
        if (text(row, "在籍区分") != "1") continue;
        ++retired;
        EXPECT_EQ(text(row, "退社日付").size(), 8u);
    }
    EXPECT_EQ(retired, 3u);
}

TEST_F(DemonstrationTest, someNamesAreNullAndSomeMemosHaveSeveralLines) {
    const auto nulls = [](std::string_view table, std::string_view column) {
        const Rows all = rowsOfTable(table);
        return std::ranges::count_if(all, [&](const Row& row) { return !row.get(column); });
    };
    EXPECT_EQ(nulls("T名簿", "名簿名称"), 2);
    EXPECT_EQ(nulls("M担当者", "カナ"), 1);
    EXPECT_GT(nulls("T名簿明細", "宛先名称B"), 0);
    EXPECT_GT(nulls("M得意先", "略称"), 0);
    std::size_t lines = 0;
    for (const Row& row : rowsOfTable("T名簿明細")) {
        const std::string memo = text(row, "宛先摘要");
        if (memo.find("\r\n") != std::string::npos) ++lines;
        EXPECT_EQ(memo.find('\\'), std::string::npos);
    }
    EXPECT_GT(lines, 20u);
}

} // namespace kestrel::setup
