// The kinds that a person types into: single lines and the memo.
#pragma once

#include "screen/control.hpp"

#include <QWidget>

namespace kestrel::frontend {

QWidget* makeLine(screen::Control& control, QWidget* top);
void applyLine(const screen::Control& control, QWidget& widget);
QWidget* makeMemo(screen::Control& control, QWidget* top);
void applyMemo(const screen::Control& control, QWidget& widget);

} // namespace kestrel::frontend
