// A memo editor by contract: it edits the text of the control that rosterSession.lookupTarget names, under the caption
// that rosterSession.lookupCondition holds. No screen of this program opens it: it is kept as a hook for a screen that
// has a memo field and no page for it.
#pragma once

namespace kestrel {

void showMemoWindow(); // modal

} // namespace kestrel
