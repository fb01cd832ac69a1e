#include "form_test.hpp"

#include <QAbstractItemView>
#include <QComboBox>
#include <QKeyEvent>

namespace kestrel {

namespace {

std::vector<screen::Key> seenAhead;

bool seeEscape(screen::Window&, screen::Key which) {
    seenAhead.push_back(which);
    return which == screen::Key::Esc;
}

} // namespace

class DropDownTest : public demo::FormTest {
protected:
    void SetUp() override {
        FormTest::SetUp();
        seenAhead.clear();
        form->keyPreview = seeEscape;
    }
    static void press(QWidget& widget, int key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
};

TEST_F(DropDownTest, EscapeInTheListThatHangsDownReachesTheWindow) {
    auto& box = widget<QComboBox>("区分名称");
    focusOn("区分名称");
    box.showPopup();
    ASSERT_TRUE(box.view()->isVisible());
    press(*box.view(), Qt::Key_Escape);
    EXPECT_FALSE(box.view()->isVisible());
    EXPECT_EQ(seenAhead, std::vector{screen::Key::Esc});
}

TEST_F(DropDownTest, AnotherKeyStaysWithTheListThatHangsDown) {
    auto& box = widget<QComboBox>("区分名称");
    focusOn("区分名称");
    box.showPopup();
    press(*box.view(), Qt::Key_Down);
    EXPECT_TRUE(box.view()->isVisible());
    EXPECT_TRUE(seenAhead.empty());
    box.hidePopup();
}

TEST_F(DropDownTest, AWindowSeesAKeyAheadOfItsControls) {
    focusOn("名称");
    hand::key(screen::Key::Esc);
    EXPECT_TRUE(demo::happened.empty());
    hand::key(screen::Key::F5);
    EXPECT_EQ(seenAhead, (std::vector{screen::Key::Esc, screen::Key::F5}));
    EXPECT_EQ(demo::happened.size(), 1U);
}

} // namespace kestrel
