#include "load_operator.hpp"

#include "both_times.hpp"
#include "list_window.hpp"
#include "lists/listWindows.hpp"
#include "platform/identity.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"
#include "screen/acts.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/modStart.hpp"
#include "session/rosterSession.hpp"
#include "text/numbers.hpp"

namespace kestrel::bench {

namespace {

constexpr int savesBetweenSearches = 5;

screen::Control& control(std::string_view name) {
    screen::Window* window = screen::activeWindow();
    screen::Control* found = window ? findControl(*window, name) : nullptr;
    if (!found) standStill("there is no " + std::string(name));
    return *found;
}

void press(std::string_view button) {
    if (!hand::click(control(button))) standStill(std::string(button) + " can't be pressed");
}

void enter(std::string_view field, std::string_view text) {
    press(field);
    hand::typeOver(text);
}

// The person's only act while a save waits.
bool saveOnly() {
    if (screen::waiting()) standStill(screen::waiting()->box.text);
    const screen::Window* window = screen::activeWindow();
    return window && window->name == "msg印刷確認" && hand::click(control("btn_登録"));
}

void openRoster(const std::string& roster) {
    enter("名簿No", roster);
    hand::key(screen::Key::Tab);
    if (rosterSession.名簿宛先No.empty()) standStill("there is no roster " + roster);
}

// serial: of this operator; no other one types the same.
void typeAddressee(int itsOperator, int serial) {
    const std::string mark = text::zeroFilled(itsOperator, 2) + "-" + text::zeroFilled(serial, 4);
    enter("宛先名称A", "青葉印刷株式会社 " + mark);
    enter("宛先名称B", serial % 3 == 0 ? "O'Neill 営業所" : "資材部");
    enter("宛先郵便番号", "100-0001");
    enter("宛先住所A", "東京都千代田区千代田１－１");
    enter("宛先住所B", "青葉ビル" + std::to_string(serial) + "階");
    enter("宛先電話", "03-" + text::zeroFilled(4000 + itsOperator, 4) + "-" + text::zeroFilled(serial, 4));
    hand::key(screen::Key::Tab);
}

std::string lastInsert() {
    const auto& entries = journal::entries();
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry)
        if (entry->channel == journal::Channel::sentMain && entry->text.starts_with("INSERT INTO [T名簿明細]"))
            return entry->text;
    standStill("nothing was saved");
}

Typed saveTyped() {
    const RosterSession& typed = rosterSession;
    Typed one{false,
              typed.名簿No,
              typed.名簿宛先No,
              {typed.宛先名称A, typed.宛先名称B, typed.宛先郵便番号, typed.宛先住所A, typed.宛先住所B, typed.宛先電話},
              ""};
    press("btn_登録");
    if (!control("宛先名称A").text.empty()) standStill("the screen isn't cleared after a save");
    one.saved = rosterSession.writeResult == 1;
    one.statement = lastInsert();
    return one;
}

// Back to what was saved, and a step to its neighbour: two looks, each of which is noted.
void lookBack(const Typed& saved) {
    openRoster(saved.roster);
    enter("名簿宛先No", saved.number);
    hand::key(screen::Key::Tab);
    if (saved.saved && rosterSession.宛先名称A != saved.values[0]) standStill(saved.number + " isn't what was saved");
    if (control("btn_前明細No").enabled) press("btn_前明細No");
    press("btn_画面クリア");
}

void searchCustomers() {
    inList(wnd得意先一覧, "", "得意先コード", [](ListWindow& list) {
        type(list, "名称", "株式会社");
        click(list, "btn_名称検索");
    });
    screen::setActSource(saveOnly);
}

void goOn(const Typed& saved, int serial) {
    if (serial % 2 == 0) lookBack(saved);
    if (serial % savesBetweenSearches == 0) searchCustomers();
}

// Every so many saves one goes into the shared roster, so that all are at it at the same time.
std::string rosterOf(int itsOperator, int serial, const LoadPlan& plan) {
    const int all = plan.ownSaves + plan.sharedSaves;
    const bool shared = (serial * plan.sharedSaves + all - 1) / all < ((serial + 1) * plan.sharedSaves + all - 1) / all;
    return shared ? sharedRoster() : ownRoster(itsOperator, serial % rostersOfOperator);
}

// Numbers by the statements that write them back, which run only within a draw.
std::string drawnBy(const std::string& sql) {
    constexpr std::string_view head = "UPDATE A番号情報 SET  連番 = '";
    if (!sql.starts_with(head) || !sql.ends_with("番号ID = '01110'")) return {};
    return sql.substr(head.size(), sql.find('\'', head.size()) - head.size());
}

// Goes through what the journal got since the last time.
class Statements {
public:
    void take(OperatorReport& report) {
        const auto& entries = journal::entries();
        for (; taken < entries.size(); ++taken) {
            const journal::Entry& entry = entries[taken];
            if (entry.channel == journal::Channel::sentMain) {
                ++report.all;
                if (std::string number = drawnBy(entry.text); !number.empty()) report.drawn.push_back(number);
            }
            if (report.mark == 0) keep(entry, report.statements);
        }
    }

private:
    // Of a statement that the engine got in other words these count.
    void keep(const journal::Entry& entry, std::vector<std::string>& statements) {
        if (entry.channel == journal::Channel::engine && mainLast) statements.back() = entry.text;
        if (entry.channel == journal::Channel::engine) return;
        mainLast = entry.channel == journal::Channel::sentMain;
        if (mainLast) statements.push_back(entry.text);
    }
    std::size_t taken = 0;
    bool mainLast = false;
};

void startAs(const std::filesystem::path& folder, int itsOperator) {
    platform::setExecutableFolder((folder / "prgbin").string());
    platform::setUserName("operator" + std::to_string(itsOperator));
    platform::setComputerName("KESTREL" + std::to_string(itsOperator));
    screen::setActSource(saveOnly);
    startProgram("");
    if (!rosterSession.currentForm || !screen::activeWindow()) standStill("the program doesn't start");
}

} // namespace

void workAsOperator(const std::filesystem::path& load, int itsOperator, const LoadPlan& plan, const LineUp& line) {
    const std::filesystem::path folder = operatorFolder(load, itsOperator);
    startAs(folder, itsOperator);
    OperatorReport report;
    openRoster(rosterOf(itsOperator, 0, plan));
    typeAddressee(itsOperator, 0);
    if (!line.wait()) standStill("there is no start");
    journal::start();
    Statements statements;
    report.begin = clockTime();
    const double processor = processorTime();
    for (int serial = 0; serial < plan.ownSaves + plan.sharedSaves; ++serial) {
        if (serial > 0) {
            openRoster(rosterOf(itsOperator, serial, plan));
            typeAddressee(itsOperator, serial);
        }
        report.typed.push_back(saveTyped());
        goOn(report.typed.back(), serial);
        statements.take(report);
        if (report.mark > 0 || report.all < statementsToMark) continue;
        report.mark = clockTime();
        report.processor = processorTime() - processor;
    }
    report.end = clockTime();
    if (report.mark == 0) {
        report.mark = report.end;
        report.processor = processorTime() - processor;
    }
    journal::stop();
    closeProgram();
    writeReport(folder, report);
}

} // namespace kestrel::bench
