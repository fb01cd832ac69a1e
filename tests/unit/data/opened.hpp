// A test on the minimal installation with both its connections open, and what was sent while opening them forgotten.
#pragma once

#include "installed.hpp"

#include "data/modConnections.hpp"

namespace kestrel {

class Opened : public Installed {
protected:
    Opened() {
        EXPECT_TRUE(openSystemDatabases());
        EXPECT_TRUE(openMainDatabase());
        installation.sessionOffice = "000";
        journal::start();
    }

    std::vector<std::string> mainRows(const std::string& sql) const { return rows(path(setup::mainFile), sql); }
    std::vector<std::string> localRows(const std::string& sql) const { return rows(path(setup::localFile), sql); }
    std::string mainValue(const std::string& sql) const {
        const auto found = mainRows(sql);
        return found.size() == 1 ? found[0] : "rows: " + std::to_string(found.size());
    }
    std::string localValue(const std::string& sql) const {
        const auto found = localRows(sql);
        return found.size() == 1 ? found[0] : "rows: " + std::to_string(found.size());
    }

    std::vector<std::string> mainSent() const { return sent(journal::Channel::sentMain); }
    // What failed, without the engine's own words: the statements behind them.
    int failures() const {
        int count = 0;
        for (const std::string& line : history()) count += line.starts_with("エラー ") ? 1 : 0;
        return count;
    }
};

} // namespace kestrel
