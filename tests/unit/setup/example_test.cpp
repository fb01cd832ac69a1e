#include "installations.hpp"

#include "setup/example.hpp"

namespace kestrel::setup {

namespace {

std::string lineOf(const std::string& folder) {
    const auto line = exampleCommandLine(folder);
    return line ? line.value() : "fails: " + line.failure().description;
}

} // namespace

using ExampleTest = Installations;

TEST_F(ExampleTest, opensTheExampleOfTheYearThatTheInstallationWasMadeIn) {
    EXPECT_EQ(lineOf(make("a", What::full)), "0012025033100000012000003");
    EXPECT_EQ(lineOf(make("b", What::full, "20240331")), "0012024033100000012000003");
}

TEST_F(ExampleTest, isOfTheLatestYearWhereSeveralHaveTheNumber) {
    const std::string root = make("a", What::full);
    change(root, mainFile,
           "INSERT INTO T名簿明細 (事業所コード, 番号基準日付, 名簿No, 名簿宛先No) VALUES ('001', '20230331', "
           "'00000012', '000003')");
    EXPECT_EQ(lineOf(root), "0012025033100000012000003");
}

TEST_F(ExampleTest, isMissedByNameWhereThereIsNone) {
    const std::string root = make("a", What::minimal);
    EXPECT_EQ(lineOf(root), "fails: " + root + " holds no example: it has no demonstration data");
    EXPECT_EQ(lineOf(at("none")), "fails: " + at("none") + " holds no configuration conf/usrcnfg");
}

} // namespace kestrel::setup
