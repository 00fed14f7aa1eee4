// Data that is made up, and the same in every run.
#pragma once

#include <cstddef>
#include <random>

namespace qrtVistrelClasses4::bench {

/// Numbers below a limit. The library's distributions differ from system to system; this does not.
class Dice {
public:
    unsigned below(std::size_t limit) { return static_cast<unsigned>(engine_() % limit); }
    bool once(unsigned in) { return below(in) == 0; }
    template <class Values>
    auto oneOf(const Values& values) {
        return values[below(values.size())];
    }

private:
    std::minstd_rand engine_;
};

} // namespace qrtVistrelClasses4::bench
