// Writing a playfile or its export, and what came of it.
//
// These functions use the platform and the settings of the process. Several threads may call them at once for
// different files.
// The functions report failures of files in what they return. They throw error 7 for lack of memory and error
// 51 for an unknown failure.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/FrameReference.h>
#include <qrtVistrelClasses4/Playfile.h>
#include <qrtVistrelClasses4/RuntimeError.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

struct SaveCircumstances {
    /// Returns whether files on drives that may go away are to be copied into the application's data folder.
    /// Called at most once, when the first such file is found. If empty, they are not copied.
    std::function<bool()> wantsCopies{};
};

struct [[nodiscard]] SaveOutcome {
    std::optional<RuntimeError> error; ///< Empty if the playfile was written.
    /// True if `path` is a playfile of the older format, with a name that ends in "PL2". No save could make
    /// it again, so it is kept, and `error` says so.
    bool wouldReplaceOlder = false;
    /// References that now lead to copies of their files, in the order of the frames. Filled even if the
    /// playfile could not be written afterwards.
    std::vector<ChangedReference> copies;
    /// Files whose copying failed. They are referred to where they are. The first failure has been reported
    /// as usual; the others, and then their number, have been reported quietly.
    std::vector<FrameReference> failedCopies;

    bool isWritten() const { return !error; }
};

/// Writes a playfile to `path`, with references to the copies that it makes. A failure leaves the existing
/// file unchanged. A playfile of the older format is never replaced. A delay that is infinite or not a number
/// is error 6, since a file with it could not be loaded; then nothing is copied either. The host may change
/// `playfile` while a question is asked or a failed copy is reported. The frames are looked up again
/// afterwards, as many as there were at first, and a frame that has gone is error 9.
QRT_PUBLIC SaveOutcome SavePlayfile(const Playfile& playfile, const std::string& path,
                                    const SaveCircumstances& circumstances = {});

/// Makes references lead to the copies of a save, if the references are still there.
QRT_PUBLIC void ReferToCopies(Playfile& playfile, const std::vector<ChangedReference>& copies);

/// What is added to a playfile's name for its export.
inline constexpr const char* kXmlEnding = ".xml";

/// The form of an export: the one that existing readers expect, whose elements have no root and no
/// declaration, or an XML document in UTF-8.
enum class XmlForm { elements, document };

/// Writes all frames and lines to the file `path`. Returns the error if that fails; the existing file is then
/// unchanged.
QRT_PUBLIC [[nodiscard]] std::optional<RuntimeError>
ExportXml(const Playfile& playfile, const std::string& path, XmlForm form = XmlForm::elements);

} // namespace qrtVistrelClasses4
