// A folder of its own for one test, gone at its end, and short ways to a database in it.
#pragma once

#include "platform/database/connection.hpp"
#include "platform/database/files.hpp"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

namespace kestrel::test {

struct Scratch {
    std::filesystem::path folder;

    Scratch() {
        std::string pattern = (std::filesystem::temp_directory_path() / "kestrel-unit-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;
    ~Scratch() {
        std::error_code error;
        std::filesystem::remove_all(folder, error);
    }

    std::string path(const std::string& name) const { return (folder / name).string(); }
    std::string write(const std::string& name, const std::string& content) const {
        std::ofstream(path(name), std::ios::binary) << content;
        return path(name);
    }
};

inline std::string contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string connectionText(const std::string& path) {
    return "Provider=Microsoft.ACE.OLEDB.12.0;User ID=;Password=;Data Source=" + path + ";";
}

inline database::Connection connect(const std::string& path, database::Role role = database::Role::main) {
    auto opened = database::openConnection(connectionText(path), role);
    if (!opened) throw std::runtime_error(opened.failure().description);
    return std::move(opened.value());
}

inline database::Connection newDatabase(const std::string& path, database::Role role = database::Role::main) {
    if (auto made = database::createDatabase(path); !made) throw std::runtime_error(made.failure().description);
    return connect(path, role);
}

inline void run(database::Connection& connection, const std::vector<std::string>& statements) {
    for (const auto& sql : statements)
        if (auto ran = connection.execute(sql); !ran) throw std::runtime_error(ran.failure().description + ": " + sql);
}

// A database that nobody has open.
inline void makeDatabase(const std::string& path, const std::vector<std::string>& statements) {
    auto connection = newDatabase(path);
    run(connection, statements);
}

// All rows, columns separated by "|", null as "~".
inline std::vector<std::string> rowsOf(database::RecordSet& set) {
    std::vector<std::string> rows;
    for (; !set.eof(); set.moveNext()) {
        std::string row;
        for (int i = 0; i < set.columnCount(); ++i)
            row += (i ? "|" : "") + set.textOrNull(set.columnName(i)).value_or("~");
        rows.push_back(row);
    }
    return rows;
}

inline std::vector<std::string> query(database::Connection& connection, const std::string& sql) {
    auto set = connection.open(sql);
    if (!set) throw std::runtime_error(set.failure().description + ": " + sql);
    return rowsOf(set.value());
}

} // namespace kestrel::test
