// kestrel-tour INSTALLATION FOLDER COMMAND-LINE...: the program played off screen by a small script on an installation;
// it saves pictures of its telling moments in the folder and names each on standard output.
#include "frontend/qt/application.hpp"
#include "frontend/qt/pictures.hpp"
#include "platform/paths.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"
#include "screen/frontend.hpp"
#include "screen/hand.hpp"
#include "session/modStart.hpp"

#include <array>
#include <cstdio>
#include <string>
#include <string_view>

using namespace kestrel;

namespace {

std::string folder;
bool failed = false;

screen::Control* find(std::string_view name) {
    screen::Window* window = screen::activeWindow();
    return window ? findControl(*window, name) : nullptr;
}

void fail(std::string_view what) {
    std::fprintf(stderr, "the tour stands still: %.*s\n", static_cast<int>(what.size()), what.data());
    failed = true;
}

void picture(std::string_view name) {
    if (!frontend::savePictures(folder, std::string(name))) return fail(name);
    std::printf("%s/%.*s.png\n", folder.c_str(), static_cast<int>(name.size()), name.data());
}

void click(std::string_view name) {
    screen::Control* control = find(name);
    if (!control || !hand::click(*control)) fail(name);
}

void typeOver(std::string_view text) {
    hand::typeOver(text);
}

void answer(std::string_view caption) {
    if (!hand::answer(caption)) fail(caption);
}

void page(std::string_view number) {
    screen::Control* tab = find("tab_詳細");
    if (!tab || !hand::page(*tab, number[0] - '0')) fail(number);
}

struct Step {
    void (*act)(std::string_view);
    std::string_view with;
};

constexpr std::array steps{
    Step{picture, "1-addressee"},
    Step{click, "宛先名称B"},
    Step{typeOver, "資材部　購買第一課"},
    Step{picture, "2-typing"},
    Step{page, "1"},
    Step{picture, "3-memo"},
    Step{page, "2"},
    Step{picture, "4-attachments"},
    Step{page, "0"},
    Step{click, "btn_画面クリア"},
    Step{picture, "5-question"},
    Step{answer, "はい"},
    Step{picture, "6-new-entry"},
    Step{click, "btn_終了"},
    Step{answer, "はい"},
};

std::size_t next = 0;

bool playNext() {
    if (failed || next == steps.size()) return false;
    const Step& step = steps[next++];
    step.act(step.with);
    return true;
}

std::string joinedFrom(int first, int count, char** arguments) {
    std::string line;
    for (int i = first; i < count; ++i) line += (i > first ? " " : "") + std::string(arguments[i]);
    return line;
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: kestrel-tour INSTALLATION FOLDER COMMAND-LINE...\n");
        return 2;
    }
    folder = argv[2];
    platform::setExecutableFolder(platform::joinPath(argv[1], "prgbin"));
    frontend::drawOffScreen();
    const frontend::Application toolkit(argv[0]);
    screen::setActSource(playNext);
    startProgram(joinedFrom(3, argc, argv));
    frontend::waitUntilEnded();
    return failed || !screen::ended() || next != steps.size() ? 1 : screen::endStatus();
}
