// The pictures that frames show.
#pragma once

#include "fonts/PixelBuffer.h"
#include "tools/ErrorLines.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace qrtVistrelClasses4 {

/// Reads pictures, each as good as once, however many frames show it, and tells of BMP files that it cannot
/// read.
class PictureFiles {
public:
    /// `errors` must outlive the pictures.
    explicit PictureFiles(ErrorLines& errors) : errors_(errors) {}

    /// The picture in a file. Null when there is none that can be read: the file is missing, or of a kind
    /// that only the sign knows. The picture stays until the next call.
    const PixelBuffer* find(const std::string& path);

private:
    std::optional<PixelBuffer> read(const std::string& path);

    ErrorLines& errors_;
    std::unordered_map<std::string, std::optional<PixelBuffer>> known_; ///< By path.
    std::int64_t pixels_ = 0;                                           ///< In all of them.
};

} // namespace qrtVistrelClasses4
