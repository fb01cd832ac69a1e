// A test that stands on a small installation of its own, with a still clock and a known person at a known computer.
// Whatever message box appears is answered with its only button, and its text kept.
#pragma once

#include "data/modConnections.hpp"
#include "data/modHistory.hpp"
#include "platform/clock.hpp"
#include "platform/database/connection.hpp"
#include "platform/database/faults.hpp"
#include "platform/identity.hpp"
#include "platform/journal.hpp"
#include "platform/paths.hpp"
#include "screen/acts.hpp"
#include "screen/ending.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "session/sessionValues.hpp"
#include "setup/installation.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace kestrel {

inline std::vector<std::string> boxes; // texts of the boxes shown, in order

inline bool pressOk() {
    const auto* waiting = screen::waiting();
    if (!waiting) return false;
    boxes.push_back(waiting->box.text);
    return hand::answer("OK");
}

class Installed : public testing::Test {
protected:
    Installed() {
        std::string pattern = (std::filesystem::temp_directory_path() / "roster-XXXXXX").string();
        root = mkdtemp(pattern.data());
        EXPECT_TRUE(setup::createInstallation(root, setup::What::minimal, "20240515"));
        platform::setExecutableFolder(root + "/prgbin");
        platform::setUserName("operator");
        platform::setComputerName("KESTREL");
        platform::standClock({2024, 5, 15, 9, 30, 0});
        boxes.clear();
        screen::resetScreens();
        screen::setActSource(pressOk);
        resetSession();
        journal::start();
    }
    ~Installed() override {
        journal::stop();
        resetSession();
        screen::setActSource(nullptr);
        screen::resetScreens();
        database::mendAll();
        platform::freeClock();
        platform::setExecutableFolder("");
        platform::setUserName("");
        platform::setComputerName("");
        std::filesystem::remove_all(root);
    }

    std::string path(const std::string& below) const { return root + "/" + below; }

    // Beside the program: no gateway, no line in the journal.
    static database::Connection open(const std::string& file) {
        auto opened =
            database::openConnection("Provider=Microsoft.ACE.OLEDB.12.0;Data Source=" + file, database::Role::beside);
        EXPECT_TRUE(opened) << file;
        return opened ? std::move(opened.value()) : database::Connection();
    }
    static void change(const std::string& file, const std::string& sql) { EXPECT_TRUE(open(file).execute(sql)) << sql; }
    void local(const std::string& sql) const { change(path(setup::localFile), sql); }
    void main(const std::string& sql) const { change(path(setup::mainFile), sql); }

    // The definition of the main database with a null where the table itself allows none.
    void clearDefinition(const std::string& column) {
        local("CREATE TABLE 控え AS SELECT * FROM データベース定義");
        local("UPDATE 控え SET " + column + " = NULL");
        local("DROP TABLE データベース定義");
        local("ALTER TABLE 控え RENAME TO データベース定義");
    }

    // The rows of a SELECT, their columns joined with " | ", null as NULL.
    static std::vector<std::string> rows(const std::string& file, const std::string& sql) {
        auto connection = open(file);
        auto opened = connection.open(sql);
        EXPECT_TRUE(opened) << sql;
        std::vector<std::string> lines;
        if (!opened) return lines;
        for (auto& records = opened.value(); !records.eof(); records.moveNext()) {
            std::string line;
            for (int i = 0; i < records.columnCount(); ++i)
                line += (i == 0 ? "" : " | ") + records.textOrNull(records.columnName(i)).value_or("NULL");
            lines.push_back(line);
        }
        return lines;
    }
    std::vector<std::string> history() const {
        return rows(path(setup::localFile), "SELECT 摘要 FROM プログラム稼動履歴 ORDER BY proccounter");
    }
    std::vector<std::string> usage() const {
        return rows(path(setup::mainFile),
                    "SELECT コンピュータID, ユーザID, プログラムID, 開始日時, 終了日時 FROM 使用状況");
    }

    // What one of the databases was asked, in order.
    static std::vector<std::string> sent(journal::Channel channel) {
        std::vector<std::string> texts;
        for (const auto& entry : journal::entries())
            if (entry.channel == channel) texts.push_back(entry.text);
        return texts;
    }

    std::string root;
};

} // namespace kestrel
