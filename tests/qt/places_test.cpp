#include "form_test.hpp"

#include <QScreen>

namespace kestrel {

class PlacesTest : public demo::FormTest {};

// Its middle over the form's would put it beyond the edge.
TEST_F(PlacesTest, AWindowWiderThanItsFormAtTheEdgeMovesInsideTheScreen) {
    top().move(0, 0);
    screen::Window wider{"wnd"};
    screen::setSize(wider, form->width + 1500, 1500);
    screen::show(wider);
    const QRect place = frontend::topOf(wider)->geometry();
    EXPECT_GT(place.width(), top().width());
    EXPECT_TRUE(top().screen()->availableGeometry().contains(place.topLeft()));
    EXPECT_GT(place.top(), 0); // in height its middle stays over the form's
}

} // namespace kestrel
