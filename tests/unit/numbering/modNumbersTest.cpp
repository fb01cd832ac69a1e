#include "numbering/modNumbers.hpp"

#include "../data/opened.hpp"

#include "session/companyValues.hpp"

#include <set>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Registers : public Opened {
protected:
    Registers() {
        company.決算月 = 3;
        company.決算日 = 31;
    }
    void registerOf(const std::string& id, const std::string& type, const std::string& last = "00000000") {
        main("INSERT INTO A番号情報 (番号ID, 連番種類, 連番) VALUES ('" + id + "', '" + type + "', '" + last + "')");
    }
    std::string counter(const std::string& table, const std::string& condition = "1 = 1") const {
        return mainValue("SELECT 連番, 履歴連番 FROM " + table + " WHERE " + condition);
    }
};

TEST_F(Registers, BaseDates) {
    struct Row {
        const char *name, *type;
        int closeMonth, closeDay;
        const char *date, *expected;
    };
    const Row table[] = {
        {"no scope", "0", 3, 31, "20240115", "99999999"},
        {"fiscal year", "1", 3, 31, "20240115", "20240331"},
        {"closing month", "2", 3, 31, "20240115", "20240131"},
        {"closing day 20", "2", 3, 20, "20240125", "20240220"},
        {"day", "3", 3, 31, "20240115", "20240115"},
        {"today", "3", 3, 31, "99999999", "20240515"},
        {"type 4", "4", 3, 31, "20240115", "88888888"},
        {"type -1", "-1", 3, 31, "20240115", "88888888"},
        {"a type that isn't a number", "x", 3, 31, "20240115", "99999999"},
        {"a number in front", "3日", 3, 31, "20240115", "20240115"},
    };
    registerOf("T", "0");
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        main("UPDATE A番号情報 SET 連番種類 = '" + std::string(row.type) + "' WHERE 番号ID = 'T'");
        company.決算月 = static_cast<std::int16_t>(row.closeMonth);
        company.決算日 = static_cast<std::int16_t>(row.closeDay);
        EXPECT_EQ(numberBaseDate("T", row.date), row.expected);
    }
}

TEST_F(Registers, ABaseDateOfAnIdThatDoesNotExistIsEmptyWithoutAMessage) {
    EXPECT_EQ(numberBaseDate("nobody", "20240115"), "");
    EXPECT_EQ(boxes, Texts{});
    EXPECT_EQ(mainSent(), Texts{"SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = 'nobody'"});
}

TEST_F(Registers, FirstNumberOfADay) {
    registerOf("D", "3");
    journal::start();
    EXPECT_EQ(peekNextNumber("D", "20240515", "001"), "00000001");
    EXPECT_EQ(counter("A期日別番号情報"), "00000000 | 00000000");
    const std::string read = "SELECT A期日別番号情報.* FROM A期日別番号情報 WHERE A期日別番号情報.番号ID = 'D' AND "
                             "A期日別番号情報.期日 = '20240515'";
    const std::string source = "SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = 'D'";
    EXPECT_EQ(mainSent(), (Texts{source, read, source,
                                 "INSERT INTO [A期日別番号情報] ([番号ID],[期日],[連番],[履歴連番]) VALUES "
                                 "('D','20240515','00000000','00000000')",
                                 read}));
    EXPECT_EQ(peekNextNumber("D", "20240515", "001"), "00000001");
    journal::start();
    EXPECT_EQ(takeNextNumber("D", "20240515", "001"), "00000001");
    EXPECT_EQ(counter("A期日別番号情報"), "00000001 | 00000000");
    EXPECT_EQ(mainSent(), (Texts{source, read, read,
                                 "UPDATE A期日別番号情報 SET  連番 = '00000001' WHERE A期日別番号情報.番号ID = 'D' AND "
                                 "A期日別番号情報.期日 = '20240515'"}));
    EXPECT_EQ(takeNextNumber("D", "20240515", "001"), "00000002");
}

TEST_F(Registers, AFiscalYearsEndDividesTheCounters) {
    registerOf("Y", "1");
    const std::string before = numberBaseDate("Y", "20240331"), after = numberBaseDate("Y", "20240401");
    EXPECT_EQ(takeNextNumber("Y", before, "001"), "00000001");
    EXPECT_EQ(takeNextNumber("Y", after, "001"), "00000001");
    EXPECT_EQ(takeNextNumber("Y", before, "001"), "00000002");
    EXPECT_EQ(mainRows("SELECT 期日, 連番 FROM A期日別番号情報 ORDER BY 期日"),
              (Texts{"20240331 | 00000002", "20250331 | 00000001"}));
}

