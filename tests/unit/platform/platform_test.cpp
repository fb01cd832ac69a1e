#include "other_process.hpp"
#include "scratch.hpp"

#include "platform/clock.hpp"
#include "platform/files.hpp"
#include "platform/identity.hpp"
#include "platform/instances.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"
#include "platform/process.hpp"
#include "platform/shell.hpp"

#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>

namespace kestrel::platform {

namespace {

using test::contentOf;
using test::OtherProcess;
using test::Scratch;

std::string both(const Moment& moment) {
    return stampText(moment) + " " + timeText(moment);
}

TEST(Clock, writesItsTexts) {
    Moment moment{2024, 5, 1, 9, 3, 7};
    EXPECT_EQ(dateText(moment), "20240501");
    EXPECT_EQ(timeText(moment), "09:03:07");
    EXPECT_EQ(stampText(moment), "20240501 090307");
}

TEST(Clock, standsPassesAndTicks) {
    standClock({2024, 2, 28, 23, 59, 58});
    EXPECT_EQ(both(now()), "20240228 235958 23:59:58");
    EXPECT_EQ(both(now()), "20240228 235958 23:59:58");
    passTime(3);
    EXPECT_EQ(stampText(now()), "20240229 000001");
    tickClock(60);
    EXPECT_EQ(stampText(now()), "20240229 000001");
    EXPECT_EQ(stampText(now()), "20240229 000101");
    tickClock(0);
    EXPECT_EQ(stampText(now()), "20240229 000201");
    EXPECT_EQ(stampText(now()), "20240229 000201");
    freeClock();
    std::time_t seconds = std::time(nullptr);
    EXPECT_GE(stampText(now()).substr(0, 4), std::to_string(1900 + std::localtime(&seconds)->tm_year));
}

TEST(Clock, movesByItsUnits) {
    Moment moment{2024, 1, 31, 10, 0, 0};
    EXPECT_EQ(dateText(monthsLater(moment, 1)), "20240229");
    EXPECT_EQ(dateText(monthsLater(moment, 13)), "20250228");
    EXPECT_EQ(dateText(monthsLater(moment, -1)), "20231231");
    EXPECT_EQ(dateText(monthsLater({2024, 3, 31, 0, 0, 0}, -1)), "20240229");
    EXPECT_EQ(dateText(monthsLater({2024, 5, 15, 0, 0, 0}, -5)), "20231215");
    EXPECT_EQ(stampText(monthsLater(moment, 1)), "20240229 100000");
    EXPECT_EQ(dateText(daysLater(moment, 1)), "20240201");
    EXPECT_EQ(dateText(daysLater({2024, 3, 1, 0, 0, 0}, -1)), "20240229");
    EXPECT_EQ(stampText(secondsLater({2024, 1, 1, 0, 0, 0}, -1)), "20231231 235959");
}

TEST(Identity, isNeverEmptyAndCanBeGiven) {
    EXPECT_FALSE(userName().empty());
    EXPECT_FALSE(computerName().empty());
    setUserName("operator");
    setComputerName("KESTREL");
    EXPECT_EQ(userName() + "@" + computerName(), "operator@KESTREL");
    setUserName("");
    setComputerName("");
    EXPECT_NE(computerName(), "KESTREL");
    EXPECT_NE(userName(), "operator");
    EXPECT_EQ(windowsVersionClass(), -1);
}

TEST(Paths, areCutAndJoined) {
    EXPECT_EQ(lastSeparator("/a/b"), 2U);
    EXPECT_EQ(lastSeparator("C:\\a\\b"), 4U);
    EXPECT_EQ(lastSeparator("/a\\b"), 2U);
    EXPECT_EQ(lastSeparator("住所"), std::string::npos);
    EXPECT_EQ(joinPath("/a", "b"), "/a/b");
    EXPECT_EQ(joinPath("/a/", "\\b"), "/a//\\b");
    EXPECT_EQ(systemPath("a\\表\\b/c"), "a/表/b/c");
}

TEST(Paths, findTheExecutable) {
    EXPECT_TRUE(folderExists(executableFolder()));
    EXPECT_NE(executableFolder().back(), '/');
    setExecutableFolder("/x/prgbin");
    EXPECT_EQ(executableFolder(), "/x/prgbin");
    setExecutableFolder("");
    EXPECT_NE(executableFolder(), "/x/prgbin");
}

class Files : public testing::Test {
protected:
    Scratch scratch;
    std::string source = scratch.write("a.txt", "content"), target = scratch.path("b.txt");

