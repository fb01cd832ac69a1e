#include "demo.hpp"
#include "frontend/qt/views.hpp"
#include "screen/frontend.hpp"
#include "screen/person.hpp"
#include "screen/focus.hpp"
#include <gtest/gtest.h>
#include <QPixmap>
#include <QCoreApplication>
using namespace kestrel;
TEST(Pictures, form) {
    auto form = demo::makeForm();
    screen::show(*form);
    frontend::sync();
    setFocus(demo::in(*form,"名称"));
    screen::edit(demo::in(*form, "名称"), "青葉印刷株式会社");
    frontend::sync(); QCoreApplication::processEvents();
    for (int page=0;page<3;++page){ screen::turnPage(demo::in(*form,"tab_詳細"),page); frontend::sync(); QCoreApplication::processEvents();
    frontend::topOf(*form)->grab().save(QString("/tmp/qtdev/form%1.png").arg(page)); }
}
