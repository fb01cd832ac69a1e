#include "scenario/server_main.hpp"

#include "platform/database/server_databases.hpp"
#include "platform/identity.hpp"
#include "scenario/sandbox.hpp"
#include "scenario/scenario_error.hpp"
#include "setup/main_database.hpp"

namespace kestrel::scenario {

namespace {

void check(const platform::Status& status) {
    if (!status) throw ScenarioError("the server's database: " + status.failure().description);
}

database::Connection connect(const std::string& text) {
    auto opened = database::openConnection(text, database::Role::beside);
    if (!opened) throw ScenarioError("the server can't be reached: " + opened.failure().description);
    return std::move(opened.value());
}

} // namespace

// Several operators play on one server at a time.
ServerMain::ServerMain(std::string connectionText)
    : text(std::move(connectionText)), prefix("kestrel_operator_" + std::to_string(platform::processNumber()) + "_") {}

ServerMain::~ServerMain() {
    try {
        drop();
        for (const auto& [sample, name] : templates) dropDatabase(name);
    } catch (const std::exception&) {
        return; // a server that went away took them along, or keeps what it can't be told to drop
    }
}

database::Connection& ServerMain::server() {
    if (!connection.isOpen()) connection = connect(text);
    return connection;
}

void ServerMain::dropDatabase(const std::string& name) {
    check(database::dropServerDatabase(server(), name));
}

void ServerMain::makeFilled(const std::string& name, const std::string& sample) {
    dropDatabase(name); // of a process that had our number and was killed
    check(database::createServerDatabase(server(), name));
    database::Connection filled = connect(database::withDatabase(text, name));
    check(setup::fillMainDatabase(filled, setup::installationRows(whatOf(sample), {"", std::string(sampleDay)})));
}

const std::string& ServerMain::sampleTemplate(const std::string& sample) {
    const auto known = templates.find(sample);
    if (known != templates.end()) return known->second;
    const std::string name = prefix + sample;
    makeFilled(name, sample);
    return templates.emplace(sample, name).first->second;
}

std::string ServerMain::fresh(const std::string& sample, const std::string& root) {
    drop();
    present = prefix + std::to_string(++count);
    if (database::canCloneDatabases(server())) {
        dropDatabase(present);
        check(database::cloneServerDatabase(server(), sampleTemplate(sample), present));
    } else {
        makeFilled(present, sample); // slower, and the same rows
    }
    const std::string fresh = database::withDatabase(text, present);
    database::Connection clone = connect(fresh);
    check(setup::nameDocumentFolder(clone, root));
    return fresh;
}

void ServerMain::drop() {
    if (present.empty()) return;
    dropDatabase(present);
    present.clear();
}

} // namespace kestrel::scenario
