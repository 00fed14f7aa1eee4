// Random inputs for comparisons with the system's own functions, the same in every run.
#pragma once

#include <cstdlib>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

class RandomInputs {
public:
    /// As many as `QRT_RANDOM_INPUTS` in the environment says.
    static int count() {
        const char* const given = std::getenv("QRT_RANDOM_INPUTS");
        return given ? std::atoi(given) : 3000;
    }
    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    unsigned long long bits() { return random_(); }
    /// Up to `most` of the pieces, joined.
    std::string text(std::initializer_list<std::string_view> pieces, int most) {
        std::string result;
        for (int left = below(most + 1); left > 0; --left)
            result += pieces.begin()[below(static_cast<int>(pieces.size()))];
        return result;
    }

private:
    std::mt19937_64 random_{20010203};
};

} // namespace qrtVistrelClasses4
