#include "platform/files.hpp"

#include "scratch.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>

namespace kestrel::platform {

namespace fs = std::filesystem;

namespace {

struct Folders : testing::Test {
    test::Scratch scratch;
};

} // namespace

TEST_F(Folders, anEntryTellsKindSizeAndDate) {
    const std::string file = scratch.write("見積.xls", "12345");
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(24 * 400));
    const auto entry = entryAt(file);
    ASSERT_TRUE(entry);
    EXPECT_FALSE(entry.value().folder);
    EXPECT_EQ(entry.value().size, 5U);
    EXPECT_LT(entry.value().modified.year, now().year);
    EXPECT_TRUE(entryAt(scratch.folder.string()).value().folder);
    EXPECT_EQ(entryAt(scratch.path("none")).failure().number, ENOENT);
}

TEST_F(Folders, aCopyKeepsContentAndDates) {
    fs::create_directories(scratch.path("a/b"));
    scratch.write("a/b/文書.doc", "text");
    const auto day = fs::file_time_type::clock::now() - std::chrono::hours(1000);
    for (const char* part : {"a/b/文書.doc", "a/b", "a"}) fs::last_write_time(scratch.path(part), day);
    ASSERT_TRUE(copyFolder(scratch.path("a"), scratch.path("copy")));
    for (const char* part : {"copy/b/文書.doc", "copy/b", "copy"}) {
        EXPECT_EQ(fs::last_write_time(scratch.path(part)), day) << part;
    }
    EXPECT_EQ(fs::file_size(scratch.path("copy/b/文書.doc")), 4U);
}

TEST_F(Folders, aFolderIsNeverCopiedIntoItself) {
    fs::create_directories(scratch.path("a/b"));
    for (const char* target : {"a", "a/b", "a/b/new", "a/../a/new"}) {
        EXPECT_EQ(copyFolder(scratch.path("a"), scratch.path(target)).failure().number, EINVAL) << target;
    }
    EXPECT_TRUE(fs::is_empty(scratch.path("a/b")));
    fs::create_directory_symlink(scratch.path("a/b"), scratch.path("way"));
    EXPECT_EQ(copyFolder(scratch.path("a"), scratch.path("way/new")).failure().number, EINVAL);
    EXPECT_TRUE(copyFolder(scratch.path("a"), scratch.path("ab")));
}

TEST_F(Folders, aLinkThatLeadsBackEndsTheCopyAndLeavesNoHalf) {
    fs::create_directories(scratch.path("a/b"));
    fs::create_directory_symlink(scratch.path("a"), scratch.path("a/b/back"));
    EXPECT_EQ(copyFolder(scratch.path("a"), scratch.path("copy")).failure().number, ELOOP);
    EXPECT_FALSE(fs::exists(scratch.path("copy")));
    EXPECT_TRUE(fs::exists(scratch.path("a/b/back")));
}

TEST_F(Folders, aCopyThatFailsLeavesWhatWasThere) {
    fs::create_directories(scratch.path("a"));
    ASSERT_EQ(mkfifo(scratch.path("a/pipe").c_str(), 0600), 0);
    fs::create_directories(scratch.path("old"));
    scratch.write("old/kept", "x");
    EXPECT_EQ(copyFile(scratch.path("a/pipe"), scratch.path("pipe")).failure().number, EINVAL);
    EXPECT_FALSE(copyFolder(scratch.path("a"), scratch.path("old")));
    EXPECT_TRUE(fs::exists(scratch.path("old/kept")));
    scratch.write("file", "x");
    EXPECT_FALSE(copyFolder(scratch.path("a"), scratch.path("file")));
    EXPECT_TRUE(fs::exists(scratch.path("file")));
}

// No room behind the first ten thousand bytes of a file, as on a disk that is full.
TEST_F(Folders, aDiskThatFillsUpLeavesNoHalf) {
    fs::create_directories(scratch.path("a"));
    scratch.write("a/一", std::string(100, 'x'));
    scratch.write("a/二", std::string(100'000, 'x'));
    scratch.write("there", "old");
    rlimit room{};
    getrlimit(RLIMIT_FSIZE, &room);
    const rlimit little{10'000, room.rlim_max};
    const auto signal = std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &little);
    const Status file = copyFile(scratch.path("a/二"), scratch.path("there"));
    const Status folder = copyFolder(scratch.path("a"), scratch.path("copy"));
    setrlimit(RLIMIT_FSIZE, &room);
    std::signal(SIGXFSZ, signal);
    EXPECT_FALSE(file);
    EXPECT_EQ(test::contentOf(scratch.path("there")), "old");
    EXPECT_FALSE(folder);
    EXPECT_FALSE(fs::exists(scratch.path("copy")));
    EXPECT_EQ(std::distance(fs::directory_iterator(scratch.folder), {}), 2) << "nothing half is left";
}

TEST_F(Folders, linksAreCopiedAsWhatTheyPointToAndRemovedAsLinks) {
    fs::create_directories(scratch.path("a"));
    scratch.write("file", "text");
    fs::create_directories(scratch.path("far"));
    scratch.write("far/kept", "x");
    fs::create_symlink(scratch.path("file"), scratch.path("a/file"));
    fs::create_directory_symlink(scratch.path("far"), scratch.path("a/far"));
    ASSERT_TRUE(copyFolder(scratch.path("a"), scratch.path("copy")));
    EXPECT_TRUE(fs::is_regular_file(fs::symlink_status(scratch.path("copy/file"))));
    EXPECT_TRUE(fs::is_directory(fs::symlink_status(scratch.path("copy/far"))));
    ASSERT_TRUE(removeFolder(scratch.path("a")));
    EXPECT_FALSE(fs::exists(scratch.path("a")));
    EXPECT_TRUE(fs::exists(scratch.path("far/kept")));
    fs::create_directory_symlink(scratch.path("far"), scratch.path("way"));
    ASSERT_TRUE(removeFolder(scratch.path("way")));
    EXPECT_TRUE(fs::exists(scratch.path("far/kept")));
}

TEST_F(Folders, theFilesOfAFolderAreListedByName) {
    scratch.write(".設定", "x");
    scratch.write("文書", "x");
    fs::create_directories(scratch.path("中"));
    auto names = filesIn(scratch.folder.string());
    ASSERT_TRUE(names);
    std::ranges::sort(names.value());
    EXPECT_EQ(names.value(), (std::vector<std::string>{".設定", "文書"}));
    EXPECT_EQ(filesIn(scratch.path("none")).failure().number, ENOENT);
}

} // namespace kestrel::platform
