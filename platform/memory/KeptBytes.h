// What is written, in memory.
#pragma once

#include "platform/FileSystem.h"

#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {

/// Keeps what is written.
struct KeptBytes final : ByteSink {
    std::string text;
    SystemError write(std::string_view bytes) override {
        text += bytes;
        return SystemError::none;
    }
};

} // namespace qrtVistrelClasses4
