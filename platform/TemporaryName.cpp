#include "platform/TemporaryName.h"

#include <atomic>
#include <random>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kStart = ".vistrel-", kEnding = ".tmp";
constexpr std::size_t kLetters = 6;

} // namespace

std::string TemporaryName() {
    constexpr std::string_view characters = "abcdefghijklmnopqrstuvwxyz012345"; // 5 bits each
    constexpr unsigned step = 0x9e3779b1; // odd, so that no number comes twice
    // Drawing a truly random number each time would cost more than writing a small file.
    static std::atomic<unsigned> number{std::random_device{}()};
    unsigned bits = number.fetch_add(step);
    std::string name(kStart);
    for (std::size_t i = 0; i < kLetters; ++i, bits >>= 5)
        name += characters[bits % characters.size()];
    return name.append(kEnding);
}

bool IsTemporaryName(std::string_view name) {
    return name.size() == kStart.size() + kLetters + kEnding.size() && name.starts_with(kStart) &&
           name.ends_with(kEnding);
}

} // namespace qrtVistrelClasses4
