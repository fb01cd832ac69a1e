#include "list_window.hpp"

#include "screen/acts.hpp"
#include "screen/hand.hpp"
#include "session/rosterSession.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kestrel::bench {

namespace {

std::function<void()> workInside;

bool workThenClose() {
    workInside();
    return hand::closeWindow();
}

screen::Control& entryField(std::string_view name) {
    screen::Control* field = findControl(*rosterSession.currentForm, name);
    if (!field) standStill("the entry form has no " + std::string(name));
    return *field;
}

void add(std::vector<std::string>& columns, std::string_view column) {
    if (std::ranges::find(columns, column) == columns.end()) columns.emplace_back(column);
}

} // namespace

void inList(const ListSpec& spec, std::string_view condition, std::string_view field,
            const std::function<void(ListWindow&)>& work) {
    screen::Control& target = entryField(field);
    bool worked = false;
    workInside = [&] {
        work(listOf(*screen::activeWindow()));
        worked = true;
    };
    screen::setActSource(workThenClose);
    screen::setEnabled(*rosterSession.currentForm, false);
    openList(spec, condition, target, target);
    screen::setActSource(nullptr);
    if (!worked) standStill(std::string(spec.name) + " doesn't open");
}

void type(ListWindow& list, std::string_view field, std::string_view text) {
    if (!hand::click(controlOf(list, field))) standStill(std::string(field) + " can't be pressed");
    hand::typeOver(text);
}

void click(ListWindow& list, std::string_view button) {
    if (!hand::click(controlOf(list, button))) standStill(std::string(button) + " can't be pressed");
}

std::string statementOf(ListWindow& list, std::string_view button) {
    const std::vector<Sent> sent = sentBy([&] { click(list, button); });
    if (sent.empty()) standStill(std::string(button) + " sends nothing");
    return sent.back().text;
}

std::vector<std::string> columnsOf(const ListSpec& spec) {
    std::vector<std::string> columns;
    for (const ListWindowColumn& column : spec.columns) add(columns, column.column);
    for (std::string_view column : spec.keyColumns) add(columns, column);
    return columns;
}

void standStill(const std::string& why) {
    std::fprintf(stderr, "nothing can be measured: %s\n", why.c_str());
    std::exit(2);
}

} // namespace kestrel::bench
