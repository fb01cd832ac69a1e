#include "setup/arguments.hpp"

#include <gtest/gtest.h>

namespace kestrel::setup {

TEST(ArgumentsTest, fullAndTodayAreMeantWhereNothingElseIsSaid) {
    const auto request = readCreateRequest({"place"}, "20240515");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->folder, "place");
    EXPECT_EQ(request->what, What::full);
    EXPECT_EQ(request->day, "20240515");
}

TEST(ArgumentsTest, optionsMayStandAnywhere) {
    const auto request = readCreateRequest({"--minimal", "--day", "20230401", "place"}, "20240515");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->folder, "place");
    EXPECT_EQ(request->what, What::minimal);
    EXPECT_EQ(request->day, "20230401");
}

TEST(ArgumentsTest, wordsThatMakeNoSenseAreRefused) {
    const std::vector<std::string> wrong[] = {
        {}, {"--minimal"}, {"a", "b"}, {"a", "--day"}, {"a", "--dya", "20240515"}, {""}};
    for (const auto& words : wrong) EXPECT_FALSE(readCreateRequest(words, "20240515"));
}

} // namespace kestrel::setup
