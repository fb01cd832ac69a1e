#include "other_process.hpp"
#include "scratch.hpp"

#include "platform/database/file_kind.hpp"
#include "platform/database/sqlite_handle.hpp"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

namespace kestrel::test {

using database::copyDatabase;
using database::createDatabase;

namespace {

using Lines = std::vector<std::string>;

class DatabaseFiles : public testing::Test {
protected:
    Scratch scratch;
    std::string path = scratch.path("a.db"), target = scratch.path("b.db");

    Lines names() const {
        Lines found;
        for (const auto& entry : std::filesystem::directory_iterator(scratch.folder))
            found.push_back(entry.path().filename().string());
        std::ranges::sort(found);
        return found;
    }
};

TEST_F(DatabaseFiles, aNewOneHasAHeaderAndTheHousesMode) {
    ASSERT_TRUE(createDatabase(path));
    EXPECT_EQ(contentOf(path).substr(0, 15), "SQLite format 3");
    EXPECT_EQ(contentOf(path)[18], 2) << "written with a write-ahead log";
    EXPECT_EQ(names(), Lines{"a.db"}) << "nothing is left beside it";
}

TEST_F(DatabaseFiles, aNewOneNeverReplacesAFile) {
    scratch.write("a.db", "precious");
    auto made = createDatabase(path);
    ASSERT_FALSE(made);
    EXPECT_EQ(made.failure().number, EEXIST);
    EXPECT_EQ(contentOf(path), "precious");
    EXPECT_EQ(createDatabase(scratch.path("no/folder.db")).failure().number, ENOENT);
}

TEST_F(DatabaseFiles, aCopyHoldsWhatIsOnlyInTheLogYet) {
    auto writer = newDatabase(path);
    run(writer, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('x')"});
    ASSERT_GT(std::filesystem::file_size(path + "-wal"), 0U);
    ASSERT_TRUE(copyDatabase(path, target));
    auto copy = connect(target);
    EXPECT_EQ(query(copy, "SELECT b FROM a"), Lines{"x"});
    run(writer, {"INSERT INTO a VALUES ('y')"});
    EXPECT_EQ(query(copy, "SELECT b FROM a"), Lines{"x"});
    copy.close();
    writer.close();
    EXPECT_EQ(names(), (Lines{"a.db", "b.db"}));
}

TEST_F(DatabaseFiles, aCopyReplacesADatabaseThatIsOpen) {
    auto source = newDatabase(path), old = newDatabase(target);
    run(source, {"CREATE TABLE a (b TEXT)", "INSERT INTO a VALUES ('new')"});
    run(old, {"CREATE TABLE c (d TEXT)", "INSERT INTO c VALUES ('old')"});
    ASSERT_TRUE(copyDatabase(path, target));
    EXPECT_EQ(query(old, "SELECT b FROM a"), Lines{"new"});
    EXPECT_FALSE(old.open("SELECT d FROM c"));
}

TEST_F(DatabaseFiles, aCopyReplacesAFileThatIsNoDatabase) {
    makeDatabase(path, {"CREATE TABLE a (b TEXT)"});
    scratch.write("b.db", "no database");
    ASSERT_TRUE(copyDatabase(path, target));
    auto copy = connect(target);
    EXPECT_EQ(query(copy, "SELECT count(*) FROM a"), Lines{"0"});
}

TEST_F(DatabaseFiles, aCopyOfAReadOnlyOneCanBeWritten) {
    makeDatabase(path, {"CREATE TABLE a (b TEXT)"});
    chmod(path.c_str(), 0444);
    ASSERT_TRUE(copyDatabase(path, target));
    struct stat about {};
    stat(target.c_str(), &about);
    EXPECT_TRUE(about.st_mode & S_IWUSR);
}

TEST_F(DatabaseFiles, aCopyThatFailsLeavesNothing) {
    EXPECT_FALSE(copyDatabase(path, target)) << "there is no source";
    scratch.write("a.db", "no database");
    EXPECT_FALSE(copyDatabase(path, target));
    EXPECT_EQ(names(), Lines{"a.db"});
    std::filesystem::remove(path);
    newDatabase(path);
    EXPECT_FALSE(copyDatabase(path, scratch.path("no/folder.db")));
    std::filesystem::create_directory(target);
    EXPECT_FALSE(copyDatabase(path, target));
    EXPECT_EQ(names(), (Lines{"a.db", "b.db"}));
}

TEST_F(DatabaseFiles, oneThatIsOpenIsHeldAgainstWriters) {
    auto other = newDatabase(path);
    run(other, {"CREATE TABLE a (b TEXT)"});
    auto hold = database::holdExclusively(path, 60);
    ASSERT_TRUE(hold);
    EXPECT_FALSE(database::holdExclusively(path, 60)) << "held twice";
    hold.value().release();
    hold.value().release();
    EXPECT_TRUE(other.execute("INSERT INTO a VALUES ('x')"));
}

TEST(JournalMode, isNotTheLogOnAFileShare) {
    for (long share : {0x6969L, 0xFF534D42L, 0xFE534D42L, 0x517BL, 0x01021997L, 0x65735546L})
        EXPECT_TRUE(database::isFileShare(share)) << std::hex << share;
    for (long local : {0xEF53L, 0x58465342L, 0x9123683EL, 0x01021994L, 0x794C7630L})
        EXPECT_FALSE(database::isFileShare(local)) << std::hex << local;
    EXPECT_TRUE(database::isFileShare(static_cast<long>(static_cast<int>(0xFF534D42)))) << "as a signed number";
}

bool isLockedByAnother(const std::string& path) {
    const int file = ::open(path.c_str(), O_RDWR);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    const bool asked = fcntl(file, F_GETLK, &lock) == 0;
    ::close(file);
    return asked && lock.l_type != F_UNLCK;
}

// A process that closes a file loses all its locks on it, whoever of it took them.
TEST_F(DatabaseFiles, aLookAtAnOpenDatabaseLeavesItsLocks) {
    database::Connection connection = newDatabase(path);
    run(connection, {"CREATE TABLE a (b)", "INSERT INTO a VALUES (1), (2)"});
    auto rows = connection.open("SELECT * FROM a");
    ASSERT_TRUE(OtherProcess([&] { return isLockedByAnother(path); }).answer());
    EXPECT_EQ(database::fileKind(path), database::FileKind::sqlite);
    EXPECT_TRUE(OtherProcess([&] { return isLockedByAnother(path); }).answer());
}

} // namespace

} // namespace kestrel::test
