// The wait dialog: shown without blocking in front of a long write or copy, closed by the same sequence.
#pragma once

namespace kestrel {

void showWaitDialog();  // in front and painted before this returns
void closeWaitDialog(); // harmless when it isn't shown

} // namespace kestrel
