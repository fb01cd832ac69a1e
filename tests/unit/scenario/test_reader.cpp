// Playing scenarios on a tiny program: what is written down, what is refused, what waits in what.
#include "tiny_program.hpp"

#include <gtest/gtest.h>

using kestrel::tests::Outcome;
using kestrel::tests::playTiny;

namespace {

void holds(const std::string& scenario) {
    const Outcome outcome = playTiny(scenario);
    EXPECT_EQ(outcome.failed, 0) << outcome.complaints;
    EXPECT_FALSE(outcome.wrong) << outcome.complaints;
}

void fails(const std::string& scenario, const std::string& complaint) {
    const Outcome outcome = playTiny(scenario);
    EXPECT_FALSE(outcome.wrong) << outcome.complaints;
    EXPECT_EQ(outcome.failed, 1) << outcome.complaints;
    EXPECT_NE(outcome.complaints.find(complaint), std::string::npos) << outcome.complaints;
}

void isWrong(const std::string& scenario, const std::string& complaint) {
    const Outcome outcome = playTiny(scenario);
    EXPECT_TRUE(outcome.wrong);
    EXPECT_NE(outcome.complaints.find(complaint), std::string::npos) << outcome.complaints;
}

TEST(Reader, WritesDownWhatAPersonSees) {
    const Outcome outcome = playTiny("start 東京\nclick ask\nanswer いいえ\nclick quit\nanswer はい\n");
    EXPECT_EQ(outcome.seen, "window frm \"窓\"\n"
                            "focus 名称\n"
                            "message \"続けますか？\\rいいえもできます。\" [*はい] [いいえ]\n"
                            "focus ask\n"
                            "notice \"いいえ\"\n"
                            "message \"終了しますか？\" [はい] [*いいえ]\n"
                            "focus quit\n"
                            "ended 0\n");
}

TEST(Reader, PlaysTheLinesBehindAClickInsideItsBox) {
    holds("start\nclick ask\nexpect message 続けますか？\\rいいえもできます。\nexpect buttons [*はい] [いいえ]\n"
          "expect notice \"\"\nanswer はい\nexpect no message\nexpect notice はい\nexpect 住所 \"\"\n");
}

TEST(Reader, BoxesFollowEachOther) {
    holds("start\nclick twice\nexpect message 一\nanswer OK\nexpect message 二\nexpect message like 二\n"
          "expect buttons [OK]\nanswer OK\nexpect no message\n");
}

TEST(Reader, ABoxTakesKeys) {
    holds("start\nclick ask\npress Enter\nexpect notice はい\nclick ask\npress Tab\npress Enter\nexpect notice いいえ\n"
          "click ask\npress Enter\nclick ask\npress Esc\nexpect notice いいえ\nclick ask\npress Down\npress Up\n"
          "press Space\nexpect notice はい\nclick ask\nclose\nexpect notice いいえ\n");
}

TEST(Reader, AModalWindowPlaysItsOwnLines) {
    holds("start\nclick list\nexpect window wnd\nexpect focus rows\nexpect seen window wnd \"一覧\"\n"
          "expect then seen focus rows\nexpect rows[C002].1 若葉\nexpect rows[#0].0 001\nexpect rows[C002].flag yes\n"
          "expect rows[#1].key C002\nexpect not rows[C003].0 x\nexpect rows.rows 2\n"
          "expect rows.columns コード 900 | 名称 1800\nrow rows C002\nexpect rows.selected C002\n"
          "expect frm.住所 \"\"\ndoublerow rows #0\nexpect seen closed wnd\nexpect then seen notice \"閉\"\n"
          "expect window frm\nexpect notice 閉\n");
}

TEST(Reader, ClicksThatCouldNotBeAreWrittenDown) {
    holds("start\nclick hidden\nexpect seen refused hidden\nclick 裏\nexpect seen refused 裏\n"
          "set ask.enabled no\nclick ask\nexpect seen refused ask\nexpect no message\nclick list\nclick frm.住所\n"
          "expect seen refused frm.住所\nexpect window wnd\n");
}

TEST(Reader, TypingReplacesTheTextKeyByKey) {
    holds("start 東京\nenter 住所 大阪\nexpect 住所 大阪\nexpect focus 住所\ntype 京都 市\nexpect 住所 京都 市\n"
          "press Backspace\nexpect 住所 \"京都 \"\nenter 住所 \"\"\nexpect 住所 \"\"\nenter 摘要 一\\n二\n"
          "expect 摘要 一\\r\\n二\nenter 区分 12\nexpect 区分.value 12\nenter 区分 99\nexpect 区分 12\n");
}

TEST(Reader, AnEntryGoesOnWhenTheBoxInItsWayIsAnswered) {
    holds("start\nenter 名称 x\nenter 住所 y\nexpect message xは不可\nanswer OK\nexpect focus 住所\nexpect 住所 y\n");
}

TEST(Reader, ChoosesPagesAndKeys) {
    holds("start\nchoose 選択 法人\nexpect 選択 法人\nexpect 選択.value 1\nchoose 選択 #0\nexpect 選択 個人\n"
          "expect 選択.items 個人 | 法人\npage 頁 1\nexpect 頁.value 1\nclick 裏\nexpect focus 裏\nclick 名称\n"
          "press Tab\nexpect focus 住所\npress Shift+Tab\nexpect focus 名称\n");
}

TEST(Reader, AHeldKeyRepeatsIntoTheWindowThatItOpened) {
    holds("start\nclick list\nhold Down\nexpect rows.selected C002\ndoublerow rows #0\nexpect focus list\n"
          "hold Enter\nexpect window wnd\nclick ok\nexpect window frm\n");
    holds("start\nclick list\nclick ok\nhold Enter\nexpect seen window wnd \"一覧\"\nexpect then seen closed wnd\n"
          "expect window frm\n");
}

TEST(Reader, DialogsTakeAPathOrNone) {
    holds("start\nclick file\nexpect seen dialog file \"全て|*\"\npick /a b\nexpect 名称 /a b\nclick folder\n"
          "expect seen dialog folder \"どれ\"\ncancel\nexpect 名称 なし\nclick file\nclose\nexpect 名称 なし\n");
}

TEST(Reader, AHandlersErrorShowsABoxAndTheScenarioGoesOn) {
    holds("start\nclick fail\nexpect message 壊れた\nanswer OK\nexpect window frm\n");
}

TEST(Reader, StartsAgainAfterTheEnd) {
    holds("expect not ended\nstart 一\nexpect not ended\nexpect 住所 一\nclose\nexpect ended 3\nexpect seen ended 3\n"
          "start 二\nexpect 住所 二\nexpect not ended\nexpect seen focus 名称\nexpect not seen ended 3\n"
          "click quit\nanswer はい\nexpect ended 0\nexpect ended\nexpect not ended 3\n");
}

TEST(Reader, ARefusedStartAnswersItsBox) {
    holds("start refuse\nexpect message だめ\nanswer OK\nexpect ended 1\n");
}

TEST(Reader, SinceTheLastActionMeansJustThat) {
    holds("start\nclick ask\nanswer はい\nexpect seen notice \"はい\"\nclick 名称\nexpect not seen notice \"はい\"\n");
}

TEST(Reader, ThenMeansBehindWhatWasFoundBefore) {
    fails("start\nclick ask\nanswer はい\nexpect seen notice \"はい\"\nexpect then seen notice \"はい\"\n",
          "tiny:5: expected then seen notice \"はい\"");
}

TEST(Reader, SaysWhatWasThereInstead) {
    fails("start 東京\nexpect 住所 大阪\nexpect 住所 東京\n", "tiny:2: expected 住所 大阪\n    there was \"東京\"");
    fails("start\nexpect not focus 名称\n", "there was 名称");
    fails("start\nexpect 住所.kind xNum\n", "there was \"xField\"");
}

TEST(Reader, LooksAtPropertiesOfControlsAndWindows) {
    holds("start\nexpect 住所.kind xField\nexpect ask.caption ask\nexpect hidden.visible no\nexpect frm.caption 窓\n"
          "expect frm.width 9000\nexpect frm.visible yes\nexpect 住所.tabindex 1\nset 住所.maxlength 20\n"
          "expect 住所.maxlength 20\nset 住所.tabstop no\nexpect 住所.tabstop no\nexpect 区分.max 12\n"
          "expect no control ない\nexpect 住所.color default\nexpect 住所.top 600\n");
}

TEST(Reader, MistakesInTheScenarioEndIt) {
    isWrong("start\nclick ない\nclick ask\n", "tiny:2: click ない: no control \"ない\"");
    isWrong("fly away\n", "unknown verb");
    isWrong("click ask\n", "the program is not running");
    isWrong("start\nstart\n", "the program is running");
    isWrong("start\nexpect 住所.smell x\n", "no property");
    isWrong("start\nclick ask\nclick 名称\n", "a box or dialog waits");
    isWrong("start\nclick ask\nanswer たぶん\n", "no button たぶん");
    isWrong("start\nanswer はい\n", "no message box waits");
    isWrong("start\nclick file\nanswer OK\n", "no message box waits");
    isWrong("start\nclick ask\npick /x\n", "no dialog waits");
    isWrong("start\nchoose 選択 団体\n", "has no row 団体");
    isWrong("start\nenter ask x\n", "is no field");
}

TEST(Reader, ABoxLeftWaitingAtTheEndIsAMistake) {
    isWrong("start\nclick ask\nexpect buttons [*はい] [いいえ]\n", "left waiting");
}

TEST(Reader, AWindowLeftOpenAtTheEndIsNone) {
    holds("start\nclick list\nexpect window wnd\n");
}

TEST(Reader, NothingIsPlayedAfterAMistake) {
    const Outcome outcome = playTiny("start\nclick list\nclick nowhere\nclick ok\n");
    EXPECT_EQ(outcome.seen.find("closed wnd"), std::string::npos);
    EXPECT_EQ(outcome.seen.find("ended"), std::string::npos);
}

TEST(Reader, OtherKindsArePassedOver) {
    EXPECT_TRUE(playTiny("# head\nkinds S O\nfly\n").passedOver);
    EXPECT_FALSE(playTiny("kinds A S\nexpect not ended\n").passedOver);
    isWrong("expect not ended\nkinds A\n", "first lines only");
}

} // namespace
