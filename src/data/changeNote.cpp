#include "data/changeNote.hpp"

namespace kestrel {

namespace {

constexpr std::string_view firstLine = "kestrel change note 1\n"; // the number is that of this form
constexpr std::string_view lastLine = "\nend\n";

// In their order. The statement follows them, with its length in bytes: it may hold anything, line ends too.
struct Line {
    std::string_view name;
    std::string ChangeNote::*value;
};
constexpr Line lines[] = {
    {"when ", &ChangeNote::when},         {"user ", &ChangeNote::user},   {"staff ", &ChangeNote::staff},
    {"computer ", &ChangeNote::computer}, {"table ", &ChangeNote::table},
};
constexpr std::string_view lengthName = "statement ";

std::string onOneLine(std::string value) {
    for (char& c : value)
        if (c == '\n') c = ' ';
    return value;
}

bool takePrefix(std::string_view& text, std::string_view prefix) {
    if (!text.starts_with(prefix)) return false;
    text.remove_prefix(prefix.size());
    return true;
}

// The rest of a line that begins with the name.
std::optional<std::string> takeLine(std::string_view& text, std::string_view name) {
    if (!takePrefix(text, name)) return std::nullopt;
    const auto end = text.find('\n');
    if (end == text.npos) return std::nullopt;
    std::string value(text.substr(0, end));
    text.remove_prefix(end + 1);
    return value;
}

} // namespace

std::string changeNoteText(const ChangeNote& note) {
    std::string text(firstLine);
    for (const Line& line : lines) text.append(line.name).append(onOneLine(note.*line.value)).append("\n");
    text.append(lengthName).append(std::to_string(note.statement.size())).append("\n");
    return text.append(note.statement).append(lastLine);
}

bool isWholeNote(std::string_view text) {
    return text.ends_with(lastLine);
}

std::optional<ChangeNote> readChangeNote(std::string_view text) {
    if (!takePrefix(text, firstLine)) return std::nullopt;
    ChangeNote note;
    for (const Line& line : lines) {
        const auto value = takeLine(text, line.name);
        if (!value) return std::nullopt;
        note.*line.value = *value;
    }
    const auto length = takeLine(text, lengthName);
    if (!length || text.size() < lastLine.size()) return std::nullopt;
    note.statement = text.substr(0, text.size() - lastLine.size());
    const bool whole = isWholeNote(text) && std::to_string(note.statement.size()) == *length;
    return whole ? std::optional(note) : std::nullopt;
}

} // namespace kestrel
