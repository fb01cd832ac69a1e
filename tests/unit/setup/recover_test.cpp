#include "installations.hpp"

#include "data/changeNote.hpp"
#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "setup/insert_text.hpp"
#include "setup/recover.hpp"
#include "text/characters.hpp"

#include <fstream>

namespace kestrel::setup {

namespace {

// An addressee's INSERT as the program writes it, with the columns that matter here.
struct Addressee {
    std::string number = "000002";
    std::string name = "若葉商店";
    std::string memo = "";
    std::string telephone = "03-1111-2222";
    std::string writer = "operator00001KESTREL";
};

std::string rowText(const Addressee& row) {
    return "INSERT INTO [T名簿明細] "
           "([事業所コード],[番号基準日付],[名簿No],[名簿宛先No],[名簿日付],[宛先名称A],[宛先電話],"
           "[宛先摘要],[ユーザID]) VALUES ('001','20250331','00000001','" +
           row.number + "','20240410'," + quotedText(row.name) + "," + quotedText(row.telephone) + "," +
           quotedText(row.memo) + "," + quotedText(row.writer) + ")";
}

std::string partnerText(const std::string& code, const std::string& name) {
    return "INSERT INTO M得意先 (コード,定価掛率,名称A,住所A,ユーザID) VALUES ('" + code + "', 0, '" + name +
           "', '東京都', 'operator')";
}

} // namespace

class RecoverTest : public Installations {
protected:
    void SetUp() override {
        Installations::SetUp();
        platform::standClock({2024, 5, 16, 8, 0, 0});
        root = make("a", What::minimal);
    }
    void TearDown() override {
        platform::freeClock();
        Installations::TearDown();
    }

    void line(const std::string& text, const std::string& when, int counter, const char* file = localFile) {
        change(
            root, file,
            "INSERT INTO プログラム稼動履歴 (実行日付,プログラムID,proccounter,摘要,運用事業所コード,起動担当者コード,"
            "ユーザID) VALUES ('" +
                when + "', '連絡台帳入力', '" + std::to_string(100000000000 + counter) + "', " +
                quotedText(text::replaceAll(text, "'", "''")) + ", '000', '00001', 'operator')");
    }
    void failed(const std::string& statement, const std::string& when = "20240515 093000", int counter = 5) {
        line("エラー UNIQUE constraint failed: T名簿明細.名簿No" + statement, when, counter);
    }
    void saved(const std::string& statement, const std::string& when, int counter = 5) {
        line("出力終了 " + statement, when, counter);
    }
    void main(const std::string& sql) { change(root, mainFile, sql); }
    std::string value(const std::string& sql) { return valueIn(root, mainFile, sql); }
    std::string count() { return value("SELECT count(*) FROM T名簿明細"); }
    std::string nameAt(const std::string& number) {
        return value("SELECT 宛先名称A FROM T名簿明細 WHERE 名簿宛先No = '" + number + "'");
    }

    std::string note(const std::string& statement, const std::string& folder = "conf") {
        const std::string path = root + "/" + folder + "/change-20240515-093000-KESTREL-1.note";
        std::ofstream(path, std::ios::binary)
            << changeNoteText({"20240515 093000", "operator", "00001", "KESTREL", "T名簿明細", statement});
        return path;
    }

    Recovery list() { return recover(root, false); }
    Recovery apply() { return recover(root, true); }
    // The lines of a listing, or of what was put back; what went wrong behind "!".
    static std::string shown(const Recovery& recovery) {
        std::string text;
        for (const std::string& entry : recovery.lines) text += entry + "\n";
        for (const std::string& entry : recovery.troubles) text += "!" + entry + "\n";
        return text;
    }
    // The last line of the only block.
    static std::string outcome(const Recovery& recovery) {
        return recovery.lines.size() == 4 ? recovery.lines[3].substr(4) : shown(recovery);
    }

