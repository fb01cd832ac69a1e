// kestrel-tour INSTALLATION FOLDER COMMAND-LINE...: the program played off screen by a small script on an installation;
// it saves pictures of its telling moments in the folder and names each on standard output.
#include "frontend/qt/application.hpp"
#include "platform/paths.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"
#include "screen/frontend.hpp"
#include "session/modStart.hpp"
#include "steps.hpp"

#include <cstdio>
#include <string>

using namespace kestrel;

static std::string joinedFrom(int first, int count, char** arguments) {
    std::string line;
    for (int i = first; i < count; ++i) line += (i > first ? " " : "") + std::string(arguments[i]);
    return line;
}

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: kestrel-tour INSTALLATION FOLDER COMMAND-LINE...\n");
        return 2;
    }
    tour::saveIn(argv[2]);
    // Absolute, as the file dialog of the tour stands in a folder of its own.
    platform::setExecutableFolder(platform::joinPath(platform::absolutePath(argv[1]), "prgbin"));
    frontend::drawOffScreen();
    const frontend::Application toolkit(argv[0]);
    screen::setActSource(tour::playNext);
    startProgram(joinedFrom(3, argc, argv));
    frontend::waitUntilEnded();
    return tour::complete() && screen::ended() ? screen::endStatus() : 1;
}
