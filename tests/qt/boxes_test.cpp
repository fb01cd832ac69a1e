#include "form_test.hpp"
#include "frontend/qt/boxes.hpp"
#include "screen/frontend.hpp"
#include "script.hpp"

#include <QDir>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>

namespace kestrel {

using Lines = std::vector<std::string>;

class BoxesTest : public demo::FormTest {
protected:
    bool ask(demo::Script acts, bool defaultIsYes = true) {
        bool yes = false;
        EXPECT_EQ(demo::play(std::move(acts), [&] { yes = screen::question("消しますか？\rはい？", defaultIsYes); }),
                  0u);
        return yes;
    }
};

TEST_F(BoxesTest, TheButtonPressedIsTheAnswer) {
    EXPECT_TRUE(ask({[] { EXPECT_TRUE(hand::answer("はい")); }}));
    EXPECT_FALSE(ask({[] { EXPECT_TRUE(hand::answer("いいえ")); }}));
    EXPECT_FALSE(hand::answer("はい"));
}

TEST_F(BoxesTest, ShowsTheTextWithItsLineBreak) {
    ask({[] {
        EXPECT_EQ(hand::shownMessage(), "消しますか？\rはい？");
        EXPECT_FALSE(hand::answer("OK"));
        hand::answer("はい");
    }});
}

TEST_F(BoxesTest, EnterPressesTheDefaultAndEscTheCancelButton) {
    EXPECT_TRUE(ask({[] { hand::key(screen::Key::Enter); }}));
    EXPECT_FALSE(ask({[] { hand::key(screen::Key::Enter); }}, false));
    EXPECT_FALSE(ask({[] { hand::key(screen::Key::Esc); }}));
    EXPECT_FALSE(ask({[] { EXPECT_TRUE(hand::cancel()); }}));
}

TEST_F(BoxesTest, TabAndArrowsMoveBetweenTheButtons) {
    EXPECT_FALSE(ask({[] { hand::key(screen::Key::Tab); }, [] { hand::key(screen::Key::Enter); }}));
    EXPECT_FALSE(ask({[] { hand::key(screen::Key::Right); }, [] { hand::key(screen::Key::Enter); }}));
}

TEST_F(BoxesTest, NothingBeneathABoxCanBePressed) {
    ask({[this] {
        EXPECT_FALSE(hand::click(control("btn_登録")));
        EXPECT_FALSE(hand::closeWindow());
        hand::answer("はい");
    }});
}

TEST_F(BoxesTest, ABoxThatAPressOpensEndsWithThePress) {
    const auto left =
        demo::play({[this] { EXPECT_TRUE(hand::click(control("btn_画面クリア"))); }, [] { hand::answer("はい"); }},
                   [this] { frontend::waitWhileShown(*form); });
    EXPECT_EQ(left, 0u);
    EXPECT_FALSE(form->shown);
    EXPECT_EQ(frontend::topOf(*form), nullptr);
}

TEST_F(BoxesTest, APersonWithoutAScriptIsServedByTheEventLoop) {
    QTimer::singleShot(0, [this] {
        QTimer::singleShot(0, [] { hand::answer("はい"); });
        hand::click(control("btn_画面クリア"));
    });
    frontend::waitWhileShown(*form);
    EXPECT_FALSE(form->shown);
}

TEST_F(BoxesTest, TheEndOfTheProcessEndsEveryWait) {
    QTimer::singleShot(0, [] { screen::endProcess(0); });
    frontend::waitUntilEnded();
    EXPECT_TRUE(screen::ended());
    EXPECT_FALSE(screen::question("もう一度？"));
}

TEST_F(BoxesTest, TheEndInTheMiddleOfABoxIsItsCancel) {
    EXPECT_FALSE(ask({[] { screen::endProcess(0); }}));
    EXPECT_EQ(frontend::dialogWaiting(), nullptr);
}

TEST_F(BoxesTest, AnEmptyScriptLeavesABoxUnanswered) {
    EXPECT_FALSE(ask({}));
}

TEST_F(BoxesTest, AModalWindowReturnsWhenItIsClosed) {
    const auto list = demo::makeList(3);
    demo::play({[&] {
                   EXPECT_EQ(screen::activeWindow(), list.get());
                   EXPECT_FALSE(hand::click(control("btn_登録")));
                   EXPECT_TRUE(hand::row(demo::in(*list, "List得意先"), 1, false));
               }},
               [&] { screen::showModal(*list); });
    EXPECT_FALSE(list->shown);
    EXPECT_TRUE(hand::click(control("btn_登録")));
}

TEST_F(BoxesTest, TheFrameAsksTheModel) {
    static int asked = 0;
    asked = 0;
    form->closeRequest = [](screen::Window&) { ++asked; };
    EXPECT_TRUE(hand::closeWindow());
    EXPECT_EQ(asked, 1);
    EXPECT_TRUE(top().isVisible());
    form->blocked = true;
    top().close();
    EXPECT_EQ(asked, 1);
}

TEST_F(BoxesTest, AFileIsPickedByItsPath) {
    const QTemporaryDir folder;
    const std::string path = folder.filePath("見積書.txt").toStdString();
    ASSERT_TRUE(QDir(folder.path()).mkdir("図面"));
    QFile file(folder.filePath("見積書.txt"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    std::optional<std::string> picked;
    const screen::FileDialog dialog{"全てのファイル (*.*)|*.*|テキスト (*.txt)|*.txt", 2, folder.path().toStdString(),
                                    0};
    demo::play({[&] { EXPECT_TRUE(hand::pick(path)); }}, [&] { picked = screen::pickFile(dialog); });
    EXPECT_EQ(picked, path);
    demo::play({[] { EXPECT_TRUE(hand::cancel()); }}, [&] { picked = screen::pickFile(dialog); });
    EXPECT_FALSE(picked.has_value());
    const std::string drawings = folder.filePath("図面").toStdString();
    demo::play({[&] { EXPECT_TRUE(hand::pick(drawings)); }}, [&] {
        picked = screen::pickFolder({"書類を選択して下さい", folder.path().toStdString()});
    });
    EXPECT_EQ(picked, drawings);
}

TEST_F(BoxesTest, TheDialogsSpeakJapanese) {
    QStringList words;
    demo::play({[&] {
                   for (const QPushButton* button : frontend::pickerWaiting()->findChildren<QPushButton*>())
                       words << button->text();
                   hand::cancel();
               }},
               [] {
                   screen::pickFile({"全てのファイル (*.*)|*.*", 1, "/", 0});
               });
    EXPECT_TRUE(words.join(' ').contains("キャンセル")) << words.join(' ').toStdString();
}

} // namespace kestrel
