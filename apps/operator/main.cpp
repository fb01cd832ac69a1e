// The program without a display: plays scenarios through the headless front end.
#include "scenario/operator.hpp"
#include "session/modStart.hpp"

int main(int count, char** arguments) {
    return kestrel::scenario::runOperator({arguments + 1, arguments + count}, kestrel::startProgram);
}
