// The message box and the dialogs as widgets: the innermost one that waits for a person.
#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QLabel>

namespace kestrel::frontend {

QDialog* dialogWaiting();     // null when none does
QLabel* boxText();            // of the message box that waits; null when none does
QFileDialog* pickerWaiting(); // the file or folder dialog that waits; null when none does

} // namespace kestrel::frontend
