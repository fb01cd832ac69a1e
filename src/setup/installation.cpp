#include "setup/installation.hpp"

#include "platform/database/files.hpp"
#include "setup/definition.hpp"
#include "setup/demonstration.hpp"
#include "setup/main_database.hpp"
#include "setup/manual.hpp"
#include "setup/rows.hpp"
#include "setup/server_target.hpp"
#include "setup/store.hpp"
#include "text/dates.hpp"

#include <filesystem>
#include <fstream>

namespace kestrel::setup {

namespace fs = std::filesystem;

namespace {

constexpr const char* folders[] = {"prgbin", "data", "conf", "report", "manual", "users", "documents"};
constexpr const char* emptyFiles[] = {"data/gnrdb.accdb", "report/repdb.accdb", "report/repfrmdb.accdb"};

platform::Failure failure(const fs::filesystem_error& error) {
    return {error.code().value(), error.path1().string() + ": " + error.code().message()};
}

std::string absoluteFolder(std::string_view folder) {
    std::string path = fs::absolute(fs::path(folder)).lexically_normal().string();
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
}

Status refuseFilled(const std::string& folder) {
    if (fs::exists(folder) && !fs::is_directory(folder)) return platform::Failure{0, folder + " is no folder"};
    if (fs::exists(folder) && !fs::is_empty(folder)) return platform::Failure{0, folder + " is not empty"};
    return platform::done();
}

void makeTree(const std::string& root) {
    for (const char* name : folders) fs::create_directories(fs::path(root) / name);
}

void placeProgram(const std::string& root, std::string_view program) {
    const fs::path target = fs::path(root) / programFile;
    if (program.empty()) {
        std::ofstream(target) << "The program itself was not installed here.\n";
    } else {
        fs::copy_file(fs::path(program), target);
    }
}

Status placeManual(const std::string& root) {
    std::ofstream manual(root + "/" + manualFile, std::ios::binary);
    manual << manualText();
    manual.close();
    return manual ? platform::done() : Status(platform::Failure{0, "the manual can't be written"});
}

std::vector<std::string> localStatements(const Rows& rows) {
    std::vector<std::string> statements = createStatements("local");
    for (std::string& sql : insertStatements("local", rows)) statements.push_back(std::move(sql));
    return statements;
}

// All begin as the same empty database; making one costs several waits for the disk, copying it none.
Status makeFiles(const std::string& root, const std::vector<const char*>& names) {
    const std::string empty = root + "/" + names.front();
    if (Status status = database::createDatabase(empty); !status) return status;
    for (std::size_t i = 1; i < names.size(); ++i) fs::copy_file(empty, root + "/" + names[i]);
    return platform::done();
}

Status fillMainFile(const std::string& root, const Rows& rows) {
    auto main = openStore(root + "/" + mainFile);
    return main ? fillMainDatabase(main.value(), rows) : Status(main.failure());
}

// The server comes last: what fails before that has not touched it.
Status createDatabases(const std::string& root, const Rows& rows, ServerTarget* server) {
    std::vector<const char*> names(std::begin(emptyFiles), std::end(emptyFiles));
    names.push_back(localFile);
    if (!server) names.push_back(mainFile);
    if (Status status = makeFiles(root, names); !status) return status;
    if (Status status = changeStore(root + "/" + localFile, localStatements(rows)); !status) return status;
    return server ? fillMainDatabase(server->store, rows) : fillMainFile(root, rows);
}

Status refuseOpened(const fs::path& from) {
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with("-wal") && entry.file_size() > 0) {
            return platform::Failure{0, entry.path().string() + ": the database is in use"};
        }
    }
    return platform::done();
}

// A path that names the part of any installation comes to name that of this one.
std::string redirect(const char* table, const char* column, std::string_view root, const std::string& part) {
    std::string path;
    for (const char c : std::string(root) + "/" + part) path.append(c == '\'' ? 2 : 1, c);
    return std::string("UPDATE ") + table + " SET " + column + " = '" + path + "' WHERE " + column + " LIKE '%/" +
           part + "'";
}

std::string redirectDocuments(std::string_view root) {
    return redirect("Mユーザ", "ドキュメントフォルダ", root, "documents");
}

Status redirectAll(const std::string& root) {
    const Status local =
        changeStore(root + "/" + localFile, {redirect("データベース定義", "データソース名", root, mainFile),
                                             redirect("データベース定義", "サーバー名", root, mainFile)});
    if (!local) return local;
    return changeStore(root + "/" + mainFile, {redirectDocuments(root)});
}

// Far enough from both ends of the calendar to count years from it.
Status refuseDay(std::string_view day) {
    const bool isDate = text::dateText(text::dateFromText(day)) == day;
    if (isDate && day >= "19000101" && day <= "99001231") return platform::done();
    return platform::Failure{0, std::string(day) + " is no date of the form YYYYMMDD"};
}

Status fill(const std::string& root, What what, std::string_view day, std::string_view program, ServerTarget* server) {
    makeTree(root);
    placeProgram(root, program);
    if (Status status = placeManual(root); !status) return status;
    Rows rows = installationRows(what, {root, std::string(day)});
    if (server) layOver(rows, definitionRow(server->definition, server->store.dialect()));
    return createDatabases(root, rows, server);
}

Status copyInto(const std::string& root, std::string_view from) {
    fs::create_directories(root);
    fs::copy(fs::path(from), root, fs::copy_options::recursive);
    return redirectAll(root);
}

template <class Step> Status guarded(Step step) {
    try {
        return step();
    } catch (const fs::filesystem_error& error) {
        return failure(error);
    }
}

// Runs the step on a folder that was empty, and empties it again if the step fails.
template <class Step> Status wholeOrNothing(const std::string& root, Step step) {
    Status status = guarded(step);
    if (status) return status;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(root, ignored)) fs::remove_all(entry.path(), ignored);
    return status;
}

} // namespace

Rows installationRows(What what, const Place& place) {
    Rows rows = rowsOf("minimal", place);
    if (what == What::full) addDemonstration(rows, place);
    return rows;
}

Status nameDocumentFolder(database::Connection& main, std::string_view root) {
    return main.execute(redirectDocuments(root));
}

Status createInstallation(std::string_view folder, What what, std::string_view day, std::string_view program,
                          ServerTarget* server) {
    return guarded([&]() -> Status {
        const std::string root = absoluteFolder(folder);
        if (Status status = refuseDay(day); !status) return status;
        if (Status status = refuseFilled(root); !status) return status;
        return wholeOrNothing(root, [&] { return fill(root, what, day, program, server); });
    });
}

Status copyInstallation(std::string_view from, std::string_view to) {
    return guarded([&]() -> Status {
        const std::string root = absoluteFolder(to);
        if (Status status = refuseFilled(root); !status) return status;
        if (Status status = refuseOpened(fs::path(from)); !status) return status;
        return wholeOrNothing(root, [&] { return copyInto(root, from); });
    });
}

} // namespace kestrel::setup
