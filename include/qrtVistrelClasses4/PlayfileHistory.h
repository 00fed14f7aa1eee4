// Undo and redo for programs that edit playfiles.
#pragma once

#include <qrtVistrelClasses4/Export.h>
#include <qrtVistrelClasses4/Playfile.h>

#include <cstddef>
#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <vector>

namespace QRT_PUBLIC qrtVistrelClasses4 {

/// Memory for steps unless the host sets another bound: thousands of usual edits.
inline constexpr std::size_t kUsualHistoryBytes = 64U << 20U;

/// The present state of a playfile, and the steps that led to it.
///
/// The host edits a playfile of its own, a copy of `present()` or one that it keeps anyway, and records each
/// edit under a name. A step keeps only the frames that differ before and after it, so that it takes memory
/// for what has changed, however many frames there are. A frame that only moved is not kept.
///
/// Steps are about frames. `fileName` and `isLegacy` say where the playfile is and not what is in it: they
/// are those recorded last, and undo and redo leave them.
///
/// Functions throw error 7 for lack of memory, and the history is then as it was.
class PlayfileHistory {
public:
    /// A history without steps. `first` counts as saved, as it is after loading. `mostBytes` bounds the
    /// memory of steps, see `mostBytes`.
    explicit PlayfileHistory(Playfile first, std::size_t mostBytes = kUsualHistoryBytes);
    PlayfileHistory(const PlayfileHistory& other);
    PlayfileHistory(PlayfileHistory&& other) noexcept;
    PlayfileHistory& operator=(PlayfileHistory other) noexcept;
    ~PlayfileHistory();

    /// Valid, as references into it are, until the next step is recorded, undone or redone.
    const Playfile& present() const { return present_; }

    /// Makes `next` the present state, as a step from the state before. Steps that were undone are forgotten.
    /// Returns false if no frame has changed; then there is no new step, and undone steps stay.
    bool record(const Playfile& next, std::string name);
    /// Like `record`, for quick edits that one `undo` is to take back, such as letters typed into a line. The
    /// last step goes on to `next` instead of a new one if it has that name, if both changed the same frames
    /// in their places, and if nothing was undone or saved since. If it has become an edit that changes
    /// nothing, it is removed.
    bool extend(const Playfile& next, std::string name);

    /// Returns to the state before the last step. False if there is no step.
    bool undo();
    /// Makes the last step again that was undone. False if there is none.
    bool redo();

    /// The name of the step that `undo` takes back; nothing if there is none.
    std::optional<std::string> undoName() const;
    /// The name of the step that `redo` makes again; nothing if there is none.
    std::optional<std::string> redoName() const;
    /// The names of all steps that can be undone, in the order in which `undo` takes them back.
    std::vector<std::string> undoNames() const;
    /// The names of all steps that can be redone, in the order in which `redo` makes them again.
    std::vector<std::string> redoNames() const;

    /// Whether the present state is the one that was saved last. It also is after undo and redo have led back
    /// to it. Once that state is forgotten, nothing but a save makes this true again.
    bool isSaved() const { return saved_ == position_; }
    /// Notes that the present state has been saved to `fileName`, which becomes that of the playfile.
    void markSaved(std::string fileName);
    /// Notes that no state is the one in the file, for example because the file was not read to its end, is
    /// of the older format, or was deleted.
    void markUnsaved() { saved_.reset(); }

    /// Bytes that all steps together take at the most: what is beyond that is forgotten, the oldest steps
    /// first. The present state does not count, and always stays. A step that alone takes more than the bound
    /// is made, but it cannot be undone, nor can those before it.
    std::size_t mostBytes() const { return mostBytes_; }
    /// Sets the bound. After all steps that can be undone, those are forgotten that would be redone last.
    void mostBytes(std::size_t bytes);
    /// Bytes that the steps take, with their texts, lists and names, and an allowance for what each block of
    /// memory takes in addition. Done and undone, a step keeps different frames: it counts with those that
    /// take more, so that undo and redo forget nothing.
    std::size_t bytes() const { return bytes_; }

private:
    struct Step;

    bool makePresent(const Playfile& next, std::string name, bool mayExtend);
    void extendLast(Step& made);
    void append(std::list<Step>& made);
    void forget(std::list<Step>& steps, std::list<Step>::const_iterator step);
    void trim();

    Playfile present_;
    std::list<Step> done_;   ///< The last one last.
    std::list<Step> undone_; ///< The next to redo first.
    std::size_t mostBytes_;
    std::size_t bytes_ = 0; ///< Of all steps.
    /// The number of the present state. Each step adds 1, also those that are forgotten.
    std::int64_t position_ = 0;
    std::optional<std::int64_t> saved_ = 0; ///< The number of the saved state; nothing if it was dropped.
};

} // namespace qrtVistrelClasses4