    void expectAlone() {
        for (const auto& entry : std::filesystem::directory_iterator(scratch.folder))
            EXPECT_EQ(entry.path().string().find(".part"), std::string::npos) << "a half-made copy is left";
    }
};

TEST_F(Files, areThereOrNot) {
    std::filesystem::create_directory(scratch.path("folder"));
    EXPECT_TRUE(fileExists(source));
    EXPECT_FALSE(folderExists(source));
    EXPECT_FALSE(fileExists(scratch.path("folder")));
    EXPECT_TRUE(folderExists(scratch.path("folder")));
    EXPECT_TRUE(fileExists(scratch.folder.string() + "\\a.txt")) << "either separator";
    EXPECT_FALSE(fileExists(""));
    EXPECT_FALSE(folderExists(""));
    std::filesystem::create_directory_symlink(scratch.path("folder"), scratch.path("link"));
    EXPECT_TRUE(folderExists(scratch.path("link")));
}

TEST_F(Files, areCopiedWithTheirTimeAndForWriting) {
    chmod(source.c_str(), 0444);
    auto past = std::filesystem::last_write_time(source) - std::chrono::hours(1000);
    std::filesystem::last_write_time(source, past);
    ASSERT_TRUE(copyFile(source, target));
    EXPECT_EQ(contentOf(target), "content");
    EXPECT_EQ(std::filesystem::last_write_time(target), past);
    struct stat about {};
    stat(target.c_str(), &about);
    EXPECT_EQ(about.st_mode & 0777, 0644U);
    expectAlone();
}

TEST_F(Files, areCopiedOverOthersAndThroughLinks) {
    scratch.write("b.txt", "something longer than the source");
    std::filesystem::create_symlink(source, scratch.path("from"));
    std::filesystem::create_symlink(target, scratch.path("to"));
    ASSERT_TRUE(copyFile(scratch.path("from"), scratch.path("to")));
    EXPECT_EQ(contentOf(target), "content");
    EXPECT_TRUE(std::filesystem::is_symlink(scratch.path("to")));
    EXPECT_FALSE(std::filesystem::is_symlink(target));
    ASSERT_TRUE(copyFile(source, source)) << "onto itself";
    EXPECT_EQ(contentOf(source), "content");
}

TEST_F(Files, largerThanABlockAreCopiedWhole) {
    std::string large(200001, 'x');
    large[131072] = '\0';
    ASSERT_TRUE(copyFile(scratch.write("large", large), target));
    EXPECT_EQ(contentOf(target), large);
}

TEST_F(Files, thatCannotBeCopiedLeaveTheTarget) {
    scratch.write("b.txt", "old");
    EXPECT_EQ(copyFile(scratch.path("none"), target).failure().number, ENOENT);
    EXPECT_EQ(copyFile(scratch.folder.string(), target).failure().number, EISDIR);
    EXPECT_EQ(copyFile(source, scratch.folder.string()).failure().number, EISDIR);
    EXPECT_EQ(copyFile(source, scratch.path("no/b.txt")).failure().number, ENOENT);
    EXPECT_EQ(contentOf(target), "old");
    expectAlone();
}

TEST_F(Files, foldersAreMadeOneLevelAtATime) {
    EXPECT_TRUE(makeFolder(scratch.path("x")));
    EXPECT_TRUE(makeFolder(scratch.path("x"))) << "it is there already";
    EXPECT_EQ(makeFolder(scratch.path("y/z")).failure().number, ENOENT);
    EXPECT_EQ(makeFolder(source).failure().number, EEXIST) << "a file is in its place";
}

TEST_F(Files, areRemoved) {
    EXPECT_TRUE(removeFile(source));
    EXPECT_FALSE(fileExists(source));
    EXPECT_EQ(removeFile(source).failure().number, ENOENT);
}

std::vector<std::string> seen() {
    std::vector<std::string> lines;
    for (const auto& entry : journal::entries()) {
        EXPECT_EQ(entry.channel, journal::Channel::seen);
        lines.push_back(entry.text);
    }
    return lines;
}

using Lines = std::vector<std::string>;

TEST(Journal, isOffUntilItIsStarted) {
    journal::start();
    journal::record(journal::Channel::seen, "one");
    journal::stop();
    journal::record(journal::Channel::seen, "two");
    EXPECT_FALSE(journal::running());
    EXPECT_EQ(seen(), Lines{"one"});
    journal::start();
    EXPECT_TRUE(journal::running() && seen().empty());
    journal::stop();
}

bool waitUntil(const std::function<bool()>& met) {
    for (int i = 0; i < 500 && !met(); ++i) std::this_thread::sleep_for(std::chrono::milliseconds(10));
    return met();
}

class Programs : public testing::Test {
protected:
    Scratch scratch;

