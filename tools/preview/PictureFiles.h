// The pictures that frames show.
#pragma once

#include "fonts/PixelBuffer.h"
#include "tools/program/ErrorLines.h"
#include "tools/program/Size.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Reads pictures, few of them twice, however many frames show them, and tells of BMP files that it cannot
/// read.
class PictureFiles {
public:
    /// `errors` must outlive the pictures.
    explicit PictureFiles(ErrorLines& errors) : errors_(errors) {}

    /// The picture in a file. Null when there is none that can be read: the file is missing, or of a kind
    /// that only the sign knows. The picture stays until the next call.
    const PixelBuffer* find(const std::string& path);

    /// The picture's size, for which only the start of the file is read. None when there is no picture that
    /// can be read.
    std::optional<DotSize> sizeOf(const std::string& path);

private:
    /// What `parse` makes of the first `most` bytes, and of how many there are.
    template <class Parse>
    auto read(const std::string& path, std::uint64_t most, Parse parse);

    ErrorLines& errors_;
    std::unordered_map<std::string, std::optional<PixelBuffer>> known_; ///< By path.
    std::int64_t pixels_ = 0;                                           ///< In all of them.
    std::unordered_map<std::string, std::optional<DotSize>> sizes_;     ///< By path.
};

} // namespace qrtVistrelClasses4
