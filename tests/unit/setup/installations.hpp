// Installations for the tests of this folder, each in a place of its own that goes with the test.
#pragma once

#include "setup/installation.hpp"
#include "setup/store.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <unistd.h>

namespace kestrel::setup {

class Installations : public testing::Test {
protected:
    void SetUp() override {
        const auto* info = testing::UnitTest::GetInstance()->current_test_info();
        base = std::filesystem::temp_directory_path() /
               ("kestrel-setup-" + std::to_string(getpid()) + "-" + info->test_suite_name() + "-" + info->name());
        std::filesystem::create_directories(base);
    }
    void TearDown() override { std::filesystem::remove_all(base); }

    std::string at(const std::string& name) const { return (base / name).string(); }
    std::string make(const std::string& name, What what, const std::string& day = "20240515") {
        const auto status = createInstallation(at(name), what, day);
        EXPECT_TRUE(status) << (status ? "" : status.failure().description);
        return at(name);
    }

    static Rows rowsIn(const std::string& root, const char* file, const std::string& sql) {
        const auto rows = readStore(root + "/" + file, sql);
        EXPECT_TRUE(rows) << sql << ": " << (rows ? "" : rows.failure().description);
        return rows ? rows.value() : Rows{};
    }
    // The first column of the first row; "NULL" for a null, "nothing" without a row.
    static std::string valueIn(const std::string& root, const char* file, const std::string& sql) {
        const Rows rows = rowsIn(root, file, sql);
        return rows.empty() ? "nothing" : rows.front().values.front().second.value_or("NULL");
    }
    static void change(const std::string& root, const char* file, const std::string& sql) {
        const auto status = changeStore(root + "/" + file, {sql});
        ASSERT_TRUE(status) << sql << ": " << status.failure().description;
    }

    std::filesystem::path base;
};

} // namespace kestrel::setup
