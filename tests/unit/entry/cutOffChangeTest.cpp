// What lies on the disk while a change has deleted its row and not yet inserted it again.
#include "../data/opened.hpp"
#include "../platform/other_process.hpp"

#include "data/changeNote.hpp"
#include "entry/modRosterRecords.hpp"
#include "platform/files.hpp"
#include "session/rosterSession.hpp"
#include "setup/recover.hpp"

#include <chrono>
#include <thread>

namespace kestrel {

namespace {

constexpr const char* wholeMemo = "一行目\r\n'二行目' \\ 𠮷😀";
constexpr const char* storedRow = "INSERT INTO T名簿明細 (事業所コード, 番号基準日付, 名簿No, 名簿宛先No, 宛先名称A) "
                                  "VALUES ('001', '20250331', '00000001', '000002', '古い名前')";
constexpr const char* noteFile = "conf/change-20240515-093000-KESTREL-1.note";

// What the person has on the screen: the stored row with another name and a memo.
void fillSession() {
    installation.sessionOffice = "001";
    rosterSession.番号基準日付 = "20250331";
    rosterSession.名簿No = "00000001";
    rosterSession.名簿宛先No = "000002";
    rosterSession.宛先名称A = "花子's";
    rosterSession.宛先摘要 = wholeMemo;
}

} // namespace

class ChangeOnTheDisk : public Opened {
protected:
    ChangeOnTheDisk() {
        main(storedRow);
        fillSession();
        journal::start();
    }
    bool noteStays() const { return platform::fileExists(path(noteFile)); }
    static std::string sentInsert() {
        std::string found;
        for (const std::string& sql : sent(journal::Channel::sentMain))
            if (sql.starts_with("INSERT INTO [T名簿明細]")) found = sql;
        return found;
    }
};

TEST_F(ChangeOnTheDisk, isGoneWhenTheRowIsInserted) {
    replaceAddressee();
    EXPECT_EQ(rosterSession.writeResult, 1);
    EXPECT_FALSE(noteStays());
    EXPECT_EQ(mainValue("SELECT 宛先摘要 FROM T名簿明細"), wholeMemo);
}

TEST_F(ChangeOnTheDisk, staysWhenTheInsertFailsWithTheVeryStatement) {
    database::breakStatements(database::Role::main, "INSERT INTO [T名簿明細]");
    replaceAddressee();
    ASSERT_TRUE(noteStays());
    const auto text = platform::contentOf(path(noteFile));
    const auto note = readChangeNote(text.value());
    ASSERT_TRUE(note);
    EXPECT_EQ(note->table, "T名簿明細");
    EXPECT_EQ(note->statement, sentInsert());
    EXPECT_TRUE(platform::holdFile(path(noteFile))) << "nobody is in the middle of it any more";
    EXPECT_EQ(setup::recover(root, false).lines.size(), 4u) << "its note and its line are one";
}

TEST_F(ChangeOnTheDisk, isNotNeededForANewRow) {
    database::breakStatements(database::Role::main, "INSERT INTO [T名簿明細]");
    insertAddressee();
    EXPECT_EQ(rosterSession.writeResult, 3);
    EXPECT_FALSE(noteStays());
}

class KilledChange : public Installed {
protected:
    // The box of a failed delete stands between the two statements of a change. There the row is deleted after all, by
    // another text, and the process goes no further.
    static bool deleteAndStop() {
        const auto deleted = connections.mainConnection.execute("DELETE FROM [T名簿明細]");
        return deleted && pause() == 0;
    }
    bool startChange() const {
        if (!openSystemDatabases() || !openMainDatabase()) return false;
        fillSession();
        screen::setActSource(deleteAndStop);
        database::breakStatements(database::Role::main, "DELETE FROM T名簿明細");
        replaceAddressee();
        return false;
    }
    std::vector<std::string> stored() const {
        return rows(path(setup::mainFile), "SELECT 名簿宛先No, 宛先名称A, 宛先摘要 FROM T名簿明細");
    }
    static std::string lastOf(const setup::Recovery& recovery) {
        return recovery.lines.empty() ? "" : recovery.lines.back();
    }
    bool isDeletedSoon() const {
        for (int i = 0; i < 2000 && !stored().empty(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
        return stored().empty();
    }
};

TEST_F(KilledChange, isPutBackOnceItsProcessIsGone) {
    main(storedRow);
    test::OtherProcess program([&] { return startChange(); });
    ASSERT_TRUE(isDeletedSoon());

    const auto during = setup::recover(root, true);
    EXPECT_EQ(lastOf(during), "    a program is in the middle of this change: passed over");
    EXPECT_TRUE(stored().empty());

    program.end();
    const auto after = setup::recover(root, false);
    ASSERT_EQ(after.lines.size(), 4u);
    EXPECT_EQ(after.lines[0], "T名簿明細 001 20250331 00000001 000002: 花子's");
    EXPECT_EQ(after.lines[2], "    the change was cut off between its DELETE and its INSERT");
    EXPECT_EQ(lastOf(setup::recover(root, true)), "    put back under 000002");
    EXPECT_EQ(stored(), std::vector<std::string>{std::string("000002 | 花子's | ") + wholeMemo});
    EXPECT_FALSE(platform::fileExists(path(noteFile)));
    EXPECT_TRUE(setup::recover(root, true).lines.empty());
}

} // namespace kestrel
