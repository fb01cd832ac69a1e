// What a step on a server takes, by two measures at once: by the clock, as a person waits for it, and the processor
// time of this process and of the server's process for its session, which other work on the machine doesn't touch.
#pragma once

#include "measure.hpp"

#include <vector>

namespace kestrel::bench {

double clockTime(); // microseconds

struct Spent {
    double clock = 0, processor = 0; // microseconds
};

class Meter {
public:
    explicit Meter(int itsServerProcess) : serverProcess(itsServerProcess) {}
    // Reading the server's time isn't in what is answered.
    template <class Step> Spent spentOn(Step step) const {
        const double before = serverTime(), own = processorTime(), clock = clockTime();
        step();
        const double clockSpent = clockTime() - clock, ownSpent = processorTime() - own;
        return {clockSpent, ownSpent + serverTime() - before};
    }

private:
    double serverTime() const; // microseconds of its processor time so far
    int serverProcess;
};

struct BothTimes {
    Comparison clock, processor;
};

// As compare(), of steps that answer what they spent by both measures.
template <class Ours, class Theirs> BothTimes compareBoth(int rounds, int steps, Ours ours, Theirs theirs) {
    std::vector<double> first, second;
    const auto byClock = [](std::vector<double>& processor, const Spent& spent) {
        processor.push_back(spent.processor);
        return spent.clock;
    };
    const Comparison clock = compare(
        rounds, steps, [&] { return byClock(first, ours()); }, [&] { return byClock(second, theirs()); });
    std::size_t a = 0, b = 0; // the same rounds once more, by what was noted beside
    const Comparison processor = compare(
        rounds, steps, [&] { return first[a++]; }, [&] { return second[b++]; });
    return {clock, processor};
}

} // namespace kestrel::bench
