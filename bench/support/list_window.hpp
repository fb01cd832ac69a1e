// A list window as a person has it in front of him, opened from the entry form.
#pragma once

#include "lists/listFrame.hpp"
#include "program.hpp"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel::bench {

// Opens the window from that field of the entry form, does its work there and closes it. The program has been started.
void inList(const ListSpec& spec, std::string_view condition, std::string_view field,
            const std::function<void(ListWindow&)>& work);

void type(ListWindow& list, std::string_view field, std::string_view text);
void click(ListWindow& list, std::string_view button);

// The statement of that click, as the engine gets it.
std::string statementOf(ListWindow& list, std::string_view button);
std::vector<std::string> columnsOf(const ListSpec& spec); // that a row of the window is made of, keys included

[[noreturn]] void standStill(const std::string& why); // it can't be measured: the process ends

} // namespace kestrel::bench
