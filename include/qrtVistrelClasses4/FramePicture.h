// A frame of a playfile in a picture file.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/PreviewFault.h>
#include <qrtVistrelClasses4/RuntimeError.h>
#include <qrtVistrelClasses4/SignLook.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

// Pixels from one dot to the next (see `LedPainter`) in pictures of one frame.
inline constexpr int kUsualPictureScale = 6;
inline constexpr int kLargestPictureScale = 64;

/// Pixels of the largest picture that is drawn.
inline constexpr std::int64_t kMostPixelsInPicture = 100'000'000;

/// What came of saving a picture.
struct [[nodiscard]] SavedPicture {
    std::optional<RuntimeError> error; ///< If there is one, an existing file is unchanged.
    std::vector<PreviewFault> faults;  ///< What the picture could not show as the playfile wants.

    bool isWritten() const { return !error; }
};

/// Writes a BMP file with frame `number` of the playfile as the LEDs of a sign. Fonts, the command table and
/// preferences are those of the application. A sign without a size is as large as the preferences say, or if
/// they have none, as large as the frames need. Pictures may lie beside the playfile. A frame that does not
/// exist is error 9. A `scale` outside 1 to `kLargestPictureScale` is error 5, and so is a picture of more
/// than `kMostPixelsInPicture`. Several threads may call this at once for different files.
QRT_PUBLIC SavedPicture SavePictureOfFrame(const Playfile& playfile, std::int32_t number,
                                           const SignLook& sign, const std::string& path,
                                           int scale = kUsualPictureScale);

} // namespace qrtVistrelClasses4
