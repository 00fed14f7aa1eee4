#include "tools/preview/Faults.h"

#include "preview/FaultText.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

std::string textOfFault(const PreviewFault& fault) {
    return TextOfFault(fault, fault.error ? TextOf(*fault.error) : std::string());
}

/// Faults that are the same in several frames.
struct EqualFaults {
    struct Range {
        std::int32_t first, last;
    };

    PreviewFault fault;
    std::vector<Range> frames = {};

    void add(std::int32_t frame) {
        if (!frames.empty() && frames.back().last >= frame - 1)
            frames.back().last = frame;
        else
            frames.push_back({frame, frame});
    }

    /// "frames 2, 5-7, line 1: ...". Frames after the first few ranges are only counted.
    std::string text() const {
        constexpr std::size_t mostRanges = 8;
        std::string numbers;
        for (const auto& [first, last] : std::span(frames).first(std::min(frames.size(), mostRanges)))
            numbers += (numbers.empty() ? " " : ", ") + std::to_string(first) +
                       (first < last ? "-" + std::to_string(last) : "");
        std::int32_t more = 0;
        for (std::size_t i = mostRanges; i < frames.size(); ++i)
            more += frames[i].last - frames[i].first + 1;
        if (more > 0)
            numbers += " and " + std::to_string(more) + " more";
        return (frames.front().first == frames.back().last ? "frame" : "frames") + numbers +
               (fault.line > 0 ? ", line " + std::to_string(fault.line) : "") + ": " + textOfFault(fault);
    }
};

} // namespace

void AddFaults(const std::vector<PreviewFault>& faults, ErrorLines& errors) {
    std::vector<EqualFaults> together;
    std::map<std::tuple<PreviewFault::What, std::int32_t, std::string>, std::size_t> known;
    for (const PreviewFault& fault : faults) {
        if (fault.frame == 0) {
            const bool areMissing = fault.what == PreviewFault::What::noFonts;
            errors.add(textOfFault(fault) +
                       (areMissing ? ", or use --home with a folder that has them in \"bin\"" : ""));
            continue;
        }
        const auto [equal, isNew] = known.try_emplace({fault.what, fault.line, fault.name}, together.size());
        if (isNew)
            together.push_back({fault});
        together[equal->second].add(fault.frame);
    }
    for (const EqualFaults& equal : together)
        errors.add(equal.text());
}

void AddFaults(const std::vector<FontFault>& faults, ErrorLines& errors) {
    std::vector<PreviewFault> shown(faults.size());
    std::ranges::transform(faults, shown.begin(), &PreviewFaultOf);
    AddFaults(shown, errors);
}

} // namespace qrtVistrelClasses4
