// Expectations about statements and lines in one order of time.
#include "platform/journal.hpp"
#include "scenario/run.hpp"
#include "scenario/scenario_error.hpp"
#include "scenario/tables.hpp"

#include <gtest/gtest.h>

#include <array>

using namespace kestrel;
using namespace kestrel::scenario;
using journal::Channel;

namespace {

bool look(std::string_view line) {
    const std::array tables{journalExpectations()};
    const Expectation* row = cutRow<Expectation>(tables, line);
    return row->look(splitArguments(line, row->shape, run().places)).holds;
}

class Journal : public testing::Test {
protected:
    void SetUp() override {
        run() = scenario::Run{};
        journal::start();
        journal::record(Channel::sentMain, "SELECT 0");
        beginAction();
        journal::record(Channel::sentMain, "SELECT 1");
        journal::record(Channel::seen, "notice \"a\"");
        journal::record(Channel::sentLocal, "INSERT x");
        journal::record(Channel::sentMain, "SELECT 2 'like'");
        journal::record(Channel::seen, R"(started "p \"q\"")");
    }
    void TearDown() override { journal::stop(); }
};

TEST_F(Journal, FindsStatementsSinceTheLastAction) {
    EXPECT_TRUE(look("sent main SELECT 1"));
    EXPECT_FALSE(look("sent main SELECT 0"));
    EXPECT_FALSE(look("sent main SELECT"));
    EXPECT_TRUE(look("sent main like SELECT 2"));
    EXPECT_TRUE(look("sent local INSERT x"));
    EXPECT_FALSE(look("sent local like SELECT"));
}

TEST_F(Journal, CountsStatements) {
    EXPECT_TRUE(look("sent main 2 like SELECT"));
    EXPECT_FALSE(look("sent main 1 like SELECT"));
    EXPECT_TRUE(look("sent main 0 like DELETE"));
    EXPECT_FALSE(look("nothing sent"));
    EXPECT_FALSE(look("nothing sent local"));
    beginAction();
    EXPECT_TRUE(look("nothing sent"));
    EXPECT_TRUE(look("nothing sent main"));
}

TEST_F(Journal, KeepsOneOrderOfStatementsAndLines) {
    EXPECT_TRUE(look("sent main SELECT 1"));
    EXPECT_TRUE(look("then seen notice \"a\""));
    EXPECT_TRUE(look("then sent local like INSERT"));
    EXPECT_FALSE(look("then seen notice \"a\""));
    EXPECT_FALSE(look("then sent main SELECT 1"));
    EXPECT_TRUE(look("then sent main like SELECT 2"));
}

TEST_F(Journal, RemembersTheLastProgramStarted) {
    EXPECT_TRUE(look("started p \"q\""));
    EXPECT_TRUE(look("started like q"));
    EXPECT_FALSE(look("started p"));
    EXPECT_FALSE(look("nothing started"));
    EXPECT_TRUE(look("nothing opened"));
    EXPECT_FALSE(look("opened p"));
}

TEST_F(Journal, KnowsOnlyTwoDatabases) {
    EXPECT_THROW(look("sent other SELECT"), ScenarioError);
    EXPECT_THROW(look("nothing sent other"), ScenarioError);
}

} // namespace