TEST_F(Registers, WithoutAScopeTheBaseDateIsIgnored) {
    registerOf("N", "0", "00000041");
    journal::start();
    EXPECT_EQ(peekNextNumber("N", "20240101", "001"), "00000042");
    EXPECT_EQ(takeNextNumber("N", "whatever", "001"), "00000042");
    EXPECT_EQ(mainValue("SELECT 連番 FROM A番号情報 WHERE 番号ID = 'N'"), "00000042");
    EXPECT_EQ(mainSent().back(), "UPDATE A番号情報 SET  連番 = '00000042' WHERE A番号情報.番号ID = 'N'");
    EXPECT_EQ(mainRows("SELECT * FROM A期日別番号情報"), Texts{});
}

TEST_F(Registers, AnInvalidTypeStillMakesTheRowAndYieldsNothing) {
    registerOf("I", "7");
    for (const bool take : {false, true}) {
        EXPECT_EQ(take ? takeNextNumber("I", "88888888", "001") : peekNextNumber("I", "88888888", "001"), "");
        EXPECT_EQ(counter("A期日別番号情報", "期日 = '88888888'"), "00000000 | 00000000");
    }
    EXPECT_EQ(boxes, Texts{});
    for (const std::string& statement : mainSent()) EXPECT_FALSE(statement.starts_with("UPDATE")) << statement;
}

TEST_F(Registers, AMissingRegisterIsToldTwice) {
    EXPECT_EQ(peekNextNumber("nobody", "20240515", "001"), "00000000");
    EXPECT_EQ(boxes, Texts(2, "番号情報に問題が発生設定できませんでした。"));
    company.伝票番号管理区分 = 1;
    EXPECT_EQ(takeNextNumber("nobody", "20240515", "001"), "00000000");
    EXPECT_EQ(boxes.size(), 4u);
}

TEST_F(Registers, WhatIsStoredDecidesWhatComesNext) {
    struct Row {
        const char *name, *last, *next;
    };
    const Row table[] = {
        {"an ordinary number", "00000009", "00000010"},
        {"minus one", "-1", "00000001"},
        {"below minus one", "-3", "-00000002"},
        {"not a number", "12A", "00000001"},
        {"empty", "", "00000001"},
        {"the last with eight digits", "99999999", "100000000"},
        {"nine digits", "100000000", "100000001"},
        {"larger than any number", "99999999999999999999", "9223372036854775807"},
    };
    registerOf("W", "0");
    for (const Row& row : table) {
        SCOPED_TRACE(row.name);
        main("UPDATE A番号情報 SET 連番 = '" + std::string(row.last) + "' WHERE 番号ID = 'W'");
        EXPECT_EQ(peekNextNumber("W", "99999999", "001"), row.next);
    }
    main("UPDATE A番号情報 SET 連番 = NULL WHERE 番号ID = 'W'");
    EXPECT_EQ(peekNextNumber("W", "99999999", "001"), "00000001");
}

TEST_F(Registers, APeekWhoseRowCannotBeReadIsEmptyWithoutAMessage) {
    registerOf("D", "3");
    database::breakStatements(database::Role::main, "FROM A期日別番号情報");
    EXPECT_EQ(peekNextNumber("D", "20240515", "001"), "");
    EXPECT_EQ(boxes, Texts{});
}

TEST_F(Registers, ATakeWhoseRowCannotBeReadSendsAnEmptyNumber) {
    registerOf("D", "3");
    database::breakStatements(database::Role::main, "FROM A期日別番号情報");
    EXPECT_EQ(takeNextNumber("D", "20240515", "001"), "");
    EXPECT_TRUE(mainSent().back().starts_with("UPDATE A期日別番号情報 SET  連番 = '' WHERE ")) << mainSent().back();
}

TEST_F(Registers, TheMessageComesAfterTheDraw) {
    bool free = false;
    static bool* seen = nullptr;
    seen = &free;
    screen::setActSource([] {
        if (screen::waiting() != nullptr) *seen = bool(connections.mainConnection.beginDraw());
        if (*seen) *seen = bool(connections.mainConnection.endDraw(false));
        return pressOk();
    });
    takeNextNumber("nobody", "20240515", "001");
    EXPECT_TRUE(free);
}

class OfficeRegisters : public Registers {
protected:
    OfficeRegisters() { company.伝票番号管理区分 = 2; }
};

