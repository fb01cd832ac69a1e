#include "setup/recover.hpp"

#include "platform/files.hpp"
#include "setup/main_place.hpp"
#include "setup/put_back.hpp"

#include <algorithm>
#include <cerrno>

namespace kestrel::setup {

namespace {

using Holds = std::vector<platform::HeldFile>;

std::string oneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

// "yyyymmdd hhnnss" as people read it; any other text as it stands.
std::string readableMoment(const std::string& when) {
    if (when.size() != 15) return when;
    return when.substr(0, 4) + "-" + when.substr(4, 2) + "-" + when.substr(6, 2) + " " + when.substr(9, 2) + ":" +
           when.substr(11, 2) + ":" + when.substr(13, 2);
}

std::string headOf(const LostRow& row) {
    const std::string table(row.table->name);
    if (!row.readable) return table + ": a statement that can't be read";
    return table + " " + keyText(*row.table, row.insert) + ": " + nameText(*row.table, row.insert);
}

void addBlock(Recovery& recovery, const LostRow& row, const std::string& outcome) {
    const std::string why = row.why.empty() ? "the change was cut off between its DELETE and its INSERT" : row.why;
    for (const std::string& line :
         {headOf(row), "    " + readableMoment(row.when) + " by " + row.who, "    " + why, "    " + outcome})
        recovery.lines.push_back(oneLine(line));
    if (!row.readable) recovery.lines.push_back("    " + oneLine(row.insert.statement));
}

void leave(Recovery& recovery, const LostRow& row, const std::string& outcome) {
    addBlock(recovery, row, outcome);
    recovery.left = true;
}

void addTrouble(Recovery& recovery, const LostRow& row, const std::string& why) {
    recovery.troubles.push_back(oneLine(headOf(row) + ": " + why));
}

// A note that is gone by now was dealt with by somebody else; its row is looked at all the same.
bool holdNotes(const LostRow& row, Holds& holds) {
    for (const std::string& note : row.notes) {
        auto held = platform::holdFile(note);
        if (held)
            holds.push_back(std::move(held.value()));
        else if (held.failure().number == EWOULDBLOCK)
            return false;
    }
    return true;
}

std::string numberOf(const LostRow& row, const Standing& standing) {
    return standing.spot == Spot::taken ? standing.next : row.insert.value(row.table->number);
}

std::string wordOn(const LostRow& row, const Standing& standing) {
    const std::string number = "number " + row.insert.value(row.table->number);
    if (standing.spot == Spot::free) return number + " is free";
    if (standing.spot == Spot::taken) return number + " is taken, " + standing.next + " is free";
    return number + " is taken: left to a person";
}

std::string wordOnPutBack(const LostRow& row, const Standing& standing) {
    const std::string under = "put back under " + numberOf(row, standing);
    return standing.spot == Spot::taken ? under + ": its own number is taken" : under;
}

void listRow(Recovery& recovery, Connection& main, const LostRow& row) {
    const auto standing = standingOf(main, row);
    if (!standing) return addTrouble(recovery, row, standing.failure().description);
    if (standing.value().spot != Spot::there) leave(recovery, row, wordOn(row, standing.value()));
}

void applyRow(Recovery& recovery, Connection& main, const LostRow& row, Holds& holds) {
    const auto standing = putBack(main, row);
    if (!standing) return addTrouble(recovery, row, standing.failure().description);
    if (standing.value().spot == Spot::noOther) return leave(recovery, row, wordOn(row, standing.value()));
    if (standing.value().spot != Spot::there) {
        addBlock(recovery, row, wordOnPutBack(row, standing.value()));
        if (const auto told = tellHistory(row, standing.value()); !told)
            addTrouble(recovery, row, "put back, but the run history can't tell: " + told.failure().description);
    }
    for (auto& note : holds) note.remove();
}

void takeRow(Recovery& recovery, Connection& main, const LostRow& row, bool apply) {
    if (!row.readable) return leave(recovery, row, "left to a person");
    Holds holds;
    if (!holdNotes(row, holds)) return leave(recovery, row, "a program is in the middle of this change: passed over");
    if (apply) return applyRow(recovery, main, row, holds);
    listRow(recovery, main, row);
}

void takeRows(Recovery& recovery, const std::string& root, const std::vector<LostRow>& rows, bool apply) {
    auto main = openMainStore(root);
    if (!main) {
        recovery.troubles.push_back("the main database can't be opened: " + main.failure().description);
        return;
    }
    for (const LostRow& row : rows) takeRow(recovery, main.value(), row, apply);
}

void removeNotes(const std::vector<std::string>& notes) {
    for (const std::string& note : notes)
        if (auto held = platform::holdFile(note)) held.value().remove();
}

// Two at once would each put the same row back, one of them under the next number.
bool takeTurn(const std::string& root, platform::HeldFile& turn) {
    auto held = platform::holdFile(root + "/conf");
    if (held) turn = std::move(held.value());
    return held || held.failure().number != EWOULDBLOCK;
}

} // namespace

Recovery recover(std::string_view folder, bool apply) {
    const std::string root(folder);
    Recovery recovery;
    if (!platform::folderExists(root)) {
        recovery.troubles.push_back("there is no folder " + root);
        return recovery;
    }
    platform::HeldFile turn;
    if (apply && !takeTurn(root, turn)) {
        recovery.troubles.push_back("somebody else is putting rows back");
        return recovery;
    }
    LostRows found = findLostRows(root);
    recovery.troubles = std::move(found.troubles);
    if (apply && !recovery.troubles.empty()) {
        recovery.troubles.push_back("nothing was put back");
        return recovery;
    }
    if (!found.rows.empty()) takeRows(recovery, root, found.rows, apply);
    if (apply) removeNotes(found.settledNotes);
    return recovery;
}

} // namespace kestrel::setup
