#include "screen/message.hpp"

#include "platform/journal.hpp"
#include "screen/ending.hpp"
#include "screen/frontend.hpp"
#include "screen/reset.hpp"
#include "text/quoting.hpp"

#include <deque>

namespace kestrel::screen {

static std::deque<Waiting> waits; // innermost last; a deque, so that references stay good while waits nest
static std::string boxTitle;

namespace {

// Holds its place among what waits for a person as long as it lives.
class Wait {
public:
    Wait(Waiting what, const std::string& seen) {
        waits.push_back(std::move(what));
        journal::record(journal::Channel::seen, seen);
    }
    ~Wait() {
        if (!waits.empty()) waits.pop_back();
    }
    Wait(const Wait&) = delete;
    Wait& operator=(const Wait&) = delete;
};

int ask(const MessageBox& box) {
    if (ended()) return box.cancelButton;
    const Wait wait({Waiting::Kind::box, box, {}, {}}, "message " + text::quoted(box.text) + " " + buttonsText(box));
    const int answer = frontend::messageBox(box);
    return ended() ? box.cancelButton : answer;
}

} // namespace

std::string buttonsText(const MessageBox& box) {
    std::string line;
    for (std::size_t i = 0; i < box.buttons.size(); ++i) {
        const bool marked = box.buttons.size() > 1 && static_cast<int>(i) == box.defaultButton;
        line += std::string(i ? " " : "") + (marked ? "[*" : "[") + box.buttons[i] + "]";
    }
    return line;
}

void setMessageTitle(std::string title) {
    boxTitle = std::move(title);
}

void message(std::string_view text) {
    ask({std::string(text), boxTitle, {"OK"}, 0, 0});
}

bool question(std::string_view text, bool defaultIsYes) {
    return ask({std::string(text), boxTitle, {"はい", "いいえ"}, defaultIsYes ? 0 : 1, 1}) == 0;
}

std::optional<std::string> pickFile(const FileDialog& dialog) {
    if (ended()) return std::nullopt;
    const Wait wait({Waiting::Kind::file, {}, dialog, {}}, "dialog file " + text::quoted(dialog.filter));
    return frontend::fileDialog(dialog);
}

std::optional<std::string> pickFolder(const FolderDialog& dialog) {
    if (ended()) return std::nullopt;
    const Wait wait({Waiting::Kind::folder, {}, {}, dialog}, "dialog folder " + text::quoted(dialog.prompt));
    return frontend::folderDialog(dialog);
}

const Waiting* waiting() {
    return waits.empty() ? nullptr : &waits.back();
}

void forgetWaiting() {
    waits.clear();
}

} // namespace kestrel::screen
