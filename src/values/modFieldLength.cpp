#include "values/modFieldLength.hpp"

#include "screen/window.hpp"
#include "session/rosterSession.hpp"
#include "values/modValues.hpp"

namespace kestrel {

void checkFieldLength(std::string_view text, int maximumBytes) {
    if (rosterSession.currentForm == nullptr) return;
    screen::Control* notice = screen::findControl(*rosterSession.currentForm, "お知らせ");
    if (notice != nullptr) screen::setCaption(*notice, excessNotice(text, maximumBytes));
}

} // namespace kestrel
