// The operator's command line: files, private installations, exit status.
#include "../server.hpp"
#include "platform/database/connection.hpp"
#include "scenario/operator.hpp"
#include "setup/installation.hpp"
#include "tiny_program.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace fs = std::filesystem;
using kestrel::scenario::runOperator;
using kestrel::tests::startTinyProgram;

namespace {

class Operator : public testing::Test {
protected:
    void SetUp() override {
        folder = kestrel::tests::ownPlace("operator-test");
        fs::remove_all(folder);
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    std::string file(const std::string& name, const std::string& text) const {
        std::ofstream(folder / name) << text;
        return (folder / name).string();
    }

    int play(const std::vector<std::string>& arguments) {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = runOperator(arguments, startTinyProgram);
        out = testing::internal::GetCapturedStdout();
        err = testing::internal::GetCapturedStderr();
        return status;
    }

    int playText(const std::string& text, std::vector<std::string> options = {}) {
        options.push_back(file("one.txt", text));
        return play(options);
    }

    fs::path folder;
    std::string out, err;
};

constexpr const char* good = "sample minimal\nexpect not ended\n";
constexpr const char* failing = "sample minimal\nexpect ended\n";
constexpr const char* mistaken = "sample minimal\nfly\n";

TEST_F(Operator, TheExitStatusIsTheWorst) {
    EXPECT_EQ(playText(good), 0);
    EXPECT_EQ(playText(failing), 1);
    EXPECT_EQ(playText(mistaken), 2);
    const std::string a = file("a", good), b = file("b", failing), c = file("c", mistaken), d = file("d", "kinds S\n");
    EXPECT_EQ(play({a, b, a, d}), 1);
    EXPECT_EQ(out, "2 passed, 1 failed, 1 passed over\n");
    EXPECT_EQ(play({a, c, b}), 2);
    EXPECT_EQ(out, "1 passed, 2 failed\n");
}

TEST_F(Operator, FailuresNameFileAndLine) {
    playText(failing);
    EXPECT_TRUE(err.starts_with((folder / "one.txt").string() + ":2: expected ended\n    there was no run")) << err;
}

TEST_F(Operator, AWrongCommandLineIsStatusTwo) {
    EXPECT_EQ(play({}), 2);
    EXPECT_TRUE(err.starts_with("usage: ")) << err;
    EXPECT_EQ(play({"--fast", file("a", good)}), 2);
    EXPECT_EQ(play({"--root", "/nowhere", "--kind", "S", file("a", good)}), 2);
    EXPECT_EQ(play({(folder / "missing").string()}), 2);
    EXPECT_EQ(playText("sample huge\n"), 2);
}

TEST_F(Operator, EveryFilePlaysOnAFreshInstallation) {
    const std::string adds = file("a", "sample minimal\nmain INSERT INTO K在籍区分 (区分,名称) VALUES (7,'休職')\n"
                                       "registry key HKEY_CURRENT_USER\\X\nexpect rows 3 main SELECT * FROM K在籍区分\n"
                                       "file write @/x y\n");
    const std::string looks = file("b", "sample minimal\nexpect rows 2 main SELECT * FROM K在籍区分\n"
                                        "expect value 在籍 main SELECT 名称 FROM K在籍区分 ORDER BY 区分\n"
                                        "expect no registry HKEY_CURRENT_USER\\X\nexpect no file @/x\n");
    EXPECT_EQ(play({adds, looks}), 0) << err;
}

TEST_F(Operator, ARootStaysChanged) {
    const std::string root = (folder / "inst").string();
    ASSERT_TRUE(kestrel::setup::createInstallation(root, kestrel::setup::What::minimal, "20240515"));
    EXPECT_EQ(playText("local master DELETE FROM 動作環境定義\nexpect file %/conf/usrcnfg.accdb\n", {"--root", root}),
              0)
        << err;
    EXPECT_EQ(playText("expect rows 0 local SELECT * FROM 動作環境定義\n", {"--root", root}), 0) << err;
}

TEST_F(Operator, KindOfTheCopyCanBeSet) {
    EXPECT_EQ(playText("sample minimal\nkinds S\nexpect value S local master SELECT db FROM データベース定義\n",
                       {"--kind", "S"}),
              0)
        << err;
    EXPECT_EQ(playText("sample minimal\nkinds A\nexpect ended\n", {"--kind", "S"}), 0) << "passed over";
    EXPECT_EQ(playText("sample minimal\nkinds O\nexpect rows 1 main SELECT * FROM Mユーザ\n", {"--kind", "O"}), 0)
        << err;
}

TEST_F(Operator, AServerThatIsNotThereIsStatusTwo) {
    EXPECT_EQ(playText("sample minimal\n", {"--main", "Provider=none;Data Source=/nowhere/kestrel;"}), 2);
    EXPECT_NE(err.find("the server can't be reached: "), std::string::npos) << err;
}

TEST_F(Operator, EveryFileGetsAMainDatabaseOfItsOwnOnAServer) {
    KESTREL_NEEDS_SERVER();
    const std::string server = kestrel::test::testServer();
    const std::string adds = file("a", "sample minimal\nmain INSERT INTO K在籍区分 (区分,名称) VALUES (7,'休職')\n"
                                       "expect rows 3 main SELECT * FROM K在籍区分\n"
                                       "expect value %/documents main SELECT ドキュメントフォルダ FROM Mユーザ\n");
    const std::string ours =
        "SELECT datname FROM pg_database WHERE datname LIKE 'kestrel_operator_" + std::to_string(getpid()) + "_%'";
    const std::string looks = file("b", "sample minimal\nexpect rows 2 main SELECT * FROM K在籍区分\n"
                                        "expect rows 2 main " +
                                            ours + "\n");
    for (const char* kind : {"A", "S", "O"}) EXPECT_EQ(play({"--kind", kind, "--main", server, adds, looks}), 0) << err;
    EXPECT_EQ(playText("sample minimal\nengine file\nexpect ended\n", {"--main", server}), 0) << "passed over";
    EXPECT_EQ(playText("sample minimal\nengine file\nexpect ended\n"), 1) << "played";
    EXPECT_EQ(playText("sample minimal\nengine paper\n"), 2);
    auto connection = kestrel::database::openConnection(server, kestrel::database::Role::beside);
    ASSERT_TRUE(connection);
    EXPECT_TRUE(connection.value().openNative(ours).value().eof()) << "left behind";
}

TEST_F(Operator, StatementsThatFailAreMistakes) {
    EXPECT_EQ(playText("sample minimal\nmain DELETE FROM ない\n"), 2);
    EXPECT_EQ(playText("sample minimal\nexpect rows 0 main SELECT * FROM ない\n"), 2);
}

TEST_F(Operator, QueriesWriteTheirRows) {
    EXPECT_EQ(playText("sample minimal\nquery main SELECT 区分,名称,NULL AS 無 FROM K在籍区分 ORDER BY 区分\n"), 0)
        << err;
    EXPECT_EQ(out, "0 | 在籍 | NULL\n1 | 退職 | NULL\n");
}

TEST_F(Operator, SampleStandsInTheFirstLineOnly) {
    EXPECT_EQ(playText("now 20240515 093000\nsample minimal\n"), 2);
}

TEST_F(Operator, LeavesNothingBehind) {
    EXPECT_EQ(
        playText("sample minimal\nfile make @/deep 5\nfile readonly @/deep\nexpect value x main SELECT '@/deep'\n"), 1);
    const std::size_t from = err.find("there was \"") + 11;
    const std::string path = err.substr(from, err.find('"', from) - from);
    EXPECT_TRUE(fs::path(path).is_absolute()) << err;
    EXPECT_FALSE(fs::exists(path));
}

} // namespace