    std::string root;
};

TEST_F(RecoverTest, findsNothingWhereNothingWasLost) {
    saved(rowText({}), "20240515 093000");
    line("エラー no such table: 使用状況SELECT * FROM 使用状況", "20240515 093000", 6);
    EXPECT_EQ(shown(list()), "");
    EXPECT_EQ(shown(apply()), "");
    EXPECT_FALSE(list().left);
}

TEST_F(RecoverTest, listsARowWhoseInsertFailedAndWritesNothing) {
    failed(rowText({}));
    const Recovery found = list();
    EXPECT_EQ(shown(found), "T名簿明細 001 20250331 00000001 000002: 若葉商店\n"
                            "    2024-05-15 09:30:00 by operator, staff 00001\n"
                            "    UNIQUE constraint failed: T名簿明細.名簿No\n"
                            "    number 000002 is free\n");
    EXPECT_TRUE(found.left);
    EXPECT_EQ(count(), "0");
    EXPECT_EQ(valueIn(root, localFile, "SELECT count(*) FROM プログラム稼動履歴"), "1");
}

TEST_F(RecoverTest, putsARowBackUnderItsNumberOnce) {
    failed(rowText({.memo = "一行目\r\n'二行目' 𠮷😀"}));
    const Recovery done = apply();
    EXPECT_EQ(outcome(done), "put back under 000002");
    EXPECT_FALSE(done.left);
    EXPECT_EQ(value("SELECT 宛先摘要 FROM T名簿明細"), "一行目\r\n'二行目' 𠮷😀");
    EXPECT_EQ(value("SELECT ユーザID FROM T名簿明細"), "operator00001KESTREL");
    EXPECT_EQ(shown(apply()), "");
    EXPECT_EQ(count(), "1");
}

TEST_F(RecoverTest, doesNotBringBackWhatSomebodyMadeOfItAfterwards) {
    failed(rowText({}));
    apply();
    EXPECT_EQ(valueIn(root, localFile, "SELECT 摘要 FROM プログラム稼動履歴 WHERE プログラムID = 'kestrel-setup'"),
              "出力終了 " + text::replaceAll(rowText({}), "'", "''"));
    main("UPDATE T名簿明細 SET 宛先電話 = '03-9999-9999'");
    EXPECT_EQ(shown(apply()), "");
    main("DELETE FROM T名簿明細");
    EXPECT_EQ(shown(apply()), "");
    EXPECT_EQ(count(), "0");
}

TEST_F(RecoverTest, takesTheNextNumberWhereAnotherRowHasIt) {
    main(rowText({.name = "先に入った宛先"}));
    main(rowText({.number = "000009", .name = "末尾"}));
    failed(rowText({.memo = "'000002'"}));
    EXPECT_EQ(outcome(list()), "number 000002 is taken, 000010 is free");
    EXPECT_EQ(outcome(apply()), "put back under 000010: its own number is taken");
    EXPECT_EQ(nameAt("000002"), "先に入った宛先");
    EXPECT_EQ(nameAt("000010"), "若葉商店");
    EXPECT_EQ(value("SELECT 宛先摘要 FROM T名簿明細 WHERE 名簿宛先No = '000010'"), "'000002'");
    EXPECT_EQ(shown(apply()), "");
    EXPECT_EQ(count(), "3");
}

TEST_F(RecoverTest, passesSevenDigitsThatSortInFrontOfSix) {
    for (const char* number : {"000002", "999999", "1000000"}) main(rowText({.number = number, .name = "先"}));
    failed(rowText({}));
    apply();
    EXPECT_EQ(nameAt("1000001"), "若葉商店");
}

TEST_F(RecoverTest, goesOneNumberOnWhereAnotherProgramIsQuicker) {
    main(
        "CREATE TRIGGER quicker BEFORE INSERT ON T名簿明細 WHEN NEW.宛先名称A = '若葉商店' AND NEW.名簿宛先No < "
        "'000004' "
        "BEGIN INSERT INTO T名簿明細 (事業所コード, 番号基準日付, 名簿No, 名簿宛先No, 宛先名称A) VALUES "
        "(NEW.事業所コード, NEW.番号基準日付, NEW.名簿No, NEW.名簿宛先No, '早い人'); SELECT RAISE(FAIL, 'taken'); END");
    failed(rowText({}));
    EXPECT_EQ(outcome(apply()), "put back under 000004: its own number is taken");
    EXPECT_EQ(nameAt("000003"), "早い人");
}

TEST_F(RecoverTest, tellsWhyARowCannotBePutBack) {
    main("CREATE TRIGGER never BEFORE INSERT ON T名簿明細 BEGIN SELECT RAISE(ABORT, 'not today'); END");
    failed(rowText({}));
    const std::string path = note(rowText({}));
    EXPECT_EQ(shown(apply()), "!T名簿明細 001 20250331 00000001 000002: 若葉商店: not today\n");
    EXPECT_TRUE(platform::fileExists(path));
}

TEST_F(RecoverTest, passesOverWhatWasTypedAgainUnderAnyNumber) {
    main(rowText({.number = "000007", .writer = "another"}));
    failed(rowText({}));
    EXPECT_EQ(shown(list()), "");
    failed(rowText({.memo = "また"}), "20240515 094000");
    EXPECT_EQ(outcome(list()), "number 000002 is free");
}

TEST_F(RecoverTest, takesANullForAnEmptyText) {
    main(rowText({}));
    main("UPDATE T名簿明細 SET 宛先摘要 = NULL");
    failed(rowText({}));
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, passesOverWhatWasSavedLater) {
    failed(rowText({}));
    saved(rowText({.number = "000004"}), "20240515 093001");
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, passesOverALaterSaveOfThatNumberAndName) {
    failed(rowText({.telephone = "03'1111"}));
    saved(rowText({.telephone = "03-1111"}), "20240515 100000");
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, keepsWhatWasSavedEarlierOrIsAnotherRow) {
    saved(rowText({}), "20240515 092959", 900);
    saved(rowText({}), "20240515 093000", 4);
    saved(rowText({.name = "別の宛先"}), "20240515 100000");
    saved(rowText({.number = "000003", .memo = "別"}), "20240515 100000");
    std::string other = rowText({});
    other.replace(other.find("00000001"), 8, "00000002");
    saved(other, "20240515 100000");
    failed(rowText({}));
    EXPECT_EQ(outcome(list()), "number 000002 is free");
    saved(rowText({}), "20240515 093000", 6);
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, listsSeveralFailuresOfOneRowOnceAsItWasTypedLast) {
    failed(rowText({.memo = "二度目"}), "20240515 093100");
    failed(rowText({.memo = "一度目"}));
    failed(rowText({.number = "000003", .memo = "二度目"}), "20240515 093200");
    failed(rowText({.number = "000003", .name = "別の宛先"}), "20240515 093300");
    const Recovery found = list();
    ASSERT_EQ(found.lines.size(), 8u) << shown(found);
    EXPECT_EQ(found.lines[0], "T名簿明細 001 20250331 00000001 000003: 若葉商店");
    EXPECT_EQ(found.lines[4], "T名簿明細 001 20250331 00000001 000003: 別の宛先");
    apply();
    EXPECT_EQ(value("SELECT 宛先摘要 FROM T名簿明細 WHERE 名簿宛先No = '000003'"), "二度目");
    EXPECT_EQ(nameAt("000004"), "別の宛先");
    EXPECT_EQ(count(), "2");
}

TEST_F(RecoverTest, putsBackAChangeThatWasCutOff) {
    const std::string path = note(rowText({}));
    EXPECT_EQ(shown(list()), "T名簿明細 001 20250331 00000001 000002: 若葉商店\n"
                             "    2024-05-15 09:30:00 by operator, staff 00001, at KESTREL\n"
                             "    the change was cut off between its DELETE and its INSERT\n"
                             "    number 000002 is free\n");
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(outcome(apply()), "put back under 000002");
    EXPECT_FALSE(platform::fileExists(path));
    EXPECT_EQ(shown(apply()), "");
    EXPECT_EQ(count(), "1");
}

TEST_F(RecoverTest, listsAChangeWithNoteAndLineOnce) {
    const std::string path = note(rowText({}));
    failed(rowText({}));
    const Recovery found = list();
    ASSERT_EQ(found.lines.size(), 4u) << shown(found);
    EXPECT_EQ(found.lines[2], "    UNIQUE constraint failed: T名簿明細.名簿No");
    apply();
    EXPECT_FALSE(platform::fileExists(path));
    EXPECT_EQ(count(), "1");
}

TEST_F(RecoverTest, clearsTheNoteOfARowThatArrived) {
    const std::string path = note(rowText({}));
    main(rowText({}));
    EXPECT_EQ(shown(list()), "");
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(shown(apply()), "");
    EXPECT_FALSE(platform::fileExists(path));
    note(rowText({}));
    main("DELETE FROM T名簿明細");
    saved(rowText({}), "20240515 093001");
    EXPECT_EQ(shown(apply()), "");
    EXPECT_FALSE(platform::fileExists(path));
    EXPECT_EQ(count(), "0");
}

TEST_F(RecoverTest, passesOverAChangeThatALivingProgramIsInTheMiddleOf) {
    const std::string path = note(rowText({}));
    {
        const auto held = platform::holdFile(path);
        ASSERT_TRUE(held);
        for (const bool applying : {false, true}) {
            const Recovery found = recover(root, applying);
            EXPECT_EQ(outcome(found), "a program is in the middle of this change: passed over");
            EXPECT_TRUE(found.left);
        }
        EXPECT_EQ(count(), "0");
    }
    EXPECT_EQ(outcome(apply()), "put back under 000002");
}

TEST_F(RecoverTest, knowsANoteThatWasNotFinishedFromOneOfAnotherForm) {
    const std::string path = note(rowText({}));
    const std::string text = platform::contentOf(path).value();
    std::ofstream(path, std::ios::binary) << text.substr(0, 150);
    EXPECT_EQ(shown(list()), "");
    EXPECT_TRUE(platform::fileExists(path));
    EXPECT_EQ(shown(apply()), "");
    EXPECT_FALSE(platform::fileExists(path));
    std::ofstream(path, std::ios::binary) << "kestrel change note 2\n\nend\n";
    EXPECT_EQ(shown(apply()), "!" + path + " is no note of this program\n!nothing was put back\n");
    EXPECT_TRUE(platform::fileExists(path));
}

TEST_F(RecoverTest, looksAtTheLocalDatabaseOfEachUser) {
    constexpr const char* own = "users/yamada/conf/usrcnfg.accdb";
    std::filesystem::create_directories(root + "/users/yamada/conf");
    std::filesystem::create_directories(root + "/users/nobody");
    std::filesystem::copy_file(root + "/" + localFile, root + "/" + own);
    line("エラー locked" + rowText({}), "20240515 093000", 5, own);
    const std::string path = note(rowText({.number = "000005", .name = "切れた宛先"}), "users/yamada/conf");
    EXPECT_EQ(list().lines.size(), 8u);
    apply();
    EXPECT_EQ(nameAt("000002"), "若葉商店");
    EXPECT_EQ(nameAt("000005"), "切れた宛先");
    EXPECT_FALSE(platform::fileExists(path));
    EXPECT_EQ(valueIn(root, own, "SELECT count(*) FROM プログラム稼動履歴 WHERE プログラムID = 'kestrel-setup'"), "2");
    EXPECT_EQ(valueIn(root, localFile, "SELECT count(*) FROM プログラム稼動履歴"), "0");
}

TEST_F(RecoverTest, mindsATableThatHasGainedColumns) {
    main("ALTER TABLE T名簿明細 ADD COLUMN 新しい列 TEXT DEFAULT '初期値'");
    failed(rowText({}));
    EXPECT_EQ(outcome(apply()), "put back under 000002");
    EXPECT_EQ(value("SELECT 新しい列 FROM T名簿明細"), "初期値");
}

TEST_F(RecoverTest, mendsAnApostropheThatBrokeTheStatement) {
    std::string broken = rowText({.name = "花子's"});
    broken.replace(broken.find("03-1111-2222"), 12, "06'1111'2222");
    failed(broken);
    EXPECT_EQ(outcome(apply()), "put back under 000002");
    EXPECT_EQ(value("SELECT 宛先電話 FROM T名簿明細"), "06'1111'2222");
    EXPECT_EQ(nameAt("000002"), "花子's");
    EXPECT_EQ(shown(apply()), "");
}

TEST_F(RecoverTest, findsTheStatementBehindADescriptionThatQuotesOne) {
    line("エラー near LINE 1: INSERT INTO [T名簿明細] ([事業所コード]... failed" +
             rowText({.memo = "INSERT INTO [T名簿明細] ([a]) VALUES ('1')"}),
         "20240515 093000", 5);
    EXPECT_EQ(outcome(apply()), "put back under 000002");
    EXPECT_EQ(value("SELECT 宛先摘要 FROM T名簿明細"), "INSERT INTO [T名簿明細] ([a]) VALUES ('1')");
}

TEST_F(RecoverTest, leavesAStatementThatCannotBeRead) {
    failed(rowText({}).substr(0, 180));
    failed(rowText({}).substr(0, 180), "20240515 093100");
    const Recovery found = apply();
    ASSERT_EQ(found.lines.size(), 5u) << shown(found);
    EXPECT_EQ(found.lines[0], "T名簿明細: a statement that can't be read");
    EXPECT_EQ(found.lines[3], "    left to a person");
    EXPECT_EQ(found.lines[4], "    " + rowText({}).substr(0, 180));
    EXPECT_TRUE(found.left);
}

TEST_F(RecoverTest, leavesARowWithoutItsKey) {
    failed(
        "INSERT INTO [T名簿明細] ([事業所コード],[番号基準日付],[名簿No],[宛先名称A]) VALUES ('001','2','3','若葉')");
    failed("INSERT INTO [T名簿明細] ([番号基準日付],[名簿No],[名簿宛先No],[宛先名称A]) VALUES ('2','3','4','若葉')");
    const Recovery found = apply();
    ASSERT_EQ(found.lines.size(), 10u) << shown(found);
    EXPECT_EQ(found.lines[3], "    left to a person");
    EXPECT_EQ(found.lines[8], "    left to a person");
    EXPECT_EQ(count(), "0");
}

TEST_F(RecoverTest, putsAPartnerBackOnlyUnderItsOwnCode) {
    failed(partnerText("000001", "青葉印刷"));
    EXPECT_EQ(outcome(list()), "number 000001 is free");
    main(partnerText("000001", "別の会社"));
    EXPECT_EQ(outcome(apply()), "number 000001 is taken: left to a person");
    EXPECT_TRUE(apply().left);
    main("DELETE FROM M得意先");
    EXPECT_EQ(outcome(apply()), "put back under 000001");
    main("UPDATE M得意先 SET 住所A = '移転先'");
    change(root, localFile, "DELETE FROM プログラム稼動履歴 WHERE 摘要 LIKE '出力終了%'");
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, tellsPartnersOfOneCodeInTwoTablesApart) {
    const std::string customer = partnerText("000001", "青葉印刷");
    failed(customer);
    failed("INSERT INTO M納品先 (コード,名称A) VALUES ('000001', '青葉印刷')", "20240515 093100");
    saved("INSERT INTO M仕入先 (コード,名称A,住所A) VALUES ('000001','青葉印刷','東京都')", "20240515 093200");
    EXPECT_EQ(list().lines.size(), 8u);
    apply();
    EXPECT_EQ(value("SELECT 名称A FROM M得意先"), "青葉印刷");
    EXPECT_EQ(value("SELECT 名称A FROM M納品先"), "青葉印刷");
}

TEST_F(RecoverTest, leavesOutWhatNobodyTyped) {
    for (const char* table : {"M電話番号", "M付属書類", "[T閲覧]", "A期日別番号情報", "使用状況"})
        failed(std::string("INSERT INTO ") + table + " (a) VALUES ('1')");
    EXPECT_EQ(shown(list()), "");
}

TEST_F(RecoverTest, putsNothingBackWhileALocalDatabaseCannotBeRead) {
    std::filesystem::create_directories(root + "/users/yamada/conf");
    const std::string own = root + "/users/yamada/conf/usrcnfg.accdb";
    std::ofstream(own) << "no database, but long enough to be looked at";
    failed(rowText({}));
    const Recovery found = list();
    EXPECT_EQ(found.lines.size(), 4u);
    EXPECT_EQ(found.troubles, std::vector<std::string>{own + ": " + own + " is not a database file"});
    const Recovery done = apply();
    EXPECT_EQ(done.lines.size(), 0u);
    EXPECT_EQ(done.troubles.back(), "nothing was put back");
    EXPECT_EQ(count(), "0");
}

TEST_F(RecoverTest, putsNothingBackWhileSomebodyElseDoes) {
    failed(rowText({}));
    {
        const auto other = platform::holdFile(root + "/conf");
        ASSERT_TRUE(other);
        EXPECT_EQ(shown(apply()), "!somebody else is putting rows back\n");
        EXPECT_EQ(outcome(list()), "number 000002 is free");
    }
    EXPECT_EQ(outcome(apply()), "put back under 000002");
}

TEST_F(RecoverTest, saysWhatIsGone) {
    EXPECT_EQ(shown(recover(at("none"), false)), "!there is no folder " + at("none") + "\n");
    failed(rowText({}));
    main("ALTER TABLE T名簿明細 RENAME TO 別名");
    EXPECT_EQ(shown(apply()), "!T名簿明細 001 20250331 00000001 000002: 若葉商店: no such table: T名簿明細\n");
    std::filesystem::remove(root + "/" + mainFile);
    EXPECT_EQ(shown(apply()),
              "!the main database can't be opened: there is no database file " + root + "/" + mainFile + "\n");
    std::filesystem::remove(root + "/" + localFile);
    const std::string path = note(rowText({}));
    EXPECT_EQ(shown(apply()), "!the main database can't be opened: " + root + " holds no configuration conf/usrcnfg\n");
    EXPECT_TRUE(platform::fileExists(path));
}

TEST_F(RecoverTest, refusesAKindThatNobodyKnows) {
    change(root, localFile, "UPDATE データベース定義 SET db = 'X'");
    failed(rowText({}));
    EXPECT_EQ(shown(list()), "!the main database can't be opened: データベース定義: unknown database kind X\n");
    change(root, localFile, "UPDATE データベース定義 SET db = 'S', データソース名 = 'nowhere'");
    EXPECT_EQ(outcome(list()), "number 000002 is free");
    change(root, localFile, "DELETE FROM データベース定義");
    EXPECT_EQ(shown(list()),
              "!the main database can't be opened: " + root + "/" + localFile + ": データベース定義 has no row GNR\n");
}

} // namespace kestrel::setup
