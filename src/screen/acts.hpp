// A source of acts in place of a person: a scenario. While one is set, every wait of a front end takes its next act
// from it.
#pragma once

namespace kestrel::screen {

// Plays the next act to its end (which may wait again inside); false when there is none left.
using PlayNext = bool (*)();

void setActSource(PlayNext source); // null: a person acts
PlayNext actSource();

} // namespace kestrel::screen
