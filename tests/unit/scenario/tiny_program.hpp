// A small program of one window and one list window, for scenarios that test the reader itself.
#pragma once

#include <filesystem>
#include <string>

namespace kestrel::tests {

// Shows the window "frm" with two fields, some buttons, a drop-down, a tab strip, a list and a notice line. Its
// buttons: ask (a question; its answer becomes the caption of note), twice (two boxes, one after the other), list (a
// modal window "wnd"), file and folder (dialogs; the path goes to 名称), quit (ends with status 0 after a question),
// fail (raises an error).
void startTinyProgram(const std::string& commandLine);

struct Outcome {
    int failed = 0;
    bool wrong = false, passedOver = false;
    std::string seen, complaints; // what the operator wrote
};
Outcome playTiny(const std::string& scenario);

// A temporary path of this process: two programs run these tests, one for each hand, at the same time.
std::filesystem::path ownPlace(const std::string& name);

} // namespace kestrel::tests
