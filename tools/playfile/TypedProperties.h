// Properties of frames and lines that are typed as "NAME=VALUE".
#pragma once

#include "tools/program/Commands.h"
#include "tools/program/PropertyValues.h"
#include <qrtVistrelClasses4/Playfile.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {

/// The short name of a line's text.
inline constexpr std::string_view kTextProperty = "Text";

struct PropertyOptions {
    std::vector<std::string> assignments;
    bool isUnchecked = false;
};

/// Adds "PROPERTIES" and "--unchecked".
CLI::Option* AddPropertyOptions(CLI::App& command, PropertyOptions& options, const char* kind,
                                const std::string& description);

inline constexpr const char* kFramePropertiesHelp =
    "What to set, such as DelayTime=4, FrameType=Text or \"PrefixCode=Fade In\"; \"show --frame\" prints the "
    "names of all properties, and \"effects\" those of effects";
inline constexpr const char* kLinePropertiesHelp =
    "What to set, such as \"Text=Gate 2\", LineFontSize=3 or Blinking=yes; Text is short for CurrentLineText";
inline constexpr const char* kNewFrameHelp =
    "What the new frame has, such as DelayTime=4 or \"PrefixCode=Fade In\"; each Text begins a line, and "
    "properties of lines belong to the text before them. Without FrameType, the kind follows from what the "
    "frame has";

/// Values for properties of a record, which the properties can have.
template <class Record>
class Assignments {
public:
    /// Takes one more. Returns false, and adds the reason to `errors`, if there is no such property or it
    /// cannot have the value.
    bool add(const TypedValue& typed, ErrorLines& errors);
    /// Sets the properties in the order in which they were typed, by the rows' own `set`.
    void applyTo(Record& record) const {
        for (const auto& setOne : setters_)
            setOne(record);
    }
    /// False, after adding an error, if an assignment undoes what another has set.
    bool agree(ErrorLines& errors) const;

private:
    std::vector<std::function<void(Record&)>> setters_;
};

/// The typed assignments. Returns nothing, and adds the reason to `errors`, if one of them cannot be made.
template <class Record>
std::optional<Assignments<Record>> AssignmentsFrom(const PropertyOptions& options, ErrorLines& errors);

/// A frame without anything, as the library inserts it.
FrameRecord EmptyFrameRecord();

/// A new frame with the typed properties. Returns nothing, and adds the reason to `errors`, if one of them
/// cannot be set.
std::optional<FrameRecord> NewFrameFrom(const PropertyOptions& options, ErrorLines& errors);

/// False, after adding an error, if a playfile cannot have `count` more frames. The library would leave out
/// frames beyond the limit.
bool IsRoomForFrames(std::int32_t count, const Playfile& playfile, ErrorLines& errors);

} // namespace qrtVistrelClasses4
