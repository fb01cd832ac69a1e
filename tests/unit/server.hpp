// The database server that tests may use; tools/test-server tells them of it.
#pragma once

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace kestrel::test {

// Connection text of a user who may make databases; empty when there is no server.
inline std::string testServer() {
    const char* text = std::getenv("KESTREL_TEST_SERVER");
    return text ? text : "";
}

// The same of a user whom the server asks for his password.
inline std::string guardedTestServer() {
    const char* text = std::getenv("KESTREL_TEST_SERVER_GUARDED");
    return text ? text : "";
}

// For the beginning of a test. ./test takes a test that was passed over for a failure.
#define KESTREL_NEEDS_SERVER()                                                                                         \
    if (kestrel::test::testServer().empty()) GTEST_SKIP() << "no server: run by tools/test-server"

} // namespace kestrel::test
