#include "setup/lost_rows.hpp"

#include "data/changeNote.hpp"
#include "platform/files.hpp"
#include "setup/store.hpp"
#include "text/characters.hpp"

#include <algorithm>
#include <filesystem>
#include <tuple>

namespace kestrel::setup {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view failedLine = "エラー ";
constexpr std::string_view doneLine = "出力終了 ";
constexpr std::string_view insertWords = "INSERT INTO ";

const std::string readFailed = "SELECT 実行日付, proccounter, 摘要, 起動担当者コード, ユーザID FROM プログラム稼動履歴 "
                               "WHERE 摘要 LIKE 'エラー %INSERT INTO %' ORDER BY 実行日付, proccounter";
const std::string readDone = "SELECT 実行日付, proccounter, 摘要 FROM プログラム稼動履歴 "
                             "WHERE 摘要 LIKE '出力終了 INSERT INTO %' ORDER BY 実行日付, proccounter";

// The typed table that an INSERT at the beginning of the text is for.
const TypedTable* tableOfInsert(std::string_view text) {
    std::string_view name = text.substr(insertWords.size());
    name = name.substr(0, name.find_first_of(" (", name.starts_with('[') ? 1 : 0));
    if (name.starts_with('[') && name.ends_with(']')) name = name.substr(1, name.size() - 2);
    return typedTableNamed(name);
}

// Where in the text an INSERT into a typed table may begin. There can be several: an engine may quote the statement in
// its description, and a person may have typed one into a memo.
std::vector<std::size_t> beginningsIn(std::string_view text) {
    std::vector<std::size_t> places;
    for (auto at = text.find(insertWords); at != text.npos; at = text.find(insertWords, at + 1))
        if (tableOfInsert(text.substr(at))) places.push_back(at);
    return places;
}

template <class Read>
std::optional<std::size_t> readFrom(std::string_view text, const std::vector<std::size_t>& places, Read read,
                                    std::optional<InsertText>& insert) {
    for (const std::size_t at : places)
        if ((insert = read(text.substr(at)))) return at;
    return std::nullopt;
}

// Takes the statement out of the text; answers where it begins, nothing when there is none.
std::optional<std::size_t> takeStatement(std::string_view text, LostRow& row) {
    const auto places = beginningsIn(text);
    if (places.empty()) return std::nullopt;
    std::optional<InsertText> insert;
    auto begin = readFrom(text, places, readInsert, insert);
    if (!begin) begin = readFrom(text, places, readBrokenInsert, insert);
    if (!begin) begin = places.front();
    row.table = tableOfInsert(text.substr(*begin));
    row.readable = insert && namesKey(*row.table, *insert);
    row.insert = insert ? std::move(*insert) : InsertText{std::string(text.substr(*begin)), "", {}};
    return begin;
}

// A line holds its text with each apostrophe doubled.
std::string textBehind(std::string_view mark, std::string_view summary) {
    return text::replaceAll(summary.substr(mark.size()), "''", "'");
}

std::string member(const std::string& user, const std::string& staff, const std::string& computer) {
    return user + (staff.empty() ? "" : ", staff " + staff) + (computer.empty() ? "" : ", at " + computer);
}

std::optional<LostRow> lostInLine(const database::RecordSet& line, const std::string& folder) {
    LostRow row;
    const std::string text = textBehind(failedLine, line.text("摘要", ""));
    const auto begin = takeStatement(text, row);
    if (!begin) return std::nullopt;
    row.why = text.substr(0, *begin);
    row.when = line.text("実行日付", "");
    row.counter = line.text("proccounter", "");
    row.who = member(line.text("ユーザID", ""), line.text("起動担当者コード", ""), "");
    row.folder = folder;
    return row;
}

// What can't be read is read more than once, and told once.
void addTrouble(LostRows& found, std::string line) {
    if (std::ranges::find(found.troubles, line) == found.troubles.end()) found.troubles.push_back(std::move(line));
}

// Takes every row of the result through the step.
template <class Step> Status eachRow(Connection& store, const std::string& sql, Step step) {
    auto records = store.open(sql);
    if (!records) return records.failure();
    try {
        for (; !records.value().eof(); records.value().moveNext()) step(records.value());
    } catch (const database::DatabaseError& error) {
        return platform::Failure{0, error.what()};
    }
    return platform::done();
}

template <class Step>
void eachLine(const std::vector<std::string>& folders, const std::string& sql, LostRows& found, Step step) {
    for (const std::string& folder : folders) {
        const std::string path = databaseFile(folder, "usrcnfg");
        if (path.empty()) continue;
        auto store = openStore(path);
        const auto take = [&](const database::RecordSet& line) { step(line, folder); };
        const Status status = store ? eachRow(store.value(), sql, take) : Status(store.failure());
        if (!status) addTrouble(found, path + ": " + status.failure().description);
    }
}

bool isNote(const std::string& name) {
    return name.starts_with(changeNoteHead) && name.ends_with(changeNoteTail);
}

void takeNote(const std::string& folder, const std::string& name, LostRows& found) {
    const std::string path = folder + "/" + name;
    const auto text = platform::contentOf(path);
    if (!text) {
        if (platform::fileExists(path)) addTrouble(found, path + ": " + text.failure().description);
        return;
    }
    if (!isWholeNote(text.value())) return found.settledNotes.push_back(path);
    const auto note = readChangeNote(text.value());
    LostRow row;
    if (!note || !takeStatement(note->statement, row)) return addTrouble(found, path + " is no note of this program");
    row.when = note->when;
    row.who = member(note->user, note->staff, note->computer);
    row.folder = folder;
    row.notes = {path};
    found.rows.push_back(std::move(row));
}

void takeNotes(const std::string& folder, LostRows& found) {
    auto names = platform::filesIn(folder);
    if (!names) return;
    std::ranges::sort(names.value());
    for (const std::string& name : names.value())
        if (isNote(name)) takeNote(folder, name, found);
}

bool sameRow(const LostRow& one, const LostRow& other) {
    if (one.table != other.table) return false;
    if (!one.readable || !other.readable) return one.insert.statement == other.insert.statement;
    return sameTypedRow(*one.table, one.insert, other.insert);
}

// The later one stays: it is the row as it was typed last. What is known of the change that left it stays too.
void mergeInto(LostRow& earlier, LostRow later) {
    later.notes.insert(later.notes.end(), earlier.notes.begin(), earlier.notes.end());
    earlier = std::move(later);
}

// Where a change has both, its note comes before its line.
std::vector<LostRow> inOrder(std::vector<LostRow> rows) {
    std::ranges::stable_sort(rows, {}, [](const LostRow& row) { return std::tie(row.when, row.counter); });
    std::vector<LostRow> merged;
    for (LostRow& row : rows) {
        const auto same = std::ranges::find_if(merged, [&](const LostRow& other) { return sameRow(other, row); });
        if (same == merged.end())
            merged.push_back(std::move(row));
        else
            mergeInto(*same, std::move(row));
    }
    return merged;
}

struct SavedRow {
    const TypedTable* table;
    InsertText insert;
    std::string when, counter, folder;
};

// Of one second only the numbers of one run's lines tell what came first.
bool isLater(const SavedRow& saved, const LostRow& lost) {
    if (saved.when != lost.when) return saved.when > lost.when;
    return saved.folder == lost.folder && !lost.counter.empty() && saved.counter > lost.counter;
}

bool isSavedBy(const SavedRow& saved, const LostRow& lost) {
    return lost.readable && lost.table == saved.table && isLater(saved, lost) &&
           sameTypedRow(*lost.table, saved.insert, lost.insert);
}

void leaveOutSaved(const database::RecordSet& line, const std::string& folder, LostRows& found) {
    const std::string statement = textBehind(doneLine, line.text("摘要", ""));
    const TypedTable* table = tableOfInsert(statement);
    if (!table) return;
    auto insert = readInsert(statement);
    if (!insert) return;
    const SavedRow saved{table, std::move(*insert), line.text("実行日付", ""), line.text("proccounter", ""), folder};
    std::erase_if(found.rows, [&](const LostRow& lost) {
        if (!isSavedBy(saved, lost)) return false;
        found.settledNotes.insert(found.settledNotes.end(), lost.notes.begin(), lost.notes.end());
        return true;
    });
}

// The master first, then the users by name.
std::vector<std::string> confFolders(const std::string& root) {
    std::vector<std::string> folders;
    std::error_code none;
    for (const auto& user : fs::directory_iterator(root + "/users", none))
        if (fs::is_directory(user.path() / "conf", none)) folders.push_back((user.path() / "conf").string());
    std::ranges::sort(folders);
    folders.insert(folders.begin(), root + "/conf");
    return folders;
}

} // namespace

LostRows findLostRows(const std::string& root) {
    LostRows found;
    const auto folders = confFolders(root);
    for (const std::string& folder : folders) takeNotes(folder, found);
    eachLine(folders, readFailed, found, [&](const database::RecordSet& line, const std::string& folder) {
        if (auto lost = lostInLine(line, folder)) found.rows.push_back(std::move(*lost));
    });
    found.rows = inOrder(std::move(found.rows));
    if (found.rows.empty()) return found;
    eachLine(folders, readDone, found,
             [&](const database::RecordSet& line, const std::string& folder) { leaveOutSaved(line, folder, found); });
    return found;
}

} // namespace kestrel::setup
