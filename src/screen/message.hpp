// Message boxes and dialogs: the only places besides modal windows where the program waits for a person.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::screen {

struct MessageBox {
    std::string text; // a carriage return stands for a line break; it stays one CR here
    std::string title;
    std::vector<std::string> buttons;
    int defaultButton = 0;
    int cancelButton = 0; // what closing the box and Esc mean
};
std::string buttonsText(const MessageBox& box); // "[*はい] [いいえ]": the default one of several is marked

void message(std::string_view text);                            // [OK]
bool question(std::string_view text, bool defaultIsYes = true); // [はい] [いいえ]; true for はい; closing is いいえ
void setMessageTitle(std::string title);                        // title of all boxes: the program ID

struct FileDialog {
    std::string filter; // "title|pattern|title|pattern"
    int filterIndex = 1;
    std::string startFolder;
    int flags = 0;
};
std::optional<std::string> pickFile(const FileDialog& dialog); // the path as picked; nothing when cancelled
struct FolderDialog {
    std::string prompt, startFolder;
};
std::optional<std::string> pickFolder(const FolderDialog& dialog);

// What waits for a person right now, innermost; nothing when none does.
struct Waiting {
    enum class Kind { box, file, folder } kind;
    MessageBox box;
    FileDialog file;
    FolderDialog folder;
};
const Waiting* waiting();

} // namespace kestrel::screen
