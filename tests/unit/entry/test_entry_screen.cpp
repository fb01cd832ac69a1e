// The entry screen's rules that need no database: what its tables hold together, what a clear keeps, how a date is
// repaired.
#include "entry/entryBindings.hpp"
#include "entry/entryForm.hpp"
#include "entry/frm連絡台帳入力.hpp"
#include "screen/focus.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"

#include <gtest/gtest.h>

#include <set>

using namespace kestrel;

namespace {

class EntryScreen : public ::testing::Test {
protected:
    void SetUp() override {
        resetSession();
        makeEntryForm();
        Frm連絡台帳入力& form = entryForm();
        rosterSession.firstField = rosterSession.lastEnteredField = rosterSession.lastLeftField = &form.宛先名称A;
    }
    void TearDown() override { resetSession(); }

    static void fillRequired() {
        for (auto value : {&RosterSession::名簿日付年, &RosterSession::名簿日付月, &RosterSession::名簿日付日,
                           &RosterSession::名簿No, &RosterSession::名簿宛先No})
            rosterSession.*value = "0000";
        showEntry();
    }
};

} // namespace

TEST_F(EntryScreen, EveryBindingAnswersAnEventOfAnExistingControlOnce) {
    std::set<std::pair<std::string_view, screen::Event>> seen;
    for (const screen::Binding& row : entryBindings()) {
        EXPECT_TRUE(screen::findControl(entryForm().window, row.control)) << row.control;
        EXPECT_TRUE(seen.emplace(row.control, row.event).second) << row.control;
    }
}

TEST_F(EntryScreen, MadeTwiceTheSecondFormIsTheCurrentOne) {
    rosterSession.currentForm->caption = "first";
    makeEntryForm();
    EXPECT_EQ(rosterSession.currentForm, &entryForm().window);
    EXPECT_EQ(rosterSession.currentForm->caption, "");
}

TEST_F(EntryScreen, FirstMissingHeadFieldGoesByTheScreenUntrimmed) {
    fillRequired();
    EXPECT_EQ(firstMissingHeadField(), 0);
    EXPECT_TRUE(requiredFieldsComplete());
    const char* fields[] = {"名簿宛先No", "名簿No", "名簿日付日", "名簿日付月", "名簿日付年"};
    int number = 5;
    for (const char* field : fields) {
        entryControl(field).text = "";
        EXPECT_EQ(firstMissingHeadField(), number--) << field;
    }
    entryControl("名簿日付年").text = " ";
    EXPECT_EQ(firstMissingHeadField(), 2);
}

TEST_F(EntryScreen, ButtonsFollowTheStateOfTheRecord) {
    Frm連絡台帳入力& form = entryForm();
    rosterSession.newEntry = true;
    updateButtons();
    EXPECT_FALSE(form.btn_登録.enabled);
    EXPECT_FALSE(form.btn_削除.enabled);
    fillRequired();
    updateButtons();
    EXPECT_TRUE(form.btn_登録.enabled);
    EXPECT_FALSE(form.btn_削除.enabled);
    rosterSession.newEntry = false;
    updateButtons();
    EXPECT_TRUE(form.btn_削除.enabled);
}

TEST_F(EntryScreen, AClearKeepsTheRosterDateAndAsksForItsBaseDate) {
    rosterSession.名簿日付年 = "2024";
    rosterSession.名簿日付月 = "05";
    rosterSession.名簿日付日 = "15";
    rosterSession.名簿日付 = "20240515";
    rosterSession.番号基準日付 = "99999999";
    rosterSession.発送日付年 = "2024";
    rosterSession.発送日付 = "20240401";
    rosterSession.承認区分 = rosterSession.宛先ID = rosterSession.得意先登録日付 = rosterSession.宛先摘要 = "x";
    rosterSession.法人個人区分 = rosterSession.発送区分 = 1;
    rosterSession.newEntry = false;
    clearEntry();
    EXPECT_EQ(rosterSession.名簿日付年 + rosterSession.名簿日付月 + rosterSession.名簿日付日, "20240515");
    EXPECT_EQ(rosterSession.名簿日付, "20240515");
    EXPECT_EQ(rosterSession.番号基準日付, ""); // no database, no register
    EXPECT_EQ(rosterSession.発送日付年 + rosterSession.発送日付, "");
    EXPECT_EQ(rosterSession.承認区分 + rosterSession.宛先ID + rosterSession.得意先登録日付 + rosterSession.宛先摘要,
              "");
    EXPECT_EQ(rosterSession.法人個人区分 + rosterSession.発送区分, 0);
    EXPECT_TRUE(rosterSession.newEntry);
}

TEST_F(EntryScreen, AClassOutsideItsChoicesIsShownClampedAndKept) {
    Frm連絡台帳入力& form = entryForm();
    screen::setBounds(form.法人個人区分, 0, 1);
    screen::setItems(form.法人個人区分名称, {"個人", "法人"});
    rosterSession.法人個人区分 = 7;
    showEntry();
    EXPECT_EQ(form.法人個人区分.value, 1);
    EXPECT_EQ(form.法人個人区分名称.listIndex, 1);
    EXPECT_EQ(rosterSession.法人個人区分, 7);
    EXPECT_FALSE(rosterSession.dirty);
}

TEST_F(EntryScreen, ShowingIsNoInput) {
    rosterSession.宛先名称A = std::string(70, 'a');
    showEntry();
    EXPECT_EQ(entryForm().宛先名称A.text, rosterSession.宛先名称A);
    EXPECT_EQ(entryForm().お知らせ.caption, "");
    EXPECT_FALSE(rosterSession.dirty);
    EXPECT_FALSE(rosterSession.refreshing);
}

TEST_F(EntryScreen, RosterDateIsRepaired) {
    struct Row {
        const char *year, *month, *day, *whole;
    };
    const Row rows[] = {{"2024", "4", "31", "20240430"},  {"2023", "02", "30", "20230228"},
                        {"2023", "13", "5", "20240105"},  {"", "", "", "00000000"},
                        {"0000", "00", "00", "00000000"}, {"2024", "05", "15", "20240515"}};
    for (const Row& row : rows) {
        rosterSession.名簿日付年 = row.year;
        rosterSession.名簿日付月 = row.month;
        rosterSession.名簿日付日 = row.day;
        changeRosterDate();
        EXPECT_EQ(rosterSession.名簿日付, row.whole);
        EXPECT_EQ(rosterSession.名簿日付年 + rosterSession.名簿日付月 + rosterSession.名簿日付日, row.whole);
    }
}

TEST_F(EntryScreen, WithoutAnyStopTheFocusIsNotMoved) {
    showEntryForm();
    fillRequired();
    screen::setFocus(entryForm().宛先住所A);
    for (screen::Control& control : entryForm().window.controls) control.tabStop = false;
    moveFocus(entryForm().宛先名称A);
    EXPECT_EQ(entryForm().window.focus, &entryForm().宛先住所A);
}
