// Editing playfiles, one or many: all are read and edited before any is saved, so that an error anywhere
// leaves every file as it was.
#pragma once

#include "tools/playfile/Saving.h"
#include "tools/program/Inputs.h"
#include "tools/program/PropertyValues.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace qrtVistrelClasses4 {

struct EditOptions {
    InputOptions input;
    OutputOptions output; ///< Without a name, the playfiles themselves are saved.
    SavingOptions saving;
    bool json = false;
};

/// Whether a command finds files that are referred to, as `LoadPlayfile` does, unless "--keep-paths" is
/// typed, or keeps all references.
enum class References { found, kept };

/// Adds "FILES" and the options of all commands that edit playfiles.
void AddEditOptions(CLI::App& command, EditOptions& options, References references = References::found);

/// What an edit has changed in a frame, or in a line of it.
struct RecordChange {
    std::int32_t frame = 0; ///< From 1.
    std::int32_t line = 0;  ///< From 1; 0 for a property of the frame itself.
    ChangedProperty property{};
};

/// A playfile that is being edited.
class EditedPlayfile {
public:
    EditedPlayfile(std::string path, LoadOutcome loaded);

    const std::string& path() const { return path_; } ///< As it was typed or found in a folder.
    Playfile& playfile() { return opened_.playfile; }
    OneBasedArray<FrameRecord>& frames() { return opened_.playfile.frames; }
    /// With what loading has done to the references. An edit that inserts, removes or moves frames does the
    /// same to `references`, which has an element for each frame.
    const LoadOutcome& opened() const { return opened_; }
    std::vector<std::vector<ChangedReference>> references;

    /// Forgets what the frames `first` to `last` of a playfile of the older format have lost.
    void forgetLosses(std::int32_t first, std::int32_t last);

    /// Calls `edit(record)` for frame `frame`, or for line `line` of it, and keeps what has changed for the
    /// report.
    template <class Edit>
    void change(std::int32_t frame, Edit edit) {
        changeRecord(frames().at(frame), kFrameMembers, {frame, 0}, edit);
    }
    template <class Edit>
    void change(std::int32_t frame, std::int32_t line, Edit edit) {
        changeRecord(frames().at(frame).lines.at(line), kLineMembers, {frame, line}, edit);
    }
    const std::vector<RecordChange>& changes() const { return changes_; }

    std::string done;      ///< What the edit has done, in words. Empty if that is nothing worth reporting.
    bool isChanged = true; ///< A file that is not changed is not saved in place.

private:
    friend class EditRun;

    template <class Record, class Table, class Edit>
    void changeRecord(Record& record, const Table& table, const RecordChange& place, Edit edit) {
        const Record before = record;
        edit(record);
        for (ChangedProperty& property : ChangesBetween(before, record, table))
            changes_.push_back({place.frame, place.line, std::move(property)});
    }
    /// Gives the references that still lead to where loading has found them the numbers that their frames
    /// have now.
    void numberReferences();

    std::string path_;
    LoadOutcome opened_;
    std::vector<RecordChange> changes_;
};

/// The references of each frame that loading has changed.
std::vector<std::vector<ChangedReference>> ReferencesByFrame(const LoadOutcome& opened);

/// Edits one playfile, and sets `done`. The subject of errors is the file. An edit that cannot be made adds
/// an error, and no file is saved.
using PlayfileEdit = std::function<void(EditedPlayfile& edited, ErrorLines& errors)>;

/// Opens all files, edits them, and saves them if there was no error.
ExitCode EditPlayfiles(const EditOptions& options, Session& session, const PlayfileEdit& edit);

} // namespace qrtVistrelClasses4
