#include "platform/TemporaryName.h"

#include <atomic>
#include <random>
#include <string_view>

namespace qrtVistrelClasses4 {

std::string TemporaryName() {
    constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyz012345"; // 5 bits each
    constexpr int count = 6;
    constexpr unsigned step = 0x9e3779b1; // odd, so that no number comes twice
    // Drawing a truly random number each time would cost more than writing a small file.
    static std::atomic<unsigned> number{std::random_device{}()};
    unsigned bits = number.fetch_add(step);
    std::string name = ".vistrel-";
    for (int i = 0; i < count; ++i, bits >>= 5)
        name += characters[bits % characters.size()];
    return name + ".tmp";
}

} // namespace qrtVistrelClasses4
