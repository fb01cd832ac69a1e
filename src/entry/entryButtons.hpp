// Which of the screen's buttons are live.
#pragma once

namespace kestrel {

void updatePartnerButtons();

} // namespace kestrel
