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

TEST(ArgumentsTest, recoverTakesAFolderAndAtMostOneWord) {
    const auto listing = readRecoverRequest({"place"});
    ASSERT_TRUE(listing);
    EXPECT_EQ(listing->folder, "place");
    EXPECT_FALSE(listing->apply);
    const auto applying = readRecoverRequest({"--apply", "place"});
    ASSERT_TRUE(applying);
    EXPECT_EQ(applying->folder, "place");
    EXPECT_TRUE(applying->apply);
    EXPECT_FALSE(readRecoverRequest({}));
    EXPECT_FALSE(readRecoverRequest({"--apply"}));
    EXPECT_FALSE(readRecoverRequest({"place", "other"}));
    EXPECT_FALSE(readRecoverRequest({"place", "--all"}));
}

TEST(ArgumentsTest, aServerIsNamedByItsConnectionText) {
    auto request = readCreateRequest({"place", "--main", "Provider=P;"}, "20240515");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->mainText, "Provider=P;");
    EXPECT_EQ(request->kind, "S");
    request = readCreateRequest({"--kind", "O", "--main", "Provider=P;", "place"}, "20240515");
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, "O");
    EXPECT_TRUE(readCreateRequest({"place"}, "20240515")->mainText.empty());
}

TEST(ArgumentsTest, aMoveNamesFolderAndServer) {
    auto request = readMoveRequest({"place", "--main", "Provider=P;"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->folder, "place");
    EXPECT_EQ(request->mainText, "Provider=P;");
    EXPECT_EQ(request->kind, "S");
    EXPECT_FALSE(request->leaveUnknown);
    request = readMoveRequest({"--leave-unknown", "--kind", "A", "--main", "Provider=P;", "place"});
    ASSERT_TRUE(request);
    EXPECT_EQ(request->kind, "A");
    EXPECT_TRUE(request->leaveUnknown);
}

TEST(ArgumentsTest, aMoveThatMakesNoSenseIsRefused) {
    const std::vector<std::string> wrong[] = {{},
                                              {"a"},
                                              {"--main", "P"},
                                              {"a", "--main"},
                                              {"a", "--main", ""},
                                              {"a", "b", "--main", "P"},
                                              {"a", "--main", "P", "--full"}};
    for (const auto& words : wrong) EXPECT_FALSE(readMoveRequest(words));
}

} // namespace kestrel::setup
