// The whole seam between the model and what shows it. frontend/qt and frontend/headless implement it; a program links
// one. A front end shows the model and reports what a person did (screen/person.hpp). It never decides the focus and
// never calls a handler from a toolkit's own focus event. Every wait returns at once after the end of the process.
#pragma once

#include "screen/message.hpp"
#include "screen/window.hpp"

#include <optional>
#include <string>

namespace kestrel::frontend {

void show(screen::Window& window); // it is among shownWindows() now, topmost
void hide(screen::Window& window); // it is gone from there; its record may be destroyed next
void raise(screen::Window& window);
void waitWhileShown(screen::Window& window); // lets a person act until the window is hidden
void waitUntilEnded();                       // the program at rest: lets a person act until the end of the process

int messageBox(const screen::MessageBox& box); // index of the button pressed
std::optional<std::string> fileDialog(const screen::FileDialog& dialog);
std::optional<std::string> folderDialog(const screen::FolderDialog& dialog);

struct ScreenSize {
    int width = 0, height = 0; // pixels
};
std::optional<ScreenSize> screenSize(); // of the whole screen; nothing where there is none

void repaint(); // what the model says is on the screen before this returns
void beep();

} // namespace kestrel::frontend
