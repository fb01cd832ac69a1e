// Measuring two ways of doing the same in one run, and the line of the table that tells how it came out.
#pragma once

#include <algorithm>
#include <ctime>
#include <string>
#include <utility>
#include <vector>

namespace kestrel::bench {

// Microseconds of processor time that this process has used. What other programs take of the machine, and what the disk
// lets wait, isn't in it.
inline double processorTime() {
    return static_cast<double>(std::clock()) * (1e6 / CLOCKS_PER_SEC);
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

template <class Batch> double spentOn(Batch batch) {
    const double begin = processorTime();
    batch();
    return processorTime() - begin;
}

struct Comparison {
    double ours = 0, theirs = 0; // microseconds a step, medians of the rounds
    double ratio = 0;            // median of the rounds' own ratios
};

// Each of the two does its batch of steps once in every round and answers the microseconds it took; who begins
// alternates, so that what disturbs the machine meets both. The first round only warms up.
template <class Ours, class Theirs> Comparison compare(int rounds, int steps, Ours ours, Theirs theirs) {
    std::vector<double> first, second, ratios;
    for (int round = 0; round <= rounds; ++round) {
        double a = 0, b = 0;
        if (round % 2 == 0) a = ours();
        b = theirs();
        if (round % 2 == 1) a = ours();
        if (round == 0) continue;
        first.push_back(a / steps);
        second.push_back(b / steps);
        ratios.push_back(a / b);
    }
    return {median(first), median(second), median(ratios)};
}

// Each writes one line of the table, its columns as texts. The exit status: 0 when the limit was held.
int tell(const std::string& what, const std::string& ours, const std::string& against, const std::string& figure,
         const std::string& limit, bool held);
int tell(const std::string& what, const Comparison& comparison, double limit); // held: the ratio is at most the limit

void note(const std::string& what, const std::string& ours, const std::string& against,
          const std::string& figure); // of what has no limit

std::string withUnit(double value, const char* unit); // "12.3 us"
std::string asRatio(double value);                    // "1.23 x"

} // namespace kestrel::bench
