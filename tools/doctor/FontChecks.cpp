// The fonts that the library finds.
#include "fonts/FontLoading.h"
#include "frame/Traced.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "tools/doctor/Checks.h"
#include "tools/fonts/FontOpening.h"
#include "tools/program/Encoding.h"
#include "tools/program/Outputs.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace qrtVistrelClasses4 {
namespace {

constexpr std::int16_t kOrdinarySign = 0;
constexpr std::int16_t kSignWithOwnFont = 16; ///< A Kestrel.
constexpr std::string_view kIndexEnding = ".idx";

/// A font file, whatever numbers it has.
struct NumberedFile {
    std::string name;
    NumberedFontFile file;
    bool isUsed = false; ///< Whether previews use it.
    std::set<std::int16_t> numbers{};
};

/// Adds a number to the file that has the font, or adds that file.
void addNumber(std::vector<NumberedFile>& files, std::int16_t number, std::int16_t signType, bool isNew) {
    const auto file = FindNumberedFont(number, signType, isNew);
    if (!file)
        return;
    const std::string name(SplitPath(file->path).name);
    auto found = std::ranges::find(files, name, &NumberedFile::name);
    if (found == files.end())
        found = files.insert(found, {name, *file, isNew});
    found->numbers.insert(number);
}

/// Those that previews use, then the older ones.
std::vector<NumberedFile> numberedFiles() {
    std::vector<NumberedFile> files;
    for (const bool isNew : {true, false})
        for (std::int16_t number = 0; number < kNumberedFonts; ++number)
            for (const std::int16_t signType : {kOrdinarySign, kSignWithOwnFont})
                addNumber(files, number, signType, isNew);
    return files;
}

/// Completes a finding about the file `path`, which exists. A file that is no whole font is `broken`.
void examineFont(DoctorFinding& finding, const std::string& path, const std::optional<CellSize>& size,
                 Severity broken) {
    finding.path = path;
    std::optional<std::string> fault;
    const auto error = ErrorOf([&] { fault = FaultOfFont(path, size); });
    if (error)
        fault = FaultOf(path, *error).clause();
    finding.message = VisibleName(path);
    if (!fault)
        return;
    finding.severity = broken;
    finding.message += ": " + *fault + NoteOfKind(path);
    finding.advice = "put a whole font in its place; vistrel font make makes one";
}

void examineExtendedFont(DoctorFinding& finding, const std::string& path, ExtendedPart part) {
    finding.subject = "extended font";
    finding.path = path;
    finding.message = VisibleName(path);
    if (part == ExtendedPart::ofWhole)
        return;
    finding.severity = Severity::warning;
    finding.message += ": the files of this extended font do not belong together, or one is not whole";
    finding.advice = "make both again with vistrel font make --extended";
}

std::string numbersText(const std::set<std::int16_t>& numbers) {
    std::string text;
    for (const std::int16_t number : numbers)
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    return text;
}

void checkNumbered(const NumberedFile& numbered, DoctorFindings& findings) {
    DoctorFinding finding{.check = "fonts.numbered", .subject = "font " + numbersText(numbered.numbers)};
    const FontOutcome loaded = LoadFontUnlessReplaced(numbered.file.path, numbered.file.size, false);
    if (loaded.path) {
        examineFont(finding, *loaded.path, numbered.file.size, Severity::error);
        if (!finding.severity)
            finding.message += ": " + SizeText(numbered.file.size) + " dots";
    } else {
        finding.severity = numbered.isUsed ? Severity::warning : Severity::note;
        finding.path = numbered.file.path;
        finding.message =
            numbered.name + " is missing" + (numbered.isUsed ? "; previews use font 0 instead" : "");
        finding.advice = "copy it to " + VisibleName(SplitPath(numbered.file.path).folder);
    }
    findings.push_back(std::move(finding));
}

} // namespace

void CheckFonts(DoctorFindings& findings) {
    if (const auto folder = FolderWithoutFonts(kOrdinarySign, true))
        findings.push_back({.check = "fonts.numbered",
                            .severity = Severity::warning,
                            .subject = "fonts",
                            .message = "none of the numbered fonts is found: previews show no texts",
                            .advice = "copy them to " + VisibleName(*folder),
                            .path = *folder});
    else
        for (const NumberedFile& numbered : numberedFiles())
            checkNumbered(numbered, findings);
    for (const std::string& path : OtherFontFiles()) {
        DoctorFinding finding{.check = "fonts.other", .subject = "other font"};
        const ExtendedPart part = ExtendedPartOf(path);
        if (part != ExtendedPart::none && EndingOf(path) != kIndexEnding)
            continue; // the index has the finding about both files
        if (part == ExtendedPart::none)
            examineFont(finding, path, SizeOfNumberedFont(path),
                        Severity::warning); // it may be no font at all
        else
            examineExtendedFont(finding, path, part);
        findings.push_back(std::move(finding));
    }
}

} // namespace qrtVistrelClasses4
