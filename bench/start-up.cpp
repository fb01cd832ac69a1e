// From the start of the process to the form shown, off screen, above what an empty window of the toolkit takes: a
// difference, because both hold the loading of the toolkit. The program is this one, called with a word behind its
// name.
#include "frontend/qt/application.hpp"
#include "platform/clock.hpp"
#include "platform/paths.hpp"
#include "screen/acts.hpp"
#include "screen/frontend.hpp"
#include "screen/window.hpp"
#include "session/modStart.hpp"
#include "support/measure.hpp"
#include "support/program.hpp"

#include <QApplication>
#include <QWidget>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

using namespace kestrel;

namespace {

constexpr int rounds = 21;
constexpr double limit = 80; // milliseconds

// What the child tells its parent when the window is there; it then ends without tidying up.
[[noreturn]] void tellShown() {
    const double used = bench::processorTime() / 1000;
    const bool told = write(STDOUT_FILENO, &used, sizeof used) == sizeof used;
    _exit(told ? 0 : 1);
}

// Advice that the toolkit has for a machine without a desktop.
void dropWords(QtMsgType, const QMessageLogContext&, const QString&) {}

int showEmptyWindow(int count, char** arguments) {
    frontend::drawOffScreen();
    qInstallMessageHandler(dropWords);
    QApplication application(count, arguments);
    QWidget window;
    window.resize(1000, 700);
    window.show();
    QCoreApplication::processEvents();
    tellShown();
}

// The program waits for a person: the form stands there and is painted.
bool firstAct() {
    const screen::Window* window = screen::activeWindow();
    if (window && window->name == "frm連絡台帳入力") tellShown();
    return false;
}

int showForm(char** arguments) {
    platform::setExecutableFolder(arguments[2]);
    frontend::drawOffScreen();
    const frontend::Application toolkit(arguments[0]);
    screen::setActSource(firstAct);
    startProgram("");
    frontend::waitUntilEnded();
    return 1;
}

struct Shown {
    double waited = 0, used = 0; // milliseconds: by the clock, and of processor time
};

[[noreturn]] void become(const char* program, const char* word, const char* folder, int told) {
    dup2(told, STDOUT_FILENO);
    execl(program, program, word, folder, nullptr);
    _exit(1);
}

Shown shownAfter(const char* program, const char* word, const std::string& folder) {
    int ends[2];
    if (pipe(ends) != 0) std::exit(2);
    const double begin = platform::secondsRunning();
    const pid_t child = fork();
    if (child == 0) become(program, word, folder.c_str(), ends[1]);
    close(ends[1]);
    Shown shown;
    const bool told = read(ends[0], &shown.used, sizeof shown.used) == sizeof shown.used;
    shown.waited = (platform::secondsRunning() - begin) * 1000;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    if (told) return shown;
    std::fprintf(stderr, "no window came of %s\n", word);
    std::exit(2);
}

using Times = std::vector<double>;

// Other programs can only make a start longer: the quickest one is what the start itself takes.
double quickest(const Times& times) {
    return *std::min_element(times.begin(), times.end());
}

struct Starts {
    Times emptyWaited, formWaited, emptyUsed, formUsed;
};

Starts measured(const char* program, bench::Where where) {
    const bench::Installation place(setup::What::full, where);
    const std::string folder = (place.root / "prgbin").string();
    Starts starts;
    for (int round = 0; round < rounds; ++round) {
        const Shown empty = shownAfter(program, "empty", folder);
        const Shown form = shownAfter(program, "form", folder);
        starts.emptyWaited.push_back(empty.waited);
        starts.formWaited.push_back(form.waited);
        starts.emptyUsed.push_back(empty.used);
        starts.formUsed.push_back(form.used);
    }
    return starts;
}

std::string inMilliseconds(double time) {
    return bench::withUnit(time, "ms");
}

int tell(const std::string& what, double form, double empty) {
    return bench::tell(what, inMilliseconds(form), inMilliseconds(empty), inMilliseconds(form - empty),
                       inMilliseconds(limit), form - empty <= limit);
}

// A start waits seven times for the disk to have something for sure, however long a disk takes for that.
int measure(const char* program) {
    const Starts starts = measured(program, bench::Where::memory), onDisk = measured(program, bench::Where::disk);
    const int byTheClock = tell("start to the form shown, above an empty window", quickest(starts.formWaited),
                                quickest(starts.emptyWaited));
    const int used = tell("  its processor time", bench::median(starts.formUsed), bench::median(starts.emptyUsed));
    const double form = quickest(onDisk.formWaited), empty = quickest(onDisk.emptyWaited);
    bench::note("  with the installation on the disk", inMilliseconds(form), inMilliseconds(empty),
                inMilliseconds(form - empty));
    return byTheClock | used;
}

} // namespace

int main(int count, char** arguments) {
    const std::string_view word = count == 3 ? arguments[1] : "";
    if (word == "empty") return showEmptyWindow(count, arguments);
    if (word == "form") return showForm(arguments);
    return measure("/proc/self/exe");
}
