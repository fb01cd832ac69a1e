// A source of choices that looks like chance and gives the same choices every time, on every machine.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kestrel::setup {

class Generator {
public:
    // Neighbouring seeds give unrelated choices: the seed is stirred before it becomes the state.
    explicit Generator(std::uint64_t seed) : state(stirred(seed + 0x2545F4914F6CDD1Du)) {}

    std::size_t below(std::size_t count) { return next() % count; }
    bool oneIn(std::size_t count) { return below(count) == 0; }
    template <class List> const auto& from(const List& list) { return list[below(list.size())]; }

private:
    std::uint64_t next() { return stirred(state += 0x9E3779B97F4A7C15u); }

    static std::uint64_t stirred(std::uint64_t z) {
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t state;
};

} // namespace kestrel::setup
