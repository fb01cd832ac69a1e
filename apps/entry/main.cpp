// 連絡台帳入力: the core with the Qt front end.
#include "frontend/qt/application.hpp"
#include "screen/ending.hpp"
#include "screen/frontend.hpp"
#include "session/modStart.hpp"

#include <string>

// Every argument belongs to the record handed over; the desktop may have cut it at its blanks.
static std::string joinedArguments(int count, char** arguments) {
    std::string line;
    for (int i = 1; i < count; ++i) {
        if (i > 1) line += ' ';
        line += arguments[i];
    }
    return line;
}

int main(int argc, char** argv) {
    const kestrel::frontend::Application toolkit(argv[0]);
    kestrel::startProgram(joinedArguments(argc, argv));
    kestrel::frontend::waitUntilEnded();
    return kestrel::screen::endStatus();
}
