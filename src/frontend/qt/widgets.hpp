// One widget for each kind of control, and how it comes to show what the control says.
#pragma once

#include "screen/control.hpp"

#include <QTabBar>
#include <QTableView>
#include <QWidget>

#include <vector>

namespace kestrel::frontend {

QWidget* makeWidget(screen::Control& control, QWidget* top);
void applyControl(const screen::Control& control, QWidget& widget);

// The objects that get the person's events for it: the widget and, of a compound one, its inner parts.
std::vector<QObject*> eventParts(QWidget& widget);

// The focus comes to rest there: a field has its whole text selected.
void enterWidget(QWidget& widget);

QTabBar& barOf(const QWidget& tabStrip);

} // namespace kestrel::frontend