TEST_F(OfficeRegisters, ATakeCountsForEachOffice) {
    registerOf("N", "0", "00000500");
    EXPECT_EQ(takeNextNumber("N", "99999999", "001"), "00000001");
    EXPECT_EQ(takeNextNumber("N", "99999999", "001"), "00000002");
    EXPECT_EQ(takeNextNumber("N", "99999999", "002"), "00000001");
    EXPECT_EQ(mainRows("SELECT 事業所コード, 番号ID, 連番, 履歴連番 FROM A事業所別番号情報 ORDER BY 事業所コード"),
              (Texts{"001 | N | 00000002 | 00000000", "002 | N | 00000001 | 00000000"}));
    EXPECT_EQ(mainValue("SELECT 連番 FROM A番号情報 WHERE 番号ID = 'N'"), "00000500");
    EXPECT_EQ(mainSent().back(),
              "UPDATE A事業所別番号情報 SET  連番 = '00000001' WHERE A事業所別番号情報.事業所コード = '002' AND "
              "A事業所別番号情報.番号ID = 'N'");
}

TEST_F(OfficeRegisters, APeekWithoutAScopeFailsOnTheEngine) {
    registerOf("N", "0");
    EXPECT_EQ(peekNextNumber("N", "99999999", "001"), "");
    EXPECT_EQ(mainSent().back(),
              "SELECT A事業所別番号情報.* FROM A事業所別番号情報 WHERE A事業所別番号情報.事業所コード = '001' AND "
              "A事業所別期日別番号情報.番号ID = 'N' ");
    EXPECT_EQ(failures(), 1);
    EXPECT_EQ(boxes, Texts{});
    EXPECT_EQ(counter("A事業所別番号情報"), "00000000 | 00000000");
}

TEST_F(OfficeRegisters, AMissingRowForADateIsNotMade) {
    registerOf("D", "3");
    journal::start();
    EXPECT_EQ(takeNextNumber("D", "20240515", "001"), "");
    EXPECT_EQ(failures(), 1);
    EXPECT_EQ(mainRows("SELECT * FROM A事業所別期日別番号情報"), Texts{});
    const std::string row = "A事業所別期日別番号情報.事業所コード = '001' AND A事業所別期日別番号情報.番号ID = 'D' AND "
                            "A事業所別期日別番号情報.期日 = '20240515'";
    const std::string read = "SELECT A事業所別期日別番号情報.* FROM A事業所別期日別番号情報 WHERE " + row;
    EXPECT_EQ(mainSent(), (Texts{"SELECT A番号情報.* FROM A番号情報 WHERE A番号情報.番号ID = 'D'", read,
                                 "SELECT A番号情報.* FROM A番号情報 WHERE A事業所別番号情報.番号ID = 'D'", read,
                                 "UPDATE A事業所別期日別番号情報 SET  連番 = '' WHERE " + row}));
}

TEST_F(OfficeRegisters, ARowForADateThatIsThereCounts) {
    registerOf("D", "3");
    main("INSERT INTO A事業所別期日別番号情報 (事業所コード, 番号ID, 期日, 連番, 履歴連番) VALUES ('001', 'D', "
         "'20240515', "
         "'00000007', '00000000')");
    EXPECT_EQ(peekNextNumber("D", "20240515", "001"), "00000008");
    EXPECT_EQ(takeNextNumber("D", "20240515", "001"), "00000008");
    EXPECT_EQ(counter("A事業所別期日別番号情報"), "00000008 | 00000000");
    EXPECT_EQ(failures(), 0);
}

constexpr int drawsEach = 100;

// One instance of its own: draws, and writes what it drew, a line each.
void drawInAnotherProcess(const std::string& file) {
    resetSession();
    if (!openSystemDatabases() || !openMainDatabase()) _exit(1);
    std::ofstream drawn(file);
    for (int i = 0; i < drawsEach; ++i) drawn << takeNextNumber("16310", "20240515", "001") << "\n";
    drawn.close();
    _exit(0);
}

TEST_F(Installed, TwoInstancesNeverDrawOneNumber) {
    main("UPDATE A番号情報 SET 連番種類 = '3' WHERE 番号ID = '16310'");
    pid_t children[2];
    for (int i = 0; i < 2; ++i)
        if ((children[i] = fork()) == 0) drawInAnotherProcess(path("drawn" + std::to_string(i)));
    std::set<std::string> numbers;
    for (int i = 0; i < 2; ++i) {
        int status = -1;
        waitpid(children[i], &status, 0);
        EXPECT_EQ(status, 0);
        std::ifstream drawn(path("drawn" + std::to_string(i)));
        for (std::string line; std::getline(drawn, line);) numbers.insert(line);
    }
    EXPECT_EQ(numbers.size(), 2u * drawsEach);
    EXPECT_EQ(*numbers.rbegin(), "00000200");
}

} // namespace
} // namespace kestrel
