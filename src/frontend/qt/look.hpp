// How the program looks: one font, one palette, one accent colour, and the size of a twip.
#pragma once

#include "screen/control.hpp"

#include <QLabel>
#include <QPixmap>
#include <QRect>

namespace kestrel::frontend {

void dressApplication(); // font, style, colours: once, before the first widget

// A twip is a fifteenth of a pixel at 96 dpi in the base font; a larger font or a finer screen scales every place with
// it.
int toPixels(int twips);
QRect pixels(const screen::Place& place); // edges are rounded, not sizes: what meets in twips meets on the screen

int rowHeight();           // of a list
int buttonPadding();       // what a button needs beside its caption
QPixmap flagMark(bool on); // in front of a row: a sheet of paper, or a faded one that is crossed out

void paintArrow(QWidget& widget); // the mark of a drop-down, at its right end

// A caption that is wider than its place is set narrower, never cut.
void fitText(QWidget& widget, const QString& text, int width);

void dressNotice(QLabel& label); // a band while it says something, quiet while it is empty
void dressCaption(QLabel& label, const screen::Control& control); // panels and labels, by what they are for

} // namespace kestrel::frontend
