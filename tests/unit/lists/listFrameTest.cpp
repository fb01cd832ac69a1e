// What of the list windows no scenario can show: texts that no button sends, forms that this program doesn't have.
#include "lists/listFrame.hpp"
#include "lists/listQuery.hpp"
#include "lists/listWindows.hpp"

#include "../data/opened.hpp"
#include "screen/focus.hpp"
#include "session/rosterSession.hpp"

#include <set>

using namespace kestrel;

namespace {

constexpr const ListSpec* windows[] = {
    &wnd得意先一覧, &wnd納品先一覧,     &wnd仕入先一覧,   &wndメーカ一覧, &wnd担当者一覧,
    &wnd名簿No一覧, &wnd名簿宛先No一覧, &wnd郵便番号一覧, &wnd部門一覧,   &wndセクション一覧,
};

// An entry form of the suite with one field, a code.
class ListFrame : public Opened {
protected:
    ListFrame() : ListFrame("frm連絡台帳入力") {}
    explicit ListFrame(const char* formName) : form(formName) {
        forgetLists();
        code = &screen::addControl(form, {.name = "コード", .kind = screen::Kind::xField, .tabIndex = 0});
        rosterSession.currentForm = &form;
        screen::show(form);
        form.enabled = false;
        installation.databaseKind = "A";
        lookAt = nullptr;
    }
    ~ListFrame() override { forgetLists(); }

    // Opens the window, lets the look see it, and goes back.
    void open(const ListSpec& spec, void (*look)(ListWindow&), const char* condition = "") {
        lookAt = look;
        screen::setActSource(lookAndGoBack);
        openList(spec, condition, *code, *code);
    }

    screen::Window form;
    screen::Control* code;

private:
    inline static void (*lookAt)(ListWindow&);
    static bool lookAndGoBack() {
        ListWindow& list = listOf(*screen::activeWindow());
        if (lookAt) lookAt(list);
        if (list.window.shown) closeByBack(list);
        return true;
    }
};

class RegistrationForm : public ListFrame {
protected:
    RegistrationForm() : ListFrame("frm担当者登録") {}
};

} // namespace

TEST_F(ListFrame, EveryTableNamesOnlyControlsThatAreThere) {
    for (const ListSpec* spec : windows) {
        ListWindow list(*spec);
        std::set<std::pair<std::string_view, screen::Event>> bound;
        for (const screen::Binding& row : list.bindings) {
            EXPECT_TRUE(screen::findControl(list.window, row.control)) << spec->name << row.control;
            EXPECT_TRUE(bound.emplace(row.control, row.event).second) << spec->name << row.control;
        }
        for (const ListField& field : spec->fields) EXPECT_NO_THROW(controlOf(list, field.name)) << field.name;
        for (const SearchMode& mode : spec->modes)
            EXPECT_TRUE(mode.button.empty() || screen::findControl(list.window, mode.button)) << mode.button;
        for (std::string_view name : spec->arming) EXPECT_NO_THROW(controlOf(list, name)) << name;
        for (const NestedList& nested : spec->nested) EXPECT_NO_THROW(controlOf(list, nested.next)) << nested.next;
        EXPECT_EQ(findListSpec(list.window.name), spec);
    }
    EXPECT_EQ(findListSpec("wnd摘要"), nullptr);
}

TEST_F(ListFrame, TheNegationOfTheAddresseesIsKeptThoughNothingSendsIt) {
    ListWindow list(wnd名簿宛先No一覧);
    rosterSession.lookupCondition = "T名簿明細.名簿No = '1'";
    heldValue(list, "宛先名称") = "青 ";
    heldValue(list, "宛先住所") = " 葉";
    EXPECT_EQ(searchText(list, *findMode(list.spec, negationSearch)),
              "SELECT TOP 1000 T名簿明細.* FROM T名簿明細 WHERE (T名簿明細.名簿No = '1')"
              " AND T名簿明細.宛先名称 NOT LIKE  '%青%' AND T名簿明細.宛先住所 NOT LIKE '% 葉'"
              " ORDER BY T名簿明細.名簿宛先No");
}

TEST_F(ListFrame, AnUnknownKindHasATextOnlyWhereAllKindsShareOne) {
    installation.databaseKind = "X";
    for (const ListSpec* spec : windows) {
        ListWindow list(*spec);
        const bool shared = spec == &wnd郵便番号一覧 || spec == &wnd部門一覧 || spec == &wndセクション一覧;
        EXPECT_EQ(searchText(list, *findMode(*spec, compoundSearch)).empty(), !shared) << spec->name;
        installation.databaseKind.clear();
        EXPECT_EQ(searchText(list, *findMode(*spec, compoundSearch)).empty(), !shared) << spec->name;
        installation.databaseKind = "X";
    }
}