    void SetUp() override { journal::start(); }
    void TearDown() override {
        journal::stop();
        pretendPrograms(Pretend::off);
        pretendShell(Pretend::off);
    }
    std::string script(const std::string& name, const std::string& lines) {
        std::string path = scratch.write(name, "#!/bin/sh\n" + lines);
        chmod(path.c_str(), 0755);
        return path;
    }
    std::string writerOf(const std::string& name) {
        return script(name, "printf '%s|%s|%s' \"$#\" \"$1\" \"$PWD\" > " + scratch.path("out.tmp") + "\nmv " +
                                scratch.path("out.tmp") + " " + scratch.path("out") + "\n");
    }
    std::string output() {
        waitUntil([&] { return fileExists(scratch.path("out")); });
        return contentOf(scratch.path("out"));
    }
};

TEST_F(Programs, getTheirArgumentWhole) {
    std::string file = writerOf("帳票 program.exe");
    ASSERT_TRUE(startProgram(file, "  a 'b' \"c\" $HOME ;x  "));
    EXPECT_EQ(output().substr(0, 28), "1|  a 'b' \"c\" $HOME ;x  |" + output().substr(25, 3));
    EXPECT_EQ(seen(), Lines{"started \"" + file + "   a 'b' \"c\" $HOME ;x  \""});
}

TEST_F(Programs, getNoArgumentWhenItIsEmpty) {
    std::string file = writerOf("program");
    ASSERT_TRUE(startProgram(file, ""));
    EXPECT_EQ(output().substr(0, 3), "0||");
    EXPECT_EQ(seen(), Lines{"started \"" + file + "\""});
}

TEST_F(Programs, areNotWaitedForAndLeaveNoZombie) {
    double begin = secondsRunning();
    ASSERT_TRUE(startProgram("/bin/sleep", "3"));
    EXPECT_LT(secondsRunning() - begin, 2);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD) << "a child is left to wait for";
}

TEST_F(Programs, thatCannotBeStartedAreKnownAtOnce) {
    EXPECT_EQ(startProgram(scratch.path("none"), "x").failure().number, ENOENT);
    EXPECT_EQ(startProgram(scratch.write("plain", "#!/bin/sh\n"), "x").failure().number, EACCES);
    EXPECT_EQ(startProgram(scratch.folder.string(), "x").failure().number, EACCES);
    std::string noProgram = scratch.write("text", "hello");
    chmod(noProgram.c_str(), 0755);
    EXPECT_EQ(startProgram(noProgram, "x").failure().number, ENOEXEC);
    EXPECT_EQ(seen(), Lines{});
}

TEST_F(Programs, canBePretended) {
    pretendPrograms(Pretend::all);
    EXPECT_TRUE(startProgram("/none/帳票.exe", "a b"));
    EXPECT_EQ(seen(), Lines{"started \"/none/帳票.exe a b\""});
    pretendPrograms(Pretend::none);
    EXPECT_EQ(startProgram(writerOf("program"), "x").failure().number, ENOENT);
    EXPECT_EQ(seen().size(), 1U);
    EXPECT_FALSE(fileExists(scratch.path("out")));
}

TEST_F(Programs, theDesktopIsAskedThroughItsOpener) {
    std::string path = environment("PATH"), document = scratch.write("-文書.doc", "x");
    setEnvironment("PATH", scratch.folder.string() + ":" + path);
    EXPECT_EQ(openWithDesktop(scratch.path("none.doc"), ""), 2);
    EXPECT_EQ(openWithDesktop("", ""), 2);
    EXPECT_EQ(openWithDesktop("--help", ""), 2);
    writerOf("xdg-open");
    EXPECT_EQ(openWithDesktop(scratch.folder.string() + "\\-文書.doc", "/usr"), 33);
    EXPECT_EQ(output(), "1|" + document + "|/usr");
    for (auto [target, given] : {std::pair{"https://a.example/?b=1&c", "https://a.example/?b=1&c"},
                                 {"mailto:a@b.example", "mailto:a@b.example"},
                                 {"www.example.jp", "www.example.jp"}}) {
        std::filesystem::remove(scratch.path("out"));
        EXPECT_GT(openWithDesktop(target, scratch.path("gone")), 32);
        EXPECT_EQ(output().substr(2, std::string(given).size()), given);
    }
    EXPECT_EQ(seen().back(), "opened \"www.example.jp\"");
    EXPECT_EQ(seen().size(), 4U);
    setEnvironment("PATH", scratch.path("empty"));
    EXPECT_EQ(openWithDesktop(document, ""), 31) << "nothing is installed that opens it";
    setEnvironment("PATH", path);
}

TEST_F(Programs, theDesktopCanBePretended) {
    pretendShell(Pretend::all);
    EXPECT_GT(openWithDesktop("/none", ""), 32);
    pretendShell(Pretend::none);
    EXPECT_EQ(openWithDesktop("https://a.example", ""), 31);
    EXPECT_EQ(seen(), Lines{"opened \"/none\""});
}

TEST(Environment, isEmptyWhenItIsNotThere) {
    EXPECT_EQ(environment("KESTREL_NOT_THERE"), "");
    setEnvironment("KESTREL_THERE", "x y");
    EXPECT_EQ(environment("KESTREL_THERE"), "x y");
}

class Instances : public testing::Test {
protected:
    Scratch scratch;
    std::string root = scratch.folder.string();

