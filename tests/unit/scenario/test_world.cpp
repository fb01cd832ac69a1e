// Verbs that set up the world around the program, and values of the session.
#include "platform/clock.hpp"
#include "platform/identity.hpp"
#include "platform/process.hpp"
#include "scenario/run.hpp"
#include "scenario/tables.hpp"
#include "scenario/world.hpp"
#include "session/rosterSession.hpp"
#include "session/sessionValues.hpp"
#include "tiny_program.hpp"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <filesystem>

using namespace kestrel;
using kestrel::tests::Outcome;
using kestrel::tests::playTiny;
namespace fs = std::filesystem;

namespace {

void holds(const std::string& scenario) {
    const Outcome outcome = playTiny(scenario);
    EXPECT_EQ(outcome.failed, 0) << outcome.complaints;
    EXPECT_FALSE(outcome.wrong) << outcome.complaints;
}

TEST(World, TheClockStandsPassesAndTicks) {
    holds("now 20240229 235959\npass 1\ntick 60\n");
    EXPECT_EQ(platform::stampText(platform::now()), "20240301 000000");
    EXPECT_EQ(platform::stampText(platform::now()), "20240301 000100");
    scenario::resetWorld();
    EXPECT_NE(platform::dateText(platform::now()), "20240301");
    EXPECT_TRUE(playTiny("now 2024 09\n").wrong);
}

TEST(World, NamesAreThoseOfTheScenarioUntilTheNext) {
    scenario::resetWorld();
    EXPECT_EQ(platform::userName(), "operator");
    EXPECT_EQ(platform::computerName(), "KESTREL");
    holds("user yamada\ncomputer PC1\nenvironment KESTREL_TEST a b\nprogramid 営業支援\n");
    EXPECT_EQ(platform::userName(), "yamada");
    EXPECT_EQ(platform::computerName(), "PC1");
    EXPECT_EQ(platform::environment("KESTREL_TEST"), "a b");
    scenario::resetWorld();
    EXPECT_EQ(platform::userName(), "operator");
    EXPECT_EQ(platform::environment("KESTREL_TEST"), "");
    EXPECT_EQ(installation.programId, "連絡台帳入力");
    EXPECT_TRUE(playTiny("start\nuser yamada\n").wrong);
}

TEST(World, FilesGetTheirSizeAndDay) {
    const fs::path path = kestrel::tests::ownPlace("file-make-test");
    const std::array tables{scenario::fileVerbs()};
    std::string_view name = "file make";
    scenario::cutRow<scenario::Verb>(tables, name)->play({path.string(), "12", "20240131"});
    EXPECT_EQ(fs::file_size(path), 12U);
    const auto day = std::chrono::floor<std::chrono::days>(std::chrono::file_clock::to_sys(fs::last_write_time(path)));
    const std::chrono::year_month_day date{day};
    EXPECT_EQ(date, std::chrono::year(2024) / 1 / 31);
    fs::remove(path);
}

TEST(World, FilesAndFoldersComeAndGo) {
    const std::string base = kestrel::tests::ownPlace("file-verbs-test").string();
    holds("folder make " + base + "/a/b\nfile write " + base + "/a/b/c text\nfile copy " + base + "/a/b/c " + base +
          "/d\nexpect file " + base + "/d\nfile remove " + base + "/d\nexpect no file " + base + "/d\nexpect file " +
          base + "/a\nfolder remove " + base + "\nexpect no file " + base + "\n");
    EXPECT_TRUE(playTiny("file remove " + base + "/none\n").wrong);
    EXPECT_TRUE(playTiny("folder remove " + base + "/none\n").wrong);
}

TEST(World, TheRegistryHoldsTextsAndNumbers) {
    holds("registry set HKEY_CURRENT_USER\\A\\B Name \"a b\"\nregistry set HKEY_CURRENT_USER\\A\\B Flag #7\n"
          "expect registry HKEY_CURRENT_USER\\A\\B Name a b\nexpect registry HKEY_CURRENT_USER\\A\\B Flag #7\n"
          "expect not registry HKEY_CURRENT_USER\\A\\B Flag 7\nexpect not registry HKEY_CURRENT_USER\\A\\B None x\n"
          "expect not no registry HKEY_CURRENT_USER\\A\nexpect no registry HKEY_CURRENT_USER\\C\n");
    scenario::resetWorld();
    holds("expect no registry HKEY_CURRENT_USER\\A\n");
}

TEST(World, SessionValuesAreReadAndPutByName) {
    holds(
        "start\nsession 宛先名称A 青葉印刷\nexpect session 宛先名称A 青葉印刷\nsession dirty yes\n"
        "expect session dirty yes\nsession lastLeftField 住所\nexpect session lastLeftField 住所\n"
        "session lastLeftField NULL\nexpect session lastLeftField NULL\nsession 発送区分 2\nexpect session 発送区分 2\n"
        "session sessionOffice 002\nexpect session sessionOffice 002\nexpect not session dirty no\n");
    EXPECT_TRUE(playTiny("start\nsession ない x\n").wrong);
    EXPECT_TRUE(playTiny("start\nsession dirty maybe\n").wrong);
}

TEST(World, OperationsAreCalledOnTexts) {
    holds("start\nexpect call 12 digitsOnly 1a2\nexpect call \"2024 | 02 | 29\" normalizeDateParts 2024 2 31\n"
          "expect call あ truncateToBytes あい 3\nexpect not call x zeroString 3\n");
    EXPECT_NE(playTiny("start\ncall zeroString 3\n").seen.find("\n000\n"), std::string::npos);
    EXPECT_TRUE(playTiny("start\ncall fly 3\n").wrong);
    EXPECT_TRUE(playTiny("start\ncall zeroString\n").wrong);
}

} // namespace
