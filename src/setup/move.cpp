#include "setup/move.hpp"

#include "platform/file_holders.hpp"
#include "setup/main_database.hpp"
#include "setup/moved_tables.hpp"
#include "setup/server_target.hpp"

namespace kestrel::setup {

using platform::Failure;

namespace {

constexpr int secondsForFile = 2; // long enough for a program that is just closing

std::string dataSourceOf(const MainDefinition& definition) {
    return database::connectionValue(database::mainConnectionText(definition), "Data Source");
}

std::string joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) text += (text.empty() ? "" : ", ") + part;
    return text;
}

Status refuseHeld(const std::string& path) {
    std::vector<std::string> holders;
    for (const auto& [process, program] : platform::holdersOf(path)) {
        holders.push_back((program.empty() ? "a program" : program) + " (process " + std::to_string(process) + ")");
    }
    if (holders.empty()) return platform::done();
    return Failure{0, path + " is open in " + joined(holders) + "; nothing was moved"};
}

// From here on nobody else reads or writes it, and nobody did before: a program that has it open keeps this from
// happening, on a local disk also while it does nothing (on a file share only while it reads or writes).
Status takeAlone(Connection& store) {
    for (const char* sql : {"PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE"}) {
        if (Status status = store.executeNative(sql); !status) return status;
    }
    return platform::done();
}

Result<Connection> openAlone(const MainDefinition& definition) {
    if (!namesFile(definition)) return Failure{0, "the main database is on a server already"};
    const std::string path = dataSourceOf(definition);
    if (Status status = refuseHeld(path); !status) return status.failure();
    auto store = openMain(definition, {.connectionTimeout = secondsForFile});
    if (!store) return store.failure();
    if (Status status = takeAlone(store.value()); !status) {
        return Failure{status.failure().number,
                       path + " can't be had alone: " + status.failure().description + "; nothing was moved"};
    }
    return store;
}

Status refuseUnknown(Connection& source, bool leave, std::ostream& progress) {
    const auto unknown = unknownParts(source);
    if (!unknown) return unknown.failure();
    if (unknown.value().empty()) return platform::done();
    const std::string names = joined(unknown.value());
    if (!leave)
        return Failure{0, "not part of the suite's tables: " + names + "; --leave-unknown moves all the others"};
    progress << "stays behind: " << names << std::endl;
    return platform::done();
}

// The programs read the row of the installation's own configuration, so writing that one is the move; the users' copies
// follow it, so that no file names the old place.
Status switchOver(const std::string& root, ServerTarget& target, std::ostream& progress) {
    const Row row = definitionRow(target.definition, target.store.dialect());
    if (Status status = writeMainDefinition(databaseFile(root, "conf/usrcnfg"), row); !status) return status;
    for (const std::string& file : userConfigurations(root)) {
        if (Status status = writeMainDefinition(file, row); !status)
            progress << file << " still names the old place: " << status.failure().description << std::endl;
    }
    return platform::done();
}

void takeBack(ServerTarget& target) {
    (void)target.store.executeNative("ROLLBACK");
    if (const auto left = ownTables(target.store)) (void)dropTables(target.store, left.value());
    undoTarget(target);
}

// A read that breaks off raises; everywhere else a failure is answered.
Status copyAndSwitch(const std::string& root, Connection& source, ServerTarget& target, std::ostream& progress) {
    try {
        if (Status status = copyMainTables(source, target.store, progress); !status) return status;
    } catch (const database::DatabaseError& error) {
        return Failure{0, error.what()};
    }
    return switchOver(root, target, progress);
}

} // namespace

Status moveMainDatabase(const MoveRequest& request, std::ostream& progress) {
    const auto definition = readMainDefinition(request.folder);
    if (!definition) return definition.failure();
    auto source = openAlone(definition.value());
    if (!source) return source.failure();
    if (Status status = refuseUnknown(source.value(), request.leaveUnknown, progress); !status) return status;
    auto target = openTarget(request.kind, request.mainText);
    if (!target) return target.failure();
    Status status = copyAndSwitch(request.folder, source.value(), target.value(), progress);
    if (!status) {
        takeBack(target.value());
        return status;
    }
    tellOf(target.value(), progress);
    progress << "the main database is on the server now; " << dataSourceOf(definition.value())
             << " stays as it is and is no longer used" << std::endl;
    return status;
}

} // namespace kestrel::setup
