#include "data/modFiles.hpp"

#include "installed.hpp"

namespace kestrel {

namespace {

class Files : public Installed {};

void write(const std::string& path, const std::string& text) {
    std::ofstream(path) << text;
}

std::string read(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

TEST_F(Files, FilesAndFoldersAreTwoThings) {
    EXPECT_TRUE(fileExists(path("conf/usrcnfg.accdb")));
    EXPECT_FALSE(fileExists(path("conf")));
    EXPECT_FALSE(fileExists(path("conf/none")));
    EXPECT_TRUE(folderExists(path("conf")));
    EXPECT_FALSE(folderExists(path("conf/usrcnfg.accdb")));
    EXPECT_FALSE(folderExists(path("none")));
}

TEST_F(Files, CopyingOverwritesAndFailsSilently) {
    write(path("a"), "new");
    write(path("b"), "old and longer");
    EXPECT_TRUE(copyFile(path("a"), path("b")));
    EXPECT_EQ(read(path("b")), "new");
    EXPECT_FALSE(copyFile(path("none"), path("b")));
    EXPECT_EQ(read(path("b")), "new");
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Files, DrivePathMakesItsFoldersAndNoFile) {
    makeFolderPath(path("one/two/file.txt"));
    EXPECT_TRUE(folderExists(path("one/two")));
    EXPECT_FALSE(std::filesystem::exists(path("one/two/file.txt")));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Files, PathEndingInASeparatorMakesItsLastFolderToo) {
    makeFolderPath(path("one/two/"));
    EXPECT_TRUE(folderExists(path("one/two")));
}

TEST_F(Files, BackslashesSeparateAsWell) {
    makeFolderPath(root + "\\one\\two\\file.txt");
    EXPECT_TRUE(folderExists(path("one/two")));
}

TEST_F(Files, NetworkPathLeavesServerAndShareAlone) {
    const auto here = std::filesystem::current_path();
    std::filesystem::current_path(root);
    makeFolderPath("\\\\");
    makeFolderPath("//none-such-server/share");
    makeFolderPath("//none-such-server/share/");
    std::filesystem::current_path(here);
    EXPECT_TRUE(boxes.empty()); // trying to make the server or the share would have shown one
    makeFolderPath("//none-such-server/share/deep/file");
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes[0].ends_with("\r//none-such-server/share/deep\r")) << boxes[0];
}

TEST_F(Files, OtherFormsArePassedOver) {
    const auto here = std::filesystem::current_path();
    std::filesystem::current_path(root);
    for (const char* form : {"", "   ", "one/two/file", "one"}) makeFolderPath(form);
    std::filesystem::current_path(here);
    EXPECT_FALSE(folderExists(path("one")));
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Files, EachFolderThatCannotBeMadeShowsOneBox) {
    write(path("blocked"), "a file where a folder should be");
    const std::string wanted = path("blocked/deep/deeper/file");
    makeFolderPath(wanted);
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_TRUE(boxes[1].starts_with("DIREXISTCHK ERROR20 ")) << boxes[1]; // ENOTDIR
    EXPECT_TRUE(boxes[1].ends_with("\rdirexeistchk\r" + wanted + "\r" + path("blocked/deep") + "\r")) << boxes[1];
    EXPECT_TRUE(boxes[2].ends_with("\r" + path("blocked/deep/deeper") + "\r")) << boxes[2];
}

} // namespace kestrel
