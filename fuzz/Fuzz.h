// What all targets share. A target is one `RunFuzzed`, in a source of its own.
#pragma once

#include "TestHost.h"
#include "platform/memory/KeptBytes.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The bytes of one run, taken from the front. After the last byte come zeros and empty texts.
class FuzzedInput {
public:
    explicit FuzzedInput(std::string_view bytes) : rest_(bytes) {}

    bool atEnd() const { return rest_.empty(); }
    unsigned byte();
    /// Up to a NUL.
    std::string text();
    std::string bytes(std::size_t most);
    std::string rest() { return bytes(rest_.size()); }

private:
    std::string_view rest_;
};

/// Ends the program if `holds` is false, which fuzzer and replay report as a finding.
void Require(bool holds, const char* what);

/// Does what the input says, and requires what always holds.
void RunFuzzed(FuzzedInput input);

} // namespace qrtVistrelClasses4
