#include "tools/playfile/TypedProperties.h"

#include <qrtVistrelClasses4/LoadPlayfile.h>

#include <algorithm>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::string_view kLineText = kMember<&LineRecord::CurrentLineText>.name;

template <class Record>
bool isShortName(std::string_view name) {
    return std::is_same_v<Record, LineRecord> && EqualIgnoringAsciiCase(name, kTextProperty);
}

template <class Record>
void offerNames(NearestName& nearest) {
    ForEachRow(kMembersOf<Record>, [&](const auto& row) {
        if (!row.name.empty())
            nearest.offer(row.name);
    });
    if constexpr (std::is_same_v<Record, LineRecord>)
        nearest.offer(kLineText, kTextProperty);
}

template <class Record>
bool hasProperty(std::string_view name) {
    bool isFound = isShortName<Record>(name);
    ForEachRow(kMembersOf<Record>, [&](const auto& row) {
        isFound = isFound || (!row.name.empty() && EqualIgnoringAsciiCase(row.name, name));
    });
    return isFound;
}

void addUnknown(std::string_view name, const NearestName& nearest, ErrorLines& errors) {
    errors.about(name);
    errors.add("there is no such property" + nearest.hint());
}

/// What is typed for a property: flags for those that files hold as numbers, and numbers for enumerations.
template <class Row>
using Typed = std::conditional_t<std::is_same_v<typename Row::Given, bool>, bool, ValueOfRow<Row>>;

/// The kind that a new frame has because of what is in it.
NEW_FRAME_TYPES kindOfContent(const FrameRecord& frame, bool hasText) {
    if (!frame.PicturefileName.empty())
        return hasText ? NEW_FRAME_TYPES::FRAME_GRAPHICTEXT : NEW_FRAME_TYPES::FRAME_GRAPHIC;
    if (hasText)
        return NEW_FRAME_TYPES::FRAME_TEXT;
    return frame.commandfile.empty() ? NEW_FRAME_TYPES::FRAME_BLANK : NEW_FRAME_TYPES::FRAME_CMD;
}

/// The assignments of a new frame: those to the frame, and those to each of its lines.
struct NewFrame {
    Assignments<FrameRecord> frame;
    std::vector<Assignments<LineRecord>> lines{1};
    bool hasKind = false;
    bool hasText = false;

    bool add(const TypedValue& typed, ErrorLines& errors) {
        if (hasProperty<FrameRecord>(typed.property)) {
            hasKind =
                hasKind || EqualIgnoringAsciiCase(typed.property, kMember<&FrameRecord::FrameType>.name);
            return frame.add(typed, errors);
        }
        if (!hasProperty<LineRecord>(typed.property)) {
            NearestName nearest(typed.property);
            offerNames<FrameRecord>(nearest);
            offerNames<LineRecord>(nearest);
            addUnknown(typed.property, nearest, errors);
            return false;
        }
        const bool isText =
            isShortName<LineRecord>(typed.property) || EqualIgnoringAsciiCase(typed.property, kLineText);
        if (isText && std::exchange(hasText, true))
            lines.emplace_back();
        return lines.back().add(typed, errors);
    }

    bool agree(ErrorLines& errors) const {
        return frame.agree(errors) &&
               std::ranges::all_of(lines, [&](const auto& line) { return line.agree(errors); });
    }

    FrameRecord made() const {
        FrameRecord record = EmptyFrameRecord();
        frame.applyTo(record);
        if (!hasKind)
            kMember<&FrameRecord::FrameType>.set(record, StoredFrameType(kindOfContent(record, hasText)));
        record.lines.resize(static_cast<std::int32_t>(lines.size()));
        for (std::size_t index = 0; index < lines.size(); ++index)
            lines[index].applyTo(record.lines.at(static_cast<std::int32_t>(index) + 1));
        return record;
    }
};

