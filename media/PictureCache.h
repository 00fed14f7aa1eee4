// Picture files, each read only a few times, no matter how many frames show it.
#pragma once

#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace qrtVistrelClasses4 {

/// Reads pictures and caches them. There is no picture for a path that is not a full path, or that is not a
/// file.
class PictureCache {
public:
    /// The picture in a file, valid until the next call. Null if the file is missing or cannot be read, or if
    /// it is of a kind that only the sign knows.
    const Raster* find(const std::string& path);

    /// Size in pixels of the picture in a file, for which only the start of the file is read. Returns nothing
    /// if there is no readable picture.
    std::optional<DotSize> sizeOf(const std::string& path);

    /// Paths of BMP files that could not be read since the last call, each path only once.
    std::vector<std::string> takeUnreadable();

private:
    /// Calls `parse(bytes, fileSize)` with the first `most` bytes of a file.
    template <class Parse>
    auto read(const std::string& path, std::uint64_t most, Parse parse);

    std::unordered_map<std::string, std::optional<Raster>> pictures_; ///< By path.
    std::int64_t pixels_ = 0;                                         ///< Of all pictures together.
    std::unordered_map<std::string, std::optional<DotSize>> sizes_;   ///< By path.
    std::unordered_set<std::string> reported_;                        ///< All unreadable paths so far.
    std::vector<std::string> unreadable_;                             ///< Those not taken yet.
};

} // namespace qrtVistrelClasses4
