#include "data/modLink.hpp"

#include "opened.hpp"

#include "session/rosterSession.hpp"

namespace kestrel {
namespace {

using Texts = std::vector<std::string>;

class Link : public Opened {
protected:
    Link() {
        installation.userId = "user";
        installation.operatingOffice = "001";
    }
    void request(const std::string& sent, const std::string& caller, const std::string& text,
                 const std::string& receiver = "連絡台帳入力", const std::string& state = "00") {
        local("INSERT INTO プログラム連携情報 (発信日時, 発信プログラムID, 受信プログラムID, 連携区分, 起動連携情報) "
              "VALUES ('" +
              sent + "', '" + caller + "', '" + receiver + "', '" + state + "', '" + text + "')");
    }
    static void receive(std::string_view text = "text") { receiveLinkMessage(text, "20240515 092900"); }
    Texts waiting() const {
        return localRows("SELECT 発信日時, 発信プログラムID FROM プログラム連携情報 ORDER BY 発信日時");
    }
};

TEST_F(Link, ARequestIsTakenOffTheTable) {
    request("20240515 092900", "caller", "text");
    receive();
    EXPECT_EQ(rosterSession.linkCaller, "caller");
    EXPECT_EQ(rosterSession.linkStartText, "text");
    EXPECT_EQ(waiting(), Texts{});
    EXPECT_EQ(
        sent(journal::Channel::sentLocal),
        (Texts{"SELECT * FROM プログラム連携情報 WHERE 発信日時 >= '20240515 092900' AND 受信プログラムID = "
               "'連絡台帳入力' AND "
               "起動連携情報 = 'text' AND 連携区分 = '00'",
               "DELETE FROM プログラム連携情報 WHERE 発信日時 = '20240515 092900' AND 発信プログラムID = 'caller' AND "
               "受信プログラムID = '連絡台帳入力' AND 連携区分 = '00'"}));
}

TEST_F(Link, OfTwoRequestsOneStays) {
    request("20240515 092930", "first", "text");
    request("20240515 092931", "second", "text");
    receive();
    EXPECT_EQ(rosterSession.linkCaller, "first");
    EXPECT_EQ(waiting(), Texts{"20240515 092931 | second"});
}

TEST_F(Link, WhatIsNoRequestForThisStartIsNotFound) {
    request("20240515 092930", "other receiver", "text", "他");
    request("20240515 092931", "an answer", "text", "連絡台帳入力", "99");
    request("20240515 092859", "too old", "text");
    request("20240515 092932", "another text", "other");
    rosterSession.linkCaller = "left over";
    receive();
    EXPECT_EQ(rosterSession.linkCaller, "");
    EXPECT_EQ(rosterSession.linkStartText, "");
    EXPECT_EQ(waiting().size(), 4u);
}

TEST_F(Link, AnApostropheMakesTheStatementFailAndTheStartNormal) {
    receive("it's");
    EXPECT_EQ(rosterSession.linkStartText, "");
    EXPECT_EQ(failures(), 1);
}

TEST_F(Link, ANullInTheRequestRaises) {
    local("INSERT INTO プログラム連携情報 (発信日時, 受信プログラムID, 連携区分, 起動連携情報) VALUES ('20240515 "
          "093000', '連絡台帳入力', "
          "'00', 'text')");
    EXPECT_THROW(receive(), database::DatabaseError);
}

TEST_F(Link, TheAnswerKeepsTheRequestsPrograms) {
    rosterSession.linkCaller = "caller";
    rosterSession.linkStartText = "text";
    sendLinkAnswer("0012025033100000007000003");
    EXPECT_EQ(rosterSession.linkReplyText, "0012025033100000007000003");
    EXPECT_EQ(
        localValue(
            "SELECT 発信日時, 発信プログラムID, 受信プログラムID, 受信期限, 連携区分, 起動連携情報, 終了連携情報, "
            "運用事業所コード, 起動担当者コード, ユーザID FROM プログラム連携情報"),
        "20240515 093000 | caller | 連絡台帳入力 | 20240515 093000 | 99 | text | 0012025033100000007000003 | 001 | "
        "00001 | user");
    EXPECT_TRUE(connections.localConnection.isOpen());
}

} // namespace
} // namespace kestrel
