// A person's mouse and keyboard, as events to the toolkit's windows: the toolkit finds the widget itself.
#pragma once

#include "screen/window.hpp"

#include <QWidget>

#include <optional>
#include <string_view>

namespace kestrel::frontend {

// A point of the window (in the top-level widget's places) where a press reaches this part and nothing that lies over
// it.
std::optional<QPoint> reachablePoint(QWidget& part);

void clickAt(QWidget& top, QPoint point);
void clickTwiceAt(QWidget& top, QPoint point);
void strike(QWidget& top, screen::Key key);
void pressKey(QWidget& top, screen::Key key, bool repeat);
void releaseKey(QWidget& top, screen::Key key);
void typeText(QWidget& top,
              std::string_view text); // ASCII as keys, all else as the input method commits it, a character at a time

} // namespace kestrel::frontend
