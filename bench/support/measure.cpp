#include "measure.hpp"

#include <cstdio>

namespace kestrel::bench {

static std::string formatted(const char* form, double value) {
    char text[32];
    std::snprintf(text, sizeof text, form, value);
    return text;
}

std::string withUnit(double value, const char* unit) {
    return formatted("%.1f ", value) + unit;
}

std::string asRatio(double value) {
    return formatted("%.2f x", value);
}

static void writeRow(const std::string& what, const std::string& ours, const std::string& against,
                     const std::string& figure, const std::string& limit, const char* verdict) {
    std::printf("%-46s %12s %12s %14s %10s  %s\n", what.c_str(), ours.c_str(), against.c_str(), figure.c_str(),
                limit.c_str(), verdict);
    std::fflush(stdout);
}

void note(const std::string& what, const std::string& ours, const std::string& against, const std::string& figure) {
    writeRow(what, ours, against, figure, "", "");
}

int tell(const std::string& what, const std::string& ours, const std::string& against, const std::string& figure,
         const std::string& limit, bool held) {
    writeRow(what, ours, against, figure, limit, held ? "held" : "EXCEEDED");
    return held ? 0 : 1;
}

int tell(const std::string& what, const Comparison& comparison, double limit) {
    return tell(what, withUnit(comparison.ours, "us"), withUnit(comparison.theirs, "us"), asRatio(comparison.ratio),
                asRatio(limit), comparison.ratio <= limit);
}

} // namespace kestrel::bench
