// The text of a note that a change leaves beside the local database while its row is deleted and not yet inserted
// again. Pure, so that the program that puts such rows back reads the same form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrel {

inline constexpr std::string_view changeNoteHead = "change-"; // how the names of such files begin
inline constexpr std::string_view changeNoteTail = ".note";   // and how they end

struct ChangeNote {
    std::string when; // "yyyymmdd hhnnss"
    std::string user, staff, computer;
    std::string table;
    std::string statement; // the INSERT, to the letter
};

std::string changeNoteText(const ChangeNote& note);
// A note that was not written to its end: its row was not deleted yet.
bool isWholeNote(std::string_view text);
// Nothing when the text is no whole note of this form.
std::optional<ChangeNote> readChangeNote(std::string_view text);

} // namespace kestrel
