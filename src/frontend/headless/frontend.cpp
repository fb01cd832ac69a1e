// The front end without a display: nothing to draw, and every wait plays the next act of the source. Without a source
// nobody will ever act, so that each wait ends at once, a box or dialog as if it were closed.
#include "screen/frontend.hpp"

#include "frontend/headless/waits.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"

namespace kestrel::headless {

static OpenWait* innermost = nullptr;

OpenWait* innermostWait() {
    return innermost;
}

namespace {

// Stands among the open waits as long as it lives.
class Standing {
public:
    explicit Standing(OpenWait& wait) {
        wait.outer = innermost;
        innermost = &wait;
    }
    ~Standing() { innermost = innermost->outer; }
    Standing(const Standing&) = delete;
    Standing& operator=(const Standing&) = delete;
};

bool somethingHappens() {
    if (screen::ended()) return false;
    if (repeatHeldKey()) return true;
    const screen::PlayNext playNext = screen::actSource();
    return playNext && playNext();
}

void waitForAnswer(OpenWait& wait) {
    const Standing standing(wait);
    while (!wait.answered && somethingHappens()) {
    }
}

std::optional<std::string> waitForPath() {
    OpenWait wait;
    waitForAnswer(wait);
    return wait.path;
}

} // namespace
} // namespace kestrel::headless

namespace kestrel::frontend {

void show(screen::Window&) {}
void hide(screen::Window&) {}
void raise(screen::Window&) {}
void repaint() {}
void beep() {}

void waitWhileShown(screen::Window& window) {
    while (window.shown && headless::somethingHappens()) {
    }
}

void waitUntilEnded() {
    while (headless::somethingHappens()) {
    }
}

int messageBox(const screen::MessageBox& box) {
    headless::OpenWait wait;
    wait.box = &box;
    wait.focusedButton = box.defaultButton;
    wait.button = box.cancelButton;
    headless::waitForAnswer(wait);
    return wait.button;
}

std::optional<std::string> fileDialog(const screen::FileDialog&) {
    return headless::waitForPath();
}

std::optional<std::string> folderDialog(const screen::FolderDialog&) {
    return headless::waitForPath();
}

} // namespace kestrel::frontend
