#include "validation/FileLines.h"

#include "playfile/PlayfileFormat.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace qrtVistrelClasses4 {
namespace {

/// Lines that a value takes. Texts with line ends take several.
template <class Value>
std::int32_t linesOf(const Value& /*value*/) {
    return 1;
}
std::int32_t linesOf(const std::string& text) {
    return 1 + static_cast<std::int32_t>(std::count(text.begin(), text.end(), '\n'));
}
template <class Value, std::size_t count>
std::int32_t linesOf(const std::array<Value, count>& values) {
    std::int32_t lines = 0;
    for (const Value& value : values)
        lines += linesOf(value);
    return lines;
}

/// Lines that the values of a record take, up to that of `property`. All of them if there is none of that
/// name.
template <class Record>
std::int32_t linesBefore(const Record& record, std::string_view property) {
    std::int32_t lines = 0;
    bool isFound = false;
    ForEachFileRow(kMembersOf<Record>, [&](const auto& row) {
        isFound = isFound || (!property.empty() && row.name == property);
        lines += isFound ? 0 : linesOf(record.*row.member);
    });
    return lines;
}
template <class Record>
std::int32_t linesOfRecord(const Record& record) {
    return linesBefore(record, {});
}

/// Walks through the file once, for findings in the order of frames and lines.
class FileWalk {
public:
    explicit FileWalk(const OneBasedArray<FrameRecord>& frames) : frames_(frames) {}

    std::int32_t lineOf(const Finding& finding) {
        goTo(finding.frame);
        const FrameRecord& frame = frames_.at(frame_);
        if (finding.line == 0)
            return line_ + (finding.property.empty() ? 0 : linesBefore(frame, finding.property));
        if (lineOfFrame_ == 0) {
            lineOfFrame_ = 1;
            startOfLine_ = line_ + linesOfRecord(frame) + kCountLine;
        }
        for (; lineOfFrame_ < finding.line; ++lineOfFrame_)
            startOfLine_ += linesOfRecord(frame.lines.at(lineOfFrame_));
        return startOfLine_ +
               (finding.property.empty() ? 0 : linesBefore(frame.lines.at(finding.line), finding.property));
    }

private:
    static constexpr std::int32_t kCountLine = 1;

    void goTo(std::int32_t frame) {
        for (; frame_ < frame; ++frame_) {
            lineOfFrame_ = 0;
            line_ += linesOfRecord(frames_.at(frame_)) + kCountLine;
            for (const LineRecord& line : frames_.at(frame_).lines)
                line_ += linesOfRecord(line);
        }
    }

    const OneBasedArray<FrameRecord>& frames_;
    std::int32_t frame_ = 1;
    std::int32_t line_ = 1 + kCountLine; ///< Where the values of that frame start.
    std::int32_t lineOfFrame_ = 0;       ///< 0 before its lines.
    std::int32_t startOfLine_ = 0;       ///< Where the values of that line start.
};

} // namespace

void SetFileLines(const Playfile& playfile, const LoadOutcome& outcome, std::vector<Finding>& findings) {
    if (outcome.legacy)
        return;
    FileWalk walk(playfile.frames);
    for (Finding& finding : findings)
        if (finding.frame > 0 && finding.frame <= outcome.framesRead)
            finding.fileLine = walk.lineOf(finding);
}

} // namespace qrtVistrelClasses4
