#include "tools/playfile/Opening.h"

#include "frame/RuntimeError.h"
#include "playfile/LegacyFormat.h"

namespace qrtVistrelClasses4 {
namespace {

/// Tells why an opened file of the older format has not given all its frames, where the library keeps silent.
void explainLegacyPlayfile(FrameInfoClass& playfile, bool isOpen, bool saidNo, ErrorLines& errors) {
    const auto file = platform().files().openToRead(playfile.CurrentFileName());
    if (!file)
        return; // has been told
    if (!HasLegacyMark(*file.value())) {
        errors.add(kNoLegacyMark);
        return;
    }
    if (saidNo)
        errors.add("not opened: it is of the older format (PL2), and the question whether to go on was "
                   "answered with no; --yes answers it with yes");
    if (!isOpen)
        return;
    const LegacyExtent extent = ExtentOf(*file.value());
    const auto frames = static_cast<std::uint64_t>(playfile.TotalFrames());
    if (frames < extent.records)
        errors.add("only the first " + std::to_string(frames) + " of " + std::to_string(extent.records) +
                   " frames could be read");
    if (extent.bytesAfter > 0)
        errors.add("the last " + std::to_string(extent.bytesAfter) + " bytes are no whole frame");
}

} // namespace

bool OpenPlayfile(FrameInfoClass& playfile, const std::string& name, const AnswerOptions& options,
                  ErrorLines& errors) {
    errors.about(name);
    const Answers answers(options);
    const bool isOpen = playfile.GetPlayfileFromDisk(name);
    if (playfile.IsLegacy())
        explainLegacyPlayfile(playfile, isOpen, answers.saidNo(), errors);
    return isOpen;
}

} // namespace qrtVistrelClasses4
