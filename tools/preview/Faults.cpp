#include "tools/preview/Faults.h"

#include "media/BmpFile.h"
#include "platform/Path.h"
#include "tools/program/Encoding.h"

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

/// The name of a font's file without its folder: the file was looked for in several.
std::string fontName(const std::string& path) {
    const std::string name(SplitPath(path).name);
    return Utf8FromName(name.empty() ? path : name);
}

/// What is wrong with a font.
std::string textOfFontFault(const PreviewFault& fault) {
    using enum PreviewFault::What;
    if (fault.what == unnamedFont)
        return "a custom font has no name";
    if (fault.what == unknownFontNumber)
        return "there is no font " + fault.name;
    if (fault.what == missingFont)
        return "the font " + fontName(fault.name) + " is missing";
    const std::string font = "the font " + Utf8FromName(fault.name);
    return fault.error ? font + " cannot be read: " + TextOf(*fault.error) : font + " is cut short";
}

void addFontFault(const PreviewFault& fault, ErrorLines& errors) {
    if (fault.what == PreviewFault::What::noFonts)
        errors.add("there are no fonts: put the font files of the sign into " + Utf8FromName(fault.name) +
                   ", or use --home with a folder that has them in \"bin\"");
    else
        errors.add(textOfFontFault(fault) +
                   (fault.isReplaced ? "; font 0 is used instead" : "; its lines stay empty"));
}

/// Characters of a font with blanks between them. A blank itself is in quotation marks.
std::string listOfCharacters(const std::string& characters) {
    std::string list;
    for (const char character : characters)
        list += (list.empty() ? "" : " ") +
                (character == ' ' ? std::string("\" \"") : Utf8FromAnsi(std::string(1, character)));
    return list;
}

/// What is wrong in a frame or one of its lines.
std::string textOfFault(const PreviewFault& fault) {
    using enum PreviewFault::What;
    if (fault.what == lackingCharacters)
        return "the font lacks " + listOfCharacters(fault.name);
    if (fault.what == cutText)
        return "the text is cut at the edge of the sign";
    if (fault.what == missingPicture)
        return Utf8FromName(fault.name) + " is missing";
    const std::string side = std::to_string(kLargestBmpSide);
    return Utf8FromName(SplitPath(fault.name).name) +
           " cannot be drawn: it is not an uncompressed BMP of up to " + side + " x " + side + " pixels";
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

void AddFaults(const std::vector<FontFault>& faults, ErrorLines& errors) {
    for (const FontFault& fault : faults)
        addFontFault(PreviewFaultOf(fault), errors);
}

void AddFaults(const std::vector<PreviewFault>& faults, ErrorLines& errors) {
    std::vector<EqualFaults> together;
    std::map<std::tuple<PreviewFault::What, std::int32_t, std::string>, std::size_t> known;
    for (const PreviewFault& fault : faults) {
        if (fault.frame == 0) {
            addFontFault(fault, errors);
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

} // namespace qrtVistrelClasses4
