// What the operator writes: standard output takes what a person would see and the answers to looks, standard error what
// did not hold.
#pragma once

#include <string>
#include <string_view>

namespace kestrel::scenario {

void traceStatements(bool on); // also write each statement as the program sends it
void writeSeen();              // writes what the journal holds and was not written yet
void beginWriting();           // the journal starts afresh
void writeLine(std::string_view line);

// With the place in the file in front.
void reportFailure(std::string_view expected, std::string_view there);
void reportWrong(std::string_view what);

} // namespace kestrel::scenario
