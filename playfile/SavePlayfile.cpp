#include <qrtVistrelClasses4/SavePlayfile.h>

#include "frame/ErrorTrap.h"
#include "frame/SystemErrors.h"
#include "platform/FileNames.h"
#include "platform/FixedDrives.h"
#include "platform/Path.h"
#include "platform/Platform.h"
#include "platform/ReplacementFile.h"
#include "playfile/LegacyFormat.h"
#include "playfile/MediaFiles.h"
#include "playfile/PlayfileFormat.h"
#include "playfile/PlayfileOutput.h"

#include <unordered_map>
#include <utility>

namespace qrtVistrelClasses4 {
namespace {

/// The files that the frames refer to, in the order in which saving looks at them. Error 6 for a delay that
/// cannot be read from a file.
std::vector<FrameReference> referencesOf(const Playfile& playfile) {
    std::vector<FrameReference> references;
    std::int32_t number = 0;
    for (const FrameRecord& frame : playfile.frames) {
        ++number;
        DelayAccessor::check(frame.DelayTime);
        for (const auto member : {&FrameRecord::PicturefileName, &FrameRecord::commandfile})
            if (const std::string& file = frame.*member; !file.empty())
                references.push_back({number, member, file});
    }
    return references;
}

/// Copies files that may go away, once the operator has agreed; asks at the first of them.
class ReferenceCopier {
public:
    ReferenceCopier(const SaveCircumstances& circumstances, SaveOutcome& outcome)
        : circumstances_(circumstances), outcome_(outcome) {}

    void copy(FrameReference reference) {
        if (IsFixedDrive(reference.file, drives_) || !isWanted())
            return;
        if (std::optional<std::string> copy = copyOnce(reference.file))
            outcome_.copies.push_back({std::move(reference), std::move(*copy)});
        else
            outcome_.failedCopies.push_back(std::move(reference));
    }
    /// Only the first failure of a save is shown to the operator. The log has them all, and their number.
    void reportFailures() const {
        if (const std::size_t count = outcome_.failedCopies.size(); count > 1)
            ReportQuietly(
                RuntimeError(static_cast<int>(ErrorNumber::pathFileAccess),
                             std::to_string(count) + " references lead to files that could not be copied"));
    }

private:
    /// The file that was copied last under a name, and its copy; no copy if copying failed.
    struct Copied {
        std::string source;
        std::optional<std::string> copy;
    };

    bool isWanted() {
        if (!isWanted_)
            isWanted_ = circumstances_.wantsCopies && circumstances_.wantsCopies();
        return *isWanted_;
    }
    /// Frames often share a file. A file is copied again only if another file of the same name was copied in
    /// between: the last one wins.
    std::optional<std::string> copyOnce(const std::string& file) {
        Copied& last = copied_[FoldedName(SplitPath(file).name)];
        if (last.source != file)
            last = {file, CopyToDataFolder(file, outcome_.failedCopies.empty() ? FailureReport::usual
                                                                               : FailureReport::quiet)};
        return last.copy;
    }

    const SaveCircumstances& circumstances_;
    SaveOutcome& outcome_;
    FixedDrives drives_{platform().files()};
    std::optional<bool> isWanted_;
    std::unordered_map<std::string, Copied> copied_; ///< By `FoldedName` of the file name.
};

/// Writes a frame, with its references to copies. `copy` is the first copy of this frame or of a later one;
/// it is moved past those of this frame.
void writeFrame(QuotedLineWriter& out, const FrameRecord& frame, std::int32_t number,
                std::vector<ChangedReference>::const_iterator& copy,
                std::vector<ChangedReference>::const_iterator end) {
    if (copy == end || copy->reference.frame != number)
        return WriteFrame(out, frame);
    FrameRecord withCopies = frame;
    for (; copy != end && copy->reference.frame == number; ++copy)
        if (std::string& file = withCopies.*copy->reference.member; file == copy->reference.file)
            file = copy->now;
    WriteFrame(out, withCopies);
}

/// Whether `path` is a playfile of the older format under the name that these have. It cannot be made again,
/// so it is never replaced. A file that cannot be read might be one, and is an error.
bool isOlderPlayfile(const std::string& path) {
    if (!HasLegacyEnding(path))
        return false;
    const auto file = platform().files().openToRead(path);
    if (file.error() == SystemError::fileNotFound || file.error() == SystemError::folderNotFound)
        return false;
    Check(file.error());
    return HasLegacyMark(*file.value());
}

void writePlayfile(const Playfile& playfile, ByteSink& to, const SaveCircumstances& circumstances,
                   SaveOutcome& outcome) {
    const std::int32_t count = playfile.frames.upperBound();
    ReferenceCopier copier(circumstances, outcome);
    for (FrameReference& reference : referencesOf(playfile))
        copier.copy(std::move(reference));
    copier.reportFailures();
    QuotedLineWriter out(to);
    WriteFrameCount(out, count);
    auto copy = outcome.copies.cbegin();
    for (std::int32_t number = 1; number <= count; ++number)
        writeFrame(out, playfile.frames.at(number), number, copy, outcome.copies.cend());
    out.finish();
}

/// The outcome of `write(outcome)`.
template <class Write>
SaveOutcome outcomeOf(Write write) try {
    SaveOutcome outcome;
    try {
        write(outcome);
    } catch (const RuntimeError& error) {
        outcome.error = error;
    }
    return outcome;
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace

SaveOutcome SavePlayfile(const Playfile& playfile, const std::string& path,
                         const SaveCircumstances& circumstances) {
    return outcomeOf([&](SaveOutcome& outcome) {
        outcome.wouldReplaceOlder = isOlderPlayfile(path);
        if (outcome.wouldReplaceOlder)
            throw RuntimeError(static_cast<int>(ErrorNumber::fileAlreadyExists),
                               "The file is a playfile of the older format, which cannot be replaced");
        ReplacementFile file(platform().files(), path);
        Check(file.error());
        writePlayfile(playfile, file, circumstances, outcome);
        Check(file.commit());
    });
}

SaveOutcome WritePlayfile(const Playfile& playfile, ByteSink& to, const SaveCircumstances& circumstances) {
    return outcomeOf([&](SaveOutcome& outcome) { writePlayfile(playfile, to, circumstances, outcome); });
}

void ReferToCopies(Playfile& playfile, const std::vector<ChangedReference>& copies) try {
    for (const auto& [reference, copy] : copies) {
        if (!playfile.frames.contains(reference.frame))
            continue;
        if (std::string& file = playfile.frames.at(reference.frame).*reference.member; file == reference.file)
            file = copy;
    }
} catch (...) {
    RethrowAsRuntimeError();
}

} // namespace qrtVistrelClasses4
