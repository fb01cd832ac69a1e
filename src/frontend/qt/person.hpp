// What a person does on the widgets, told to the model; after each act the widgets follow the model again.
#pragma once

#include "frontend/qt/views.hpp"

#include <QObject>

#include <string>

namespace kestrel::frontend {

QObject* personFilter(); // sees the events of every widget before the widget does

// From the toolkit's own signals, once a widget has made sense of the events. A widget whose control is gone says
// nothing.
void personPressed(const QObject* part);
void personEdited(const QObject* part, const std::string& text);
void personChose(const QObject* part, int index);
void personStruck(const QObject* part, screen::Key which);
void personPressedHeader(const QObject* part, int column);

} // namespace kestrel::frontend
