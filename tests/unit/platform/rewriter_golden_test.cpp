// tests/dialects holds the statements of the program: a paragraph each, "sent" and, for each family of SQL that gets
// another text, a line with that. Read and approved by people, so nothing writes these files by itself.
#include "platform/database/rewriter.hpp"

#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <vector>

namespace kestrel::database {

namespace {

struct Statement {
    std::string place, sent;
    std::map<std::string, std::string> texts; // by the word in front
};

struct Family {
    Dialect dialect;
    const char* word;
};

constexpr std::array families{Family{Dialect::sqlServer, "sqlServer"}, Family{Dialect::oracle, "oracle"},
                              Family{Dialect::postgresql, "postgresql"}, Family{Dialect::mariadb, "mariadb"}};

void readLine(const std::string& line, const std::string& place, std::vector<Statement>& statements) {
    constexpr std::size_t column = 11; // where the texts begin
    const std::string word = line.substr(0, line.find(' '));
    const std::string text = line.size() > column ? line.substr(column) : "";
    if (word == "sent")
        statements.push_back({place, text, {}});
    else if (!line.empty() && line.front() != '#')
        statements.at(statements.size() - 1).texts[word] = text;
}

std::vector<Statement> readStatements() {
    std::vector<Statement> statements;
    for (const auto& entry : std::filesystem::directory_iterator(KESTREL_DIALECTS)) {
        std::ifstream file(entry.path());
        int number = 0;
        for (std::string line; std::getline(file, line);)
            readLine(line, entry.path().filename().string() + ":" + std::to_string(++number), statements);
    }
    return statements;
}

// What can't be null, as a database that this house made tells it: the keys and what is required.
RequiredColumns requiredColumns() {
    RequiredColumns required;
    std::ifstream file(KESTREL_TABLES);
    for (std::string line, database, table, column, type, role; std::getline(file, line);) {
        std::istringstream fields(line);
        if (fields >> database >> table >> column >> type >> role && (role == "key" || role == "required"))
            required.add(table, column);
    }
    return required;
}

// An identical line is left out, so that a reader sees at once what stays.
std::string wanted(const Statement& statement, const char* word) {
    auto found = statement.texts.find(word);
    if (found == statement.texts.end()) return statement.sent;
    EXPECT_TRUE(found->second != statement.sent) << statement.place << ": a line that says nothing new";
    return found->second;
}

TEST(Dialects, haveTheApprovedTextOfEveryStatement) {
    const auto statements = readStatements();
    ASSERT_FALSE(statements.empty());
    const RequiredColumns required = requiredColumns();
    ASSERT_TRUE(required.holds("T名簿", "名簿No") && !required.holds("T名簿", "名簿日付"));
    for (const Statement& statement : statements) {
        std::size_t lines = 0;
        for (const Family& family : families) {
            const std::string got = rewrite(statement.sent, family.dialect, &required);
            EXPECT_TRUE(got == wanted(statement, family.word)) << statement.place << '\n' << family.word << ' ' << got;
            lines += statement.texts.count(family.word);
        }
        EXPECT_EQ(lines, statement.texts.size()) << statement.place << ": a line of an unknown family";
    }
}

} // namespace

} // namespace kestrel::database
