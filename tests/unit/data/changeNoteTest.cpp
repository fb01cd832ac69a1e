#include "opened.hpp"

#include "data/changeNote.hpp"
#include "data/modChangeNote.hpp"

#include "platform/files.hpp"

#include <algorithm>

namespace kestrel {

namespace {

const ChangeNote example{
    "20240515 093000", "operator",  "00001",
    "KESTREL",         "T名簿明細", "INSERT INTO [T名簿明細] ([宛先摘要]) VALUES ('一行目\r\n二行目\nend\n𠮷''😀')"};

std::vector<std::string> partsOf(const ChangeNote& note) {
    return {note.when, note.user, note.staff, note.computer, note.table, note.statement};
}

} // namespace

TEST(ChangeNote, isReadAsItWasWritten) {
    const auto read = readChangeNote(changeNoteText(example));
    ASSERT_TRUE(read);
    EXPECT_EQ(partsOf(*read), partsOf(example));
    ChangeNote odd = example;
    odd.user = "a\nstatement 0";
    odd.staff = odd.computer = odd.statement = "";
    const auto again = readChangeNote(changeNoteText(odd));
    ASSERT_TRUE(again);
    EXPECT_EQ(partsOf(*again), (std::vector<std::string>{"20240515 093000", "a statement 0", "", "", "T名簿明細", ""}));
}

TEST(ChangeNote, isNoneWhenItIsCutOffAnywhere) {
    const std::string text = changeNoteText(example);
    EXPECT_TRUE(isWholeNote(text));
    for (std::size_t length = 0; length < text.size(); ++length)
        EXPECT_FALSE(readChangeNote(text.substr(0, length))) << length;
    EXPECT_FALSE(isWholeNote(text.substr(0, text.size() - 1)));
    EXPECT_FALSE(isWholeNote(""));
}

TEST(ChangeNote, isNoneInAnotherForm) {
    const std::string text = changeNoteText(example);
    EXPECT_FALSE(readChangeNote("kestrel change note 2" + text.substr(text.find('\n'))));
    EXPECT_FALSE(readChangeNote(text + text));
    EXPECT_FALSE(readChangeNote(text.substr(0, text.size() - 6) + "\nend\n"));
}

class ChangeNotes : public Opened {
protected:
    std::vector<std::string> notes(const std::string& folder = "conf") const {
        std::vector<std::string> found;
        const auto names = platform::filesIn(path(folder));
        for (const std::string& name : names.value())
            if (name.starts_with(changeNoteHead)) found.push_back(name);
        std::ranges::sort(found);
        return found;
    }
    std::optional<ChangeNote> noteIn(const std::string& below) const {
        return readChangeNote(platform::contentOf(path(below)).value());
    }
};

TEST_F(ChangeNotes, tellWhoChangesWhatAndWhen) {
    staff.staffCode = "00001";
    const auto held = noteChange(example.table, example.statement);
    ASSERT_EQ(notes(), std::vector<std::string>{"change-20240515-093000-KESTREL-1.note"});
    const auto note = noteIn("conf/change-20240515-093000-KESTREL-1.note");
    ASSERT_TRUE(note);
    EXPECT_EQ(partsOf(*note), partsOf(example));
}

TEST_F(ChangeNotes, ofOneMomentAndComputerDoNotTouchOneAnother) {
    auto first = noteChange("T名簿明細", "one");
    auto second = noteChange("T名簿明細", "two");
    EXPECT_EQ(notes(), (std::vector<std::string>{"change-20240515-093000-KESTREL-1.note",
                                                 "change-20240515-093000-KESTREL-2.note"}));
    first.remove();
    ASSERT_EQ(notes(), std::vector<std::string>{"change-20240515-093000-KESTREL-2.note"});
    EXPECT_EQ(noteIn("conf/change-20240515-093000-KESTREL-2.note")->statement, "two");
}

TEST_F(ChangeNotes, lieInTheFolderInUse) {
    std::filesystem::create_directories(path("users/operator/conf"));
    installation.localConfFolder = path("users/operator/conf");
    const auto held = noteChange("T名簿明細", "one");
    EXPECT_EQ(notes().size(), 0u);
    EXPECT_EQ(notes("users/operator/conf").size(), 1u);
}

TEST_F(ChangeNotes, hinderNothingWhereTheyCannotBeWritten) {
    for (const std::string& folder : {std::string(), path("none"), path("conf/usrcnfg.accdb")}) {
        installation.localConfFolder = folder;
        auto held = noteChange("T名簿明細", "one");
        held.remove();
    }
    EXPECT_EQ(boxes.size(), 0u);
    EXPECT_EQ(failures(), 0);
}

} // namespace kestrel
