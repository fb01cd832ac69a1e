// The main databases of scenarios that are played on a server.
#pragma once

#include "platform/database/connection.hpp"

#include <map>
#include <string>

namespace kestrel::scenario {

// For the whole process: one database with the rows of each sample, made when first asked for, and one after the other
// a copy of it for the scenario that is played. All are dropped at the end. Every operation raises ScenarioError when
// the server refuses.
class ServerMain {
public:
    explicit ServerMain(std::string connectionText); // of some database of the server; empty: there is no server
    ~ServerMain();
    ServerMain(const ServerMain&) = delete;
    ServerMain& operator=(const ServerMain&) = delete;

    bool isThere() const { return !text.empty(); }
    // The connection text of a fresh main database with the rows of the sample ("minimal" or "full"), which belongs to
    // the installation at root.
    std::string fresh(const std::string& sample, const std::string& root);
    void drop(); // the fresh one; harmless when there is none

private:
    void makeFilled(const std::string& name, const std::string& sample);
    const std::string& sampleTemplate(const std::string& sample);
    void dropDatabase(const std::string& name);
    database::Connection& server();

    std::string text;
    std::string prefix; // of every database that this process makes
    database::Connection connection;
    std::map<std::string, std::string> templates; // by sample
    std::string present;
    int count = 0;
};

} // namespace kestrel::scenario
