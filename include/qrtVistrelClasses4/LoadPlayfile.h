// Reading a playfile, and what came of it.
//
// These functions use the platform and the settings of the process. Several threads may call them at once for
// different files.
// The functions report failures of files in what they return. They throw error 7 for lack of memory and error
// 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameReference.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/PreferencesFile.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The most frames that the application allows in a playfile.
inline constexpr std::int16_t kUsualFramesAllowed = 1048;

/// The kinds of picture that are cropped. An older playfile does not say it for its pictures.
struct Cropping {
    bool bitmaps = false;
    bool animations = false;
};

/// What loading needs to know besides the file. Each function is called only when its value is needed. If a
/// function is empty, the value is looked up as the application does.
struct LoadCircumstances {
    /// The application data folder, which has the 4x8 font of old files in "CustomFonts". Called before the
    /// file is read, but not for a file of the older format. If empty, `GetAppFolder` is used.
    std::function<std::string()> applicationFolder{};
    /// Called once the records of a file of the older format have been read. If empty, the two preferences
    /// are read from their file.
    std::function<Cropping()> cropping{};
    /// A file of the older format gives at most this many frames and one more, but never more than 32767.
    std::int16_t framesAllowed = kUsualFramesAllowed;
    /// If true, references stay as they are in the file, and files beside the playfile are not looked for.
    bool keepsReferences = false;
};

/// Something in a frame of the older format that a playfile cannot hold, in words.
struct LegacyLoss {
    std::int32_t frame = 0; ///< From 1.
    std::string text;       ///< "placeholder \"{days}\", which has no code"; in the file's characters.

    bool operator==(const LegacyLoss&) const = default;
};

/// What is known about a file of the older format.
struct LegacyDetails {
    bool hasMark = false; ///< True if the file starts with the mark of its format. Otherwise nothing is read.
    std::uint64_t records = 0;
    std::uint64_t bytesAfterRecords = 0; ///< Too few for another record.
    /// All that the records hold in known fields and the playfile lacks, in the order of the frames:
    /// placeholders without a code, unknown keywords, font codes, flag bits and kinds of files, attributes of
    /// joined lines, and widths. Loop counts and widths that are too large for a frame have also been
    /// reported as error 6.
    std::vector<LegacyLoss> losses;
    /// Why pictures may not be placed as the preferences say. Does not make the outcome incomplete.
    std::vector<PreferenceError> preferenceErrors{};
};

struct [[nodiscard]] LoadOutcome {
    Playfile playfile;
    std::int32_t framesAnnounced = 0; ///< By the file's count, or records of an older file.
    std::int32_t framesRead = 0;      ///< Those read whole, which are the first ones.
    /// True if everything in the file was read without an error. A file of the older format must also have
    /// the mark, no more records than allowed, no bytes after them, and no losses.
    bool isComplete = false;
    std::optional<FileError> error{};
    std::optional<LegacyDetails> legacy{}; ///< Of a file of the older format that could be opened.
    /// References that now lead to files beside the playfile, in the order of the file.
    std::vector<ChangedReference> found{};
};

/// Reads a playfile; a name ending in "PL2", in any case, is one of the older format. `playfile` has the
/// frames that were read whole. References to picture and command files that are missing are replaced by
/// files of that name beside the playfile.
QRT_PUBLIC LoadOutcome LoadPlayfile(const std::string& path, const LoadCircumstances& circumstances = {});

/// Reads a playfile from its bytes, for example those of a pipe. It is one of the older format if it starts
/// with the mark of that format. `name` becomes its name; missing files are looked for in the folder of that.
QRT_PUBLIC LoadOutcome LoadPlayfileBytes(std::string_view bytes, const std::string& name,
                                         const LoadCircumstances& circumstances = {});

/// Reads a playfile over `existing`. What is not read stays as it was: members that files do not hold, and
/// all frames if not even their number can be read. If the file is cut short or damaged later, there are as
/// many frames as it announces; those after `framesRead` stay, but the first of them may already hold values
/// of the file, corrected like all others.
QRT_PUBLIC LoadOutcome LoadPlayfileOver(Playfile existing, const std::string& path,
                                        const LoadCircumstances& circumstances = {});

/// The path by which this machine opens the file that a reference names. References are Windows-1252; disks
/// of POSIX systems mostly have names in UTF-8. Returns the reference itself if the file is in neither place.
QRT_PUBLIC std::string PathOfReference(const std::string& reference);

} // namespace qrtVistrelClasses4
