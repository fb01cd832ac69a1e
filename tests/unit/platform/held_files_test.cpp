#include "other_process.hpp"
#include "scratch.hpp"

#include "platform/files.hpp"

#include <cerrno>
#include <optional>

namespace kestrel::platform {

namespace {

using namespace std::string_literals;
using test::contentOf;
using test::Scratch;

std::size_t filesIn(const Scratch& scratch) {
    const auto names = platform::filesIn(scratch.folder.string());
    return names ? names.value().size() : 99;
}

int numberOf(const Result<HeldFile>& held) {
    return held ? 0 : held.failure().number;
}

TEST(HeldFiles, isWrittenWholeAndGoesWhenItIsRemoved) {
    const Scratch scratch;
    const std::string content = "一行目\n二行目\0'😀"s + std::string(100'000, 'x');
    auto held = writeHeldFile(scratch.path("a"), content);
    ASSERT_TRUE(held);
    EXPECT_EQ(contentOf(scratch.path("a")), content);
    EXPECT_EQ(platform::contentOf(scratch.path("a")).value(), content);
    held.value().remove();
    held.value().remove();
    EXPECT_EQ(filesIn(scratch), 0u);
    EXPECT_EQ(platform::contentOf(scratch.path("a")).failure().number, ENOENT);
}

TEST(HeldFiles, leavesAFileOfThatNameAsItIs) {
    const Scratch scratch;
    scratch.write("a", "another's");
    EXPECT_EQ(numberOf(writeHeldFile(scratch.path("a"), "mine")), EEXIST);
    EXPECT_EQ(contentOf(scratch.path("a")), "another's");
}

TEST(HeldFiles, leavesNothingWhereItCannotBeWritten) {
    const Scratch scratch;
    EXPECT_EQ(numberOf(writeHeldFile(scratch.path("none/a"), "x")), ENOENT);
    std::filesystem::permissions(scratch.folder,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    EXPECT_EQ(numberOf(writeHeldFile(scratch.path("a"), "x")), EACCES);
    std::filesystem::permissions(scratch.folder, std::filesystem::perms::owner_all);
    EXPECT_EQ(filesIn(scratch), 0u);
}

TEST(HeldFiles, isHeldUntilItIsLetGoAndStays) {
    const Scratch scratch;
    std::optional<HeldFile> mine;
    {
        auto held = writeHeldFile(scratch.path("a"), "x");
        ASSERT_TRUE(held);
        mine = std::move(held.value());
    }
    EXPECT_EQ(numberOf(holdFile(scratch.path("a"))), EWOULDBLOCK);
    mine.reset();
    auto next = holdFile(scratch.path("a"));
    ASSERT_TRUE(next);
    EXPECT_EQ(numberOf(holdFile(scratch.path("a"))), EWOULDBLOCK);
    next.value().remove();
    EXPECT_EQ(filesIn(scratch), 0u);
}

TEST(HeldFiles, isLetGoByTheDeathOfItsProcess) {
    const Scratch scratch;
    test::OtherProcess other([&] {
        static auto held = writeHeldFile(scratch.path("a"), "x");
        return static_cast<bool>(held);
    });
    EXPECT_TRUE(other.answer());
    EXPECT_EQ(numberOf(holdFile(scratch.path("a"))), EWOULDBLOCK);
    other.end();
    EXPECT_TRUE(holdFile(scratch.path("a")));
    EXPECT_EQ(contentOf(scratch.path("a")), "x");
}

} // namespace

} // namespace kestrel::platform
