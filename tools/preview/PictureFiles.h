// Reading PNG, JPEG and GIF files for previews.
#pragma once

#include <qrtVistrelClasses4/PictureReader.h>

namespace qrtVistrelClasses4 {

/// Takes at most 128 MB of memory besides the file and the picture, whatever a file says.
class PictureFiles final : public PictureReader {
public:
    bool readsFiles(std::string_view name) override;
    std::vector<TimedPicture> read(std::string_view bytes) override;
};

} // namespace qrtVistrelClasses4
