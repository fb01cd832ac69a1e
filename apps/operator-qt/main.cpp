// Plays scenarios through the Qt front end, off screen: acts become mouse and key events on the real widgets.
#include "scenario/operator.hpp"
#include "session/modStart.hpp"

#include <QApplication>

int main(int count, char** arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int toolkitArguments = 1; // the toolkit gets the program's name alone
    const QApplication application(toolkitArguments, arguments);
    return kestrel::scenario::runOperator({arguments + 1, arguments + count}, kestrel::startProgram);
}
