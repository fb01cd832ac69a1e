#include "session/modStart.hpp"

#include "../data/installed.hpp"

#include "data/modGateway.hpp"
#include "session/rosterSession.hpp"

namespace kestrel {

namespace {

using Lines = std::vector<std::string>;

class Start : public Installed {
protected:
    int lines(const std::string& summary) const {
        int count = 0;
        for (const auto& line : history()) count += line == summary;
        return count;
    }
};

bool exitAgainThenYes() {
    if (boxes.size() == 1) requestExit(); // a second decision, while the first one still asks
    return hand::answer("はい");
}

bool askTwice() {
    boxes.push_back(screen::waiting()->box.text);
    return exitAgainThenYes();
}

} // namespace

TEST_F(Start, ShowsAnEmptyEntryOfToday) {
    startProgram("");
    EXPECT_FALSE(screen::ended());
    EXPECT_EQ(rosterSession.名簿日付, "20240515");
    EXPECT_EQ(rosterSession.名簿日付年, "2024");
    EXPECT_EQ(rosterSession.名簿日付月, "05");
    EXPECT_EQ(rosterSession.名簿日付日, "15");
    EXPECT_TRUE(rosterSession.newEntry);
    EXPECT_FALSE(rosterSession.dirty);
    ASSERT_NE(rosterSession.currentForm, nullptr);
    EXPECT_TRUE(rosterSession.currentForm->shown);
}

TEST_F(Start, TheSizeOfTheScreenStaysUnknownWhereThereIsNone) {
    startProgram("");
    EXPECT_EQ(installation.screenWidthPixels, 0);
    EXPECT_EQ(installation.screenHeightPixels, 0);
}

TEST_F(Start, ASecondRunBeginsAfresh) {
    startProgram("0019999999900000001");
    rosterSession.dirty = false;
    requestExit();
    EXPECT_TRUE(screen::ended());
    startProgram("");
    EXPECT_FALSE(screen::ended());
    EXPECT_FALSE(rosterSession.linkStarted);
    EXPECT_EQ(installation.sessionOffice, "000");
    EXPECT_EQ(installation.runCounter, 1);
}

TEST_F(Start, WhoTheProgramIsOutlivesTheBeginningOfARun) {
    installation.programId = "名簿一覧";
    startProgram("");
    EXPECT_EQ(installation.programId, "名簿一覧");
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 名簿一覧 | 20240515 093000 | "});
}

TEST_F(Start, AnErrorThatNobodyCaughtEndsWithStatusOne) {
    main("ALTER TABLE T名簿 DROP COLUMN 名簿名称");
    main("INSERT INTO T名簿 (事業所コード, 番号基準日付, 名簿No) VALUES ('000', '99999999', '00000001')");
    startProgram("0009999999900000001");
    EXPECT_TRUE(screen::ended());
    EXPECT_EQ(screen::endStatus(), 1);
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_EQ(lines("終了"), 0);
    EXPECT_FALSE(connections.localConnection.isOpen());
}

TEST_F(Start, ExitInsideAnExitEndsTheProcessOnce) {
    startProgram("");
    rosterSession.dirty = true;
    screen::setActSource(askTwice);
    requestExit();
    EXPECT_TRUE(screen::ended());
    EXPECT_EQ(screen::endStatus(), 0);
    EXPECT_EQ(boxes.size(), 2U);
    EXPECT_EQ(lines("終了"), 1);
}

TEST_F(Start, AfterTheEndNoExitIsDecidedAndNothingSent) {
    startProgram("");
    requestExit();
    const auto before = journal::entries().size();
    requestExit();
    rosterSession.dirty = true;
    requestExit();
    EXPECT_EQ(journal::entries().size(), before);
    EXPECT_EQ(lines("終了"), 1);
}

TEST_F(Start, TheEndClosesBothConnectionsWithRecordsStillOpen) {
    startProgram("");
    ASSERT_TRUE(openRecordset(rosterSession.rosterRecords, "SELECT * FROM M事業所", false));
    requestExit();
    EXPECT_FALSE(connections.mainConnection.isOpen());
    EXPECT_FALSE(connections.localConnection.isOpen());
    EXPECT_FALSE(connections.mainOpen);
    EXPECT_FALSE(connections.localOpen);
    EXPECT_EQ(usage(), Lines{"KESTREL | operator | 連絡台帳入力 | 20240515 093000 | 20240515 093000"});
}

TEST_F(Start, ClosingIsHarmlessWhenNothingWasOpened) {
    platform::setExecutableFolder(root + "/elsewhere");
    EXPECT_FALSE(openProgram());
    closeProgram();
    EXPECT_EQ(boxes, Lines{});
}

TEST_F(Start, ARaiseWhileOpeningIsAFalseResult) {
    clearDefinition("db");
    EXPECT_FALSE(openProgram());
    EXPECT_EQ(boxes, Lines{});
}

} // namespace kestrel
