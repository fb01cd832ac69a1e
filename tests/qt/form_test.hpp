// The demonstration form on the screen, for one test.
#pragma once

#include "demo.hpp"
#include "frontend/qt/views.hpp"
#include "screen/ending.hpp"
#include "screen/focus.hpp"
#include "screen/hand.hpp"
#include "screen/message.hpp"
#include "screen/person.hpp"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace kestrel::demo {

class FormTest : public testing::Test {
protected:
    void SetUp() override {
        screen::resetScreens();
        form = makeForm();
        screen::show(*form);
        happened.clear();
    }
    void TearDown() override {
        screen::resetScreens();
        form.reset();
        QCoreApplication::processEvents();
    }

    screen::Control& control(std::string_view name) { return in(*form, name); }
    void focusOn(std::string_view name) {
        setFocus(control(name));
        frontend::sync();
        happened.clear();
    }
    template <class Widget> Widget& widget(std::string_view name) {
        return *qobject_cast<Widget*>(frontend::widgetOf(control(name)));
    }
    QWidget& top() { return *frontend::topOf(*form); }
    std::string focusName() {
        const screen::Control* focus = hand::shownFocus(*form);
        return focus ? focus->name : "";
    }

    std::unique_ptr<screen::Window> form;
};

} // namespace kestrel::demo