/// Calls `add(typed, errors)` for each assignment until one returns false.
template <class Add>
bool forEachAssignment(const PropertyOptions& options, ErrorLines& errors, Add add) {
    return std::ranges::all_of(options.assignments, [&](const std::string& assignment) {
        const auto parts = SplitAssignment(assignment, errors);
        return parts && add(TypedValue{parts->first, parts->second, options.isUnchecked});
    });
}

} // namespace

template <class Record>
bool Assignments<Record>::add(const TypedValue& typed, ErrorLines& errors) {
    const std::string_view name = isShortName<Record>(typed.property) ? kLineText : typed.property;
    std::optional<bool> isDone; // empty until the property is found
    ForEachRow(kMembersOf<Record>, [&]<class Row>(const Row& row) {
        if constexpr (requires { TypedIn<Typed<Row>>::read(std::string()); }) { // spare values have no names
            if (row.name.empty() || !EqualIgnoringAsciiCase(row.name, name))
                return;
            errors.about(row.name);
            isDone = false;
            if (!row.isInFile())
                return errors.add("playfiles do not hold it");
            const auto value = ValueFromTyped<Typed<Row>>({row.name, typed.text, typed.isUnchecked}, errors);
            if (!value)
                return;
            setters_.push_back([&row, value = *value](Record& record) {
                row.set(record, static_cast<typename Row::Given>(value));
            });
            isDone = true;
        }
    });
    if (!isDone) {
        NearestName nearest(typed.property);
        offerNames<Record>(nearest);
        addUnknown(typed.property, nearest, errors);
    }
    return isDone.value_or(false);
}

template <class Record>
bool Assignments<Record>::agree(ErrorLines& errors) const {
    Record forwards, backwards;
    applyTo(forwards);
    std::for_each(setters_.rbegin(), setters_.rend(), [&](const auto& setOne) { setOne(backwards); });
    if (forwards == backwards)
        return true;
    errors.about("PROPERTIES");
    errors.add("one value undoes another");
    return false;
}

template class Assignments<FrameRecord>;
template class Assignments<LineRecord>;

template <class Record>
std::optional<Assignments<Record>> AssignmentsFrom(const PropertyOptions& options, ErrorLines& errors) {
    Assignments<Record> assignments;
    const bool areGood = forEachAssignment(
        options, errors, [&](const TypedValue& typed) { return assignments.add(typed, errors); });
    return areGood && assignments.agree(errors) ? std::optional(std::move(assignments)) : std::nullopt;
}

template std::optional<Assignments<FrameRecord>> AssignmentsFrom(const PropertyOptions&, ErrorLines&);
template std::optional<Assignments<LineRecord>> AssignmentsFrom(const PropertyOptions&, ErrorLines&);

CLI::Option* AddPropertyOptions(CLI::App& command, PropertyOptions& options, const char* kind,
                                const std::string& description) {
    command.add_flag("--unchecked", options.isUnchecked,
                     "Takes values that no frame and no line should have, too");
    return command.add_option("PROPERTIES", options.assignments, description)->type_name(kind);
}

FrameRecord EmptyFrameRecord() {
    FrameRecord frame;
    EmptyFrame(frame);
    return frame;
}

std::optional<FrameRecord> NewFrameFrom(const PropertyOptions& options, ErrorLines& errors) {
    NewFrame frame;
    const bool areGood =
        forEachAssignment(options, errors, [&](const TypedValue& typed) { return frame.add(typed, errors); });
    return areGood && frame.agree(errors) ? std::optional(frame.made()) : std::nullopt;
}

bool IsRoomForFrames(std::int32_t count, const Playfile& playfile, ErrorLines& errors) {
    const std::int32_t total = playfile.frames.upperBound() + count;
    if (total > kUsualFramesAllowed)
        errors.add("there would be " + std::to_string(total) + " frames, but at most " +
                   std::to_string(kUsualFramesAllowed) + " are allowed");
    return total <= kUsualFramesAllowed;
}

} // namespace qrtVistrelClasses4
