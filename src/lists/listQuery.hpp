// The text of a search.
#pragma once

#include "lists/listFrame.hpp"

namespace kestrel {

// Empty when the database is of a kind that the window has no text for.
std::string searchText(ListWindow& list, const SearchMode& mode);

const SearchMode* findMode(const ListSpec& spec, int number); // null when there is none

} // namespace kestrel
