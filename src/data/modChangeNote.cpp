#include "data/modChangeNote.hpp"

#include "data/changeNote.hpp"
#include "platform/clock.hpp"
#include "platform/paths.hpp"
#include "session/sessionValues.hpp"
#include "text/characters.hpp"

#include <cerrno>

namespace kestrel {

namespace {

// The moment keeps the names in order for a reader; the number is there for changes of one second.
std::string notePath(const ChangeNote& note, int number) {
    const std::string name = std::string(changeNoteHead) + text::replaceAll(note.when, " ", "-") + "-" +
                             text::replaceAll(note.computer, "/", "_") + "-" + std::to_string(number) +
                             std::string(changeNoteTail);
    return platform::joinPath(installation.localConfFolder, name);
}

} // namespace

platform::HeldFile noteChange(std::string_view table, std::string_view statement) {
    constexpr int mostInOneSecond = 1000;
    const ChangeNote note{platform::stampText(platform::now()),
                          installation.userId,
                          staff.staffCode,
                          installation.computerName,
                          std::string(table),
                          std::string(statement)};
    const std::string text = changeNoteText(note);
    for (int number = 1; number <= mostInOneSecond && !installation.localConfFolder.empty(); ++number) {
        auto written = platform::writeHeldFile(notePath(note, number), text);
        if (written) return std::move(written.value());
        if (written.failure().number != EEXIST) break;
    }
    return {};
}

} // namespace kestrel
