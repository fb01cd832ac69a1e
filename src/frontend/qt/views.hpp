// The widgets that show the model's windows: one top-level widget a window, one widget a control. They are made when a
// window is shown and gone when it is hidden; what they show is brought up to date by sync() after every act.
#pragma once

#include "screen/window.hpp"

#include <QWidget>

namespace kestrel::frontend {

void sync(); // every shown window, as the model has it now; after the end of the process nothing
void drop(const screen::Window& window); // its widgets go, at the latest when the event at work has run out
void dropAll();
void giveBackKeyboard(); // a dialog had it: at the next sync() the window in use takes it again

// Null when there is none: not shown, or gone in the meantime.
QWidget* topOf(const screen::Window& window);
QWidget* widgetOf(const screen::Control& control);
screen::Window* windowOf(const QObject* top);
screen::Control* controlOf(const QObject* part); // of the control's widget or of a part that takes events for it

} // namespace kestrel::frontend
