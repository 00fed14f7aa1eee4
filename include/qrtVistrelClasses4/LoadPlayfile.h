// Reading a playfile, and what came of it.
#pragma once

#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

/// The frames that the application allows.
inline constexpr std::int16_t kUsualFramesAllowed = 1048;

/// Whether pictures of a kind are cropped, which decides how an older playfile places them.
struct Cropping {
    bool bitmaps = false;
    bool animations = false;
};

/// What loading asks for when it needs it. What is empty is looked up as the application does.
struct LoadCircumstances {
    /// The application data folder, in whose "CustomFonts" the 4x8 font of old files is now. Asked before the
    /// file is read, and not for one of the older format. If empty, `GetAppFolder` gives it.
    std::function<std::string()> applicationFolder{};
    /// Asked once the records of a file of the older format have been read. If empty, the preferences are
    /// read from their file.
    std::function<Cropping()> cropping{};
    /// A file of the older format gives at most this many frames and one more.
    std::int16_t framesAllowed = kUsualFramesAllowed;
};

/// What a file of the older format has in a frame that is lost or refused, in words.
struct LegacyLoss {
    std::int32_t frame = 0; ///< From 1.
    std::string text;       ///< "unknown prefix keyword \"OT\"", "width 128"; in the file's characters.

    bool operator==(const LegacyLoss&) const = default;
};

/// What is to be known of a file of the older format.
struct LegacyDetails {
    bool hasMark = false; ///< Without the mark that such a file starts with nothing is read.
    std::uint64_t records = 0;
    std::uint64_t bytesAfterRecords = 0; ///< Too few for another record.
    /// Unknown keywords, files of unknown kinds, and widths, none of which a current playfile keeps.
    std::vector<LegacyLoss> losses;
    /// Loop counts and widths that are too large for a frame, which has 0 instead. Each has been reported as
    /// error 6.
    std::vector<LegacyLoss> refusedNumbers;
};

struct LoadOutcome {
    Playfile playfile;
    std::int32_t framesAnnounced = 0; ///< By the file's count, or records of an older file.
    std::int32_t framesRead = 0;      ///< Those read whole, which are the first ones.
    /// Whether everything in the file was read: it had no error, and one of the older format had the mark, no
    /// more records than allowed, no bytes after them and no refused number.
    bool isComplete = false;
    std::optional<FileError> error{};
    std::optional<LegacyDetails> legacy{}; ///< Of a file of the older format that could be opened.
};

/// Reads a playfile; a name ending in "PL2", in any case, is one of the older format. `playfile` has the
/// frames that were read whole. References to picture and command files that are missing are replaced by
/// files of that name beside the playfile. What is not a failure of the file, such as lack of memory, is
/// thrown.
LoadOutcome LoadPlayfile(const std::string& path, const LoadCircumstances& circumstances = {});

/// The same over a playfile that is there, of which everything stays that was not read. So do members that
/// files do not hold, all frames if not even their number can be read, and of a file that is cut short or
/// damaged the frames after `framesRead`. There are as many frames as the file announces then, and the first
/// one after `framesRead` may hold values of the file already.
LoadOutcome LoadPlayfileOver(Playfile existing, const std::string& path,
                             const LoadCircumstances& circumstances = {});

} // namespace qrtVistrelClasses4
