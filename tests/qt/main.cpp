// Off screen, with one toolkit for all tests.
#include "frontend/qt/application.hpp"

#include <gtest/gtest.h>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    kestrel::frontend::drawOffScreen();
    const kestrel::frontend::Application toolkit("qt-tests");
    return RUN_ALL_TESTS();
}
