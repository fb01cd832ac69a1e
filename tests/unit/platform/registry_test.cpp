#include "platform/registry.hpp"

#include "registry/memory/memory_registry.hpp"

#include <gtest/gtest.h>

namespace kestrel::platform {

namespace {

class Registry : public testing::Test {
protected:
    void TearDown() override { registry::reset(); }
};

const std::string hive = "HKEY_CURRENT_USER\\Software\\";

TEST_F(Registry, isEmptyAtFirst) {
    EXPECT_FALSE(openRegistryKey(hive));
    EXPECT_FALSE(setRegistryText(RegistryKey{}, "a", "b"));
    EXPECT_FALSE(queryRegistryText(RegistryKey{}, "a"));
    EXPECT_FALSE(registrySubkey(RegistryKey{}, 0));
}

TEST_F(Registry, keepsTextsAndNumbers) {
    auto key = createRegistryKey(hive + "Office");
    ASSERT_TRUE(key);
    EXPECT_TRUE(setRegistryText(key, "Path", "C:\\x"));
    EXPECT_TRUE(setRegistryNumber(key, "Level", 1));
    EXPECT_EQ(queryRegistryText(key, "PATH"), "C:\\x") << "in either letter case";
    EXPECT_EQ(queryRegistryText(key, "Level"), std::nullopt) << "a number is no text";
    EXPECT_EQ(queryRegistryText(key, "None"), std::nullopt);
    EXPECT_EQ(registry::read(hive + "OFFICE", "level"), registry::Value(std::uint32_t{1}));
    EXPECT_TRUE(openRegistryKey("hkey_current_user\\SOFTWARE\\office\\"));
    EXPECT_TRUE(openRegistryKey("HKEY_CURRENT_USER"));
    closeRegistryKey(key);
    EXPECT_FALSE(key);
    EXPECT_FALSE(setRegistryText(key, "Path", "y"));
}

TEST_F(Registry, listsTheKeysRightBelow) {
    registry::makeKey(hive + "Locations\\Location1");
    registry::set(hive + "Locations\\Location10\\Deep", "Path", "x");
    registry::set(hive + "Locations More", "Path", "x");
    auto key = openRegistryKey(hive + "Locations");
    EXPECT_EQ(registrySubkey(key, 0), "Location1");
    EXPECT_EQ(registrySubkey(key, 1), "Location10");
    EXPECT_EQ(registrySubkey(key, 2), std::nullopt);
}

TEST_F(Registry, deniesWhatItWasTold) {
    registry::makeKey(hive + "Secret");
    registry::deny(hive + "Secret");
    EXPECT_FALSE(openRegistryKey(hive + "Secret"));
    EXPECT_FALSE(createRegistryKey(hive + "secret"));
    EXPECT_TRUE(openRegistryKey(hive));
}

TEST_F(Registry, failsToWriteIntoAReadonlyKey) {
    registry::set(hive + "Locked", "Path", "x");
    registry::makeReadonly(hive + "Locked");
    auto key = openRegistryKey(hive + "Locked");
    ASSERT_TRUE(key);
    EXPECT_FALSE(setRegistryText(key, "Path", "y"));
    EXPECT_FALSE(setRegistryNumber(key, "Level", 1));
    EXPECT_FALSE(createRegistryKey(hive + "Locked\\New\\Newer"));
    EXPECT_TRUE(createRegistryKey(hive + "Locked")) << "it is there already";
    EXPECT_EQ(queryRegistryText(key, "Path"), "x");
}

TEST_F(Registry, isResetAsAWhole) {
    registry::set(hive, "a", "b");
    registry::deny(hive + "x");
    registry::reset();
    EXPECT_FALSE(registry::hasKey(hive));
    EXPECT_TRUE(createRegistryKey(hive + "x"));
}

} // namespace

} // namespace kestrel::platform
