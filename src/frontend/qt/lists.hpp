// The list view: a table over the control's own rows.
#pragma once

#include "screen/control.hpp"

#include <QWidget>

namespace kestrel::frontend {

QWidget* makeList(screen::Control& control, QWidget* top);
void applyList(const screen::Control& control, QWidget& widget);
void leaveList(QWidget& widget); // its control goes

} // namespace kestrel::frontend
