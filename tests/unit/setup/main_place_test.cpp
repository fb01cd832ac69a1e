#include "setup/main_place.hpp"

#include "installations.hpp"

namespace kestrel::setup {

class MainPlaceTest : public Installations {
protected:
    static MainDefinition definition(std::string_view kind, std::string_view text) {
        auto made = definitionFor(kind, text);
        EXPECT_TRUE(made) << (made ? "" : made.failure().description);
        return made ? made.value() : MainDefinition{};
    }
    static std::string textFor(std::string_view kind, std::string_view text) {
        return database::mainConnectionText(definition(kind, text));
    }
    static std::string refusal(std::string_view kind, std::string_view text) {
        const auto made = definitionFor(kind, text);
        return made ? "accepted" : made.failure().description;
    }
};

TEST_F(MainPlaceTest, everyKindReachesTheSameDatabase) {
    const std::string user = "Provider=PostgreSQL;User ID=u;Password=p;";
    for (const std::string place : {"Data Source=srv:5433;Initial Catalog=sales;", "Data Source=srv:5433/sales;"}) {
        EXPECT_EQ(textFor("S", user + place), user + "Data Source=srv:5433;Initial Catalog=sales;");
        EXPECT_EQ(textFor("A", user + place), user + "Data Source=srv:5433/sales;");
        EXPECT_EQ(textFor("O", user + place), user + "Data Source=srv:5433/sales;");
    }
    EXPECT_EQ(textFor("A", user + "Data Source=/run/pg:5433;Initial Catalog=sales"),
              user + "Data Source=/run/pg:5433/sales;");
}

TEST_F(MainPlaceTest, switchingTheKindNeedsNoOtherChange) {
    const std::string text = "Provider=P;User ID=u;Password=p;Data Source=srv/sales;";
    MainDefinition made = definition("S", text);
    made.kind = "A";
    EXPECT_EQ(database::mainConnectionText(made), textFor("A", text));
}

TEST_F(MainPlaceTest, oraclesPlaceIsOneText) {
    const std::string text = "Provider=OraOLEDB.Oracle;User ID=u;Password=p;Data Source=//srv:1521/sales;";
    EXPECT_EQ(textFor("O", text), text);
    EXPECT_EQ(textFor("S", text), text + "Initial Catalog=;");
}

TEST_F(MainPlaceTest, aPasswordMayHoldAnything) {
    const std::string text = textFor("S", "Provider=P;User ID=u;Password='a;\"b''c ';Data Source=srv/sales;");
    EXPECT_EQ(database::connectionValue(text, "Password"), "a;\"b'c ");
    EXPECT_EQ(database::connectionValue(text, "Initial Catalog"), "sales");
}

TEST_F(MainPlaceTest, whatNamesNoServerIsRefused) {
    EXPECT_EQ(refusal("B", "Provider=P;Data Source=s"), "there is no database kind B, only A, S and O");
    EXPECT_EQ(refusal("", "Provider=P;Data Source=s"), "there is no database kind , only A, S and O");
    EXPECT_EQ(refusal("S", "Data Source=s"), "the connection text names no Provider");
    EXPECT_EQ(refusal("S", "Provider=P"), "the connection text names no Data Source");
    EXPECT_EQ(refusal("S", "Provider=microsoft.ace.oledb.12.0;Data Source=s"),
              "microsoft.ace.oledb.12.0 opens files; a server is asked for");
}

TEST_F(MainPlaceTest, theRowNamesTheServerAndNothingElseChanges) {
    const std::string root = make("a", What::minimal);
    change(root, localFile, "UPDATE データベース定義 SET ドライバ名 = '甲'");
    const MainDefinition made = definition("S", "Provider=P;User ID=u;Password=it's;Data Source=srv/sales;");
    ASSERT_TRUE(writeMainDefinition(root + "/" + localFile, definitionRow(made, database::Dialect::postgresql)));
    EXPECT_EQ(
        valueIn(root, localFile,
                "SELECT db||'|'||dbmw||'|'||プロバイダ名||'|'||ユーザーID||'|'||パスワード||'|'||サーバー名||'|'||"
                "データベース名||'|'||データソース名||'|'||ドライバ名 AS 全部 FROM データベース定義"),
        "S|POSTGRESQL|P|u|it's|srv|sales|srv/sales|甲");
    const auto read = readMainDefinition(root);
    ASSERT_TRUE(read);
    EXPECT_EQ(database::mainConnectionText(read.value()), database::mainConnectionText(made));
    EXPECT_FALSE(namesFile(read.value()));
}

TEST_F(MainPlaceTest, withoutARowNothingIsWritten) {
    const std::string root = make("a", What::minimal);
    change(root, localFile, "DELETE FROM データベース定義");
    const MainDefinition made = definition("S", "Provider=P;Data Source=srv/sales;");
    EXPECT_FALSE(writeMainDefinition(root + "/" + localFile, definitionRow(made, database::Dialect::oracle)));
    EXPECT_FALSE(readMainDefinition(root));
    EXPECT_FALSE(openMainStore(root));
}

TEST_F(MainPlaceTest, partsAreTrimmedAndNullsAreEmpty) {
    const std::string root = make("a", What::minimal);
    change(root, localFile, "UPDATE データベース定義 SET ユーザーID = ' u ', パスワード = NULL");
    const auto read = readMainDefinition(root);
    ASSERT_TRUE(read);
    EXPECT_EQ(read.value().user, "u");
    EXPECT_EQ(read.value().password, "");
    EXPECT_TRUE(namesFile(read.value()));
    EXPECT_TRUE(openMainStore(root));
}

TEST_F(MainPlaceTest, anUnknownKindOpensNothing) {
    const std::string root = make("a", What::minimal);
    change(root, localFile, "UPDATE データベース定義 SET db = 'X'");
    const auto main = openMainStore(root);
    ASSERT_FALSE(main);
    EXPECT_EQ(main.failure().description, "データベース定義: unknown database kind X");
}

TEST_F(MainPlaceTest, usersHaveCopiesOfTheConfiguration) {
    const std::string root = make("a", What::minimal);
    for (const char* user : {"users/甲/conf", "users/乙/conf", "users/丙"})
        std::filesystem::create_directories(root + "/" + user);
    std::filesystem::copy_file(root + "/" + localFile, root + "/users/甲/conf/usrcnfg.accdb");
    std::filesystem::copy_file(root + "/" + localFile, root + "/users/乙/conf/usrcnfg.mdb");
    const auto files = userConfigurations(root);
    EXPECT_EQ(files,
              (std::vector<std::string>{root + "/users/乙/conf/usrcnfg.mdb", root + "/users/甲/conf/usrcnfg.accdb"}));
    std::filesystem::remove_all(root + "/users");
    EXPECT_TRUE(userConfigurations(root).empty());
}

} // namespace kestrel::setup
