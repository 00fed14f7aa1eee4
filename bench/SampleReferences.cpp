#include "bench/SampleReferences.h"

#include "bench/WholeFile.h"

#include <filesystem>
#include <string_view>

namespace qrtVistrelClasses4::bench {
namespace {

constexpr unsigned kFiles = 8; ///< Of each kind.
constexpr unsigned kGone = 12;

/// Files beside the playfile. The references to some of them are in another case.
constexpr std::string_view kBeside = "Logo_";
constexpr std::string_view kBesideOnWindows = "C:\\Signs\\Pictures\\LOGO_";
constexpr std::string_view kBesideAlone = "Logo_";

std::string numbered(std::string_view start, unsigned number, const std::string& ending) {
    return std::string(start) + std::to_string(number) + ending;
}

} // namespace

SampleReferences::SampleReferences(const BenchFolder& folder)
    : home_(folder.file("")), pictures_(folder.file("pictures/")) {
    std::filesystem::create_directory(pictures_);
    for (unsigned number = 0; number < kFiles; ++number)
        for (const std::string ending : {".bmp", ".cmd"})
            for (const std::string& start : {pictures_, home_ + std::string(kBeside)})
                WriteNewFile(numbered(start, number, ending), "BM");
}

std::string SampleReferences::oneOf(Dice& dice, const std::string& ending) const {
    switch (dice.below(8)) {
    case 0:
    case 1:
    case 2:
        return numbered(pictures_, dice.below(kFiles), ending);
    case 3:
    case 4:
        return numbered(kBesideOnWindows, dice.below(kFiles), ending);
    case 5:
        return numbered(kBesideAlone, dice.below(kFiles), ending);
    case 6:
        return numbered("D:\\Old signs\\GONE_", dice.below(kGone), ending);
    default:
        return numbered("/srv/signs/gone_", dice.below(kGone), ending);
    }
}

std::string SampleReferences::onceLoaded(const std::string& reference) const {
    for (const std::string_view start : {kBesideOnWindows, kBesideAlone})
        if (reference.starts_with(start))
            return home_ + std::string(kBeside) + reference.substr(start.size());
    return reference;
}

void FindReferences(OneBasedArray<FrameRecord>& frames, const BenchFolder& folder) {
    const SampleReferences references(folder);
    for (FrameRecord& frame : frames)
        for (const auto member : {&FrameRecord::PicturefileName, &FrameRecord::commandfile})
            frame.*member = references.onceLoaded(frame.*member);
}

} // namespace qrtVistrelClasses4::bench
