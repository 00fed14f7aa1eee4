// Bytes in memory, read like a file.
#pragma once

#include "platform/FileSystem.h"

#include <algorithm>
#include <string_view>

namespace qrtVistrelClasses4 {

/// The bytes must outlive this object.
class InputBytes final : public InputFile {
public:
    explicit InputBytes(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t size() const override { return bytes_.size(); }
    Result<std::size_t> readAt(std::uint64_t offset, std::span<char> bytes) override {
        const auto start = static_cast<std::size_t>(std::min<std::uint64_t>(offset, bytes_.size()));
        return bytes_.substr(start).copy(bytes.data(), bytes.size());
    }
    std::string_view text() const { return bytes_; }

private:
    std::string_view bytes_;
};

} // namespace qrtVistrelClasses4