    void TearDown() override {
        withdrawInstance();
        forgetInstances(root);
        pretendInstance(false);
    }
};

TEST_F(Instances, seeThoseThatRunOnTheSameRoot) {
    EXPECT_FALSE(anotherInstanceRuns(root));
    EXPECT_FALSE(anotherInstanceRuns(root)) << "a process is no other to itself";
    withdrawInstance();
    OtherProcess other([&] { return anotherInstanceRuns(root); });
    EXPECT_FALSE(other.answer());
    EXPECT_TRUE(anotherInstanceRuns(root));
    EXPECT_TRUE(anotherInstanceRuns(root + "/.")) << "the same root in other words";
    EXPECT_FALSE(anotherInstanceRuns(root + "-other"));
    other.end();
    EXPECT_FALSE(anotherInstanceRuns(root)) << "something stale is left after a kill";
}

TEST_F(Instances, seeAnnouncedOnesToo) {
    announceInstance(root);
    OtherProcess handoff([&] { return announceInstance(root), true; });
    EXPECT_TRUE(handoff.answer());
    OtherProcess plain([&] { return anotherInstanceRuns(root); });
    EXPECT_TRUE(plain.answer());
    withdrawInstance();
    handoff.end();
    EXPECT_FALSE(anotherInstanceRuns(root)) << "a start that gave way counts";
}

TEST_F(Instances, ofStartsAtTheSameMomentExactlyOneSurvives) {
    for (int round = 0; round < 20; ++round) {
        std::vector<std::unique_ptr<OtherProcess>> starts;
        for (int i = 0; i < 6; ++i)
            starts.push_back(std::make_unique<OtherProcess>([&] { return !anotherInstanceRuns(root); }));
        int surviving = 0;
        for (const auto& start : starts) surviving += start->answer() ? 1 : 0;
        EXPECT_EQ(surviving, 1);
    }
}

TEST_F(Instances, areNotSeenInProgramsThatTheyStarted) {
    EXPECT_FALSE(anotherInstanceRuns(root));
    EXPECT_TRUE(startProgram("/bin/sleep", "2"));
    withdrawInstance();
    EXPECT_FALSE(anotherInstanceRuns(root));
}

TEST_F(Instances, leaveNothingBehindOfARemovedInstallation) {
    OtherProcess plain([&] { return !anotherInstanceRuns(root); });
    EXPECT_TRUE(plain.answer());
    OtherProcess handoff([&] { return announceInstance(root), true; });
    EXPECT_TRUE(handoff.answer());
    forgetInstances(root);
    EXPECT_FALSE(anotherInstanceRuns(root)) << "its marks are still there";
}

TEST_F(Instances, canBePretended) {
    pretendInstance(true);
    EXPECT_TRUE(anotherInstanceRuns(root));
    pretendInstance(false);
    EXPECT_FALSE(anotherInstanceRuns(root));
}

} // namespace

} // namespace kestrel::platform
