#include "Fuzz.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace qrtVistrelClasses4 {

unsigned FuzzedInput::byte() {
    const std::string one = bytes(1);
    return one.empty() ? 0 : static_cast<unsigned char>(one.front());
}

std::string FuzzedInput::text() {
    const std::string result = bytes(std::min(rest_.find('\0'), rest_.size()));
    bytes(1);
    return result;
}

std::string FuzzedInput::bytes(std::size_t most) {
    const std::string result(rest_.substr(0, most));
    rest_.remove_prefix(result.size());
    return result;
}

void Require(bool holds, const char* what) {
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", what);
    std::abort();
}

} // namespace qrtVistrelClasses4

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace qrtVistrelClasses4;
    RunFuzzed(FuzzedInput({reinterpret_cast<const char*>(data), size}));
    return 0;
}
