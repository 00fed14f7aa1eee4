// Writing a playfile or its export, and what came of it.
#pragma once

#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct SaveCircumstances {
    /// Asked at most once, when the first file is found that is on a drive that may go away: whether such
    /// files are to be copied into the application's data folder. If it is empty, they are not.
    std::function<bool()> wantsCopies{};
};

/// A file that a frame refers to.
struct FrameReference {
    std::int32_t frame = 0; ///< From 1.
    std::string FrameRecord::*member = nullptr;
    std::string file;

    bool operator==(const FrameReference&) const = default;
};

/// A reference that was replaced by a copy's.
struct CopiedReference {
    FrameReference reference; ///< As it was.
    std::string copy;         ///< Full name.

    bool operator==(const CopiedReference&) const = default;
};

struct SaveOutcome {
    std::optional<RuntimeError> error; ///< None if the playfile was written.
    /// In the order of the frames, also if the playfile could not be written afterwards.
    std::vector<CopiedReference> copies;
    /// Files whose copying failed, which has been reported. They are referred to where they are.
    std::vector<FrameReference> failedCopies;

    bool isWritten() const { return !error; }
};

/// Writes a playfile to `path`, with the references of the copies it makes. A failure leaves the file that
/// was there as it was. The question and reports of failed copies may change `playfile`: its frames are
/// looked at anew afterwards, as many as there were at first, and one that has gone is error 9.
SaveOutcome SavePlayfile(const Playfile& playfile, const std::string& path,
                         const SaveCircumstances& circumstances = {});

/// Puts the copies of a save in the place of the references that are still there.
void ReferToCopies(Playfile& playfile, const std::vector<CopiedReference>& copies);

/// What is added to a playfile's name for its export.
inline constexpr const char* kXmlEnding = ".xml";

/// Writes all frames and lines to the file `path`. Returns the error if that fails, which leaves the file
/// that was there as it was.
[[nodiscard]] std::optional<RuntimeError> ExportXml(const Playfile& playfile, const std::string& path);

} // namespace qrtVistrelClasses4
