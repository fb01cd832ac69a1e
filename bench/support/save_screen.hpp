// Saving changed addressees in the entry form, as the benchmarks of a save do it: one addressee of a roster after the
// other, so that what differs between them is compiled anew as in a day's work. The question is answered at once.
#pragma once

#include "program.hpp"

#include <functional>
#include <vector>

namespace kestrel::bench {

inline constexpr int savedAddressees = 30; // of the roster, and of each round

// From here on the one question of a save is answered. The program has been started on the demonstration data.
void answerSaves();

// Changes and saves each; the step is given the save itself, to be run once. Ends the process when one isn't saved.
void saveEach(const std::function<void(const std::function<void()>& save)>& around);

std::vector<Sent> statementsOfSaves(); // of each of them, as the engine gets them

} // namespace kestrel::bench
