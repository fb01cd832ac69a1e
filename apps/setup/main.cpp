// kestrel-setup: makes, moves and checks installations, and puts back what was lost.
#include "setup/commands.hpp"

#include <iostream>

int main(int count, char** words) {
    return kestrel::setup::runCommand({words + 1, words + count}, std::cout, std::cerr);
}
