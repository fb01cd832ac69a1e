#include "platform/file_holders.hpp"

#include "../open_file.hpp"
#include "scratch.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace kestrel::test {

namespace {

TEST(FileHolders, AreNamedByProcessAndProgram) {
    Scratch scratch;
    const std::string path = scratch.path("青.db"), other = scratch.path("other.db");
    std::ofstream(path) << "1";
    std::ofstream(other) << "1";
    OpenElsewhere first(path), second(path), elsewhere(other);
    const auto holders = platform::holdersOf(path);
    ASSERT_EQ(holders.size(), 2u);
    EXPECT_EQ(holders[0].process, std::min(first.process, second.process));
    EXPECT_EQ(holders[1].process, std::max(first.process, second.process));
    EXPECT_EQ(holders[0].program, std::filesystem::read_symlink("/proc/self/exe").filename().string());
}

TEST(FileHolders, AreFoundBehindALink) {
    Scratch scratch;
    const std::string path = scratch.path("a.db");
    std::ofstream(path) << "1";
    std::filesystem::create_symlink(path, scratch.path("link.db"));
    OpenElsewhere holder(path);
    EXPECT_EQ(platform::holdersOf(scratch.path("link.db")).size(), 1u);
}

TEST(FileHolders, AreNeitherThisProcessNorAnybodyForNoFile) {
    Scratch scratch;
    const std::string path = scratch.path("a.db");
    std::ofstream mine(path);
    EXPECT_TRUE(platform::holdersOf(path).empty());
    EXPECT_TRUE(platform::holdersOf(scratch.path("none.db")).empty());
    EXPECT_TRUE(platform::holdersOf("").empty());
}

} // namespace

} // namespace kestrel::test