TEST_F(ListFrame, AValueMayHoldWhatStandsForAValue) {
    ListWindow list(wnd得意先一覧);
    installation.sessionOffice = "000";
    heldValue(list, "カナ") = "{}得意先{+1}";
    list.selections[0] = 0;
    EXPECT_NE(searchText(list, *findMode(list.spec, 2)).find("M得意先.カナ LIKE '%{}得意先{+1}%'"), std::string::npos);
    ListWindow makers(wndメーカ一覧);
    heldValue(makers, "カナ") = "得意先";
    EXPECT_NE(searchText(makers, *findMode(makers.spec, 2)).find("Mメーカ.カナ LIKE '%得意先%'"), std::string::npos);
}

TEST_F(ListFrame, WithoutAStaffFieldOnTheFormTheSignedInMemberLimitsThePartners) {
    staff.staffCode = "00001";
    open(wnd得意先一覧, [](ListWindow& list) {
        EXPECT_EQ(heldValue(list, "担当者コード"), "00001");
        EXPECT_EQ(heldValue(list, "担当者名"), "山田太郎");
    });
    staff.staffCode.clear();
    journal::start();
    open(wnd納品先一覧, [](ListWindow& list) { EXPECT_EQ(heldValue(list, "担当者名"), ""); });
    for (const std::string& statement : mainSent()) EXPECT_EQ(statement.find("SELECT 氏名"), std::string::npos);
}

TEST_F(ListFrame, AWindowThatHidesKeepsWhatItHeld) {
    open(wnd担当者一覧, [](ListWindow& list) { heldValue(list, "名称") = "山"; });
    open(wnd担当者一覧, [](ListWindow& list) { EXPECT_EQ(heldValue(list, "名称"), "山"); });
}

TEST_F(RegistrationForm, AWindowUnloadsForTheFormThatRegistersItsMaster) {
    open(wnd担当者一覧, [](ListWindow& list) { heldValue(list, "名称") = "山"; });
    open(wnd担当者一覧, [](ListWindow& list) { EXPECT_EQ(heldValue(list, "名称"), ""); });
    open(wnd部門一覧, [](ListWindow& list) { list.selections[0] = 0; });
    open(wnd部門一覧, [](ListWindow& list) { EXPECT_EQ(list.selections[0], 0); });
}

TEST_F(ListFrame, BackEnablesTheFormAndGivesTheFieldTheFocus) {
    open(wnd部門一覧, nullptr, "M部門.名称 = 'x'");
    EXPECT_TRUE(form.enabled);
    EXPECT_EQ(form.focus, code);
    EXPECT_EQ(rosterSession.lookupCondition, "");
}

TEST_F(ListFrame, APickTakesTheRowsOwnTextWhereTwoRowsHaveOneKey) {
    main("INSERT INTO M郵便番号 (郵便番号, 住所A) VALUES ('100-0001', 'あ')");
    main("INSERT INTO M郵便番号 (郵便番号, 住所A) VALUES ('100-0001', 'い')");
    open(wnd郵便番号一覧, [](ListWindow& list) {
        EXPECT_EQ(rowsOf(list).rows.size(), 2U);
        screen::setSelected(rowsOf(list), 1);
        closeByPick(list);
    });
    EXPECT_EQ(code->text, "100-0001");
}

TEST_F(ListFrame, ACodeThatIsNullCountsAsEmpty) {
    main("INSERT INTO M郵便番号 (郵便番号, 住所A) VALUES (NULL, 'あ')");
    open(wnd郵便番号一覧, [](ListWindow& list) {
        heldValue(list, "郵便番号").clear();
        runSearch(list);
        ASSERT_EQ(rowsOf(list).rows.size(), 1U);
        EXPECT_EQ(rowsOf(list).rows[0].text(), "");
        EXPECT_EQ(rowsOf(list).rows[0].key(), "C");
    });
}

// Neither the class tables nor the searches and name look-ups are told in the run history.
TEST_F(ListFrame, NothingIsLogged) {
    const auto before = history().size();
    open(wnd担当者一覧, [](ListWindow& list) { runSearch(list); });
    EXPECT_EQ(history().size(), before);
}
