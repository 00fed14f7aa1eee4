// Examining a playfile before it goes to a sign, and mending what can be mended safely.
//
// These functions use the platform and the settings of the process. Several threads may call them at once for
// different playfiles. They throw error 7 for lack of memory and error 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/CommandTable.h>
#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/LoadPlayfile.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/Preferences.h>
#include <qrtVistrelClasses4/Raster.h>
#include <qrtVistrelClasses4/ValidationRules.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// The delays that the frame editor offers: from `minimum` to `maximum`, `step` apart. In seconds.
struct DelayLimits {
    double minimum = 0;
    double maximum = 0;
    double step = 0;

    bool operator==(const DelayLimits&) const = default;
};

/// The limits of the preferences, whose unit lasts `secondsOfUnit`.
QRT_PUBLIC DelayLimits DelayLimitsOf(const Preferences& preferences, double secondsOfUnit);

/// The codes of the effects that the application's lists offer.
struct OfferedEffects {
    std::vector<std::int16_t> prefixes;
    std::vector<std::int16_t> suffixes;
};

/// What the lists offer on this machine: the optional effects if "NewEffects.ini" exists and does not switch
/// them off.
QRT_PUBLIC OfferedEffects FindOfferedEffects();

/// What is known besides the playfile. Rules that need something unknown find nothing.
struct ValidationCircumstances {
    std::optional<DotSize> signSize{};
    std::int16_t signType = 0;         ///< Decides on font 5.
    std::optional<bool> showsColors{}; ///< Whether the sign shows more than one colour.
    std::optional<DelayLimits> delayLimits{};
    std::optional<OfferedEffects> offeredEffects{};
    CommandTable commands = BuiltInCommands(); ///< Those whose codes texts may have.
    std::int16_t framesAllowed = kUsualFramesAllowed;
    /// Whether the files of pictures, commands and sounds are looked for and read.
    bool looksAtFiles = true;
    /// Whether fonts are loaded, and texts measured by them.
    bool measuresTexts = true;
    /// What came of loading the playfile, if nothing has changed since then. Must outlive the call.
    const LoadOutcome* loaded = nullptr;
};

struct Finding {
    const Rule* rule = nullptr; ///< One of `kRules`.
    std::int32_t frame = 0;     ///< From 1; 0 if it is about the whole playfile.
    std::int32_t line = 0;      ///< From 1; 0 if it is about the whole frame.
    std::string_view property;  ///< As in the member tables. Empty if no single one is to blame.
    /// Line in the file, from 1. 0 if the playfile has not just been read, or the format has no lines.
    std::int32_t fileLine = 0;
    std::string message; ///< One sentence that names the values; in the playfile's 8-bit characters.
    /// The number that is safe to set the property to, and mends it. A flag is 0 or 1.
    std::optional<double> fix{};

    bool operator==(const Finding&) const = default;
};

/// Examines a playfile. The findings are in the order of frames and lines; those about the whole playfile
/// come first. Changes nothing. Each file is looked up once.
QRT_PUBLIC std::vector<Finding> Validate(const Playfile& playfile,
                                         const ValidationCircumstances& circumstances = {});

/// Whether one of the findings is an error.
QRT_PUBLIC bool HasErrors(const std::vector<Finding>& findings);

/// Where it was found: "frame 3, line 1, Merge (line 72 of the file)", shorter if not all of that is known;
/// "playfile" if it is about all of it.
QRT_PUBLIC std::string PlaceText(const Finding& finding);
/// All of it in one line: "warning frame 3, line 1, Merge: Line 1 is to be merged with the next one, and is
/// the last. [merge-on-last-line]". Control characters in the message become spaces.
QRT_PUBLIC std::string TextOf(const Finding& finding);

/// Makes the change of a finding's fix. Returns false and changes nothing if it has none, or if the playfile
/// does not have its frame or line.
QRT_PUBLIC bool ApplyFix(Playfile& playfile, const Finding& finding);

} // namespace qrtVistrelClasses4
