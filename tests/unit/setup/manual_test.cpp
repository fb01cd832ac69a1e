#include "setup/manual.hpp"

#include "installations.hpp"
#include "session/sessionValues.hpp"
#include "values/modFullWidth.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

namespace kestrel::setup {

TEST(Manual, linesBecomeParagraphsOfTheirKind) {
    const std::string text = richText("# a\n\n## b\n- c\nd");
    EXPECT_TRUE(text.starts_with("{\\rtf1\\ansi"));
    EXPECT_TRUE(text.ends_with("}\n"));
    EXPECT_NE(text.find("\\fs36 a\\par\n"), std::string::npos);
    EXPECT_NE(text.find("\\fs26 b\\par\n"), std::string::npos);
    EXPECT_NE(text.find("\\bullet  c\\par\n"), std::string::npos);
    EXPECT_NE(text.find("\\fs21 d\\par\n"), std::string::npos);
}

TEST(Manual, charactersAreEscaped) {
    EXPECT_NE(richText("あ").find(" \\u12354?\\par"), std::string::npos);
    EXPECT_NE(richText("登").find(" \\u30331?\\par"), std::string::npos);
    EXPECT_NE(richText("鯛").find(" \\u-25637?\\par"), std::string::npos);
    EXPECT_NE(richText("𠮷").find(" \\u-10174?\\u-8265?\\par"), std::string::npos);
    EXPECT_NE(richText("a\\{b}").find(" a\\\\\\{b\\}\\par"), std::string::npos);
}

using ManualFile = Installations;

TEST_F(ManualFile, liesWhereTheProgramLooksForIt) {
    EXPECT_EQ(manualFile, "manual/" + toFullWidth(InstallationValues().programId) + ".doc");
    std::ifstream file(make("one", What::minimal) + "/" + manualFile, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_EQ(text, manualText());
    EXPECT_GT(std::ranges::count(text, '\n'), 40);
    EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }));
}

} // namespace kestrel::setup
