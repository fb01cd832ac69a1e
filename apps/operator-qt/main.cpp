// Plays scenarios through the Qt front end, off screen: acts become mouse and key events on the real widgets.
#include "frontend/qt/application.hpp"
#include "scenario/operator.hpp"
#include "session/modStart.hpp"

int main(int count, char** arguments) {
    kestrel::frontend::drawOffScreen();
    const kestrel::frontend::Application toolkit(arguments[0]);
    return kestrel::scenario::runOperator({arguments + 1, arguments + count}, kestrel::startProgram);
}
