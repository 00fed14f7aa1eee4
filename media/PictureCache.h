// Picture files, each read only a few times, no matter how many frames show it.
#pragma once

#include "media/AnimationFile.h"
#include <qrtVistrelClasses4/PictureReader.h>
#include <qrtVistrelClasses4/Raster.h>

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace qrtVistrelClasses4 {

/// What came of reading a picture.
struct PictureOutcome {
    enum class What {
        readable,
        missing,     ///< There is no file of that path, or it is not a full path.
        unreadable,  ///< The file is of a kind that is read, but cannot be read.
        unknownKind, ///< Only the sign knows what is in the file.
    };

    What what = What::missing;
    std::vector<TimedPicture> pictures = {}; ///< Has some if it is readable: several if they are to move.
    std::optional<Animation> animation = {}; ///< What the file of an animation says of its pictures.
    bool isTooLarge = false; ///< Whether only the start of the file was read, because it is very large.
};

/// Reads pictures and caches them.
class PictureCache {
public:
    /// The picture in a file, valid until the next call.
    const PictureOutcome& find(const std::string& path);

    /// Size in pixels of the picture in a file. Returns nothing if there is no readable picture. Of a BMP
    /// file only the start is read.
    std::optional<DotSize> sizeOf(const std::string& path);

private:
    std::unordered_map<std::string, PictureOutcome> pictures_;      ///< By path.
    std::int64_t pixels_ = 0;                                       ///< Of all pictures together.
    std::unordered_map<std::string, std::optional<DotSize>> sizes_; ///< By path.
};

} // namespace qrtVistrelClasses4
